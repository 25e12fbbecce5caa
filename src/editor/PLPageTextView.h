// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPageCharacters.h"
#include "platform/PLCommand.h"

#include <QTextEdit>
#include <QTimer>

#include <memory>

/// The page in which the writer writes: a column of text of at most 720 points in the middle of the pane, with a
/// thin margin rule on its left. It gives back every character of the text it was given.
class PLPageLayout;

class PLPageTextView final : public QTextEdit, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLPageTextView(QWidget *parent = nullptr);
    ~PLPageTextView() override;

    /// Loads a page; undo does not reach back before it, and textDidChange is not sent. Line ends are "\n".
    void setPageText(const QString &text);
    QString pageText() const;
    /// Replaces a part of the page as one undo step. Line ends are "\n".
    void replaceRange(int position, int length, const QString &text);

    /// Where the margin rule stands for such an inset, nothing if there is no room for it.
    static std::optional<int> marginRuleForInset(int inset);

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

Q_SIGNALS:
    /// The writer has changed the text; loading a page does not count.
    void textDidChange();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void applyColors();
    void drawBackgroundInRect(const QRect &rect);
    void layOutMore();
    PLPageLayout *pageLayout() const;
    void insertPageText(const QString &text);

    std::unique_ptr<PLPageCharacters> m_characters;
    QTextDocument *m_loadedDocument = nullptr;
    QTimer m_layoutTimer; ///< runs while paragraphs are still to be laid out
    bool m_loading = false;
};
