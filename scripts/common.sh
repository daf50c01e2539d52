# Shared by the set-up scripts; source it, do not run it.
# Installs missing Debian packages (as root), then configures and builds with
# a CMake preset ("default" unless ZO_PRESET names another) as the user who
# owns the checkout.

REPO_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
ZO_PRESET="${ZO_PRESET:-default}"
BUILD_DIR="$REPO_ROOT/build/$ZO_PRESET"

ZO_PACKAGES=(
    cmake make g++ pkg-config
    qtbase5-dev libqt5svg5-dev libproj-dev
    libgtest-dev libbenchmark-dev libgeos-dev zlib1g-dev
    xvfb xauth fonts-wqy-microhei
)
# A Qt 6 preset needs Qt 6 besides (Core5Compat for the code-page conversions).
case "$ZO_PRESET" in
*qt6*) ZO_PACKAGES+=(qt6-base-dev qt6-svg-dev qt6-5compat-dev libqt6opengl6-dev) ;;
esac

zo_missing_packages() {
    local package
    for package in "${ZO_PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || echo "$package"
    done
}

zo_install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: make sure these are installed: ${ZO_PACKAGES[*]}" >&2
        return 0
    fi
    local missing
    mapfile -t missing < <(zo_missing_packages)
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    if [ "$(id -u)" -ne 0 ]; then
        echo "Missing Debian packages: ${missing[*]}" >&2
        echo "Run this script with sudo, or: sudo apt-get install -y ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing: ${missing[*]}"
    apt-get update
    DEBIAN_FRONTEND=noninteractive apt-get install -y "${missing[@]}"
}

# Runs a command as the sudo caller when the checkout is theirs, so that the
# build tree does not end up owned by root.
zo_as_user() {
    if [ "$(id -u)" -eq 0 ] && [ -n "${SUDO_USER:-}" ] && [ "$SUDO_USER" != root ] &&
        [ "$(stat -c %U "$REPO_ROOT")" = "$SUDO_USER" ]; then
        sudo -u "$SUDO_USER" --preserve-env=DISPLAY,XAUTHORITY,WAYLAND_DISPLAY,XDG_RUNTIME_DIR -- "$@"
    else
        "$@"
    fi
}

# Configures with the preset and builds the given targets (all when none).
zo_build() {
    local targets=()
    local target
    for target in "$@"; do
        targets+=(--target "$target")
    done
    cd "$REPO_ROOT"
    zo_as_user cmake --preset "$ZO_PRESET"
    zo_as_user cmake --build --preset "$ZO_PRESET" --parallel "$(nproc)" "${targets[@]}"
}
