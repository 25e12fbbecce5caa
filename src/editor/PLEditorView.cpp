// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLEditorView.h"

#include "editor/PLPageTextView.h"
#include "storage/PLProjectItem.h"

#include <QVBoxLayout>

PLEditorView::PLEditorView(QWidget *parent) : QWidget(parent), m_textView(new PLPageTextView)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_textView);
    setFocusProxy(m_textView);
}

void PLEditorView::setText(const QString &text, const QUrl &baseURL)
{
    m_baseURL = baseURL;
    m_textView->setPageText(text);
}

QString PLEditorView::text() const
{
    return m_textView->pageText();
}

void PLEditorView::setTags(const QStringList &tags)
{
    m_tags = PLProjectItem::normalizedTags(tags);
}
