// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"

#include <QWidget>

#include <vector>

class PLBarButton;
class QLabel;
class QMenu;

/// The bar above the page: the buttons of the Markdown commands and of the preview, and the number of words.
class PLFormatBarView final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barHeight = 36;

    explicit PLFormatBarView(QWidget *parent = nullptr);

    QString wordCountText() const;
    void setWordCountText(const QString &text);
    /// The state that the preview's button shows.
    void setPreviewOn(bool isOn);
    /// The button of a command, null if there is none.
    PLBarButton *button(PLCommand command, int tag = 0);
    const PLBarButton *button(PLCommand command, int tag = 0) const;
    /// In a bar that is too narrow: opens a menu of the commands that have no place in it.
    PLBarButton *moreButton() { return m_moreButton; }

    QSize sizeHint() const override { return {640, barHeight}; }
    QSize minimumSizeHint() const override { return {0, barHeight}; }

Q_SIGNALS:
    void commandTriggered(PLCommand command, int tag);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Item
    {
        PLBarButton *button;
        PLCommand command;
        int tag;
        bool startsGroup;
    };

    PLBarButton *barButtonWithTitle(const QString &title, const QString &toolTip, int width);
    void addButtons();
    void addMoreButton();
    void fillMenu(QMenu *menu);
    void place(QWidget *widget, int x, bool isShown);
    void arrange();
    void arrangeCommands(int end);
    void drawRect(QPainter &painter);

    std::vector<Item> m_items;
    PLBarButton *m_moreButton = nullptr;
    QLabel *m_wordCountLabel;
};
