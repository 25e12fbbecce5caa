// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <QStringList>
#include <QTextLayout>

#include <optional>
#include <vector>

class PLTagFieldModel;

/// What an input method is composing, not yet part of the text.
struct PLComposedText
{
    QString text;
    int cursor = 0; ///< where the caret stands in it; -1 if it is not shown
    QList<QTextLayout::FormatRange> formats;
};

/// Where the tokens and the typed text stand in the row of a tag field.
///
/// The row starts at x = 0 and goes on to the right, in a right-to-left interface to the left, with negative
/// x. Its height is that of a token.
class PLTagFieldLayout final
{
public:
    struct Token
    {
        QRectF rect;
        QString shownText;
    };

    void update(const PLTagFieldModel &model, const PLComposedText &composed, Qt::LayoutDirection direction);

    const std::vector<Token> &tokens() const { return m_tokens; }
    /// The length of the row.
    double length() const { return m_length; }
    /// The typed text's rectangle, null without any; its text is drawn with `textLayout` at its top left.
    QRectF textRect() const { return m_textRect; }
    const QTextLayout &textLayout() const { return m_textLayout; }

    /// The x of a caret at a position of the model.
    double xOfPosition(int position) const;
    /// The position nearest to an x.
    int positionAt(double x) const;
    std::optional<int> tokenAt(double x) const;
    /// Where the caret goes by one character or one token to the right (left) of what is seen.
    int positionBeside(int position, bool isRightwards) const;

private:
    QRectF placed(double width);
    void placeText(const PLTagFieldModel &model, const PLComposedText &composed);
    double gapX(int position) const;
    bool isInText(int position) const;

    std::vector<Token> m_tokens;
    QTextLayout m_textLayout;
    QRectF m_textRect;
    Qt::LayoutDirection m_direction = Qt::LeftToRight;
    double m_length = 0;
    int m_textIndex = 0;
    int m_textSize = 0;
    int m_composedCursor = 0;
};
