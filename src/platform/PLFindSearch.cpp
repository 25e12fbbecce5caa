// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFindSearch.h"

#include <algorithm>

PLFindTerms &PLFindTerms::shared()
{
    static PLFindTerms terms;
    return terms;
}

PLFindSearch::PLFindSearch(PLFindTarget *target) : m_target(target) {}

PLFindSearch::Place PLFindSearch::selectNext()
{
    const QList<PLTextRange> all = matches();
    const int from = m_target->selection().end();
    const auto next =
        std::find_if(all.begin(), all.end(), [from](auto &match) { return match.position >= from; });
    if (next == all.end())
        return selectMatch(all, 0, Place::Wrap::ToStart);
    return selectMatch(all, next - all.begin(), Place::Wrap::None);
}

PLFindSearch::Place PLFindSearch::selectPrevious()
{
    const QList<PLTextRange> all = matches();
    const int until = m_target->selection().position;
    const auto previous =
        std::find_if(all.rbegin(), all.rend(), [until](auto &match) { return match.end() <= until; });
    if (previous == all.rend())
        return selectMatch(all, all.size() - 1, Place::Wrap::ToEnd);
    return selectMatch(all, all.rend() - previous - 1, Place::Wrap::None);
}

bool PLFindSearch::replace()
{
    const PLTextRange selection = m_target->selection();
    if (!matches().contains(selection))
        return false;
    m_target->replace(selection, PLFindTerms::shared().replacement);
    return true;
}

int PLFindSearch::replaceAll()
{
    const QList<PLTextRange> all = matches();
    if (!all.isEmpty())
        m_target->replaceAll(all, PLFindTerms::shared().replacement);
    return int(all.size());
}

void PLFindSearch::useSelection()
{
    const PLTextRange selection = m_target->selection();
    if (selection.length > 0)
        PLFindTerms::shared().needle = m_target->text().mid(selection.position, selection.length);
}

PLFindSearch::Place PLFindSearch::showMarks()
{
    const QList<PLTextRange> all = matches();
    m_target->setMatchMarks(all);
    return {int(all.indexOf(m_target->selection())) + 1, int(all.size())};
}

void PLFindSearch::hideMarks()
{
    m_target->setMatchMarks({});
}

QList<PLTextRange> PLFindSearch::matches() const
{
    const PLFindTerms &terms = PLFindTerms::shared();
    if (terms.needle.isEmpty())
        return {};
    return PLFindMatches(m_target->text(), terms.needle, terms.options);
}

PLFindSearch::Place PLFindSearch::selectMatch(const QList<PLTextRange> &all, qsizetype index,
                                              Place::Wrap wrap)
{
    if (all.isEmpty())
        return {};
    m_target->select(all[index]);
    return {int(index) + 1, int(all.size()), wrap};
}
