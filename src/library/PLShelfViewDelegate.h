// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

class PLShelfView;
class QUrl;
struct PLShelfBook;

/// What a shelf tells its owner. A book that is handed over is good for the time of the call, also if the
/// shelf is given other books in it.
class PLShelfViewDelegate
{
public:
    virtual ~PLShelfViewDelegate() = default;

    /// Another book is selected, or none, by the writer or by `setSelectedIndex`.
    virtual void shelfViewSelectionDidChange(PLShelfView &shelfView) = 0;
    /// A book was double-clicked, or Return was pressed on it; it may be a missing one.
    virtual void openBook(const PLShelfBook &book) = 0;
    /// A picture was dropped on a book that is available.
    virtual void didDropImageAtURL(const QUrl &image, const PLShelfBook &book) = 0;
};
