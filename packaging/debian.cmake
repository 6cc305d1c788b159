# A package for Debian 12: `cpack --preset package`, or tools/package, which examines it too.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zeigewerk)
set(CPACK_PACKAGE_VENDOR Zeigewerk)
# There is no address to write to yet, and this one says so.
set(CPACK_PACKAGE_CONTACT "Zeigewerk <noreply@zeigewerk.invalid>")
# Into a folder that stands for the root, as some files name the place of others.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_contents.cmake)
set(CPACK_DEBIAN_DOCUMENTS ${CMAKE_CURRENT_LIST_DIR}/debian)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "draw on top of everything on the screen")
set(CPACK_PACKAGE_DESCRIPTION
"Zeigewerk lets a presenter draw on top of everything on the screen: with pen
and highlighter, lines, arrows, shapes and text, on a whiteboard too, with a
spotlight round the pointer and rings round clicks. Drawings dissolve by
themselves or stay pinned.
.
It runs on X11 desktops with one screen or several, and is worked by hot keys
from any application, by a floating toolbar that never takes the keyboard, and
by a menu in the tray. Its interface is in German.")

# The libraries say for themselves what they need; with Qt's come the plugins for X11, SVG and TLS, which in
# Debian 12 are in the packages of the libraries they belong to. The theme is where icons are looked for.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme")
# For smooth see-through ink one that mixes windows, of which most desktops have their own; for the tray a
# session bus, and for its shortcuts a command that calls over it; for the signs in the menu, as ⌥, a font that has
# them; for secure connections whom to trust, and what opens pages in the user's browser; and what Qt looks for when
# it runs to show the pointers of the user's theme.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "picom | gnome-shell | kwin-x11 | xfwm4 | cinnamon | marco | mutter | compiz-core"
    "default-dbus-session-bus | dbus-session-bus"
    "libglib2.0-bin"
    "fonts-dejavu-core"
    "ca-certificates"
    "xdg-utils"
    "libxcursor1")
include(CPack)
