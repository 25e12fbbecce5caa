// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The text in the interface language, from the table of what the desktop would say by itself on some
/// systems: file errors, the find and spelling panels, the names read by a screen reader. A text that is not
/// in the table comes back as it is.
QString PLDesktopString(const QString &french);

/// What a file-system error number (errno) means, as a sentence in the interface language.
QString PLFileErrorMessage(int errorNumber);
