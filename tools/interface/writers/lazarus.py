"""Pascal's unit as a package of Lazarus. Its name is not the unit's: Lazarus writes a unit of that
name beside it, which uses the others."""

from ..reader import version
from . import NOTICE

FILE = "pascal/kezlib_package.lpk"


def write(interface):
    major, minor, release = version().split(".")
    return f"""\
<?xml version="1.0" encoding="UTF-8"?>
<!-- {NOTICE} -->
<CONFIG>
  <Package Version="5">
    <Name Value="kezlib_package"/>
    <Type Value="RunTime"/>
    <Author Value="KezLib developers"/>
    <CompilerOptions>
      <Version Value="11"/>
      <SearchPaths>
        <UnitOutputDirectory Value="lib/$(TargetCPU)-$(TargetOS)"/>
      </SearchPaths>
    </CompilerOptions>
    <Description Value="Numeric routines for programs that design steel structures"/>
    <Version Major="{major}" Minor="{minor}" Release="{release}"/>
    <Files Count="1">
      <Item1>
        <Filename Value="kezlib.pas"/>
        <UnitName Value="KezLib"/>
      </Item1>
    </Files>
    <UsageOptions>
      <UnitPath Value="$(PkgOutDir)"/>
    </UsageOptions>
  </Package>
</CONFIG>
"""
