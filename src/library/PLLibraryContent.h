// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLModeControl.h"
#include "library/PLShelfView.h"
#include "library/PLWoodButton.h"

#include <QWidget>

class PLWoodBarView;
class QLabel;
class QScrollArea;

/// What is in the library window: the shelf between two wooden bars with their buttons.
class PLLibraryContent final : public QWidget
{
    Q_OBJECT

public:
    explicit PLLibraryContent(QWidget *parent = nullptr);

    PLShelfView *shelfView() const { return m_shelfView; }
    PLModeControl *modeControl() const { return m_modeControl; }
    PLWoodButton *newButton() const { return m_newButton; }
    PLWoodButton *otherButton() const { return m_otherButton; }
    PLWoodButton *openButton() const { return m_openButton; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildTopBar();
    void buildShelf();
    void buildBottomBar();
    void shelfAreaDidResize();

    PLWoodBarView *m_topBar;
    QScrollArea *m_scrollView;
    PLWoodBarView *m_bottomBar;
    PLModeControl *m_modeControl = nullptr;
    PLShelfView *m_shelfView = nullptr;
    PLWoodButton *m_newButton = nullptr;
    PLWoodButton *m_otherButton = nullptr;
    PLWoodButton *m_openButton = nullptr;
};
