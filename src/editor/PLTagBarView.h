// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class PLTagField;

/// The bar with the page's tags, between the format bar and the page.
class PLTagBarView final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barHeight = 33; ///< the field with 4 points around it, and the dividing line

    explicit PLTagBarView(QWidget *parent = nullptr);

    PLTagField *tagField() const { return m_tagField; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void drawRect(QPainter &painter, const QRect &rectangle);

    PLTagField *m_tagField;
};
