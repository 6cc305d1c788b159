# A package for Debian 12. Build it with `cpack --preset package`, or with tools/package, which also checks it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zeigewerk)
set(CPACK_PACKAGE_VENDOR Zeigewerk)
# There is no contact address yet, so this one is visibly invalid.
set(CPACK_PACKAGE_CONTACT "Zeigewerk <noreply@zeigewerk.invalid>")
# Keeps the prefix /usr while staging: some installed files contain the paths of others.
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
and highlighter, lines, arrows, shapes and text, also on a whiteboard, with a
spotlight around the pointer and rings around clicks. Drawings dissolve by
themselves or stay pinned.
.
It runs on X11 desktops with one or more screens. You control it with hot keys
from any application, with a floating toolbar that never takes the keyboard
focus, and with a menu in the tray. The interface is in German.")

# Library dependencies are found by dpkg-shlibdeps. In Debian 12, Qt's plugins for X11, SVG and TLS are in the packages
# of the libraries that they belong to. Icons are looked up in the hicolor theme.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme")
# In this order: a compositor, for smooth translucent ink (most desktops have their own); a session bus, for the tray;
# gdbus, for shortcuts that call actions; a font with the symbols in the menu, such as ⌥; certificates, for TLS;
# xdg-open, to open pages in the user's browser; and the library that Qt loads to show the user's pointer theme.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "picom | gnome-shell | kwin-x11 | xfwm4 | cinnamon | marco | mutter | compiz-core"
    "default-dbus-session-bus | dbus-session-bus"
    "libglib2.0-bin"
    "fonts-dejavu-core"
    "ca-certificates"
    "xdg-utils"
    "libxcursor1")
include(CPack)
