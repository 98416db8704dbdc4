# shellcheck shell=bash disable=SC2034
# What the program is built and tested with, as Debian 12 names it, and how it gets installed.

build_packages=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-svg-dev libgl-dev
    libxcb1-dev libplist-dev libfmt-dev libcli11-dev libutf8proc-dev libutfcpp-dev
    nlohmann-json3-dev fonts-dejavu-core)
display_packages=(xvfb fonts-droid-fallback)
test_packages=(libgtest-dev libbenchmark-dev iproute2 util-linux dbus-daemon libglib2.0-bin
    x11-utils xdotool python3-pyatspi at-spi2-core)
check_packages=(clang clang-format clang-tidy libclang-rt-dev)

# The packages among the arguments that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
            echo "$package"
    done
}

# Installs those of the packages that are missing, or says which and why it cannot. A desktop that
# has just started often runs an upgrade of its own: apt-get waits for it rather than fail.
install_packages() {
    local missing
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "There is no apt-get here. If the build fails, look for these: $*" >&2
        return 0
    fi
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null || ! sudo -v; then
            echo "Packages are missing, and installing them needs root or sudo. As root:" >&2
            echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]} ..."
    if ! { "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
            -o DPkg::Lock::Timeout=300 --no-install-recommends "${missing[@]}" >/dev/null; }; then
        echo "apt-get could not install: ${missing[*]}" >&2
        return 1
    fi
}
