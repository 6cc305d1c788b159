# Shared by run, test and other scripts: installs packages and builds targets. Source it with bash, in the project's top
# folder.

set -euo pipefail

# For building the program.
program_packages=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-svg-dev libgl-dev
    libx11-dev libxcb1-dev libxcb-shm0-dev libxcb-xinput-dev libxcb-xfixes0-dev libxcb-shape0-dev libxcb-cursor-dev
    libxcb-xkb-dev libxcb-randr0-dev libxkbcommon-dev libxkbcommon-x11-dev
)
# For building the program, its tests and its benchmarks.
build_packages=("${program_packages[@]}" libxcb-damage0-dev libxcb-xtest0-dev libxcb-res0-dev libbenchmark-dev)
# For checking the installed files.
check_packages=(desktop-file-utils appstream mandoc)
# For making a Debian package; only tools/package needs them.
package_packages=(dpkg-dev file binutils lintian)
# For virtual desktops: display, window managers, compositor, session bus, accessibility bus, keyboard maps, a font.
desktop_packages=(
    xserver-xorg-core xserver-xorg-video-dummy xkb-data x11-xkb-utils x11-xserver-utils
    openbox xfwm4 i3-wm picom dbus dbus-daemon at-spi2-core fonts-dejavu-core
)

# For fuzzing; only tests/fuzz/run needs them.
fuzz_packages=(clang libclang-rt-14-dev)

# For recording videos; only tests/watch needs it.
video_packages=(ffmpeg)

# For checking the source; only tools/check needs them.
format_packages=(clang-format)
tidy_packages=(clang-tidy)

say() { printf '%s\n' "$*"; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

is_debian() {
    [ -r /etc/os-release ] && command -v apt-get >/dev/null &&
        (. /etc/os-release && case " ${ID:-} ${ID_LIKE:-} " in *" debian "*) true ;; *) false ;; esac)
}

# missing_packages PACKAGE...: prints those that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${Status}\n' "$package" 2>/dev/null | grep -q ' installed$' || printf '%s\n' "$package"
    done
}

# install_packages PURPOSE PACKAGE...: installs the missing ones, as root or through sudo.
install_packages() {
    local purpose=$1 missing as_root=()
    shift
    if ! is_debian; then
        require_tools "$@"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Missing packages $purpose: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "Installing packages needs root, and there is no sudo here. As root: apt-get install ${missing[*]}"
        say "Installing them with sudo, which may ask for your password."
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >build/install.log 2>&1 ||
        { tail -n 20 build/install.log >&2; fail "Installing failed; see build/install.log"; }
}

# require_tools PACKAGE...: for other distributions, where packages have other names. Stops if tools or libraries of the
# packages are missing, and lists those.
require_tools() {
    local missing=() tool module
    for tool in cmake ninja g++ pkg-config; do
        command -v "$tool" >/dev/null || missing+=("$tool")
    done
    for module in Qt6Widgets Qt6Svg Qt6DBus Qt6Network x11 xcb xcb-shm xcb-xinput xcb-xfixes xcb-shape xcb-cursor \
        xcb-xkb xcb-randr xcb-damage xcb-xtest xcb-res xkbcommon xkbcommon-x11 benchmark; do
        pkg-config --exists "$module" 2>/dev/null || missing+=("$module (development files)")
    done
    if [[ " $* " == *" openbox "* ]]; then
        for tool in Xorg openbox xfwm4 i3 picom dbus-daemon xkbcomp; do
            command -v "$tool" >/dev/null || [ -x "/usr/lib/xorg/$tool" ] || missing+=("$tool")
        done
        [ -e /usr/share/dbus-1/services/org.a11y.Bus.service ] || missing+=("the accessibility bus of at-spi2")
    fi
    if [[ " $* " == *" mandoc "* ]]; then
        for tool in desktop-file-validate appstreamcli mandoc; do
            command -v "$tool" >/dev/null || missing+=("$tool")
        done
    fi
    if [[ " $* " == *" clang "* ]]; then
        command -v clang++ >/dev/null || missing+=("clang++ with libFuzzer")
    fi
    for tool in ffmpeg clang-format clang-tidy; do
        [[ " $* " != *" $tool "* ]] || command -v "$tool" >/dev/null || missing+=("$tool")
    done
    [ ${#missing[@]} -eq 0 ] ||
        fail "This is not Debian; please install these yourself: $(printf '\n  %s' "${missing[@]}")"
}

# is_configured FOLDER: whether the build folder is configured with the options that the environment sets.
is_configured() {
    local option
    [ -f "$1/build.ninja" ] || return 1
    for option in ZEIGEWERK_WERROR ZEIGEWERK_BENCH; do
        [ -z "${!option:-}" ] || grep -qx "$option:[A-Z]*=${!option}" "$1/CMakeCache.txt" || return 1
    done
}

# build PRESET TARGET...: configures if necessary, and builds. Prints nothing if everything is up to date.
build() {
    local preset=$1 folder=build/$1
    shift
    mkdir -p "$folder"
    if ! is_configured "$folder"; then
        say "Configuring $folder …"
        cmake --preset "$preset" \
            ${ZEIGEWERK_WERROR:+-DZEIGEWERK_WERROR="$ZEIGEWERK_WERROR"} \
            ${ZEIGEWERK_BENCH:+-DZEIGEWERK_BENCH="$ZEIGEWERK_BENCH"} >"$folder/configure.log" 2>&1 ||
            { tail -n 30 "$folder/configure.log" >&2; fail "Configuring failed; see $folder/configure.log"; }
    fi
    ninja -C "$folder" -n "$@" | grep -q 'no work to do' && return 0
    say "Building $folder …"
    ninja -C "$folder" "$@"
}
