// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTagFieldDelegate.h"
#include "editor/PLTagFieldLayout.h"
#include "editor/PLTagFieldModel.h"
#include "platform/PLCommand.h"

#include <QBasicTimer>
#include <QPointer>
#include <QWidget>

class PLTagFieldCompletion;
class QDrag;
class QMimeData;

/// A field of tags on one line: each tag is a token, made of the typed text by a comma, Return or Tab. A row
/// that is too long scrolls so that the caret can be seen.
class PLTagField final : public QWidget, public PLCommandHandler
{
    Q_OBJECT

public:
    static constexpr int fieldHeight = 24;

    explicit PLTagField(QWidget *parent = nullptr);
    ~PLTagField() override;

    /// Normalised; the text being typed counts as a tag.
    QStringList tags() const { return m_model.tags(); }
    /// Shows other tags, those of another page; no signal is sent and nothing is left to undo.
    void setTags(const QStringList &tags);

    /// Asked for proposals and for the tags to add; not owned, null for none.
    void setDelegate(PLTagFieldDelegate *delegate) { m_delegate = delegate; }
    /// Called to carry a drag instead of the desktop. For tests.
    void setDragRunner(std::function<void(QDrag *)> runner) { m_runDrag = std::move(runner); }
    void setPlaceholderText(const QString &text);
    QString placeholderText() const { return m_placeholder; }

    const PLTagFieldModel &model() const { return m_model; }
    void select(int anchor, int caret);
    void removeToken(int token);
    void editToken(int token);
    /// Types a text in place of a part of the typed text.
    void replaceText(int offset, int length, const QString &text);
    /// The list of proposals while it is shown, else null.
    PLTagFieldCompletion *shownCompletion() const;

    /// Where a token is seen, in this widget; parts of it may be scrolled out.
    QRect rectOfToken(int token) const;
    QRect rectOfText() const;
    QRect caretRect() const { return rectOfCaret(m_model.caret()); }
    QRect rectOfCaret(int position) const;
    int positionAt(const QPoint &point) const;

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;
    QSize sizeHint() const override { return {320, fieldHeight}; }
    QSize minimumSizeHint() const override { return {80, fieldHeight}; }
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

Q_SIGNALS:
    /// The writer has changed the tags.
    void textDidChange();
    /// The writer has left the field, or pressed Return with nothing typed.
    void didEndEditing();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    /// What the mouse is about to do, decided at its press.
    enum class Press { None, Selecting, MaybeDragging };

    void apply(const std::function<void()> &change);
    void announce(const QStringList &tokensBefore, const QString &textBefore);
    void updateLayout();
    void scrollBy(double distance);
    void showCaret();
    void restartBlinking();
    QPointF rowOrigin() const;

    bool isComposing() const { return !m_composed.text.isEmpty(); }
    void endComposing();
    bool performStandardKey(const QKeyEvent &event);
    bool performKey(const QKeyEvent &event);
    bool performCompletionKey(const QKeyEvent &event);
    bool performMovement(const QKeyEvent &event);
    void moveBeside(bool isRightwards, bool extend);
    void pressReturn();
    bool takeTab();
    void updateCompletion();
    void showCompletion();
    void acceptCompletion(const QString &tag);

    QMimeData *mimeDataOfSelection() const;
    void copySelection() const;
    void insertMimeData(const QMimeData &source);
    void startDrag();
    std::optional<int> tokenAt(const QPoint &point) const;
    QString toolTipAt(const QPoint &point) const;

    void drawRect(QPainter &painter);
    void drawPlaceholder(QPainter &painter);
    void drawRow(QPainter &painter);
    void drawText(QPainter &painter);
    void drawEnds(QPainter &painter);

    PLTagFieldModel m_model;
    PLTagFieldLayout m_layout;
    PLComposedText m_composed;
    PLTagFieldDelegate *m_delegate = nullptr;
    QPointer<PLTagFieldCompletion> m_completion;
    std::function<void(QDrag *)> m_runDrag;
    QString m_placeholder;
    QBasicTimer m_blinkTimer;
    QPoint m_pressPoint;
    std::optional<int> m_dropPosition;
    double m_scroll = 0; ///< how far the row is moved out of sight, never negative
    Press m_press = Press::None;
    bool m_isDragging = false;
    bool m_isCaretShown = false;
};
