// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Loads the preview from where the program beside which it lies would, and prints "found", or what the writer
// reads instead of the preview.

#include "editor/PLPreviewLoader.h"

#include <QApplication>
#include <QTextStream>
#include <QWidget>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QWidget parent;
    QString reason;
    const bool isFound = PLLoadPreviewView(&parent, &reason) != nullptr;
    QTextStream(stdout) << (isFound ? QStringLiteral("found") : reason) << Qt::endl;
    return 0;
}
