# What the scripts share; sourced, not run. Leaves the shell in the project's root.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# install_missing PACKAGE ...: installs the Debian packages that are not there yet.
install_missing() {
    local missing=() package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build qtbase5-dev qtmultimedia5-dev libqt5multimedia5-plugins libsimpleini-dev
                fonts-dejavu-core)
test_packages=("${build_packages[@]}" libbenchmark-dev xvfb xauth xdotool abigail-tools clang make
               pkg-config dpkg-dev file binutils)

test_jobs=$(($(nproc) + 1)) # there is always one that waits: for a window that must stay idle, or for Wine

# run_tests PRESET [CTEST ARGUMENT ...]: runs the tests of a build, says which of them were skipped and why,
# and ends with the summary.
run_tests() {
    local log=build/$1/tests.log status=0
    ctest --preset "$1" "${@:2}" 2>&1 | tee "$log" || status=$?
    echo
    echo "Skipped:"
    grep -a -A1 "^SKIP " "build/$1/Testing/Temporary/LastTest.log" | grep -a "^SKIP " || echo "nothing"
    sed -n '/tests passed/,$p' "$log"
    return "$status"
}

# build PRESET [CMAKE OPTION ...]
build() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" >"/tmp/kestova-configure-$preset.$$" 2>&1 ||
        { cat "/tmp/kestova-configure-$preset.$$"; return 1; }
    grep "^-- .*[Ll]eft out" "/tmp/kestova-configure-$preset.$$" || true
    rm -f "/tmp/kestova-configure-$preset.$$"
    cmake --build --preset "$preset" -- --quiet
}
