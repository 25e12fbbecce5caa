// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLWindowFrame.h"

#include "foundation/PLPreferences.h"

#include <QUrl>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// Names hold folder paths, whose slashes would make groups in the store.
QString keyForName(const QString &name)
{
    return u"PLWindowFrame "_s + QString::fromLatin1(QUrl::toPercentEncoding(name));
}

} // namespace

void PLSaveWindowFrame(const QWidget &window, const QString &name)
{
    PLPreferences::store().setValue(keyForName(name), window.saveGeometry());
}

bool PLRestoreWindowFrame(QWidget &window, const QString &name)
{
    return window.restoreGeometry(PLPreferences::store().value(keyForName(name)).toByteArray());
}
