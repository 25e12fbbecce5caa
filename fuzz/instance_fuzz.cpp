// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// What callers of the first start may send through its socket, in pieces of any size, and what becomes of it.

#include "PLFuzzFiles.h"
#include "platform/PLSingleInstance.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>
#include <optional>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Request
{
    QStringList paths;
    QString token;

    bool operator==(const Request &) const = default;
};

/// The first start of the program, and the request that it has got.
struct FirstStart
{
    explicit FirstStart(const QString &folder) : socketPath((folder + u"/aquilane.socket"_s).toUtf8())
    {
        qputenv("XDG_RUNTIME_DIR", folder.toUtf8());
        instance.emplace();
        PLRequire(instance->start({}) == PLSingleInstance::Role::First, "a lone start is the first");
        QObject::connect(&*instance, &PLSingleInstance::requestReceived, &*instance,
                         [this](const QStringList &paths, const QString &token) {
                             PLRequire(!request, "one caller makes one request");
                             request = Request{paths, token};
                         });
        instance->listen();
    }

    QByteArray socketPath;
    std::optional<PLSingleInstance> instance;
    std::optional<Request> request;
};

FirstStart &firstStart()
{
    static int count = 1;
    static char name[] = "instance_fuzz";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
    static const QTemporaryDir folder(PLFuzzFolderPattern(u"instance"_s));
    static FirstStart first(folder.path());
    return first;
}

void turnEventLoop()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Another start, or somebody who only says to be one.
class Caller final
{
public:
    explicit Caller(const QByteArray &path) : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
        const auto *generic = reinterpret_cast<const sockaddr *>(&address);
        PLRequire(connect(m_socket, generic, sizeof address) == 0, "a caller is let in");
    }
    ~Caller() { close(m_socket); }
    Caller(const Caller &) = delete;
    Caller &operator=(const Caller &) = delete;

    void send(const QByteArray &bytes) const
    {
        // One who has had the answer may be told that nobody listens any more.
        (void)::send(m_socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL | MSG_DONTWAIT);
    }
    void endSending() const { shutdown(m_socket, SHUT_WR); }
    /// Nothing while the other side is still listening.
    std::optional<QByteArray> answer() const
    {
        char bytes[16];
        const ssize_t count = recv(m_socket, bytes, sizeof bytes, MSG_DONTWAIT);
        const bool isGone = count < 0 && errno == ECONNRESET;
        return count >= 0 || isGone ? std::optional(QByteArray(bytes, qMax<ssize_t>(count, 0)))
                                    : std::nullopt;
    }

private:
    int m_socket;
};

/// The request in the first line; nothing if it is none.
std::optional<Request> plainRequest(const QByteArray &sent)
{
    const qsizetype end = sent.indexOf('\n');
    const QJsonDocument document = QJsonDocument::fromJson(sent.first(qMax<qsizetype>(end, 0)));
    if (end < 0 || !document[u"paths"].isArray())
        return std::nullopt;
    Request request;
    const QJsonArray paths = document[u"paths"].toArray();
    for (const QJsonValue &path : paths) {
        if (!path.toString().startsWith(u'/'))
            return std::nullopt;
        request.paths.append(path.toString());
    }
    request.token = document[u"activationToken"].toString();
    return request;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FirstStart &first = firstStart();
    PLFuzzInput input(data, size);
    const bool endsSending = input.below(2) == 0;
    const int chunk = 1 + input.byte();
    const QByteArray sent = input.rest();
    first.request.reset();

    const Caller caller(first.socketPath);
    for (qsizetype position = 0, pieces = 0; position < sent.size(); ++pieces) {
        const QByteArray bytes = sent.mid(position, pieces < 8 ? chunk : -1);
        position += bytes.size();
        caller.send(bytes);
        turnEventLoop();
    }
    const std::optional<Request> plain = plainRequest(sent);
    if (endsSending)
        caller.endSending();
    turnEventLoop();
    turnEventLoop(); // a request is told one turn later
    PLRequire(first.request == plain, "a request is told as it was sent");
    const bool hasEnd = endsSending || sent.contains('\n');
    const std::optional<QByteArray> answer = caller.answer();
    PLRequire(answer.has_value() == hasEnd, "a caller is answered when its line has ended, and not before");
    PLRequire(!answer || *answer == (plain ? "+" : ""), "a caller is told whether its request was taken");
    return 0;
}
