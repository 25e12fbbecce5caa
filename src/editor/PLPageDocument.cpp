// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageDocument.h"

#include "theme/PLTheme.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

namespace {

void setMargins(QTextDocument &document)
{
    document.setDocumentMargin(0);
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setTopMargin(PLPageVerticalInset);
    format.setBottomMargin(PLPageVerticalInset);
    format.setLeftMargin(PLPageDocumentSideMargin);
    format.setRightMargin(PLPageDocumentSideMargin);
    document.rootFrame()->setFrameFormat(format);
}

} // namespace

QTextBlockFormat PLPageBlockFormat()
{
    QTextBlockFormat format;
    format.setLineHeight(130, QTextBlockFormat::ProportionalHeight);
    return format;
}

std::unique_ptr<QTextDocument> PLMakePageDocument(const QString &encodedText)
{
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(PLTheme::editorFont());
    setMargins(*document);
    QTextCursor cursor(document.get());
    cursor.setBlockFormat(PLPageBlockFormat());
    cursor.insertText(encodedText);
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
