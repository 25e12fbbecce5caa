// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageLayout.h"

#include "editor/PLLineSpacing.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <cmath>

namespace {

constexpr int largestColumnWidth = 720;
constexpr int smallestInset = 44;
constexpr double tallestView = 2000; // points
constexpr int smallChange = 64;      ///< paragraphs that are laid out as soon as they change
constexpr qsizetype longestWord = 1000;

/// True if a line can always end beside this character.
bool endsWord(QChar character)
{
    switch (character.unicode()) {
    case QChar::Nbsp:
    case 0x2007: // as wide as a digit
    case 0x202F: // narrow
        return false;
    default:
        break;
    }
    const QChar::Script script = character.script();
    return character.isSpace() || script == QChar::Script_Han || script == QChar::Script_Hiragana ||
           script == QChar::Script_Katakana || script == QChar::Script_Hangul;
}

/// True if the paragraph has a word that no writer has written. For each line Qt looks for the end of the
/// word (6.4): 300,000 characters without a space took four seconds.
bool hasEndlessWord(const QString &text)
{
    qsizetype length = 0;
    for (const QChar character : text) {
        length = endsWord(character) ? 0 : length + 1;
        if (length > longestWord)
            return true;
    }
    return false;
}

QTextOption textOptionForParagraph(const QTextBlock &block)
{
    const bool breaksAnywhere = block.length() > longestWord && hasEndlessWord(block.text());
    QTextOption option;
    option.setWrapMode(breaksAnywhere ? QTextOption::WrapAnywhere
                                      : QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

/// The last line that begins at or above this height within its block.
QTextLine lineAtHeight(const QTextLayout &layout, double y)
{
    int number = layout.lineCount() - 1;
    while (number > 0 && PLTopOfLine(layout.lineAt(number)) > y)
        --number;
    return layout.lineAt(number);
}

/// Guesses heights from the number of characters.
class BlockEstimate final
{
public:
    BlockEstimate(const QFont &font, int columnWidth)
        : m_charactersPerLine(qMax(1.0, columnWidth / QFontMetricsF(font).averageCharWidth()))
        , m_lineHeight(PLSpacedHeight(std::ceil(QFontMetricsF(font).height())))
    {
    }

    double height(const QTextBlock &block) const
    {
        return std::ceil(qMax(1, block.length() - 1) / m_charactersPerLine) * m_lineHeight;
    }

private:
    double m_charactersPerLine;
    double m_lineHeight;
};

} // namespace

PLPageLayout::PLPageLayout(QTextDocument *document) : QAbstractTextDocumentLayout(document) {}

int PLPageLayout::horizontalInsetForWidth(int width)
{
    return qMax(smallestInset, (width - largestColumnWidth) / 2);
}

PLPageLayout::Progress PLPageLayout::layOutMore(int milliseconds, double anchor)
{
    QElapsedTimer timer;
    timer.start();
    const size_t anchored = m_heights.indexAt(anchor - VerticalInset);
    const double before = m_heights.top(anchored);
    QTextBlock block = document()->findBlockByNumber(int(m_firstEstimated));
    for (; block.isValid() && timer.elapsed() < milliseconds; block = block.next()) {
        ensureLaidOut(block);
        ++m_firstEstimated;
    }
    tellSize();
    return {block.isValid(), m_heights.top(anchored) - before};
}

int PLPageLayout::hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const
{
    const size_t number = m_heights.indexAt(point.y() - VerticalInset);
    const QTextBlock block = document()->findBlockByNumber(int(number));
    ensureLaidOut(block);
    const double y = point.y() - topOfBlock(int(number));
    if (accuracy == Qt::ExactHit && (y < 0 || y >= m_heights.height(number)))
        return -1;
    const QTextLine line = lineAtHeight(*block.layout(), y);
    const double x = point.x() - m_inset;
    if (accuracy == Qt::ExactHit && (x < 0 || x > line.naturalTextWidth()))
        return -1;
    const auto rounding =
        accuracy == Qt::ExactHit ? QTextLine::CursorOnCharacter : QTextLine::CursorBetweenCharacters;
    return block.position() + line.xToCursor(x, rounding);
}

QSizeF PLPageLayout::documentSize() const
{
    return QSizeF(m_width, m_heights.total() + 2 * VerticalInset);
}

QRectF PLPageLayout::frameBoundingRect(QTextFrame *) const
{
    return QRectF(QPointF(), documentSize());
}

QRectF PLPageLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (!block.isValid() || size_t(block.blockNumber()) >= m_heights.size())
        return {};
    ensureLaidOutWithBlocksAbove(block);
    const int number = block.blockNumber();
    return QRectF(m_inset, topOfBlock(number), m_columnWidth, m_heights.height(size_t(number)));
}

void PLPageLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
    // So the document tells of a new page size or font, and a page of another width of its first lines.
    const bool isWhole = from == 0 && charsRemoved == 0 && charsAdded >= document()->characterCount() - 1;
    if (isWhole)
        return changeWhole();
    const QTextBlock first = document()->findBlock(from);
    QTextBlock last = document()->findBlock(from + charsAdded);
    if (!last.isValid())
        last = document()->lastBlock();
    changeBlocks(first, last);
    tellSize();
}

void PLPageLayout::changeWhole()
{
    const int width = int(document()->pageSize().width());
    const int inset = horizontalInsetForWidth(width);
    const int columnWidth = qMax(1, width - 2 * inset);
    const bool breaksElsewhere = columnWidth != m_columnWidth || document()->defaultFont() != m_font ||
                                 m_heights.size() != size_t(document()->blockCount());
    m_width = width;
    m_inset = inset;
    m_columnWidth = columnWidth;
    m_font = document()->defaultFont();
    if (breaksElsewhere)
        estimateAll();
    tellSize();
    Q_EMIT update();
}

void PLPageLayout::estimateAll()
{
    m_heights.replace(0, m_heights.size(), size_t(document()->blockCount()), 0);
    m_isLaidOut.assign(m_heights.size(), false);
    m_firstEstimated = 0;
    size_t number = 0;
    const BlockEstimate estimate(m_font, m_columnWidth);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        m_heights.setHeight(number++, estimate.height(block));
}

/// Makes room for the paragraphs from `first` to `last`, which stand where others stood before.
void PLPageLayout::changeBlocks(const QTextBlock &first, const QTextBlock &last)
{
    const auto start = size_t(first.blockNumber());
    const size_t added = size_t(last.blockNumber()) - start + 1;
    const size_t removed = m_heights.size() + added - size_t(document()->blockCount());
    const double heightBefore = m_heights.top(start + removed) - m_heights.top(start);
    if (added != removed)
        replaceBlocks(start, removed, added);
    const BlockEstimate estimate(m_font, m_columnWidth);
    size_t number = start;
    for (QTextBlock block = first; number < start + added; block = block.next(), ++number) {
        m_isLaidOut[number] = false;
        if (added > smallChange)
            m_heights.setHeight(number, estimate.height(block));
        else
            ensureLaidOut(block);
    }
    const double top = topOfBlock(int(start));
    const double height = topOfBlock(int(start + added)) - top;
    Q_EMIT update(QRectF(0, top, m_width, height == heightBefore ? height : documentSize().height()));
}

void PLPageLayout::replaceBlocks(size_t start, size_t removed, size_t added)
{
    m_heights.replace(start, removed, added, 0);
    const auto place = m_isLaidOut.begin() + std::ptrdiff_t(start);
    m_isLaidOut.insert(m_isLaidOut.erase(place, place + std::ptrdiff_t(removed)), added, false);
    if (m_firstEstimated >= start + removed && added <= smallChange)
        m_firstEstimated += added - removed;
    else
        m_firstEstimated = std::min(m_firstEstimated, start);
}

void PLPageLayout::ensureLaidOut(const QTextBlock &block) const
{
    const auto number = size_t(block.blockNumber());
    if (m_isLaidOut[number])
        return;
    m_heights.setHeight(number, layOutLines(block));
    m_isLaidOut[number] = true;
}

/// Whoever asks for the place of a paragraph means to scroll to it: what is shown above it must not move it
/// then.
void PLPageLayout::ensureLaidOutWithBlocksAbove(const QTextBlock &block) const
{
    ensureLaidOut(block);
    if (size_t(block.blockNumber()) < m_firstEstimated)
        return;
    double height = 0;
    for (QTextBlock above = block.previous(); above.isValid() && height < tallestView;
         above = above.previous()) {
        ensureLaidOut(above);
        height += m_heights.height(size_t(above.blockNumber()));
    }
}

/// Breaks the paragraph into lines and answers the height they take.
double PLPageLayout::layOutLines(const QTextBlock &block) const
{
    QTextLayout *layout = block.layout();
    layout->setTextOption(textOptionForParagraph(block));
    double height = 0;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(m_columnWidth);
        line.setPosition(QPointF(0, height + PLSpaceAbove(line.height())));
        height += PLSpacedHeight(line.height());
    }
    layout->endLayout();
    const_cast<QTextBlock &>(block).setLineCount(layout->lineCount());
    return height;
}

double PLPageLayout::topOfBlock(int number) const
{
    return VerticalInset + m_heights.top(size_t(number));
}

/// Tells the new size of the page, but only if it is another one than was told before.
void PLPageLayout::tellSize()
{
    const QSizeF size = documentSize();
    if (size == m_toldSize)
        return;
    m_toldSize = size;
    Q_EMIT documentSizeChanged(size);
}
