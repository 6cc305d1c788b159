#!/usr/bin/env bash
# installed_files.sh SOURCE-FOLDER BUILD-FOLDER VERSION: installs the build into a temporary folder and checks it.
set -euo pipefail
source=$1 build=$2 version=$3
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
fail() { printf '%s\n' "$*" >&2; exit 1; }

DESTDIR='' cmake --install "$build" --prefix "$prefix" >/dev/null

# Exactly these files are installed.
installed=$(cd "$prefix" && find . -type f -printf '%m %P\n' | LC_ALL=C sort -k 2)
diff - <(printf '%s\n' "$installed") <<'END' || fail "The installed files differ from this list."
755 bin/zeigewerk
755 libexec/zeigewerk/zeigewerk-feed
644 share/applications/de.zeigewerk.Zeigewerk.desktop
644 share/dbus-1/services/de.zeigewerk.Zeigewerk.service
644 share/doc/zeigewerk/examples/zeigewerk-autostart.desktop
644 share/icons/hicolor/scalable/apps/zeigewerk.svg
644 share/icons/hicolor/symbolic/apps/zeigewerk-symbolic.svg
644 share/man/de/man1/zeigewerk.1
644 share/man/man1/zeigewerk.1
644 share/metainfo/de.zeigewerk.Zeigewerk.metainfo.xml
END

"$source/tools/check_installed" "$prefix" || fail "The installed files are not valid."

# The desktop entries refer to programs and icons that exist.
for entry in "$prefix"/share/applications/*.desktop "$prefix"/share/doc/zeigewerk/examples/*.desktop; do
    while IFS='= ' read -r key name _; do
        case $key in
            # gdbus is not ours.
            Exec) [ "$name" = gdbus ] || [ -x "$prefix/bin/$name" ] ||
                fail "${entry##*/} starts $name, which is not installed." ;;
            TryExec) [ -x "$prefix/bin/$name" ] || fail "${entry##*/} starts $name, which is not installed." ;;
            Icon) [ -f "$prefix/share/icons/hicolor/scalable/apps/$name.svg" ] ||
                fail "${entry##*/} names the icon $name, which is not installed." ;;
        esac
    done <"$entry"
done

# The session bus finds the program where it was installed.
grep -qx "Exec=$prefix/bin/zeigewerk" "$prefix"/share/dbus-1/services/*.service ||
    fail "The session bus would not start the installed program."

# The installed program starts, and exits because there is no display.
status=0
output=$(env -u DISPLAY "$prefix/bin/zeigewerk" 2>&1) || status=$?
[ "$status: $output" = "1: zeigewerk: no X11 display: DISPLAY is not set" ] ||
    fail "The installed program exited with $status and printed: $output"

# The installed program contains the controller, and nothing of the tests' recording desktop.
symbols=$(nm -C "$prefix/bin/zeigewerk")
grep -q 'zeigewerk::AppDelegate' <<<"$symbols" || fail "The installed program has no symbols to check."
! grep 'Recording' <<<"$symbols" || fail "The installed program contains a part of the tests."

# The metainfo and the Debian changelog start with this version.
release=$(grep -om1 '<release version="[^"]*"' "$prefix"/share/metainfo/*.xml)
[ "$release" = "<release version=\"$version\"" ] || fail "The metainfo's newest release is not $version: $release"
change=$(head -n 1 "$source/packaging/debian/changelog")
[[ "$change" == "zeigewerk ($version) "* ]] || fail "The changelog's newest entry is not for $version: $change"
