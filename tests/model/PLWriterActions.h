// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>

#include <iterator>
#include <span>

class PLWriter;

/// One kind of step. `run` does it to the window and says in the model what must come of it; what is wrong
/// already by then is kept as a failure.
struct PLWriterAction
{
    enum class Needs { Window, Page };

    const char *name;
    int weight; ///< how often it is done, compared with the others
    Needs needs;
    void (*run)(PLWriter &writer, quint32 first, quint32 second);
};

std::span<const PLWriterAction> PLTextActions();    ///< in the text of the page
std::span<const PLWriterAction> PLSearchActions();  ///< with the find panel and without
std::span<const PLWriterAction> PLPageActions();    ///< with pages and their tags
std::span<const PLWriterAction> PLWindowActions();  ///< with windows, the library, the program
std::span<const PLWriterAction> PLOutsideActions(); ///< of other programs on the notebooks' files

template <typename List>
decltype(auto) PLPick(const List &list, quint32 number)
{
    return list[number % std::size(list)];
}

/// Null if there is none.
inline QString PLPickPath(const QMap<QString, QByteArray> &files, quint32 number)
{
    return files.isEmpty() ? QString() : *std::next(files.keyBegin(), number % files.size());
}
