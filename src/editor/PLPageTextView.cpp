// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageTextView.h"

#include "editor/PLPageDocument.h"
#include "editor/PLPageLayout.h"
#include "editor/PLTyping.h"
#include "i18n/PLLocalization.h"
#include "theme/PLTheme.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int ruleDistance = 16; // from the rule to the column
constexpr int smallestRulePosition = 8;
constexpr int layoutSlice = 3; // milliseconds

} // namespace

PLPageTextView::PLPageTextView(QWidget *parent)
    : QTextEdit(parent), m_characters(std::make_unique<PLPageCharacters>()), m_layoutTimer(this)
{
    setFrameShape(QFrame::NoFrame);
    setAcceptRichText(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    applyColors();
    m_layoutTimer.setObjectName(u"layout"_s);
    connect(&m_layoutTimer, &QTimer::timeout, this, &PLPageTextView::layOutMore);
    setPageText(QString());
    connect(this, &QTextEdit::textChanged, this, [this] {
        if (!m_loading)
            Q_EMIT textDidChange();
    });
}

PLPageTextView::~PLPageTextView() = default;

void PLPageTextView::setPageText(const QString &text)
{
    m_loading = true;
    m_selectionToRestore.reset();
    m_keptScroll = -1;
    m_characters = std::make_unique<PLPageCharacters>();
    QTextDocument *loaded = PLMakePageDocument(m_characters->encoded(text)).release();
    loaded->setParent(this);
    loaded->setPageSize(document()->pageSize()); // else it is laid out for no width at all, then once more
    setDocument(loaded); // deletes the view's first document, but none that is a child of ours
    delete std::exchange(m_loadedDocument, loaded);
    setTextCursor(QTextCursor(document()));
    verticalScrollBar()->setValue(0);
    m_layoutTimer.start();
    m_loading = false;
}

QString PLPageTextView::pageText() const
{
    return m_characters->decoded(PLTextOfDocument(*document()));
}

std::optional<int> PLPageTextView::marginRuleForInset(int inset)
{
    const int position = inset - ruleDistance;
    return position > smallestRulePosition ? std::optional(position) : std::nullopt;
}

std::optional<PLCommandState> PLPageTextView::stateOfCommand(PLCommand command, int) const
{
    switch (command) {
    case PLCommand::Undo:
        return PLCommandState{document()->isUndoAvailable()};
    case PLCommand::Redo:
        return PLCommandState{document()->isRedoAvailable()};
    case PLCommand::Cut:
    case PLCommand::Copy:
        return PLCommandState{textCursor().hasSelection()};
    case PLCommand::Paste:
        return PLCommandState{canPaste()};
    case PLCommand::SelectAll:
        return PLCommandState{};
    default:
        return std::nullopt;
    }
}

void PLPageTextView::performCommand(PLCommand command, int)
{
    switch (command) {
    case PLCommand::Undo:
        return undo();
    case PLCommand::Redo:
        return redo();
    case PLCommand::Cut:
        return cut();
    case PLCommand::Copy:
        return copy();
    case PLCommand::Paste:
        return paste();
    default:
        return selectAll();
    }
}

void PLPageTextView::keyPressEvent(QKeyEvent *event)
{
    if (isReadOnly())
        return QTextEdit::keyPressEvent(event);
    if (event == QKeySequence::InsertParagraphSeparator || event == QKeySequence::InsertLineSeparator)
        return insertPageText(u"\n"_s);
    if (event == QKeySequence::Undo)
        return undo();
    if (event == QKeySequence::Redo)
        return redo();
    if (PLIsTyping(*event))
        return type(event);
    const bool isMenuKey = event->modifiers() & (Qt::AltModifier | Qt::MetaModifier);
    if (isMenuKey && !event->text().isEmpty() && event->text().front().isPrint())
        return event->ignore(); // QTextEdit would type the letter
    QTextEdit::keyPressEvent(event);
}

void PLPageTextView::type(QKeyEvent *event)
{
    const QString text = event->text();
    if (m_typingSteps.beginsWith(text.front()))
        beginUndoStep();
    if (m_characters->encoded(text) != text)
        return insertPageText(text);
    QTextEdit::keyPressEvent(event);
}

/// Our own commands in the interface language: the toolkit's would go past our undo.
void PLPageTextView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    const auto add = [this, &menu](const QString &title, PLCommand command) {
        menu.addAction(title, this, [this, command] { performCommand(command, 0); })
            ->setEnabled(stateOfCommand(command, 0)->enabled);
    };
    add(PLLocalizedString(u"Couper"_s), PLCommand::Cut);
    add(PLLocalizedString(u"Copier"_s), PLCommand::Copy);
    add(PLLocalizedString(u"Coller"_s), PLCommand::Paste);
    menu.addSeparator();
    add(PLLocalizedString(u"Tout sélectionner"_s), PLCommand::SelectAll);
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPoint place =
        isByMouse ? viewport()->mapFromGlobal(event->globalPos()) : cursorRect().bottomLeft();
    Q_EMIT contextMenuWillOpen(&menu,
                               isByMouse ? cursorForPosition(place).position() : textCursor().position());
    menu.exec(viewport()->mapToGlobal(place));
}

void PLPageTextView::inputMethodEvent(QInputMethodEvent *event)
{
    const QString text = event->commitString();
    if (!text.isEmpty() && m_typingSteps.beginsWith(text.front()))
        beginUndoStep();
    QInputMethodEvent encoded(event->preeditString(), event->attributes());
    encoded.setCommitString(m_characters->encoded(text), event->replacementStart(),
                            event->replacementLength());
    QTextEdit::inputMethodEvent(&encoded);
    event->setAccepted(encoded.isAccepted());
}

void PLPageTextView::paintEvent(QPaintEvent *event)
{
    drawBackgroundInRect(event->rect());
    QTextEdit::paintEvent(event);
}

/// Lines that break elsewhere do not take away what the writer looks at: the caret, else the first line.
void PLPageTextView::resizeEvent(QResizeEvent *event)
{
    const bool isCaretInSight = QRect(QPoint(), event->oldSize()).intersects(cursorRect());
    if (isCaretInSight)
        m_keptInSight = textCursor();
    else if (verticalScrollBar()->value() != m_keptScroll) // else it has stood there since the last resize
        m_keptInSight = cursorForPosition(QPoint());
    const int top = cursorRect(m_keptInSight).top();
    QTextEdit::resizeEvent(event);
    if (event->oldSize().isValid() && event->oldSize().width() != event->size().width())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(m_keptInSight).top() - top);
    if (isCaretInSight)
        ensureCursorVisible();
    m_keptScroll = verticalScrollBar()->value();
    m_layoutTimer.start();
}

QMimeData *PLPageTextView::createMimeDataFromSelection() const
{
    auto *mimeData = new QMimeData;
    mimeData->setText(pageTextOf(textCursor()));
    return mimeData;
}

bool PLPageTextView::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText() || source->hasHtml();
}

void PLPageTextView::insertFromMimeData(const QMimeData *source)
{
    // A clipboard that holds nothing but HTML still has a text for the writer.
    const bool isHtmlOnly = source->hasHtml() && !source->hasFormat(u"text/plain"_s);
    QString text = isHtmlOnly ? PLTextOfHTML(source->html()) : source->text();
    insertPageText(text.replace(u"\r\n"_s, u"\n"_s));
}

/// The colours of paper and ink hold whatever the desktop's theme is, those of the scroll bar too.
void PLPageTextView::applyColors()
{
    QPalette colors(PLTheme::coverColor(), PLTheme::paperColor());
    colors.setColor(QPalette::Base, PLTheme::paperColor());
    colors.setColor(QPalette::Window, PLTheme::paperColor());
    colors.setColor(QPalette::Text, PLTheme::inkColor());
    colors.setColor(QPalette::Highlight, PLTheme::shadowed(PLTheme::coverColor(), 0.1));
    colors.setColor(QPalette::HighlightedText, PLTheme::inkColor());
    colors.setColor(QPalette::PlaceholderText, PLTheme::faintInkColor());
    setPalette(colors);
}

void PLPageTextView::drawBackgroundInRect(const QRect &rect)
{
    if (const auto rule = marginRuleForInset(pageLayout()->horizontalInset())) {
        QPainter painter(viewport());
        painter.fillRect(*rule, rect.top(), 1, rect.height(), PLTheme::marginLineColor());
    }
}

/// Lays out a little more of the page; what is in sight stays where it is while the heights above it settle.
void PLPageTextView::layOutMore()
{
    const int scrollPosition = verticalScrollBar()->value();
    const auto [hasMore, shift] = pageLayout()->layOutMore(layoutSlice, scrollPosition);
    const bool isKept = scrollPosition == m_keptScroll;
    verticalScrollBar()->setValue(scrollPosition + qRound(shift));
    if (isKept)
        m_keptScroll = verticalScrollBar()->value();
    if (!hasMore)
        m_layoutTimer.stop();
}

PLPageLayout *PLPageTextView::pageLayout() const
{
    return static_cast<PLPageLayout *>(document()->documentLayout());
}

void PLPageTextView::insertPageText(const QString &text)
{
    QTextCursor cursor = textCursor();
    replaceSelection(cursor, text);
    setTextCursor(cursor);
    ensureCursorVisible();
}

/// As one undo step, without the look of the text around it.
void PLPageTextView::replaceSelection(QTextCursor &cursor, const QString &text)
{
    cursor.insertText(m_characters->encoded(text), QTextCharFormat());
}

QString PLPageTextView::pageTextOf(const QTextCursor &selection) const
{
    QString text = selection.selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return m_characters->decoded(text);
}
