# The Debian package's fields. cpack reads this when it makes the package.
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
# Who makes the package answers for it. tools/package names the last commit's author unless told.
if("$ENV{DEBFULLNAME}" STREQUAL "" OR "$ENV{DEBEMAIL}" STREQUAL "")
    message(FATAL_ERROR "Set DEBFULLNAME and DEBEMAIL to who makes the package, or use tools/package.")
endif()
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")

# What is linked is computed. libqt6gui6 and libqt6svg6, which are, bring the plugins that are only
# loaded: the platform "xcb", the input contexts, the SVG image format and icon engine.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The command loads libdbus by its name, the first sound libcanberra. Symbols of keys: DejaVu, which
# fontconfig brings, lacks one of Escape.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_DEPENDS
    "libdbus-1-3" "libcanberra0" "fonts-symbola | fonts-noto-core")
# The session bus, over which panels, scripts and a second start reach the program; the toolkit's own
# texts in other languages; xdg-open, which opens the help page.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "default-dbus-session-bus | dbus-session-bus" "qt6-translations-l10n" "xdg-utils")
# A tray for GNOME; the bell through a sound server; windows to work on.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_SUGGESTS
    "gnome-shell-extension-appindicator" "libcanberra-pulse" "x-window-manager")
