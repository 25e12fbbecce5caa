// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPreviewView.h"

#include <QObject>

/// The door of the plugin.
class PLPreviewPlugin final : public QObject, public PLPreviewFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLPreviewFactory_iid)
    Q_INTERFACES(PLPreviewFactory)

public:
    PLPreviewView *createPreviewView(QWidget *parent) override;
};
