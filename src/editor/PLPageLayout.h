// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLBlockHeights.h"

#include <QAbstractTextDocumentLayout>
#include <QFont>

#include <vector>

/// Lays out a page: paragraphs of wrapped lines, 1.3 times the font's line height, in a column of at most 720
/// points in the middle of the width. Only what is looked at is laid out, so that a whole novel in one page opens
/// at once and takes a key as fast as a chapter; until then a paragraph counts with an estimated height.
class PLPageLayout final : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    explicit PLPageLayout(QTextDocument *document);

    static constexpr int VerticalInset = 32; ///< above the first line and below the last, in points

    /// The space on each side of the column, in points, on a page this wide: at least 44.
    static int horizontalInsetForWidth(int width);
    int horizontalInset() const { return m_inset; }

    struct Progress
    {
        bool hasMore; ///< paragraphs are left whose heights are estimated
        double shift; ///< by how much the paragraph at the anchor has moved down, in points
    };
    /// Lays out paragraphs that are still estimated, for about this long.
    Progress layOutMore(int milliseconds, double anchor = 0);

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    QRectF blockBoundingRect(const QTextBlock &block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    void changeWhole();
    void changeBlocks(const QTextBlock &first, const QTextBlock &last);
    void replaceBlocks(size_t start, size_t removed, size_t added);
    void estimateAll();
    void ensureLaidOut(const QTextBlock &block) const;
    void ensureLaidOutWithBlocksAbove(const QTextBlock &block) const;
    double layOutLines(const QTextBlock &block) const;
    double topOfBlock(int number) const;
    void tellSize();
    void drawBlock(QPainter *painter, const QTextBlock &block, const QPointF &position,
                   const PaintContext &context) const;

    // Laying out on demand changes no text: queries are const, as in the base class.
    mutable PLBlockHeights m_heights;
    mutable std::vector<bool> m_isLaidOut;
    size_t m_firstEstimated = 0; ///< all paragraphs before it are laid out
    QFont m_font;
    QSizeF m_toldSize;
    int m_width = 0;
    int m_inset = 0;
    int m_columnWidth = 0;
};
