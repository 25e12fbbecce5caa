// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTextBlockFormat>

#include <memory>

class QTextDocument;

/// How every paragraph of a page is set: a line height of 1.3.
QTextBlockFormat PLPageBlockFormat();

/// The space between the edge of the document and its text, in points: above and below, left and right.
inline constexpr int PLPageVerticalInset = 32;
inline constexpr int PLPageDocumentSideMargin = 4;

/// A document that holds the text, made without undo so that a long page opens at once, ready to be edited
/// with an empty undo history. The text has gone through PLPageCharacters.
std::unique_ptr<QTextDocument> PLMakePageDocument(const QString &encodedText);

/// The document's text with "\n" between its paragraphs and every other character as it stands: unlike
/// toPlainText, which makes no-break spaces plain ones.
QString PLTextOfDocument(const QTextDocument &document);
