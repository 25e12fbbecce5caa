// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLPrivateMounts.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString refused(const char *step)
{
    return u"%1: %2"_s.arg(QString::fromLatin1(step), QString::fromLocal8Bit(std::strerror(errno)));
}

bool writeLine(const char *path, const QByteArray &line)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(line) == line.size();
}

/// An ordinary user becomes the superuser of a world of its own.
bool enterUserWorld()
{
    const QByteArray user = QByteArray::number(::geteuid());
    const QByteArray group = QByteArray::number(::getegid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    return writeLine("/proc/self/setgroups", "deny") &&
           writeLine("/proc/self/uid_map", "0 " + user + " 1\n") &&
           writeLine("/proc/self/gid_map", "0 " + group + " 1\n");
}

} // namespace

QString PLPrivateMounts::enter()
{
    const bool isSuperuser = ::geteuid() == 0;
    if (isSuperuser ? ::unshare(CLONE_NEWNS) != 0 : !enterUserWorld())
        return refused("a mount namespace of its own");
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return refused("private mounts");
    return QString();
}

PLMountedDisk::PLMountedDisk(const QString &mountPoint, const QByteArray &options)
    : m_mountPoint(QFile::encodeName(mountPoint))
{
    m_isMounted = ::mount("tmpfs", m_mountPoint.constData(), "tmpfs", 0, options.constData()) == 0;
}

PLMountedDisk::~PLMountedDisk()
{
    if (m_isMounted)
        ::umount2(m_mountPoint.constData(), MNT_DETACH);
}

bool PLMountedDisk::setReadOnly(bool isReadOnly) const
{
    const unsigned long flags = isReadOnly ? ulong(MS_REMOUNT) | ulong(MS_RDONLY) : ulong(MS_REMOUNT);
    return ::mount("tmpfs", m_mountPoint.constData(), "tmpfs", flags, nullptr) == 0;
}

PLBoundFolder::PLBoundFolder(const QString &folder, const QString &mountPoint)
    : m_folder(QFile::encodeName(folder)), m_mountPoint(QFile::encodeName(mountPoint))
{
}

bool PLBoundFolder::show()
{
    m_isShown = ::mount(m_folder.constData(), m_mountPoint.constData(), nullptr, MS_BIND, nullptr) == 0;
    return m_isShown;
}

void PLBoundFolder::take()
{
    if (m_isShown)
        ::umount2(m_mountPoint.constData(), MNT_DETACH);
    m_isShown = false;
}
