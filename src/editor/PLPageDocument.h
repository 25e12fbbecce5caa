// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>

class QTextDocument;

/// A document that holds the text, laid out by PLPageLayout, ready to be edited with an empty undo history.
/// The text has gone through PLPageCharacters.
std::unique_ptr<QTextDocument> PLMakePageDocument(const QString &encodedText);

/// True for a text that no document can hold in reasonable time and memory: more than fifty million
/// characters, or a paragraph of more than four million, or more than one and a half million paragraphs.
bool PLIsTooLargeForPage(QStringView text);

/// The document's text with "\n" between its paragraphs and every other character as it stands: unlike
/// toPlainText, which makes no-break spaces plain ones.
QString PLTextOfDocument(const QTextDocument &document);

/// The text of an HTML fragment, with "\n" between its paragraphs and lines and its spaces as they stand.
/// Nothing that it refers to is opened.
QString PLTextOfHTML(const QString &html);
