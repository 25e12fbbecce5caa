// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A preview document taken apart: what is loaded as a document, and what goes into its element "contenu" by
/// script. A document is loaded as a URL, which the engine cuts off at 2 MB; a script may be of any size.
struct PLPreviewDocument
{
    QString frame;
    QString content; ///< null if the document has no element "contenu"; `frame` is then the whole document

    static PLPreviewDocument fromHTML(const QString &html);
};
