// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// The scripts of the preview. They run in a world of their own, never in the page's.

/// A text as a literal of the script language. Whatever the text holds, the literal is a single token.
QString PLScriptLiteral(const QString &text);

/// Replaces the inner HTML of the element "contenu", and puts the scroll position back. Its value is false if
/// there is no such element.
QString PLReplaceContentScript(const QString &fragment);

/// Scrolls to a part of the scrollable height; anything outside of 0 to 1 is taken as the nearer of the two.
QString PLScrollScript(double ratio);
