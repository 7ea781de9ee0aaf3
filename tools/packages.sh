# Debian packages that the scripts need, installed when they are missing. Sourced, not run.

BUILD_PACKAGES=(g++ cmake ninja-build ccache git pkg-config nlohmann-json3-dev libcli11-dev
                libisal-dev libpugixml-dev libsqlite3-dev qt6-base-dev qt6-svg-dev libgl1-mesa-dev
                fonts-dejavu-core)
TEST_PACKAGES=(libgtest-dev libgmock-dev clang-14 libclang-rt-14-dev llvm-14 xvfb openbox xdotool)
CHECK_PACKAGES=(clang-format-14 clang-tidy-14)
BENCHMARK_PACKAGES=(libbenchmark-dev)
VM_PACKAGES=(qemu-system-x86 linux-headers-amd64 linux-source-6.1 xz-utils make kmod cpio
             busybox-static)

# install_packages PACKAGE...: installs those that are not there; as root, or else through sudo.
install_packages() {
    local missing=() package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing: ${missing[*]}" >&2
            echo "Install them as root (apt-get install ${missing[*]}) and start again." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# quietly COMMAND...: its output only if it fails.
quietly() {
    local log
    log=$(mktemp)
    if "$@" >"$log" 2>&1; then
        rm -f "$log"
    else
        local status=$?
        cat "$log" >&2
        rm -f "$log"
        return "$status"
    fi
}
