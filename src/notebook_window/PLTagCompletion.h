// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTagFieldDelegate.h"

#include <QObject>

#include <functional>

/// Makes the tag field prefer the tags that the notebook already has: it proposes them, and a tag that is one
/// of them but for case or accents is spelled as it.
class PLTagCompletion final : public QObject, public PLTagFieldDelegate
{
    Q_OBJECT

public:
    /// `allTags` answers the notebook's tags in the order of display.
    explicit PLTagCompletion(std::function<QStringList()> allTags, QObject *parent = nullptr);

    /// The first of the notebook's tags that is this text but for case and accents, null if there is none.
    QString knownTagMatching(const QString &text) const;

    QStringList completionsForSubstring(const QString &substring, const QStringList &present) override;
    QStringList shouldAddObjects(const QStringList &tokens, int index) override;

Q_SIGNALS:
    /// Tags are being added; told when the event loop has turned, so that the field holds them.
    void tagsAdded();

private:
    std::function<QStringList()> m_allTags;
};
