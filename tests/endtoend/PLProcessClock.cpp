// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endtoend/PLProcessClock.h"

#include <QFile>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

/// Of its first thread, which is the one that has the events.
qint64 timeKeptWaiting(qint64 process)
{
    QFile statistics(u"/proc/%1/schedstat"_s.arg(process));
    if (!statistics.open(QIODevice::ReadOnly))
        return 0;
    const QByteArrayList numbers = statistics.readLine().split(' '); // running, waiting, how often
    return numbers.value(1).toLongLong();
}

} // namespace

PLMoment PLProcessClock::now() const
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return {std::chrono::nanoseconds(time).count(), timeKeptWaiting(program) + timeKeptWaiting(server)};
}
