// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// One of the programs that memory_bench weighs: a bare view of the engine with a document.

#include "memory_document.h"

#include <QApplication>
#include <QMainWindow>
#include <QWebEngineView>

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QMainWindow window;
    auto *view = new QWebEngineView(&window);
    window.setCentralWidget(view);
    window.resize(1000, 700);
    window.show();
    QObject::connect(view, &QWebEngineView::loadFinished, &window, &PLMemoryReady);
    view->setHtml(PLMemoryDocument());
    return QApplication::exec();
}
