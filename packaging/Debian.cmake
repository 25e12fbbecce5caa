# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The Debian packages: aquilane, and aquilane-preview with the plugin, which brings in the HTML engine. What a package
# depends on by linking is found out by dpkg-shlibdeps. Made by script/package.

# The licence as a Debian copyright file has it: a space before each line, a dot on the empty ones.
file(READ ${CMAKE_SOURCE_DIR}/LICENSE AQUILANE_LICENCE)
string(REGEX REPLACE "^.*authors\n\n" "" AQUILANE_LICENCE "${AQUILANE_LICENCE}")
string(STRIP "${AQUILANE_LICENCE}" AQUILANE_LICENCE)
string(REGEX REPLACE "\n\n" "\n.\n" AQUILANE_LICENCE "${AQUILANE_LICENCE}")
string(REPLACE "\n" "\n " AQUILANE_LICENCE " ${AQUILANE_LICENCE}")
configure_file(debian/copyright.in copyright @ONLY)
configure_file(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog COPYONLY)
configure_file(debian/changelog changelog.Debian COPYONLY)

set(components program)
set(doc_program ${CMAKE_INSTALL_DOCDIR})
if(TARGET aquilane_preview)
    list(APPEND components preview)
    set(doc_preview ${CMAKE_INSTALL_DOCDIR}-preview)
    install(FILES debian/aquilane-preview.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
            RENAME aquilane-preview COMPONENT preview)
endif()
foreach(component IN LISTS components)
    set(doc ${doc_${component}})
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright DESTINATION ${doc} COMPONENT ${component})
    install_compressed(${CMAKE_CURRENT_BINARY_DIR}/changelog ${doc} COMPONENT ${component})
    install_compressed(${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian ${doc} COMPONENT ${component})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_CONTACT "The Aquilane authors <noreply@aquilane.github.io>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME aquilane)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "writing notebook for novelists
Aquilane keeps the chapters of a book together with its characters, places,
reference sheets and research notes, and lets its writer work on them on a
quiet page.
.
A notebook is an ordinary folder of Markdown files, which any other tool can
read and edit. Pages are saved by themselves, and never half. Tags, find and
replace, spelling and a word count are there; a live preview is in the package
aquilane-preview. The interface speaks French and English.")
# The toolkit's own dialogs speak French by this package; nothing that is linked pulls it in.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS qt6-translations-l10n)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS
    "aquilane-preview, hunspell-fr, hunspell-en-us, qt6-image-formats-plugins, qt6-wayland, xdg-utils")

set(CPACK_DEBIAN_PREVIEW_PACKAGE_NAME aquilane-preview)
set(CPACK_DEBIAN_PREVIEW_DESCRIPTION "writing notebook for novelists - live preview
Aquilane keeps the chapters of a book together with its characters, places,
reference sheets and research notes, and lets its writer work on them on a
quiet page.
.
This package contains the live preview of a page, which needs an HTML engine.
The preview fetches nothing from anywhere.")
set(CPACK_DEBIAN_PREVIEW_PACKAGE_DEPENDS
    "aquilane (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
include(CPack)
