// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endurance/PLTypist.h"

#include "editor/PLTagField.h"
#include "endurance/PLLongNotebook.h"

#include <QCoreApplication>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

const QStringList tags = {u"mer"_s, u"hiver"_s, u"Marie"_s, u"le port"_s};
constexpr PLCommand formats[] = {PLCommand::FormatBold, PLCommand::FormatItalic, PLCommand::FormatQuote};

} // namespace

void PLTypist::type(int keys)
{
    m_window.textView()->setFocus();
    m_window.textView()->moveCursor(QTextCursor::End);
    while (keys > 0) {
        const QString word = PLMadeWord(m_random) + u' ';
        for (const QChar character : word)
            press(character);
        keys -= int(word.size());
        switch (m_random.bounded(24)) {
        case 0:
            press(Qt::Key_Return);
            break;
        case 1:
            press(Qt::Key_Backspace);
            break;
        case 2:
            m_window.textView()->undo();
            break;
        case 3:
            formatLastWord();
            break;
        default:
            continue;
        }
        --keys;
    }
}

/// At the page's end again afterwards.
void PLTypist::formatLastWord()
{
    m_window.textView()->moveCursor(QTextCursor::PreviousWord, QTextCursor::KeepAnchor);
    m_window.editor()->performCommand(formats[m_random.bounded(int(std::size(formats)))], 0);
    m_window.textView()->moveCursor(QTextCursor::End);
}

void PLTypist::addTag()
{
    PLTagField *field = m_window.editor()->tagField();
    field->setFocus();
    QTest::keyClick(field, Qt::Key_End);
    const QString tag = tags[m_random.bounded(int(tags.size()))];
    for (const QChar character : tag)
        QTest::keyClick(field, character.toLatin1());
    QTest::keyClick(field, Qt::Key_Return); // makes it a token
    QTest::keyClick(field, Qt::Key_Return); // is done with the field
    QCoreApplication::processEvents();
}

void PLTypist::press(QChar character)
{
    QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, character);
    QKeyEvent up(QEvent::KeyRelease, 0, Qt::NoModifier, character);
    QCoreApplication::sendEvent(m_window.textView(), &down);
    QCoreApplication::sendEvent(m_window.textView(), &up);
    QCoreApplication::processEvents();
}

void PLTypist::press(Qt::Key key)
{
    QTest::keyClick(m_window.textView(), key);
    QCoreApplication::processEvents();
}
