// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLLibraryContent.h"

#include "i18n/PLLocalization.h"
#include "library/PLWoodBarView.h"
#include "theme/PLTheme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int topBarHeight = 56;
constexpr int bottomBarHeight = 52;
constexpr QRect headerFrame(22, 14, 360, 28);
constexpr QSize modeSize(230, 25);
constexpr int modeTop = 16;
constexpr int modeFromRight = 250; // from the window's right edge to the control's left one
constexpr int buttonTop = 10;
constexpr QRect newFrame(16, buttonTop, 150, 32);
constexpr QRect otherFrame(164, buttonTop, 150, 32);
constexpr QSize openSize(106, 32);
constexpr int openFromRight = 122;
constexpr QRgb headerColor = 0xFFF6E6C8;
constexpr QRgb woodColor = 0xFF5C3820;
constexpr QRgb plankColor = 0xFF8C5C34;

void setColor(QWidget &widget, QPalette::ColorRole role, QRgb color)
{
    QPalette colors = widget.palette();
    colors.setColor(role, QColor(color));
    widget.setPalette(colors);
}

} // namespace

PLLibraryContent::PLLibraryContent(QWidget *parent)
    : QWidget(parent)
    , m_topBar(new PLWoodBarView(this))
    , m_scrollView(new QScrollArea(this))
    , m_bottomBar(new PLWoodBarView(this))
{
    buildTopBar();
    buildShelf();
    buildBottomBar();
}

void PLLibraryContent::buildTopBar()
{
    m_topBar->setAtTop(true);
    auto *header = new QLabel(PLLocalizedString(u"Ma bibliothèque"_s), m_topBar);
    header->setGeometry(headerFrame);
    header->setFont(PLTheme::titleFont());
    setColor(*header, QPalette::WindowText, headerColor);
    m_modeControl = new PLModeControl(m_topBar);
    m_modeControl->resize(modeSize);
}

void PLLibraryContent::buildShelf()
{
    m_scrollView->setFrameShape(QFrame::NoFrame);
    m_scrollView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollView->setFocusPolicy(Qt::NoFocus);
    setColor(*m_scrollView->viewport(), QPalette::Window, woodColor);
    m_scrollView->verticalScrollBar()->setPalette(QPalette(QColor(plankColor), QColor(woodColor)));
    m_shelfView = new PLShelfView;
    m_shelfView->setEmptyMessage(PLLocalizedString(
        u"Votre bibliothèque est vide.\nCréez un premier carnet pour commencer à écrire."_s));
    m_scrollView->setWidget(m_shelfView);
    m_scrollView->viewport()->installEventFilter(this);
}

void PLLibraryContent::buildBottomBar()
{
    m_newButton = new PLWoodButton(PLLocalizedString(u"Nouveau carnet…"_s), m_bottomBar);
    m_newButton->setGeometry(newFrame);
    m_otherButton = new PLWoodButton(PLLocalizedString(u"Ouvrir un autre…"_s), m_bottomBar);
    m_otherButton->setGeometry(otherFrame);
    m_openButton = new PLWoodButton(PLLocalizedString(u"Ouvrir"_s), m_bottomBar);
    m_openButton->setProminent(true);
    m_openButton->resize(openSize);
}

void PLLibraryContent::resizeEvent(QResizeEvent *)
{
    m_topBar->setGeometry(0, 0, width(), topBarHeight);
    m_modeControl->move(width() - modeFromRight, modeTop);
    m_scrollView->setGeometry(0, topBarHeight, width(), height() - topBarHeight - bottomBarHeight);
    m_bottomBar->setGeometry(0, height() - bottomBarHeight, width(), bottomBarHeight);
    m_openButton->move(width() - openFromRight, buttonTop);
}

/// Return that nothing in the window wanted: the key of the open button.
void PLLibraryContent::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn)
        return QWidget::keyPressEvent(event);
    if (!event->isAutoRepeat())
        m_openButton->click();
}

bool PLLibraryContent::eventFilter(QObject *watched, QEvent *event)
{
    const bool isHandled = QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::Resize)
        shelfAreaDidResize();
    return isHandled;
}

void PLLibraryContent::shelfAreaDidResize()
{
    m_shelfView->layoutBooks();
}
