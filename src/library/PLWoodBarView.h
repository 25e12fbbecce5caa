// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

/// A wooden bar above or below the shelf; it gets darker towards the shelf.
class PLWoodBarView final : public QWidget
{
    Q_OBJECT

public:
    explicit PLWoodBarView(QWidget *parent = nullptr);

    /// Above the shelf, else below it.
    bool atTop() const { return m_atTop; }
    void setAtTop(bool atTop);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_atTop = false;
};
