// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLTextTarget.h"

#include <QList>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QTextDocument>

#include <array>

class QPainter;
class QTextBlock;
class QTextEdit;

/// What is drawn over a text without being part of it: no undo step, no change, nothing that is saved. Marks
/// move with the text; those whose own text changes go, and all of them go with the document. They are drawn
/// here and not as the view's extra selections, which cost a frame from a hundred marks on.
class PLTextMarks final : public QObject
{
    Q_OBJECT

public:
    enum class Kind { Match, Misspelling };

    /// The marks of this view, made at the first call.
    static PLTextMarks &of(QTextEdit &view);

    /// In order.
    const QList<PLTextRange> &marks(Kind kind) const;
    void setMarks(Kind kind, const QList<PLTextRange> &marks);

    /// The part of the text that is in sight.
    PLTextRange visibleRange() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit PLTextMarks(QTextEdit *view);

    void adoptDocument();
    void followChange(int position, int removed, int added);
    void paint(QEvent *event);
    void draw(Kind kind, const QRect &clip);
    void drawInBlock(QPainter &painter, Kind kind, const QTextBlock &block, const QRect &clip);
    void drawPart(QPainter &painter, Kind kind, const QRectF &part);
    const QPixmap &wave();

    QTextEdit *m_view;
    QPointer<QTextDocument> m_document;
    std::array<QList<PLTextRange>, 2> m_marks;
    QPixmap m_wave;
    bool m_isPainting = false;
};
