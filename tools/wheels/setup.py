"""Makes a wheel of the Python package, with the library in it: for one machine, which setup.cfg
names, but for any Python 3, as nothing is compiled for Python."""

import setuptools
from wheel.bdist_wheel import bdist_wheel


class WithLibrary(setuptools.Distribution):
    def has_ext_modules(self):
        return True


class OfMachine(bdist_wheel):
    def get_tag(self):
        return "py3", "none", self.plat_name


setuptools.setup(distclass=WithLibrary, cmdclass={"bdist_wheel": OfMachine})
