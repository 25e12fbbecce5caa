// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLTagCompletion.h"

#include "foundation/PLText.h"
#include "storage/PLProjectItem.h"

#include <QSet>

PLTagCompletion::PLTagCompletion(std::function<QStringList()> allTags, QObject *parent)
    : QObject(parent), m_allTags(std::move(allTags))
{
}

QString PLTagCompletion::knownTagMatching(const QString &text) const
{
    const QString folded = PLFoldedCaseAndDiacritics(text);
    const QStringList tags = m_allTags();
    for (const QString &tag : tags) {
        if (PLFoldedCaseAndDiacritics(tag) == folded)
            return tag;
    }
    return {};
}

QStringList PLTagCompletion::completionsForSubstring(const QString &substring, const QStringList &present)
{
    const QString prefix = PLFoldedCaseAndDiacritics(PLTrimmedSpaces(substring).toString());
    QSet<QString> hidden;
    for (const QString &tag : present)
        hidden.insert(tag.toLower()); // by case alone: "Páris" does not hide "Paris"
    QStringList kept;
    const QStringList tags = m_allTags();
    for (const QString &tag : tags) {
        if (!hidden.contains(tag.toLower()) && PLFoldedCaseAndDiacritics(tag).startsWith(prefix))
            kept.append(tag);
    }
    return kept;
}

QStringList PLTagCompletion::shouldAddObjects(const QStringList &tokens, int)
{
    QStringList added;
    const QStringList cleaned = PLProjectItem::normalizedTags(tokens);
    for (const QString &tag : cleaned) {
        const QString known = knownTagMatching(tag);
        added.append(known.isNull() ? tag : known);
    }
    QMetaObject::invokeMethod(this, &PLTagCompletion::tagsAdded, Qt::QueuedConnection);
    return added;
}
