// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "editor/PLTagToken.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>

#include <utility>

void PLTagField::inputMethodEvent(QInputMethodEvent *event)
{
    const bool changes = !event->commitString().isEmpty() || event->replacementLength() > 0;
    const bool begins = !event->preeditString().isEmpty() && !isComposing();
    m_composed = {event->preeditString(), int(event->preeditString().size()), {}};
    for (const QInputMethodEvent::Attribute &attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor)
            m_composed.cursor = attribute.length > 0 ? attribute.start : -1;
        const QTextFormat format = qvariant_cast<QTextFormat>(attribute.value);
        if (attribute.type == QInputMethodEvent::TextFormat && format.isValid())
            m_composed.formats.append({attribute.start, attribute.length, format.toCharFormat()});
    }
    apply([&] {
        if (changes || begins)
            m_model.prepareForTyping();
        const int caret = m_model.caret() - m_model.textIndex();
        for (QTextLayout::FormatRange &format : m_composed.formats)
            format.start += caret;
        if (event->replacementLength() > 0)
            m_model.removeText(caret + event->replacementStart(), event->replacementLength());
        if (!event->commitString().isEmpty())
            m_model.insertText(event->commitString());
    });
    event->accept();
}

QVariant PLTagField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const bool isInText = m_model.isCaretInText();
    const int size = int(m_model.text().size());
    switch (query) {
    case Qt::ImEnabled:
        return isEnabled();
    case Qt::ImCursorRectangle:
    case Qt::ImAnchorRectangle:
        return caretRect();
    case Qt::ImFont:
        return PLTagToken::font();
    case Qt::ImHints:
        return int(Qt::ImhNone);
    case Qt::ImSurroundingText:
        return isInText ? m_model.text() : QString();
    case Qt::ImCursorPosition:
        return isInText ? m_model.caret() - m_model.textIndex() : 0;
    case Qt::ImAnchorPosition:
        return isInText ? qBound(0, m_model.anchor() - m_model.textIndex(), size) : 0;
    case Qt::ImCurrentSelection:
        return m_model.selectedText();
    default:
        return QWidget::inputMethodQuery(query);
    }
}

/// Takes what is being composed as it is.
void PLTagField::endComposing()
{
    if (!isComposing())
        return;
    QGuiApplication::inputMethod()->commit();
    if (!isComposing())
        return;
    const QString text = std::exchange(m_composed, {}).text; // an input method that does not answer
    QGuiApplication::inputMethod()->reset();
    apply([&] { m_model.insertText(text); });
}
