// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

/// Asks the desktop's file manager to show the folder of this file or folder with it selected; where no file
/// manager answers, the folder that holds it is opened.
void PLRevealInFileManager(const QUrl &location);

/// Called instead of the file manager from now on; null gives it back. For tests.
void PLSetRevealHandler(void (*handler)(const QUrl &));
