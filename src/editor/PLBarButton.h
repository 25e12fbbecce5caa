// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

/// A flat button of the format bar. A click leaves the keyboard focus where it is; the Tab key reaches it. A
/// toggle shows the state it is told, not one of its own.
class PLBarButton final : public QPushButton
{
    Q_OBJECT

public:
    static constexpr int buttonHeight = 24;

    explicit PLBarButton(const QString &title, QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void nextCheckState() override {}
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void drawRect(QPainter &painter);
    QColor fillColor() const;
};
