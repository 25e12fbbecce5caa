// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

/// The sheet of paper behind the editor and the placeholder.
class PLPaperView final : public QWidget
{
    Q_OBJECT

public:
    explicit PLPaperView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
