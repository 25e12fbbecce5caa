// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A tool tip that reads as this text, whatever it holds. Qt guesses whether a tool tip is HTML and knows no
/// way to tell it: a folder's name could have a picture read, or an "&amp;" appear that nobody has written.
QString PLPlainToolTip(const QString &text);
