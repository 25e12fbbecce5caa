// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLFolderReader.h"
#include "storage/PLUnixFile.h"

#include <array>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

struct PLFolderReader::Private
{
    explicit Private(const QString &path) : folder(::opendir(PLNativePath(path).constData())) {}
    ~Private()
    {
        if (folder)
            ::closedir(folder);
    }
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    bool isFolder() const;

    DIR *folder;
    const dirent *entry = nullptr;
    QString name;
    std::array<char, startSize> start;
};

/// True for a folder and for a link to one. The disk is asked only where the entry does not say.
bool PLFolderReader::Private::isFolder() const
{
    if (entry->d_type != DT_LNK && entry->d_type != DT_UNKNOWN)
        return entry->d_type == DT_DIR;
    struct stat status;
    return ::fstatat(::dirfd(folder), entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

PLFolderReader::PLFolderReader(const QString &folder) : m_private(std::make_unique<Private>(folder)) {}

PLFolderReader::~PLFolderReader() = default;

bool PLFolderReader::next()
{
    Private &d = *m_private;
    while (d.folder && (d.entry = ::readdir(d.folder))) {
        if (d.isFolder())
            continue;
        if (std::optional<QString> name = PLDecodedUTF8(d.entry->d_name)) {
            d.name = *std::move(name);
            return true;
        }
    }
    return false;
}

const QString &PLFolderReader::name() const
{
    return m_private->name;
}

std::optional<QByteArrayView> PLFolderReader::start()
{
    Private &d = *m_private;
    if (!d.entry || d.entry->d_type != DT_REG)
        return std::nullopt;
    // Should a link or a FIFO have taken the file's place since, nothing is followed and nothing waits.
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const PLDescriptor file(PLRetried([&] { return ::openat(::dirfd(d.folder), d.entry->d_name, flags); }));
    if (!file.isOpen())
        return std::nullopt;
    const ssize_t length = PLRetried([&] { return ::read(file.number(), d.start.data(), d.start.size()); });
    if (length < 0)
        return std::nullopt;
    return QByteArrayView(d.start.data(), length);
}
