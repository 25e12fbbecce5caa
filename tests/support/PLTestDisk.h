// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>

#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <unistd.h>

// Disks that do not do what they are asked, on Unix.

/// While it lives, no file of this process can grow over a number of bytes: a disk that is full.
class PLFullDisk final
{
public:
    explicit PLFullDisk(rlim_t bytes) : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{bytes, m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~PLFullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old{};
    void (*m_oldHandler)(int);
};

/// While it lives, a test run by the superuser has the rights of nobody in particular, and owns the folder.
class PLOrdinaryUser final
{
public:
    explicit PLOrdinaryUser(const QString &folder) : m_user(::geteuid())
    {
        constexpr uid_t nobody = 65534;
        if (m_user == 0 && ::chown(QFile::encodeName(folder).constData(), nobody, gid_t(-1)) == 0)
            m_changed = ::seteuid(nobody) == 0;
    }
    ~PLOrdinaryUser()
    {
        if (m_changed && ::seteuid(m_user) != 0)
            std::abort();
    }

private:
    uid_t m_user;
    bool m_changed = false;
};
