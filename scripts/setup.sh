# Set-up that the run scripts share; they source it with the repository as the current directory.

# Debian packages by purpose.
buildPackages=(g++ cmake ninja-build pkg-config)
programPackages=(libcli11-dev libcairo2-dev libpango1.0-dev nlohmann-json3-dev libfmt-dev
                 fonts-wqy-microhei fonts-dejavu-core)
testPackages=(libgtest-dev libgmock-dev locales)
bindingPackages=(mono-mcs mono-runtime libmono-system-core4.0-cil zip unzip
                 python3-numpy python3-matplotlib python3-pip python3-setuptools python3-wheel)
debianPackages=(dpkg-dev file)
# For other machines than that of the build: Windows, and 32 bits. Their GoogleTest is built from its source.
windowsPackages=(g++-mingw-w64-x86-64-posix wine64 googletest)
narrowPackages=(g++-multilib googletest)
stylePackages=(clang-format clang-tidy cppcheck doxygen git)
fuzzPackages=(clang libclang-rt-14-dev python3)
benchPackages=(libbenchmark-dev python3)
peerPackages=(gdal-bin python3-contourpy python3-matplotlib python3-numpy python3-scipy)

step() { printf '== %s\n' "$*" >&2; }

# quietly COMMAND...: runs it and shows its output only when it fails.
quietly() {
    local output
    output=$("$@" 2>&1 </dev/null) || { printf '%s\n' "$output" >&2; return 1; }
}

asRoot() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# installPackages PACKAGE...: installs those that are missing.
installPackages() {
    local package missing=()
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    step "Installing ${missing[*]}"
    quietly asRoot apt-get update
    quietly asRoot env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

# What has been compiled before is not compiled again, where ccache is installed. It takes the tests' precompiled headers
# when macros of theirs and macros of time need not be looked at.
if command -v ccache >/dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER-ccache}
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS-pch_defines,time_macros}
fi

# buildPreset PRESET [CMAKE-OPTION...]
buildPreset() {
    step "Building preset $1 in build/$1"
    quietly cmake --preset "$@"
    quietly cmake --build --preset "$1"
}

# testPreset PRESET: builds it with its tests, and runs those.
testPreset() {
    buildPreset "$1" -DVELMAR_TESTS=ON
    step "Running the tests of preset $1"
    ctest --preset "$1" -j2
}
