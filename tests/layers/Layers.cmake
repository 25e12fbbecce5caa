# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The layers of src/, lowest first, and for each of them what its files may include: folders, single headers, and
# the modules of Qt.

set(AQUILANE_LAYERS foundation i18n storage markdown theme platform editor preview notebook_window library app)
set(AQUILANE_GUI_FREE_LAYERS foundation i18n storage markdown)

set(foundation_may_include foundation)
set(i18n_may_include i18n foundation)
set(storage_may_include storage i18n foundation)
set(markdown_may_include markdown i18n foundation storage/PLFrontMatter.h)
set(theme_may_include theme foundation storage/PLSection.h)
set(platform_may_include platform theme i18n foundation)
set(editor_may_include editor platform theme markdown storage i18n foundation)
set(preview_may_include preview ${editor_may_include})
set(notebook_window_may_include notebook_window ${editor_may_include})
set(library_may_include library platform theme storage i18n foundation)
set(app_may_include app library notebook_window ${editor_may_include})

foreach(layer IN LISTS AQUILANE_GUI_FREE_LAYERS)
    set(${layer}_qt_modules Core)
endforeach()
set(theme_qt_modules Core Gui)
set(platform_qt_modules Core Gui Widgets Network DBus)
foreach(layer IN ITEMS editor notebook_window library app)
    set(${layer}_qt_modules Core Gui Widgets)
endforeach()
set(preview_qt_modules Core Gui Widgets OpenGLWidgets WebEngineCore WebEngineWidgets)
