// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarRowDelegate.h"

#include "notebook_window/PLSidebarModel.h"
#include "theme/PLTheme.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QLineEdit>
#include <QPainter>

namespace {

constexpr int sectionHeight = 28;
constexpr int rowHeight = 22;
constexpr int rowSpacing = 2;

/// The part of a row that is drawn in; half of the spacing is above it, half below.
QRect cellOf(const QRect &row)
{
    return row.adjusted(0, rowSpacing / 2, 0, -rowSpacing / 2);
}

/// What is drawn in a row: a coloured tab, and a text after it.
struct RowLook
{
    QRect mark; ///< relative to the cell; null for none
    QColor markColor;
    QRect label;
    QColor textColor;
    QFont font;
};

const PLSidebarNode *nodeOf(const QModelIndex &index)
{
    return static_cast<const PLSidebarNode *>(index.internalPointer());
}

QColor colorOf(const PLSidebarSection &section)
{
    return section.isTagSection ? PLTheme::tagsColor() : PLTheme::colorForSection(section.section);
}

RowLook sectionLook(const PLSidebarSection &section, int width)
{
    QColor ink = PLTheme::inkColor();
    ink.setAlphaF(0.75F);
    return {QRect(0, 7, 6, 15), colorOf(section), QRect(11, 5, width - 37, 17), ink, PLTheme::sectionFont()};
}

RowLook lookOf(const PLSidebarNode &node, int width)
{
    switch (node.kind()) {
    case PLSidebarNode::Kind::Section:
        return sectionLook(static_cast<const PLSidebarSection &>(node), width);
    case PLSidebarNode::Kind::Tag:
        return {QRect(), {}, QRect(2, 2, width - 4, 18), PLTheme::tagsColor(), PLTheme::sidebarFont()};
    case PLSidebarNode::Kind::Reference:
        return {QRect(2, 5, 4, 12), PLTheme::colorForSection(PLItemOfNode(&node)->section()),
                QRect(11, 2, width - 13, 18), PLTheme::inkColor(), PLTheme::sidebarFont()};
    case PLSidebarNode::Kind::Page:
        break;
    }
    return {QRect(), {}, QRect(2, 2, width - 4, 18), PLTheme::inkColor(), PLTheme::sidebarFont()};
}

/// The coloured tab at the left of a section or of a page under a tag.
void drawTabMark(QPainter &painter, const QRect &bounds, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(bounds).adjusted(0, 1, 0, -1), 2, 2);
}

void drawAddButton(QPainter &painter, const QRect &button)
{
    const QPointF center = QRectF(button).center();
    constexpr double arm = 4.5;
    painter.setPen(QPen(PLTheme::shadowed(PLTheme::coverColor(), 0.5), 1.5));
    painter.drawLine(center - QPointF(arm, 0), center + QPointF(arm, 0));
    painter.drawLine(center - QPointF(0, arm), center + QPointF(0, arm));
}

void drawSelection(QPainter &painter, const QStyleOptionViewItem &option)
{
    const bool isActive = option.state.testFlag(QStyle::State_Active);
    painter.fillRect(option.rect, option.palette.brush(isActive ? QPalette::Active : QPalette::Inactive,
                                                       QPalette::Highlight));
}

bool canAdd(const PLSidebarNode &node)
{
    return node.kind() == PLSidebarNode::Kind::Section &&
           !static_cast<const PLSidebarSection &>(node).isTagSection;
}

} // namespace

PLSidebarRowDelegate::PLSidebarRowDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

QRect PLSidebarRowDelegate::addButtonRect(const QRect &row)
{
    const QRect cell = cellOf(row);
    return QRect(cell.right() + 1 - 24, cell.top() + 5, 20, 18);
}

void PLSidebarRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    const PLSidebarNode *node = nodeOf(index);
    const RowLook look = lookOf(*node, option.rect.width());
    const QPoint origin = cellOf(option.rect).topLeft();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (option.state.testFlag(QStyle::State_Selected))
        drawSelection(*painter, option);
    if (!look.mark.isNull())
        drawTabMark(*painter, look.mark.translated(origin), look.markColor);
    if (canAdd(*node))
        drawAddButton(*painter, addButtonRect(option.rect));
    painter->setFont(look.font);
    painter->setPen(look.textColor);
    const QString text =
        painter->fontMetrics().elidedText(PLSidebarText(*node), Qt::ElideRight, look.label.width());
    painter->drawText(look.label.translated(origin), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      text);
    painter->restore();
}

QSize PLSidebarRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const bool isSection = nodeOf(index)->kind() == PLSidebarNode::Kind::Section;
    return {0, (isSection ? sectionHeight : rowHeight) + rowSpacing};
}

QWidget *PLSidebarRowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                            const QModelIndex &) const
{
    auto *field = new QLineEdit(parent);
    field->setFont(PLTheme::sidebarFont());
    field->setFrame(false);
    QPalette colors = field->palette();
    colors.setColor(QPalette::Base, PLTheme::paperColor());
    colors.setColor(QPalette::Text, PLTheme::inkColor());
    field->setPalette(colors);
    Q_EMIT editingBegan(field);
    connect(field, &QObject::destroyed, this, [this](const QObject *gone) { Q_EMIT editingEnded(gone); });
    return field;
}

void PLSidebarRowDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *field = static_cast<QLineEdit *>(editor);
    if (field->isModified())
        return;
    field->setText(index.data(Qt::EditRole).toString());
    field->selectAll();
}

void PLSidebarRowDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    Q_EMIT titleTyped(index, static_cast<QLineEdit *>(editor)->text());
}

void PLSidebarRowDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                                const QModelIndex &) const
{
    editor->setGeometry(cellOf(option.rect));
}

void PLSidebarRowDelegate::endTyping(QWidget *field)
{
    QGuiApplication::inputMethod()->commit();
    Q_EMIT commitData(field);
    Q_EMIT closeEditor(field);
}

/// A title waits for the writer who looks something up in another window, or opens a menu. Return closes its
/// field at once; by itself the toolkit waits for the event loop, and the field takes the keys that come
/// before.
bool PLSidebarRowDelegate::eventFilter(QObject *field, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *pressed = static_cast<QKeyEvent *>(event);
        if (pressed->key() == Qt::Key_Return || pressed->key() == Qt::Key_Enter) {
            if (!pressed->isAutoRepeat()) // of the Return that has opened the field
                endTyping(qobject_cast<QWidget *>(field));
            return true;
        }
    }
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
            reason == Qt::MenuBarFocusReason)
            return false;
    }
    return QStyledItemDelegate::eventFilter(field, event);
}
