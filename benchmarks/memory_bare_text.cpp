// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// One of the programs that memory_bench weighs: a bare text field with a chapter in it; with an argument such
// as "fr_FR", beside the dictionary of that language.

#include "memory_document.h"
#include "platform/PLSpellDictionary.h"

#include <QApplication>
#include <QMainWindow>
#include <QTextEdit>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    std::unique_ptr<PLSpellDictionary> dictionary;
    if (argc > 1 && !(dictionary = PLLoadSpellDictionary(QString::fromLocal8Bit(argv[1]))))
        return 1;
    QMainWindow window;
    auto *edit = new QTextEdit;
    QFont font;
    font.setPixelSize(17);
    edit->setFont(font);
    edit->setPlainText(PLMemoryText());
    window.setCentralWidget(edit);
    window.resize(1100, 720);
    window.show();
    PLMemoryReady();
    return QApplication::exec();
}
