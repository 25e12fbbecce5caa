// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooMeasure.h"

#include <QFile>
#include <QUrl>

#include <ctime>

namespace {

constexpr double nanosecond = 1e-9;

/// How long this thread could have run but had no processor, where Linux says that.
double secondsWithoutProcessor()
{
    QFile file(QStringLiteral("/proc/thread-self/schedstat"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> numbers = file.readAll().split(' ');
    return numbers.size() < 2 ? 0 : numbers[1].toDouble() * nanosecond;
}

double now()
{
    timespec time;
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * nanosecond - secondsWithoutProcessor();
}

} // namespace

PLZooStopwatch::PLZooStopwatch() : m_begin(now()) {}

double PLZooStopwatch::seconds() const
{
    return now() - m_begin;
}

QString PLZooShown(const QString &text)
{
    constexpr qsizetype enough = 60;
    const QByteArray bytes = text.sliced(text.lastIndexOf(u'/') + 1).left(enough).toUtf8();
    return QString::fromLatin1(bytes.toPercentEncoding(" "));
}
