// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLBlockHeights.h"

#include <algorithm>
#include <bit>

namespace {

/// The lowest bit that is set: how many heights a node of the tree sums up.
size_t span(size_t node)
{
    return node & (~node + 1);
}

} // namespace

double PLBlockHeights::total() const
{
    return top(size());
}

double PLBlockHeights::top(size_t index) const
{
    double sum = 0;
    for (size_t node = index; node > 0; node -= span(node))
        sum += m_sums[node];
    return sum;
}

size_t PLBlockHeights::indexAt(double y) const
{
    size_t index = 0;
    double above = 0;
    for (size_t step = std::bit_floor(size()); step > 0; step /= 2) {
        const size_t node = index + step;
        if (node <= size() && above + m_sums[node] <= y) {
            index = node;
            above += m_sums[node];
        }
    }
    return std::min(index, size() - 1);
}

void PLBlockHeights::setHeight(size_t index, double height)
{
    const double difference = height - m_heights[index];
    m_heights[index] = height;
    for (size_t node = index + 1; node <= size(); node += span(node))
        m_sums[node] += difference;
}

void PLBlockHeights::replace(size_t index, size_t removed, size_t added, double height)
{
    const auto place = m_heights.begin() + std::ptrdiff_t(index);
    m_heights.insert(m_heights.erase(place, place + std::ptrdiff_t(removed)), added, height);
    rebuild();
}

void PLBlockHeights::rebuild()
{
    m_sums.assign(size() + 1, 0);
    for (size_t node = 1; node <= size(); ++node) {
        m_sums[node] += m_heights[node - 1];
        const size_t parent = node + span(node);
        if (parent <= size())
            m_sums[parent] += m_sums[node];
    }
}
