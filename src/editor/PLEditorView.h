// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QUrl>
#include <QWidget>

class PLPageTextView;

/// The right-hand side of a notebook window: the page that is open, with its tags.
class PLEditorView final : public QWidget
{
    Q_OBJECT

public:
    explicit PLEditorView(QWidget *parent = nullptr);

    /// Loads a page's body; links and pictures in it are relative to `baseURL`, the folder of its file.
    void setText(const QString &text, const QUrl &baseURL);
    QString text() const;

    QStringList tags() const { return m_tags; }
    void setTags(const QStringList &tags);

    PLPageTextView *textView() const { return m_textView; }

private:
    PLPageTextView *m_textView;
    QUrl m_baseURL;
    QStringList m_tags;
};
