// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

/// A button on a wooden bar: paper-coloured, with the same contrast whatever the desktop's theme. Space
/// presses it, and Return.
class PLWoodButton : public QPushButton
{
    Q_OBJECT

public:
    /// Which ends of it are round: of a row of segments the first on the left, the last on the right.
    enum class Ends { Both, Left, Right };

    explicit PLWoodButton(const QString &title, QWidget *parent = nullptr);

    void setEnds(Ends ends) { m_ends = ends; }
    /// The button that Return presses where nothing else wants it; it is drawn in gold.
    void setProminent(bool prominent) { m_isProminent = prominent; }

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF bezel() const;
    QPainterPath outline(const QRectF &bezel, double radius) const;
    void drawBezel(QPainter &painter) const;
    void drawFocusRing(QPainter &painter) const;
    void drawTitle(QPainter &painter) const;

    Ends m_ends = Ends::Both;
    bool m_isProminent = false;
};
