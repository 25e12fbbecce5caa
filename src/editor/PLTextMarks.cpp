// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTextMarks.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <iterator>

namespace {

constexpr int waveLength = 4; // points
constexpr int waveHeight = 3;

const QColor matchColor(0xFF, 0xE0, 0x7A);
const QColor misspellingColor(0xD0, 0x30, 0x20);

QPointF viewportOffset(const QTextEdit &view)
{
    return QPointF(-view.horizontalScrollBar()->value(), -view.verticalScrollBar()->value());
}

/// The part of the mark that stands in this line, both in positions of the paragraph.
QRectF partInLine(const QTextLine &line, const PLTextRange &mark)
{
    const int lineEnd = line.textStart() + line.textLength();
    const double start = line.cursorToX(qMax(mark.position, line.textStart()));
    const double end = line.cursorToX(qMin(mark.end(), lineEnd));
    return QRectF(qMin(start, end), line.y(), qAbs(end - start), line.ascent() + line.descent());
}

} // namespace

PLTextMarks::PLTextMarks(QTextEdit *view) : QObject(view), m_view(view)
{
    adoptDocument();
    connect(view, &QTextEdit::textChanged, this, &PLTextMarks::adoptDocument);
    view->viewport()->installEventFilter(this);
}

PLTextMarks &PLTextMarks::of(QTextEdit &view)
{
    auto *marks = view.findChild<PLTextMarks *>(QString(), Qt::FindDirectChildrenOnly);
    return marks ? *marks : *new PLTextMarks(&view);
}

const QList<PLTextRange> &PLTextMarks::marks(Kind kind) const
{
    return m_marks[size_t(kind)];
}

void PLTextMarks::setMarks(Kind kind, const QList<PLTextRange> &marks)
{
    adoptDocument();
    if (marks == m_marks[size_t(kind)])
        return;
    m_marks[size_t(kind)] = marks;
    m_view->viewport()->update();
}

PLTextRange PLTextMarks::visibleRange() const
{
    const QRect rect = m_view->viewport()->rect();
    const int start = m_view->cursorForPosition(rect.topLeft()).position();
    const int end = m_view->cursorForPosition(rect.bottomRight()).position();
    return {start, qMax(0, end - start)};
}

bool PLTextMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint || m_isPainting)
        return QObject::eventFilter(watched, event);
    paint(event);
    return true;
}

/// A view may get another document; it says so by a change of its text.
void PLTextMarks::adoptDocument()
{
    if (m_document == m_view->document())
        return;
    if (m_document)
        m_document->disconnect(this);
    m_document = m_view->document();
    connect(m_document, &QTextDocument::contentsChange, this, &PLTextMarks::followChange);
    for (QList<PLTextRange> &marks : m_marks)
        marks.clear();
}

/// A mark that the change only touches goes too: it may be part of a longer word now, unless a space parts
/// them.
void PLTextMarks::followChange(int position, int removed, int added)
{
    const bool startsInSpace = added > 0 && m_document->characterAt(position).isSpace();
    const bool endsInSpace = added > 0 && m_document->characterAt(position + added - 1).isSpace();
    const int start = startsInSpace ? position + 1 : position;  // marks that end before it stay
    const int end = position + removed + (endsInSpace ? 0 : 1); // marks that begin there or later only move
    for (QList<PLTextRange> &marks : m_marks) {
        marks.removeIf([=](const PLTextRange &mark) { return mark.end() >= start && mark.position < end; });
        for (PLTextRange &mark : marks) {
            if (mark.position >= end)
                mark.position += added - removed;
        }
    }
}

/// Matches are drawn under the text, waves over it. The text itself is drawn by whoever else handles this
/// event.
void PLTextMarks::paint(QEvent *event)
{
    const QRect clip = static_cast<QPaintEvent *>(event)->rect();
    draw(Kind::Match, clip);
    m_isPainting = true;
    QCoreApplication::sendEvent(m_view->viewport(), event);
    m_isPainting = false;
    draw(Kind::Misspelling, clip);
}

void PLTextMarks::draw(Kind kind, const QRect &clip)
{
    const QList<PLTextRange> &all = marks(kind);
    if (all.isEmpty() || m_document != m_view->document())
        return;
    QPainter painter(m_view->viewport());
    painter.translate(viewportOffset(*m_view));
    const QRect visible = clip.translated(-viewportOffset(*m_view).toPoint());
    const int last = m_view->cursorForPosition(clip.bottomRight()).position();
    QTextBlock block = m_view->cursorForPosition(clip.topLeft()).block();
    for (; block.isValid() && block.position() <= last; block = block.next())
        drawInBlock(painter, kind, block, visible);
}

/// Lines and marks are both in order, so one walk through the lines does for all marks.
void PLTextMarks::drawInBlock(QPainter &painter, Kind kind, const QTextBlock &block, const QRect &clip)
{
    const QPointF origin = m_document->documentLayout()->blockBoundingRect(block).topLeft();
    const QTextLayout &layout = *block.layout();
    const QList<PLTextRange> &all = marks(kind);
    auto mark = std::partition_point(
        all.begin(), all.end(), [&](const PLTextRange &range) { return range.end() <= block.position(); });
    for (int number = 0; number < layout.lineCount(); ++number) {
        const QTextLine line = layout.lineAt(number);
        if (origin.y() + line.y() > clip.bottom())
            return;
        const int lineStart = block.position() + line.textStart();
        const int lineEnd = lineStart + line.textLength();
        while (mark != all.end() && mark->end() <= lineStart)
            ++mark;
        if (origin.y() + line.y() + line.height() + waveHeight < clip.top())
            continue;
        for (auto part = mark; part != all.end() && part->position < lineEnd; ++part) {
            const PLTextRange inBlock{part->position - block.position(), part->length};
            drawPart(painter, kind, partInLine(line, inBlock).translated(origin));
        }
    }
}

void PLTextMarks::drawPart(QPainter &painter, Kind kind, const QRectF &part)
{
    if (kind == Kind::Match)
        return painter.fillRect(part, matchColor);
    const QRectF below(part.left(), qRound(part.bottom()) - waveHeight, part.width(), waveHeight);
    painter.drawTiledPixmap(below, wave());
}

/// One wave, as sharp as the screen.
const QPixmap &PLTextMarks::wave()
{
    const double ratio = m_view->devicePixelRatioF();
    if (m_wave.devicePixelRatio() == ratio && !m_wave.isNull())
        return m_wave;
    m_wave = QPixmap(qRound(waveLength * ratio), qRound(waveHeight * ratio));
    m_wave.setDevicePixelRatio(ratio);
    m_wave.fill(Qt::transparent);
    QPainter painter(&m_wave);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(misspellingColor, 1));
    // Half a wave more on both sides, so that the ends meet without a gap.
    const QPointF zigzag[] = {{-1, 1.5}, {0, 2.5}, {2, 0.5}, {4, 2.5}, {5, 1.5}};
    painter.drawPolyline(zigzag, int(std::size(zigzag)));
    return m_wave;
}
