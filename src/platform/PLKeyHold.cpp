// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLKeyHold.h"

#ifdef AQUILANE_HAS_XCB
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <chrono>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto longestHold = 1s;
constexpr auto settlingTime = 30ms; ///< for the keys that were pressed before, which are on their way

/// A frozen keyboard: the server keeps the events of its keys, in order, and hands them out when it is
/// thawed, to the window that has the focus then. It thaws with the end of this connection, so also if the
/// program crashes.
class KeyHold final : public QObject
{
public:
    KeyHold(QWidget &window, std::function<void()> remake)
        : QObject(&window)
        , m_window(window)
        , m_remake(std::move(remake))
        , m_connection(xcb_connect(nullptr, nullptr), &xcb_disconnect)
    {
        freeze();
        QTimer::singleShot(settlingTime, this, &KeyHold::remake);
    }

private:
    void freeze() const
    {
        xcb_connection_t *const connection = m_connection.get();
        if (xcb_connection_has_error(connection))
            return;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        const auto request =
            xcb_grab_keyboard(connection, 0, root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
        std::free(xcb_grab_keyboard_reply(connection, request, nullptr)); // if another has it, it stays so
    }

    void remake()
    {
        m_remake();
        connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
            if (focused && focused == m_window.windowHandle())
                deleteLater();
        });
        QTimer::singleShot(longestHold, this, &QObject::deleteLater);
    }

    QWidget &m_window;
    std::function<void()> m_remake;
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
};

} // namespace

void PLRemakeHoldingKeys(QWidget &window, const std::function<void()> &remake)
{
    if (QGuiApplication::platformName() == u"xcb"_s && window.isActiveWindow())
        new KeyHold(window, remake);
    else
        remake();
}
#else
void PLRemakeHoldingKeys(QWidget &, const std::function<void()> &remake)
{
    remake();
}
#endif
