// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLWindowList.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "platform/PLWindow.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The title as the window manager shows it, but for the mark of an edited window, which stands at "[*]"; of
/// "[*][*]" one is left.
QString titleOf(const PLWindow &window)
{
    const QChar standIn(QChar::ObjectReplacementCharacter);
    QString title = window.windowTitle();
    title.replace(u"[*][*]"_s, standIn).remove(u"[*]"_s);
    return title.replace(standIn, u"[*]"_s);
}

QList<PLWindow *> windowsByTitle()
{
    QList<PLWindow *> windows;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (auto *window = qobject_cast<PLWindow *>(widget); window && window->isVisible())
            windows.append(window);
    }
    const PLTitleComparer comparer(PLLocalization::localeIdentifier());
    std::sort(windows.begin(), windows.end(), [&comparer](const PLWindow *left, const PLWindow *right) {
        return comparer.compare(titleOf(*left), titleOf(*right)) < 0;
    });
    return windows;
}

/// `list` owns the items, so that those of the last time go with it.
void addItem(QMenu *menu, PLWindow *window, QObject *list)
{
    auto *item = new QAction(titleOf(*window).replace(u'&', u"&&"_s), list);
    item->setCheckable(true);
    item->setChecked(window->isActiveWindow());
    const QPointer<PLWindow> target(window);
    QObject::connect(item, &QAction::triggered, item, [target] {
        if (target)
            target->makeKeyAndOrderFront();
    });
    menu->addAction(item);
}

void rebuildList(QMenu *menu, std::unique_ptr<QObject> &list)
{
    list = std::make_unique<QObject>();
    const QList<PLWindow *> windows = windowsByTitle();
    if (windows.isEmpty())
        return;
    auto *separator = new QAction(list.get());
    separator->setSeparator(true);
    menu->addAction(separator);
    for (PLWindow *window : windows)
        addItem(menu, window, list.get());
}

} // namespace

void PLAddWindowList(QMenu *menu)
{
    QObject::connect(menu, &QMenu::aboutToShow, menu,
                     [menu, list = std::unique_ptr<QObject>()]() mutable { rebuildList(menu, list); });
}
