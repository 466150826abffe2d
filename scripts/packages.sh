# Debian packages that the other scripts need: sourced by them.

# Installs those of the packages that are missing, asking for root where needed.
install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/dev/null
}

build_packages=(g++ cmake ninja-build pkg-config libjsoncpp-dev libcli11-dev libfmt-dev nlohmann-json3-dev libtbb-dev)
test_packages=("${build_packages[@]}" clang libgtest-dev librapidcheck-dev bats locales make python3 tzdata mandoc bsdextrautils zsh fish)
bench_packages=("${build_packages[@]}" libbenchmark-dev locales rapidjson-dev libsimdjson-dev python3 valgrind)
reference_packages=("${build_packages[@]}" doxygen python3)
growth_packages=("${test_packages[@]}" valgrind)
check_packages=("${test_packages[@]}" clang-format clang-tidy libclang-rt-14-dev)
coverage_packages=("${test_packages[@]}" llvm)
abi_packages=("${test_packages[@]}" abigail-tools xz-utils)
soak_packages=("${test_packages[@]}" clang-tidy llvm libclang-rt-14-dev valgrind)
package_packages=("${build_packages[@]}" dpkg-dev lintian debootstrap file)
fuzz_packages=("${test_packages[@]}" libclang-rt-14-dev)
