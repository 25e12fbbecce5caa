// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLWindowFrame.h"

#include "foundation/PLPreferences.h"

#include <QScreen>
#include <QUrl>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// Names hold folder paths, whose slashes would make groups in the store.
QString keyForName(const QString &name)
{
    return u"PLWindowFrame "_s + QString::fromLatin1(QUrl::toPercentEncoding(name));
}

constexpr int leastSeen = 50; // points; enough to take hold of

/// Qt moves a window onto the screen, but not one that is larger than any, nor one below the lower edge
/// (6.4.2).
bool isWithinReach(const QWidget &window)
{
    const QRect desktop = window.screen()->virtualGeometry();
    const QRect frame = window.geometry();
    const QRect seen = frame & desktop;
    const QSize restored = frame.size().expandedTo(window.normalGeometry().size());
    return restored.width() <= desktop.width() && restored.height() <= desktop.height() &&
           seen.width() >= leastSeen && seen.height() >= leastSeen;
}

} // namespace

void PLSaveWindowFrame(const QWidget &window, const QString &name)
{
    PLPreferences::store().setValue(keyForName(name), window.saveGeometry());
}

bool PLRestoreWindowFrame(QWidget &window, const QString &name)
{
    const QRect before = window.geometry();
    if (!window.restoreGeometry(PLPreferences::store().value(keyForName(name)).toByteArray()))
        return false;
    if (isWithinReach(window))
        return true;
    const Qt::WindowStates state = window.windowState(); // a maximized window has the screen's size anyway
    window.setWindowState(Qt::WindowNoState);
    window.setGeometry(before);
    window.setWindowState(state);
    return false;
}
