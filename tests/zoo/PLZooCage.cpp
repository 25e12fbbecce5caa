// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooCage.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

void demand(bool isDone, const char *what, const QByteArray &path)
{
    if (!isDone)
        qFatal("The zoo cannot %s %s: %s", what, path.toPercentEncoding("/").constData(),
               std::strerror(errno));
}

void makeFolders(const QByteArray &path)
{
    for (qsizetype slash = path.indexOf('/', 1); slash > 0; slash = path.indexOf('/', slash + 1))
        ::mkdir(path.first(slash).constData(), 0777);
    demand(::mkdir(path.constData(), 0777) == 0 || errno == EEXIST, "make", path);
}

void write(int file, const QByteArray &bytes, const QByteArray &path)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(file, bytes.constData() + done, size_t(bytes.size() - done));
        demand(count > 0, "write", path);
        done += count;
    }
}

} // namespace

PLZooCage::PLZooCage(const QByteArray &notebook, const QByteArray &outside, bool isFullSize)
    : m_notebook(notebook), m_outside(outside), m_isFullSize(isFullSize)
{
    makeFolders(notebook);
    makeFolders(outside);
}

void PLZooCage::folder(const QByteArray &name) const
{
    makeFolders(m_notebook + '/' + name);
}

void PLZooCage::file(const QByteArray &name, const QByteArray &bytes) const
{
    filled(name, QByteArray(), bytes.size(), bytes);
}

void PLZooCage::filled(const QByteArray &name, const QByteArray &pattern, qint64 size,
                       const QByteArray &start) const
{
    constexpr qsizetype chunkSize = qsizetype{1} << 20;
    const QByteArray path = pathOf(name);
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    demand(file >= 0, "make", path);
    write(file, start, path);
    const qsizetype whole = pattern.isEmpty() ? 0 : chunkSize / pattern.size() * pattern.size();
    const QByteArray chunk = pattern.repeated(pattern.isEmpty() ? 0 : whole / pattern.size());
    for (qint64 rest = size - start.size(); rest > 0; rest -= whole)
        write(file, chunk.first(qMin<qint64>(whole, rest)), path);
    ::close(file);
}

void PLZooCage::hollow(const QByteArray &name, qint64 size) const
{
    file(name, QByteArray());
    const QByteArray path = m_notebook + '/' + name;
    demand(::truncate(path.constData(), size) == 0, "enlarge", path);
}

void PLZooCage::fifo(const QByteArray &name) const
{
    const QByteArray path = pathOf(name);
    demand(::mkfifo(path.constData(), 0666) == 0, "make", path);
}

void PLZooCage::socket(const QByteArray &name) const
{
    const QByteArray path = pathOf(name);
    demand(::mknod(path.constData(), S_IFSOCK | 0666, 0) == 0, "make", path);
}

dev_t PLZooCage::endlessDeviceNumber()
{
    constexpr unsigned memoryDevices = 1;
    constexpr unsigned zeros = 5;
    return makedev(memoryDevices, zeros);
}

void PLZooCage::endlessDevice(const QByteArray &name) const
{
    const QByteArray path = pathOf(name);
    if (::mknod(path.constData(), S_IFCHR | 0666, endlessDeviceNumber()) != 0)
        std::fprintf(stderr, "No device in the zoo (%s): that takes the superuser.\n", std::strerror(errno));
}

void PLZooCage::link(const QByteArray &name, const QByteArray &target) const
{
    const QByteArray path = pathOf(name);
    demand(::symlink(target.constData(), path.constData()) == 0, "link", path);
}

void PLZooCage::permissions(const QByteArray &name, unsigned mode) const
{
    const QByteArray path = pathOf(name);
    demand(::chmod(path.constData(), mode) == 0, "change", path);
}

void PLZooCage::depth(const QByteArray &name, int levels) const
{
    folder(name + QByteArray("/d").repeated(levels));
}

QByteArray PLZooCage::pathOf(const QByteArray &name) const
{
    const QByteArray path = m_notebook + '/' + name;
    makeFolders(path.first(path.lastIndexOf('/')));
    return path;
}
