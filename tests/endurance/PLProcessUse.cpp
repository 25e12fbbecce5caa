// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endurance/PLProcessUse.h"

#include "support/PLTestFiles.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QSet>
#include <QWidget>

#include <algorithm>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // g++ of Debian 12 comes without the header
#endif

using namespace Qt::StringLiterals;

namespace {

qint64 heapInUse()
{
#if defined(__SANITIZE_ADDRESS__)
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = ::mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

/// Pages of a library's file are private or not by whether another process has it open: those that are no
/// file's are counted. Of what is free, the allocator keeps now more and now less: it is given back first.
/// The sanitizer keeps it for a while, so that nothing can be said of its pages.
qint64 privateMemory()
{
    qint64 kilobytes = 0;
#if !defined(__SANITIZE_ADDRESS__)
    ::malloc_trim(0);
    const QList<QByteArray> lines = PLBytesOf(u"/proc/self/smaps_rollup"_s).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Anonymous:"))
            kilobytes += line.simplified().split(' ').at(1).toLongLong();
    }
#endif
    return kilobytes * 1024;
}

/// Without the toolkit's pool, whose threads come when there is much to paint and go when there is not.
int countWithoutPool(const QStringList &threads)
{
    return int(std::count_if(threads.begin(), threads.end(), [](const QString &thread) {
        return !PLBytesOf(u"/proc/self/task/%1/comm"_s.arg(thread)).startsWith("Thread (pooled)");
    }));
}

int childrenOf(const QStringList &threads)
{
    int count = 0;
    for (const QString &thread : threads) {
        const QByteArray ids = PLBytesOf(u"/proc/self/task/%1/children"_s.arg(thread)).simplified();
        count += ids.isEmpty() ? 0 : int(ids.count(' ')) + 1;
    }
    return count;
}

QSet<QObject *> withDescendants(const QObjectList &roots)
{
    QSet<QObject *> all;
    for (QObject *root : roots) {
        all.insert(root);
        const QObjectList below = root->findChildren<QObject *>();
        all.unite(QSet<QObject *>(below.begin(), below.end()));
    }
    return all;
}

} // namespace

PLProcessUse PLProcessUse::now(QObjectList roots)
{
    PLProcessUse use;
    roots.append(qApp);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        roots.append(window);
    const QSet<QObject *> objects = withDescendants(roots);
    use.objects = int(objects.size());
    for (QObject *object : objects)
        use.timers += int(QAbstractEventDispatcher::instance()->registeredTimers(object).size());
    const QStringList threads = PLNamesIn(u"/proc/self/task"_s);
    use.threads = countWithoutPool(threads);
    use.children = childrenOf(threads);
    use.files = int(PLNamesIn(u"/proc/self/fd"_s).size());
    use.heapBytes = heapInUse();
    use.privateBytes = privateMemory();
    return use;
}

QString PLProcessUse::description() const
{
    return u"heap %1, private %2 bytes; %3 files, %4 threads, %5 children, %6 objects, %7 timers"_s
        .arg(heapBytes)
        .arg(privateBytes)
        .arg(files)
        .arg(threads)
        .arg(children)
        .arg(objects)
        .arg(timers);
}
