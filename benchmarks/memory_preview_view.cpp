// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// One of the programs that memory_bench weighs: the preview, loaded as the program loads it, with a document.

#include "editor/PLPreviewLoader.h"
#include "editor/PLPreviewView.h"
#include "memory_document.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    QString reason;
    PLPreviewView *preview = PLLoadPreviewView(&window, &reason);
    if (!preview) {
        std::fprintf(stderr, "%s\n", qPrintable(reason));
        return 1;
    }
    window.setCentralWidget(preview->widget());
    window.resize(1000, 700);
    window.show();
    QObject::connect(preview, &PLPreviewView::didFinishLoad, &window, &PLMemoryReady);
    preview->loadDocument(PLMemoryDocument(), QUrl());
    return QApplication::exec();
}
