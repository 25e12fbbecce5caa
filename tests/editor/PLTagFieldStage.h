// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTagField.h"
#include "editor/PLTagFieldCompletion.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

/// A delegate that proposes what begins with the typed text, and knows one spelling better.
class PLTestTagDelegate final : public PLTagFieldDelegate
{
public:
    QStringList known;
    QStringList present;   ///< as given at the last question
    QStringList spellings; ///< each replaces a tag that differs from it by case alone

    QStringList completionsForSubstring(const QString &substring, const QStringList &tags) override
    {
        present = tags;
        QStringList found;
        for (const QString &tag : std::as_const(known)) {
            if (tag.startsWith(substring.trimmed(), Qt::CaseInsensitive) && !tags.contains(tag))
                found.append(tag);
        }
        return found;
    }

    QStringList shouldAddObjects(const QStringList &tokens, int) override
    {
        QStringList added = tokens;
        for (QString &tag : added) {
            for (const QString &spelling : std::as_const(spellings))
                tag = tag.compare(spelling, Qt::CaseInsensitive) == 0 ? spelling : tag;
        }
        return added;
    }
};

/// A window with a tag field that has the focus, and a line of text to give it to.
class PLTagFieldStage final
{
public:
    explicit PLTagFieldStage(const QStringList &tags = {}, int width = 500)
        : m_window(std::make_unique<QWidget>()), field(new PLTagField), other(new QLineEdit)
    {
        m_window->resize(width, 400);
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(field);
        layout->addStretch();
        layout->addWidget(other);
        field->setDelegate(&delegate);
        field->setTags(tags);
        m_window->show();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the window does not become active");
        field->setFocus();
    }

    QWidget *window() const { return m_window.get(); }
    /// Types each character, of whatever script.
    void type(const QString &text) const
    {
        for (qsizetype at = 0; at < text.size(); ++at) {
            const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
            const int key = text[at].unicode() < 0x80 ? text[at].toUpper().unicode() : int(Qt::Key_unknown);
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key(key), text.mid(at, isPair ? 2 : 1),
                                Qt::NoModifier);
            at += isPair ? 1 : 0;
        }
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(field, key, modifiers);
    }
    QString list() const { return field->tags().join(u'|'); }
    QString tokens() const { return field->model().tokens().join(u'|'); }
    QString typed() const { return field->model().text(); }

    PLTestTagDelegate delegate;

private:
    std::unique_ptr<QWidget> m_window;

public:
    PLTagField *field;
    QLineEdit *other;
};
