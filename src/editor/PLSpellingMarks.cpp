// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLSpellingMarks.h"

#include "editor/PLTextMarks.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

using namespace std::chrono_literals;

namespace {

constexpr auto loadingPause = 400ms;
constexpr int typingDelay = 150; // milliseconds
constexpr int scrollDelay = 30;
constexpr int slice = 4;

constexpr int longBlock = 8192; ///< of longer ones only the part in sight is checked
constexpr int partMargin = 1024;

/// What was found in a paragraph, kept with it.
class FoundWords final : public QTextBlockUserData
{
public:
    int revision = -1;
    int length = -1;
    int generation = -1;
    PLTextRange part;
    QList<PLTextRange> words; ///< from the start of the paragraph
};

/// The part of a paragraph to check; in a very long one it moves in steps, so that it is not another one at
/// each line that is scrolled.
PLTextRange partToCheck(const QTextBlock &block, const PLTextRange &visible)
{
    const int length = block.length() - 1;
    if (length <= longBlock)
        return {0, length};
    const int top = qMax(0, visible.position - block.position() - partMargin);
    const int bottom = qMin(length, visible.end() - block.position() + partMargin);
    const int start = top - top % partMargin;
    const int end = qMin(length, bottom + partMargin - bottom % partMargin);
    return {start, qMax(0, end - start)};
}

/// A part may begin or end within a word, which would then be wrong.
bool isCut(const PLTextRange &word, const PLTextRange &part, int length)
{
    return (part.position > 0 && word.position == part.position) ||
           (part.end() < length && word.end() == part.end());
}

} // namespace

PLSpellingMarks::PLSpellingMarks(QTextEdit *view, std::shared_ptr<PLSpellChecker> checker)
    : QObject(view), m_view(view), m_marks(PLTextMarks::of(*view)), m_checker(std::move(checker))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PLSpellingMarks::update);
    connect(view, &QTextEdit::textChanged, this, &PLSpellingMarks::textDidChange);
    connect(view, &QTextEdit::cursorPositionChanged, this, &PLSpellingMarks::caretDidMove);
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { schedule(scrollDelay); });
    connect(m_checker.get(), &PLSpellChecker::wordsDidChange, this, [this] {
        ++m_generation;
        schedule(0);
    });
    view->viewport()->installEventFilter(this);
}

PLSpellingMarks::~PLSpellingMarks() = default;

void PLSpellingMarks::setEnabled(bool enabled)
{
    if (enabled == m_isEnabled)
        return;
    m_isEnabled = enabled;
    m_lastEdit = -1;
    if (enabled) {
        adoptDocument();
        schedule(0);
    } else {
        m_timer.stop();
        m_marks.setMarks(PLTextMarks::Kind::Misspelling, {});
    }
}

bool PLSpellingMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        schedule(scrollDelay);
    return QObject::eventFilter(watched, event);
}

/// A view gets another document with each page.
void PLSpellingMarks::adoptDocument()
{
    if (m_document == m_view->document())
        return;
    if (m_document)
        m_document->disconnect(this);
    m_document = m_view->document();
    connect(m_document, &QTextDocument::contentsChange, this,
            [this](int position, int, int added) { m_lastEdit = position + added; });
    m_lastEdit = -1;
}

void PLSpellingMarks::textDidChange()
{
    if (!m_isEnabled)
        return;
    adoptDocument();
    schedule(typingDelay);
}

void PLSpellingMarks::caretDidMove()
{
    if (m_isEnabled && m_lastEdit >= 0)
        schedule(typingDelay);
}

/// The first call sets the time: whoever never pauses sees marks all the same.
void PLSpellingMarks::schedule(int milliseconds)
{
    if (m_isEnabled && (!m_timer.isActive() || m_timer.remainingTime() > milliseconds))
        m_timer.start(milliseconds);
}

void PLSpellingMarks::update()
{
    adoptDocument();
    if (!m_view->isVisible() || isComposing())
        return;
    if (!m_checker->isLoaded())
        return loadAtNextPause();
    QElapsedTimer timer;
    timer.start();
    const PLTextRange visible = m_marks.visibleRange();
    QList<PLTextRange> marks;
    bool isBeingTypedSomewhere = false;
    for (QTextBlock block = m_document->findBlock(visible.position); block.isValid(); block = block.next()) {
        if (block.position() > visible.end())
            break;
        if (timer.elapsed() >= slice) {
            schedule(0);
            break;
        }
        for (const PLTextRange &word : misspellingsOf(block, visible)) {
            const PLTextRange range{block.position() + word.position, word.length};
            if (isBeingTyped(range))
                isBeingTypedSomewhere = true;
            else if (range.end() > visible.position && range.position < visible.end())
                marks.append(range);
        }
    }
    if (!isBeingTypedSomewhere && isSettled())
        m_lastEdit = -1;
    m_marks.setMarks(PLTextMarks::Kind::Misspelling, marks);
}

/// Reading the dictionary takes the time of three frames: not when a page opens, nor between two keys.
void PLSpellingMarks::loadAtNextPause()
{
    if (m_pause)
        return;
    m_pause = new PLTypingPause(loadingPause, this);
    connect(m_pause, &PLTypingPause::reached, this, [this] {
        m_pause->deleteLater();
        m_pause.clear();
        if (m_isEnabled)
            m_checker->isAvailable();
        schedule(0);
    });
}

bool PLSpellingMarks::isComposing() const
{
    const QTextLayout *layout = m_view->textCursor().block().layout();
    return layout && !layout->preeditAreaText().isEmpty();
}

const QList<PLTextRange> &PLSpellingMarks::misspellingsOf(QTextBlock block, const PLTextRange &visible)
{
    auto *found = dynamic_cast<FoundWords *>(block.userData());
    if (!found) {
        found = new FoundWords;
        block.setUserData(found);
    }
    const PLTextRange part = partToCheck(block, visible);
    if (found->revision == block.revision() && found->length == block.length() &&
        found->generation == m_generation && found->part == part)
        return found->words;
    const QString text = block.text();
    found->revision = block.revision();
    found->length = block.length();
    found->generation = m_generation;
    found->part = part;
    found->words = m_checker->misspellings(QStringView(text).sliced(part.position, part.length));
    for (PLTextRange &word : found->words)
        word.position += part.position;
    const int length = int(text.size());
    found->words.removeIf([&](const PLTextRange &word) { return isCut(word, part, length); });
    return found->words;
}

bool PLSpellingMarks::isBeingTyped(const PLTextRange &word) const
{
    const int caret = m_view->textCursor().position();
    const bool isAtCaret = caret >= word.position && caret <= word.end();
    return isAtCaret && m_lastEdit > word.position && m_lastEdit <= word.end();
}
