// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// One start of a program that there is once for each user: says who it is and, as the first, every request it
// gets, a line each. The paths are its arguments. In its environment, START_TIMEOUT is in milliseconds,
// START_HUNG makes a program that does not answer, START_LATE one that listens only when it is sent a line,
// START_CHILD one that starts a process that outlives it, and says its number.

#include "platform/PLSingleInstance.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <cstdio>

namespace {

void say(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

QByteArray nameOf(PLSingleInstance::Role role)
{
    switch (role) {
    case PLSingleInstance::Role::First:
        return "first";
    case PLSingleInstance::Role::HandedOver:
        return "handed over";
    case PLSingleInstance::Role::NoAnswer:
        break;
    }
    return "no answer";
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList paths;
    for (int index = 1; index < argc; ++index)
        paths.append(QString::fromUtf8(argv[index]));
    PLSingleInstance instance;
    const int timeout = qEnvironmentVariableIntValue("START_TIMEOUT");
    const PLSingleInstance::Role role = instance.start(paths, timeout > 0 ? timeout : 10000);
    say(nameOf(role));
    if (role != PLSingleInstance::Role::First)
        return 0;
    if (qEnvironmentVariableIsSet("START_LATE"))
        std::getchar();
    const QCoreApplication application(argc, argv);
    QObject::connect(&instance, &PLSingleInstance::requestReceived, &instance,
                     [](const QStringList &received, const QString &token) {
                         QJsonArray request = QJsonArray::fromStringList(received);
                         request.append(token);
                         say(QJsonDocument(request).toJson(QJsonDocument::Compact));
                     });
    instance.listen();
    say("listening");
    if (qint64 child = 0; qEnvironmentVariableIsSet("START_CHILD")) {
        QProcess::startDetached(QStringLiteral("sleep"), {QStringLiteral("60")}, QString(), &child);
        say(QByteArray::number(child));
    }
    if (qEnvironmentVariableIsSet("START_HUNG"))
        std::getchar();
    return QCoreApplication::exec();
}
