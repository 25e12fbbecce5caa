// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"

#include <QStringList>
#include <QUrl>
#include <QWidget>

#include <memory>

class PLFindController;
class PLFormatBarView;
class PLLivePreview;
class PLPageTextView;
class PLSpellingController;
class PLTagBarView;
class PLTagField;
class QSplitter;

/// The right-hand side of a notebook window: the format bar, the tags, the page with its preview beside it,
/// and the number of words.
class PLEditorView final : public QWidget, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLEditorView(QWidget *parent = nullptr);
    ~PLEditorView() override;

    /// Loads a page's body; links and pictures in it are relative to `baseURL`, the folder of its file.
    void setText(const QString &text, const QUrl &baseURL);
    QString text() const;

    /// Normalised.
    QStringList tags() const;
    void setTags(const QStringList &tags);

    PLPageTextView *textView() const { return m_textView; }
    PLTagField *tagField() const;
    PLFormatBarView *formatBar() const { return m_formatBar; }
    PLLivePreview *livePreview() const { return m_livePreview; }
    QSplitter *splitView() const { return m_splitView; }

    /// Remembered in the preferences as "PLPreviewVisible"; visible until the writer hides it.
    bool isPreviewVisible() const { return m_isPreviewVisible; }
    void setPreviewVisible(bool visible);
    void togglePreview() { setPreviewVisible(!m_isPreviewVisible); }

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

private:
    QWidget *buildPanes();
    void showDivider();
    void connectParts();
    /// Who carries out the finding and spelling commands; null for other commands.
    PLCommandHandler *handlerOf(PLCommand command, int tag) const;
    void updateWordCount();
    void divideInHalf();
    void constrainDivider();

    PLFormatBarView *m_formatBar;
    PLTagBarView *m_tagBar;
    PLPageTextView *m_textView;
    std::unique_ptr<PLFindController> m_findController;
    std::unique_ptr<PLSpellingController> m_spellingController;
    PLLivePreview *m_livePreview;
    QSplitter *m_splitView;
    bool m_isPreviewVisible = true;
};
