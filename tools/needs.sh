# What the commands of ./dev need of Debian's packages: sourced by it, for say, fail and quietly.

# need PACKAGE...: installs those of Debian's packages that are not there. None of the user's own is
# removed for them.
need() {
    command -v apt-get >/dev/null || { need_without_apt "$@"; return; }
    missing=
    for package; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing="$missing $package"
    done
    [ -z "$missing" ] && return
    as_root=
    [ "$(id -u)" = 0 ] || as_root=sudo
    [ -z "$as_root" ] || command -v sudo >/dev/null ||
        fail "neither root nor sudo to install these packages:$missing"
    say "Installing$missing"
    $as_root apt-get -o DPkg::Lock::Timeout=600 update -qq || true
    quietly packages.log $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=600 install -qq -y --no-remove --no-install-recommends \
        $missing
}

need_without_apt() {
    missing=
    for package; do
        brought "$package" >/dev/null 2>&1 || missing="$missing $package"
    done
    [ -z "$missing" ] ||
        fail "nothing is installed without apt-get; please install (Debian's names):$missing"
}

has_header() {
    echo "#include <$1>" | c++ -I/usr/include/eigen3 -I/usr/include/opencascade -x c++ -E -
}

# Whether what a package of Debian's brings is there, wherever from.
brought() {
    case $1 in
        libabsl-dev) has_header absl/base/config.h ;;
        libbenchmark-dev) has_header benchmark/benchmark.h ;;
        libboost-dev) has_header boost/version.hpp ;;
        libcgal-dev) has_header CGAL/version.h ;;
        libeigen3-dev) has_header Eigen/Core ;;
        libgtest-dev) has_header gtest/gtest.h ;;
        libocct-modeling-data-dev) has_header IntAna2d_AnaIntersection.hxx ;;
        libpolyclipping-dev) has_header polyclipping/clipper.hpp ;;
        ninja-build) command -v ninja ;;
        pkg-config) command -v pkg-config || command -v pkgconf ;;
        libclang-rt-dev) echo | clang++ -x c++ -fsanitize=address -shared - -o /dev/null ;;
        g++-*-multilib) echo 'int main() {}' | c++ -m32 -x c++ - -o /dev/null ;;
        g++-mingw-w64-i686) command -v i686-w64-mingw32-g++ ;;
        g++-mingw-w64-x86-64) command -v x86_64-w64-mingw32-g++ ;;
        libstdc++-*-arm64-cross)
            echo '#include <string>' | clang++ --target=aarch64-linux-gnu -x c++ -E - ;;
        binutils-aarch64-linux-gnu) command -v aarch64-linux-gnu-ld ;;
        qemu-user) command -v qemu-aarch64 ;;
        wine64) command -v wine ;;
        llvm) command -v llvm-dlltool ;;
        python3-jinja2 | python3-markdown) /usr/bin/python3 -c "import ${1#python3-}" ;;
        dpkg-dev) command -v dpkg-shlibdeps ;;
        emscripten) command -v emcc ;;
        mono-mcs) command -v mcs ;;
        mono-runtime) command -v mono ;;
        fpc-source) [ -d /usr/share/fpcsrc ] ;;
        gfortran-mingw-w64-i686*) command -v i686-w64-mingw32-gfortran ;;
        gfortran-mingw-w64-x86-64*) command -v x86_64-w64-mingw32-gfortran ;;
        nodejs) command -v node ;;
        node-typescript) command -v tsc ;;
        python3-*) python3 -c "import ${1#python3-}" ;;
        *) command -v "$1" ;;
    esac
}

# Node that is not Debian's brings it along.
need_npm() { command -v npm >/dev/null || need npm; }

# Debian's gcc-multilib and gcc for ARM cannot both be installed: the packages with the compiler's
# version in their name and clang for ARM can.
need_for() {
    need g++ cmake ninja-build python3 libgtest-dev pkg-config
    version=$(g++ -dumpversion)
    case $1 in
        x86) need "g++-${version%%.*}-multilib" ;;
        aarch64)
            need clang binutils-aarch64-linux-gnu qemu-user
            need "libstdc++-${version%%.*}-dev-arm64-cross"
            ;;
        windows-x86) need g++-mingw-w64-i686 ;;
        windows-x64) need g++-mingw-w64-x86-64 ;;
        wine) need wine wine64 debootstrap ;;
        bits) need clang ;;
        fuzz) need clang libclang-rt-dev ;;
        debian) need dpkg-dev file lintian ;;
        wasm) need emscripten esbuild ;;
        python) need python3-numpy python3-pip python3-setuptools python3-wheel mypy ;;
        fortran) need gfortran ;;
        fortran-windows) need gfortran-mingw-w64-i686-win32 gfortran-mingw-w64-x86-64-win32 ;;
        pascal) need fpc ;;
        pascal-windows) need fpc-source ;;
        csharp) need mono-mcs mono-runtime ;;
        kezsection)
            need python3-distributed python3-ezdxf python3-numpy python3-pip python3-setuptools \
                python3-tqdm python3-wheel
            ;;
        javascript)
            need nodejs node-typescript chromium
            need_npm
            ;;
        manual) need python3-jinja2 python3-markdown nodejs ;;
        browser)
            need chromium node-typescript
            need_npm
            ;;
        packages)
            need clang lld llvm python3-pip python3-setuptools python3-wheel
            need_npm
            ;;
        bench)
            need libbenchmark-dev libcgal-dev libeigen3-dev libboost-dev libpolyclipping-dev \
                libabsl-dev libocct-modeling-data-dev
            ;;
    esac
}
