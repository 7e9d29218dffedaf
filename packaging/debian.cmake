# SPDX-License-Identifier: MIT
# Debian packages: scripts/make-packages.sh. They are for the release of Debian that builds them.
set(CPACK_PACKAGE_CONTACT "The Recent Document Browser authors <authors@recent-document-browser.example>" CACHE STRING
  "Name and address of whoever maintains the packages")
set(source recent-document-browser)
set(revision 1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${source})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE ${source})
set(CPACK_DEBIAN_PACKAGE_RELEASE ${revision})
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${BROWSER_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/${FXHOST_LIBDIR})

string(TIMESTAMP today "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT changelog.Debian CONTENT
"${source} (${PROJECT_VERSION}-${revision}) unstable; urgency=medium

  * Version ${PROJECT_VERSION}; changelog.gz lists the changes.

 -- ${CPACK_PACKAGE_CONTACT}  ${today}
")
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog COPYONLY)
compress(changelog.Debian)
compress(changelog)

# add_package(NAME SECTION DESCRIPTION [relation "packages"...]) The description's first line is its summary.
macro(add_package name section description)
  list(APPEND CPACK_COMPONENTS_ALL ${name})
  string(TOUPPER ${name} id)
  set(CPACK_DEBIAN_${id}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${id}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${id}_DESCRIPTION "${description}")
  cmake_parse_arguments(ARG "" "DEPENDS;RECOMMENDS;SUGGESTS;ENHANCES" "" ${ARGN})
  foreach(relation DEPENDS RECOMMENDS SUGGESTS ENHANCES)
    set(CPACK_DEBIAN_${id}_PACKAGE_${relation} "${ARG_${relation}}")
  endforeach()
  # Only in packages, not in an installation by hand.
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${name} EXCLUDE_FROM_ALL)
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright COMPONENT ${name} EXCLUDE_FROM_ALL)
endmacro()

add_package(fxhost graphics
"viewer for the pictures stored in DWG drawings
fxhost opens DWG drawings, each in a window of its own, and shows the picture
and the facts that are stored in the file. It does not render drawings. It
remembers the recent drawings, loads plug-in modules, and runs scripts."
  DEPENDS "libqt5svg5" # loaded by name: the format of icons
  RECOMMENDS "recent-document-browser, fxthumbnail, qttranslations5-l10n" # the last: Qt's own texts
  SUGGESTS "qtwayland5")

add_package(recent-document-browser graphics
"browser for recent drawings, shown as pictures
This plug-in module for CAD applications shows the recent drawings as
pictures. Drawings are opened from there with the keyboard or the mouse, pinned
so that they come first, or shown in the file manager, for which the package
has the program fxshow. The package fxhost has an application that loads the
module."
  DEPENDS "libqt5svg5"
  RECOMMENDS "xdg-utils" # opens the folder if no file manager answers
  ENHANCES "fxhost")

add_package(fxthumbnail graphics
"pictures of DWG drawings for file managers
File managers call fxthumbnail to show DWG drawings as the pictures that are
stored in them. Drawings are recognised by their content, too, so that
templates are shown."
  ENHANCES "nautilus, thunar, caja, nemo, pcmanfm")

add_package(fxsdk-dev libdevel
"interface between CAD applications and their plug-in modules
The headers for modules, and the library with what is the same in every
application that loads modules such as the recent document browser, with files
for CMake and pkg-config, a guide and examples."
  DEPENDS "qtbase5-dev"
  SUGGESTS "cmake, pkgconf, recent-document-browser")
install(FILES fxsdk-dev.lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME fxsdk-dev COMPONENT fxsdk-dev EXCLUDE_FROM_ALL)

include(CPack)
