// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <vector>

/// The heights of the paragraphs of a page, in points, so kept that the place of any of them, and the one at any
/// place, are found in logarithmic time.
class PLBlockHeights final
{
public:
    size_t size() const { return m_heights.size(); }
    double height(size_t index) const { return m_heights[index]; }
    double total() const;
    /// The sum of the heights before this one.
    double top(size_t index) const;
    /// The paragraph at this height from the top; the first or the last for a place outside. Not for an empty list.
    size_t indexAt(double y) const;

    void setHeight(size_t index, double height);
    /// Puts `added` paragraphs of this height in the place of `removed` ones. Linear.
    void replace(size_t index, size_t removed, size_t added, double height);

private:
    void rebuild();

    std::vector<double> m_heights;
    std::vector<double> m_sums; ///< a Fenwick tree over the heights, from 1
};
