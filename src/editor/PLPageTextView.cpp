// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageTextView.h"

#include "editor/PLPageDocument.h"
#include "theme/PLTheme.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

namespace {

constexpr int columnWidth = 720;
constexpr int smallestInset = 44;
constexpr int ruleDistance = 16; // from the rule to the column
constexpr int smallestRulePosition = 8;

} // namespace

PLPageTextView::PLPageTextView(QWidget *parent)
    : QTextEdit(parent)
    , m_characters(std::make_unique<PLPageCharacters>())
{
    setFrameShape(QFrame::NoFrame);
    setAcceptRichText(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    applyColors();
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
    m_characters = std::make_unique<PLPageCharacters>();
    QTextDocument *loaded = PLMakePageDocument(m_characters->encoded(text)).release();
    loaded->setParent(this);
    setDocument(loaded); // deletes the view's first document, but none that is a child of ours
    delete std::exchange(m_loadedDocument, loaded);
    setTextCursor(QTextCursor(document()));
    verticalScrollBar()->setValue(0);
    m_loading = false;
}

QString PLPageTextView::pageText() const
{
    return m_characters->decoded(PLTextOfDocument(*document()));
}

int PLPageTextView::horizontalInsetForWidth(int width)
{
    return qMax(smallestInset, (width - columnWidth) / 2);
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

bool PLPageTextView::event(QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        drawMargins();
        return true;
    }
    return forwardMarginEvent(event) || QTextEdit::event(event);
}

void PLPageTextView::keyPressEvent(QKeyEvent *event)
{
    if (event == QKeySequence::InsertParagraphSeparator || event == QKeySequence::InsertLineSeparator) {
        insertParagraph();
        event->accept();
        return;
    }
    if (!isReadOnly() && event == QKeySequence::Undo)
        return undo();
    if (!isReadOnly() && event == QKeySequence::Redo)
        return redo();
    QTextEdit::keyPressEvent(event);
}

void PLPageTextView::resizeEvent(QResizeEvent *event)
{
    updateInset();
    QTextEdit::resizeEvent(event);
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
    QString text = isHtmlOnly ? QTextDocumentFragment::fromHtml(source->html()).toPlainText() : source->text();
    insertPageText(text.replace(u"\r\n"_s, u"\n"_s));
}

/// The colours of paper and ink hold whatever the desktop's theme is.
void PLPageTextView::applyColors()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, PLTheme::paperColor());
    colors.setColor(QPalette::Window, PLTheme::paperColor());
    colors.setColor(QPalette::Text, PLTheme::inkColor());
    colors.setColor(QPalette::Highlight, PLTheme::shadowed(PLTheme::coverColor(), 0.1));
    colors.setColor(QPalette::HighlightedText, PLTheme::inkColor());
    colors.setColor(QPalette::PlaceholderText, PLTheme::faintInkColor());
    setPalette(colors);
}

/// The inset is made of the viewport's margins and not of the document's, whose every change would be an edit.
void PLPageTextView::updateInset()
{
    const QScrollBar *bar = verticalScrollBar();
    const int inset = horizontalInsetForWidth(width() - (bar->isVisible() ? bar->width() : 0));
    if (inset == m_inset)
        return;
    m_inset = inset;
    const int margin = inset - PLPageDocumentSideMargin;
    setViewportMargins(margin, 0, margin, 0);
    update();
}

void PLPageTextView::drawMargins()
{
    QPainter painter(this);
    painter.fillRect(rect(), PLTheme::paperColor());
    if (const auto rule = marginRuleForInset(m_inset))
        painter.fillRect(*rule, 0, 1, height(), PLTheme::marginLineColor());
}

/// A click or a drag in the margin is one at the nearest end of the line, as on paper.
bool PLPageTextView::forwardMarginEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        break;
    default:
        return false;
    }
    const auto *mouse = static_cast<QMouseEvent *>(event);
    const QPointF position = viewport()->mapFrom(this, mouse->position().toPoint());
    QMouseEvent forwarded(mouse->type(), position, mouse->globalPosition(), mouse->button(), mouse->buttons(),
                          mouse->modifiers(), mouse->pointingDevice());
    return QCoreApplication::sendEvent(viewport(), &forwarded);
}

/// Qt swallows Return in an empty paragraph that has a format, so the paragraph is inserted here.
void PLPageTextView::insertParagraph()
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    cursor.insertBlock(PLPageBlockFormat());
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void PLPageTextView::insertPageText(const QString &text)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    replaceSelection(cursor, text);
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

/// Every new paragraph has the format of the one the text goes into, which is the page's: Qt's insertText sees to it,
/// unlike its paste. The cursor ends after the text.
void PLPageTextView::replaceSelection(QTextCursor &cursor, const QString &text)
{
    cursor.removeSelectedText();
    cursor.insertText(m_characters->encoded(text), QTextCharFormat());
}

QString PLPageTextView::pageTextOf(const QTextCursor &selection) const
{
    QString text = selection.selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return m_characters->decoded(text);
}
