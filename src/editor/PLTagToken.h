// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRectF;

/// The look of one tag: a rounded label.
class PLTagToken final
{
public:
    PLTagToken() = delete;

    enum class State { Normal, Selected, SelectedWithoutFocus };

    static constexpr int height = 18;
    static constexpr int greatestWidth = 220;

    static QFont font();
    /// The tag on one line, short enough to measure, cut with an ellipsis if it is wider than the token may
    /// be.
    static QString shownText(const QString &tag, int maximumWidth = greatestWidth);
    /// The width of a token that shows this text.
    static int width(const QString &shownText);
    static void draw(QPainter &painter, const QRectF &rect, const QString &shownText, State state);
};
