// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageDocument.h"

#include "editor/PLPageLayout.h"
#include "theme/PLTheme.h"

#include <QTextCursor>
#include <QTextDocument>

std::unique_ptr<QTextDocument> PLMakePageDocument(const QString &encodedText)
{
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false); // a long text is taken in twice as fast
    document->setDefaultFont(PLTheme::editorFont());
    QTextCursor(document.get()).insertText(encodedText);
    document->setDocumentLayout(new PLPageLayout(document.get()));
    document->setUndoRedoEnabled(true);
    document->setModified(false);
    return document;
}

QString PLTextOfDocument(const QTextDocument &document)
{
    QString text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}
