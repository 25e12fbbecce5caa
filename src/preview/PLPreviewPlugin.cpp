// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewPlugin.h"

#include "preview/PLWebPreview.h"

PLPreviewView *PLPreviewPlugin::createPreviewView(QWidget *parent)
{
    return new PLWebPreview(parent);
}
