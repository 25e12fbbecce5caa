// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLLineServer.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr char acknowledgement = '+';
constexpr int mostWaitingCallers = 32;

#ifdef MSG_NOSIGNAL
constexpr int sendFlags = MSG_NOSIGNAL; // a caller that is gone is an error, not a signal
#else
constexpr int sendFlags = 0;
#endif

/// Repeats a system call for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// A descriptor that is closed when it goes out of scope.
class Descriptor final
{
public:
    explicit Descriptor(int number) : m_number(number)
    {
        if (m_number < 0)
            return;
        fcntl(m_number, F_SETFD, FD_CLOEXEC);
        fcntl(m_number, F_SETFL, O_NONBLOCK);
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int number() const { return m_number; }
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

/// Nothing for a path that is too long for a socket.
std::optional<sockaddr_un> addressOf(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (size_t(name.size()) >= sizeof address.sun_path)
        return std::nullopt;
    std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
    return address;
}

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

/// Whether this user is at the other end. Nobody else should get as far as this; whoever does is neither
/// heard nor told anything.
bool isOurs(int descriptor)
{
#ifdef Q_OS_LINUX
    ucred other = {};
    socklen_t size = sizeof other;
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.uid == geteuid();
#else
    uid_t user = 0;
    gid_t group = 0;
    return getpeereid(descriptor, &user, &group) == 0 && user == geteuid();
#endif
}

bool waitFor(int descriptor, short events, const QDeadlineTimer &deadline)
{
    pollfd waiting = {descriptor, events, 0};
    return uninterrupted([&] { return poll(&waiting, 1, int(deadline.remainingTime())); }) > 0;
}

bool writeAll(int descriptor, QByteArrayView bytes, const QDeadlineTimer &deadline)
{
    while (!bytes.isEmpty()) {
        const ssize_t count =
            uninterrupted([&] { return ::send(descriptor, bytes.data(), size_t(bytes.size()), sendFlags); });
        if (count > 0)
            bytes = bytes.sliced(count);
        else if (errno != EAGAIN || !waitFor(descriptor, POLLOUT, deadline))
            return false;
    }
    return true;
}

/// One caller, until its line has come. Deletes itself.
class Caller final : public QObject
{
public:
    Caller(int descriptor, const std::function<bool(const QByteArray &)> &take, QObject *parent)
        : QObject(parent)
        , m_descriptor(descriptor)
        , m_take(take)
        , m_notifier(descriptor, QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, &Caller::read);
    }

private:
    void read()
    {
        char bytes[65536];
        const ssize_t count =
            uninterrupted([&] { return recv(m_descriptor.number(), bytes, sizeof bytes, 0); });
        if (count < 0 && errno == EAGAIN)
            return;
        const qsizetype searched = m_received.size();
        m_received.append(bytes, qMax<qsizetype>(count, 0));
        const qsizetype end = m_received.indexOf('\n', searched);
        if (end >= 0)
            answer(m_received.first(end));
        else if (count <= 0 || m_received.size() > PLLineServer::LongestLine)
            finish();
    }

    void answer(const QByteArray &line)
    {
        if (line.size() <= PLLineServer::LongestLine && m_take(line))
            writeAll(m_descriptor.number(), QByteArrayView(&acknowledgement, 1), QDeadlineTimer(0));
        finish();
    }

    void finish()
    {
        m_notifier.setEnabled(false);
        shutdown(m_descriptor.number(), SHUT_RDWR);
        deleteLater();
    }

    Descriptor m_descriptor;
    const std::function<bool(const QByteArray &)> &m_take;
    QByteArray m_received;
    QSocketNotifier m_notifier;
};

} // namespace

PLLineServer::PLLineServer(std::function<bool(const QByteArray &)> take, QObject *parent)
    : QObject(parent), m_take(std::move(take))
{
}

PLLineServer::~PLLineServer()
{
    if (m_descriptor < 0)
        return;
    close(m_descriptor);
    QFile::remove(m_path);
}

bool PLLineServer::canListenAt(const QString &path)
{
    return addressOf(path).has_value();
}

void PLLineServer::listen(const QString &path)
{
    const std::optional<sockaddr_un> address = addressOf(path);
    Descriptor server(socket(AF_UNIX, SOCK_STREAM, 0));
    if (!address || server.number() < 0)
        return;
    if (unlink(address->sun_path) != 0)
        rmdir(address->sun_path);
    const mode_t othersMode = umask(077); // the socket is born private
    const bool bound = bind(server.number(), generic(*address), sizeof *address) == 0;
    umask(othersMode);
    if (!bound || ::listen(server.number(), mostWaitingCallers) != 0)
        return;
    m_descriptor = server.release();
    m_path = path;
    auto *notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &PLLineServer::accept);
}

void PLLineServer::accept()
{
    const int caller = uninterrupted([this] { return ::accept(m_descriptor, nullptr, nullptr); });
    if (caller >= 0 && isOurs(caller))
        new Caller(caller, m_take, this);
    else if (caller >= 0)
        close(caller);
}

bool PLLineServer::send(const QString &path, const QByteArray &line, int timeout)
{
    const QDeadlineTimer deadline(timeout);
    const std::optional<sockaddr_un> address = addressOf(path);
    const Descriptor server(socket(AF_UNIX, SOCK_STREAM, 0));
    if (!address || server.number() < 0)
        return false;
#ifdef SO_NOSIGPIPE
    const int on = 1;
    setsockopt(server.number(), SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    const auto call = [&] { return ::connect(server.number(), generic(*address), sizeof *address); };
    if (uninterrupted(call) != 0 || !isOurs(server.number()) ||
        !writeAll(server.number(), line + '\n', deadline))
        return false;
    if (!waitFor(server.number(), POLLIN, deadline))
        return false;
    char answer = 0;
    return uninterrupted([&] { return recv(server.number(), &answer, 1, 0); }) == 1 &&
           answer == acknowledgement;
}
