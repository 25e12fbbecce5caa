// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLReveal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

void (*revealHandler)(const QUrl &) = nullptr;

void openParentFolder(const QUrl &location)
{
    const QFileInfo info(location.toLocalFile());
    QDesktopServices::openUrl(QUrl::fromLocalFile(info.absolutePath()));
}

} // namespace

void PLRevealInFileManager(const QUrl &location)
{
    if (revealHandler)
        return revealHandler(location);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return openParentFolder(location);
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call.setArguments({QStringList{QString::fromLatin1(location.toEncoded())}, QString()});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, location] {
        if (watcher->isError())
            openParentFolder(location);
        watcher->deleteLater();
    });
}

void PLSetRevealHandler(void (*handler)(const QUrl &))
{
    revealHandler = handler;
}
