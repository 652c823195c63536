# What the commands of ./dev need of Debian's packages: sourced by it, for say, fail and quietly.

# need PACKAGE...: installs those of Debian's packages that are not there. None of the user's own is
# removed for them. Without apt-get it only says what would be installed: what then is missing, the
# commands say themselves.
need() {
    command -v dpkg-query >/dev/null && command -v apt-get >/dev/null || { note_needed "$@"; return; }
    missing=
    for package; do
        # Node that is not Debian's brings npm along.
        [ "$package" = npm ] && command -v npm >/dev/null && continue
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

noted=
note_needed() {
    for package; do
        case " $noted " in
            *" $package "*) ;;
            *) noted="$noted $package" new=1 ;;
        esac
    done
    [ -z "${new:-}" ] || say "Without apt-get nothing is installed. Needed (Debian's names): $*"
    new=
}

# Debian's gcc-multilib and gcc for ARM cannot both be installed: the packages with the compiler's
# version in their name and clang for ARM can.
need_for() {
    need g++ cmake ninja-build python3 libgtest-dev pkg-config
    version=$(g++ -dumpversion 2>/dev/null || echo 12)
    case $1 in
        release | debug | asan | tsan) ;;
        x86) need "g++-${version%%.*}-multilib" ;;
        aarch64)
            need clang binutils-aarch64-linux-gnu qemu-user \
                "libstdc++-${version%%.*}-dev-arm64-cross"
            ;;
        windows-x86) need g++-mingw-w64-i686 ;;
        windows-x64) need g++-mingw-w64-x86-64 ;;
        wine) need wine wine64 debootstrap ;;
        bits) need clang ;;
        fuzz) need clang libclang-rt-dev ;;
        debian) need dpkg-dev file lintian ;;
        wasm) need emscripten esbuild ;;
        manual) need python3-jinja2 python3-markdown nodejs ;;
        browser) need chromium node-typescript npm ;;
        kezsection)
            need python3-distributed python3-ezdxf python3-numpy python3-pip python3-setuptools \
                python3-tqdm python3-wheel
            ;;
        packages) need clang lld llvm python3-pip python3-setuptools python3-wheel npm ;;
        nuget) need mono-mcs mono-runtime nuget ;;
        bench)
            need libbenchmark-dev libcgal-dev libeigen3-dev libboost-dev libpolyclipping-dev \
                libabsl-dev libocct-modeling-data-dev python3-numpy python3-shapely
            ;;
        *) fail "nothing is known of what '$1' needs" ;;
    esac
}

# need_as_said LINE FILE...: what the files say that they need, in lines that begin so.
need_as_said() {
    line=$1
    shift
    packages=$(sed -n "s/^[# ]*$line: //p" "$@")
    # shellcheck disable=SC2086 # package names
    [ -z "$packages" ] || need $packages
}
