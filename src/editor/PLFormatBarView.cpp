// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFormatBarView.h"

#include "editor/PLBarButton.h"
#include "foundation/PLText.h"
#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"
#include "platform/PLKeyGlyphs.h"
#include "theme/PLTheme.h"

#include <QEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QMenu>
#include <QPainter>
#include <QStyle>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 8;
constexpr int gap = 2;
constexpr int groupGap = 10;
constexpr int moreWidth = 30;

enum class Look { Plain, Bold, Serif, System };

struct BarButton
{
    const char16_t *title;
    const char16_t *toolTip;
    PLCommand command;
    int tag; ///< stands for the "%ld" of title and tool tip
    int width;
    Look look;
    bool startsGroup;
};

// clang-format off
constexpr BarButton barButtons[] = {
    {u"T%ld", u"Titre de niveau %ld (⌘%ld)", PLCommand::FormatHeading, 1, 34, Look::Plain, false},
    {u"T%ld", u"Titre de niveau %ld (⌘%ld)", PLCommand::FormatHeading, 2, 34, Look::Plain, false},
    {u"T%ld", u"Titre de niveau %ld (⌘%ld)", PLCommand::FormatHeading, 3, 34, Look::Plain, false},
    {u"G", u"Gras (⌘B)", PLCommand::FormatBold, 0, 30, Look::Bold, true},
    {u"I", u"Italique (⌘I)", PLCommand::FormatItalic, 0, 30, Look::Serif, false},
    {u"S", u"Barré", PLCommand::FormatStrikethrough, 0, 30, Look::System, false},
    {u"❝", u"Citation (⌘')", PLCommand::FormatQuote, 0, 30, Look::Plain, true},
    {u"• Liste", u"Liste à puces", PLCommand::FormatBulletList, 0, 58, Look::Plain, false},
    {u"1. Liste", u"Liste numérotée", PLCommand::FormatNumberedList, 0, 58, Look::Plain, false},
    {u"❦", u"Séparateur de scène", PLCommand::FormatSeparator, 0, 30, Look::Plain, true},
    {u"Lien", u"Lien (⌘K)", PLCommand::FormatLink, 0, 42, Look::Plain, false},
    {u"Aperçu", u"Afficher ou masquer l'aperçu (⌥⌘P)", PLCommand::TogglePreview, 0, 70, Look::Plain, true},
};
// clang-format on

QFont fontForLook(Look look)
{
    QFont font =
        PLTheme::systemFont(look == Look::Plain ? 12 : 13, look == Look::Bold ? QFont::Bold : QFont::Normal);
    if (look != Look::Serif)
        return font;
    font.setFamilies({u"Georgia"_s, u"serif"_s});
    font.setStyleHint(QFont::Serif);
    return font;
}

/// Darker than the faint ink, which is too pale for small letters on this ground.
QColor wordCountColor()
{
    return PLTheme::highlighted(PLTheme::inkColor(), 0.25);
}

} // namespace

PLFormatBarView::PLFormatBarView(QWidget *parent) : QWidget(parent), m_wordCountLabel(new QLabel(this))
{
    setFixedHeight(barHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_wordCountLabel->setTextFormat(Qt::PlainText);
    m_wordCountLabel->setFont(PLTheme::systemFont(11));
    QPalette colors = m_wordCountLabel->palette();
    colors.setColor(QPalette::WindowText, wordCountColor());
    m_wordCountLabel->setPalette(colors);
    addButtons();
    addMoreButton();
    arrange();
}

QString PLFormatBarView::wordCountText() const
{
    return m_wordCountLabel->text();
}

void PLFormatBarView::setWordCountText(const QString &text)
{
    m_wordCountLabel->setText(text);
    arrange();
}

void PLFormatBarView::setPreviewOn(bool isOn)
{
    button(PLCommand::TogglePreview)->setChecked(isOn);
}

PLBarButton *PLFormatBarView::button(PLCommand command, int tag)
{
    return const_cast<PLBarButton *>(std::as_const(*this).button(command, tag));
}

const PLBarButton *PLFormatBarView::button(PLCommand command, int tag) const
{
    for (const Item &item : m_items) {
        if (item.command == command && item.tag == tag)
            return item.button;
    }
    return nullptr;
}

void PLFormatBarView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        arrange();
    QWidget::changeEvent(event);
}

void PLFormatBarView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawRect(painter);
}

void PLFormatBarView::resizeEvent(QResizeEvent *)
{
    arrange();
}

PLBarButton *PLFormatBarView::barButtonWithTitle(const QString &title, const QString &toolTip, int width)
{
    auto *button = new PLBarButton(title, this);
    button->setToolTip(PLTextWithPlatformKeys(toolTip));
    button->setAccessibleName(PLTextWithoutKeys(toolTip));
    button->setFixedSize(width, PLBarButton::buttonHeight);
    return button;
}

void PLFormatBarView::addButtons()
{
    for (const BarButton &entry : barButtons) {
        const QString number = QString::number(entry.tag);
        const auto text = [&](const char16_t *french) {
            return PLFormat(PLLocalizedString(QString::fromUtf16(french)), {number, number});
        };
        PLBarButton *button = barButtonWithTitle(text(entry.title), text(entry.toolTip), entry.width);
        button->setFont(fontForLook(entry.look));
        button->setCheckable(entry.command == PLCommand::TogglePreview);
        connect(button, &PLBarButton::clicked, this,
                [this, &entry] { Q_EMIT commandTriggered(entry.command, entry.tag); });
        m_items.push_back({button, entry.command, entry.tag, entry.startsGroup});
    }
}

void PLFormatBarView::addMoreButton()
{
    m_moreButton = barButtonWithTitle(u"»"_s, PLDesktopString(u"Autres commandes"_s), moreWidth);
    m_moreButton->setFont(fontForLook(Look::System));
    auto *menu = new QMenu(m_moreButton);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillMenu(menu); });
    m_moreButton->setMenu(menu);
    QWidget *preview = m_items.back().button;
    setTabOrder(m_items[m_items.size() - 2].button, m_moreButton);
    setTabOrder(m_moreButton, preview);
}

void PLFormatBarView::fillMenu(QMenu *menu)
{
    menu->clear();
    for (const Item &item : m_items) {
        if (!item.button->isHidden())
            continue;
        menu->addAction(item.button->accessibleName(), this,
                        [this, item] { Q_EMIT commandTriggered(item.command, item.tag); });
    }
}

void PLFormatBarView::place(QWidget *widget, int x, bool isShown)
{
    const QRect frame(x, (barHeight - 1 - PLBarButton::buttonHeight) / 2, widget->width(),
                      PLBarButton::buttonHeight);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), frame));
    widget->setVisible(isShown);
}

/// The commands from the left, the preview's button at the right with the words beside it. In a bar that is
/// too narrow for them the last commands go into a menu.
void PLFormatBarView::arrange()
{
    const PLBarButton *preview = m_items.back().button;
    const int end = width() - margin - preview->width();
    place(m_items.back().button, end, true);
    m_wordCountLabel->resize(m_wordCountLabel->sizeHint().width(), PLBarButton::buttonHeight);
    const int wordsStart = end - groupGap - m_wordCountLabel->width();
    const bool hasWords = !m_wordCountLabel->text().isEmpty() && wordsStart > margin + moreWidth + groupGap;
    place(m_wordCountLabel, wordsStart, hasWords);
    arrangeCommands(hasWords ? wordsStart - groupGap + gap : end);
}

void PLFormatBarView::arrangeCommands(int end)
{
    std::vector<int> places;
    int x = margin;
    for (auto item = m_items.begin(); item != m_items.end() - 1; ++item) {
        x += item->startsGroup ? groupGap : 0;
        places.push_back(x);
        x += item->button->width() + gap;
    }
    const bool allFit = x <= end;
    const int last = allFit ? end : end - moreWidth - gap;
    for (size_t index = 0; index < places.size(); ++index) {
        PLBarButton *button = m_items[index].button;
        place(button, places[index], places[index] + button->width() + gap <= last);
    }
    place(m_moreButton, last, !allFit);
}

void PLFormatBarView::drawRect(QPainter &painter)
{
    const QColor cover = PLTheme::coverColor();
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, PLTheme::highlighted(cover, 0.25));
    gradient.setColorAt(1, cover);
    painter.fillRect(rect(), gradient);
    painter.fillRect(0, height() - 1, width(), 1, PLTheme::shadowed(cover, 0.2));
}
