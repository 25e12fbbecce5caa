// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <array>

class PLWoodButton;

/// Two segments, of which one is selected: books by their covers, or by their spines. To a screen reader they
/// are two radio buttons.
class PLModeControl final : public QWidget
{
    Q_OBJECT

public:
    explicit PLModeControl(QWidget *parent = nullptr);

    /// 0 or 1.
    int selectedSegment() const;
    void setSelectedSegment(int segment);
    PLWoodButton *segment(int index) const { return m_segments[size_t(index)]; }

Q_SIGNALS:
    /// The writer has selected the other segment.
    void segmentSelected(int segment);

private:
    std::array<PLWoodButton *, 2> m_segments;
};
