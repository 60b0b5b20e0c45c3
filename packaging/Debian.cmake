# The Debian package: scripts/package, or `cpack -G DEB` in the folder of the build.

# The licence as the paragraph of a control file.
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]+)" copyright "${licence}")
set(BROOMTIDE_COPYRIGHT ${CMAKE_MATCH_1})
string(REGEX REPLACE "^.*\n(Permission )" "\\1" licence "${licence}")
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " BROOMTIDE_LICENCE " ${licence}")
configure_file(debian/copyright.in copyright @ONLY)

compressed(debian_changes ${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog changelog.Debian)
list(APPEND made ${debian_changes})
install(FILES ${debian_changes} ${CMAKE_CURRENT_BINARY_DIR}/copyright
        COMPONENT debian EXCLUDE_FROM_ALL DESTINATION ${documents})
install(FILES ${completions}/_broomtide-cli COMPONENT debian EXCLUDE_FROM_ALL
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES debian/lintian-overrides RENAME broomtide COMPONENT debian EXCLUDE_FROM_ALL
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)

set(CPACK_GENERATOR DEB)
set(CPACK_INSTALL_CMAKE_PROJECTS
    "${CMAKE_BINARY_DIR};${PROJECT_NAME};broomtide;/"
    "${CMAKE_BINARY_DIR};${PROJECT_NAME};debian;/")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/OpenFolders.cmake)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME broomtide)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Broomtide developers <hello@broomtide.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "find disposable developer files and move them to the Trash")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Broomtide finds what developers can do without: build outputs, dependency
folders, caches and old downloads. For each item it says what it is, how much
disk space it takes, how safe it is to remove, why, and how to get it back.

Manifests tell which project a folder belongs to, and Git what the repository
around it ignores and tracks. What is ticked and confirmed is checked again and
moved to the Trash; nothing is erased, and no link is followed.

The package contains a window (broomtide) and a command for terminals
(broomtide-cli). Without Git, what lies in repositories is shown but never
moved.")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://broomtide.example/)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# Libraries, and the plugins that lie in their packages. What is used when it is there: Git for what
# lies in repositories, Qt's own words in the dialog for folders, xdg-open for what the window opens.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "git, qt6-translations-l10n, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland, trash-cli")
include(CPack)
