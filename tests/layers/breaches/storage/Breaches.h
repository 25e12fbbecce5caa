// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Never compiled: a file of the storage layer with one allowed include of each kind, and three that are not.

#pragma once

#include "editor/PLEditorView.h"
#include "foundation/PLError.h"
#include "storage/PLFiles.h"

#include <QColor>
#include <QString>
#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

#include <memory>
