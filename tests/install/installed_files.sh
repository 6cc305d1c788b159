#!/usr/bin/env bash
# installed_files.sh SOURCE-FOLDER BUILD-FOLDER VERSION: installs what was built into a folder of its own, and looks
# at what is there.
set -euo pipefail
source=$1 build=$2 version=$3
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
fail() { printf '%s\n' "$*" >&2; exit 1; }

DESTDIR='' cmake --install "$build" --prefix "$prefix" >/dev/null

# These files and no others.
diff - <(cd "$prefix" && find . -type f -printf '%m %P\n' | LC_ALL=C sort -k 2) <<'END' || fail "Other files were installed."
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

"$source/tools/examine_installed" "$prefix" || fail "What was installed is not in order."

# The desktop entries name programs and icons that are there.
for entry in "$prefix"/share/applications/*.desktop "$prefix"/share/doc/zeigewerk/examples/*.desktop; do
    while IFS='= ' read -r key name _; do
        case $key in
            # Of the session's own tools.
            Exec) [ "$name" = gdbus ] || [ -x "$prefix/bin/$name" ] ||
                fail "${entry##*/} starts $name, which is not installed." ;;
            TryExec) [ -x "$prefix/bin/$name" ] || fail "${entry##*/} starts $name, which is not installed." ;;
            Icon) [ -f "$prefix/share/icons/hicolor/scalable/apps/$name.svg" ] ||
                fail "${entry##*/} shows the icon $name, which is not installed." ;;
        esac
    done <"$entry"
done

# The session bus finds the program where it was installed.
grep -qx "Exec=$prefix/bin/zeigewerk" "$prefix"/share/dbus-1/services/*.service ||
    fail "The session bus would start another program than the one installed."

# The program runs from there as far as it can without a display.
status=0
said=$(env -u DISPLAY "$prefix/bin/zeigewerk" 2>&1) || status=$?
[ "$status: $said" = "1: zeigewerk: no X11 display: DISPLAY is not set" ] ||
    fail "The program installed ended with $status, saying: $said"

# What tells of versions tells of this one first.
released=$(grep -om1 '<release version="[^"]*"' "$prefix"/share/metainfo/*.xml)
[ "$released" = "<release version=\"$version\"" ] || fail "The metainfo's newest release is not $version: $released"
packed=$(head -n 1 "$source/packaging/debian/changelog")
[[ "$packed" == "zeigewerk ($version) "* ]] || fail "The package's newest change is not of $version: $packed"
