# What cpack makes of an installation: a Debian package. Included last, when all targets exist.
install(TARGETS quillmarsh_door RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS quillmarsh quillmarsh-preview RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quillmarsh)
if(TARGET quillmarsh-updater)
  install(TARGETS quillmarsh-updater RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quillmarsh)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmarsh)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${QUILLMARSH_MAINTAINER}")
set(CPACK_STRIP_FILES ON)
# Installed as if to /usr, because what is installed names its own place.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${QUILLMARSH_DEBIAN_REVISION})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"clipboard history that pastes into any application
Quillmarsh records what is copied on an X11 desktop, and on a Wayland one
of KDE, sway or labwc: texts with their rich form, and the paths of copied
files. A shortcut opens the history in any application; typed letters
narrow it, and Return pastes the chosen clip where the cursor stands. A
second shortcut exchanges the selection with a clip.
.
The history is kept in one file that only its user can read. Copies that a
password manager marks as secret are not recorded.")
# Libraries find themselves; these are loaded by name at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Since Qt 6.8 what draws the status item's icon is a package of its own.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme, qt6-svg-plugins | libqt6svg6 (<< 6.8), qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "default-dbus-session-bus | dbus-session-bus, qt6-image-formats-plugins, qt6-translations-l10n, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS
  "notification-daemon, qt6-gtk-platformtheme, qt6-xdgdesktopportal-platformtheme, xwayland")
include(CPack)
