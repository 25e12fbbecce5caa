// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLKeyHold.h"

#ifdef AQUILANE_HAS_XCB
#include <QGuiApplication>
#include <QInputMethod>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <chrono>
#include <cstdlib>
#include <future>
#include <memory>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto longestHold = 1s;
constexpr auto settlingTime = 30ms; ///< for the keys that were pressed before, which are on their way

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

/// The server keeps the events of the keys, in order, and hands them out when it is thawed, to the window
/// that has the focus then. It thaws with the end of the connection, so also if the program crashes. Nothing
/// if it cannot be done.
Connection frozenKeyboard()
{
    Connection connection(xcb_connect(nullptr, nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get()))
        return connection;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
    const auto request = xcb_grab_keyboard(connection.get(), 0, root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                           XCB_GRAB_MODE_SYNC);
    std::free(xcb_grab_keyboard_reply(connection.get(), request, nullptr)); // if another has it, it stays so
    return connection;
}

class KeyHold final : public QObject
{
public:
    KeyHold(QWidget &window, std::function<void()> remake)
        : QObject(&window), m_window(window), m_remake(std::move(remake))
    {
        // Another thread ends it in time, were this one to hang: the keyboard is that of the whole desktop.
        m_end = std::async(std::launch::async,
                           [connection = frozenKeyboard(), released = m_released.get_future()]() mutable {
                               released.wait_for(longestHold);
                               connection.reset(); // this function itself lives as long as its future
                           });
        QTimer::singleShot(settlingTime, this, &KeyHold::remake);
    }

    ~KeyHold() override { m_released.set_value(); }

private:
    void remake()
    {
        const WId before = m_window.internalWinId();
        const bool wasActive = m_window.isActiveWindow();
        m_remake();
        if (!wasActive || m_window.internalWinId() == before)
            return deleteLater();
        connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
            if (focused && focused == m_window.windowHandle())
                deleteLater();
        });
        QTimer::singleShot(longestHold, this, &QObject::deleteLater);
    }

    QWidget &m_window;
    std::function<void()> m_remake;
    std::promise<void> m_released;
    std::future<void> m_end;
};

} // namespace

void PLRemakeHoldingKeys(QWidget &window, const std::function<void()> &remake)
{
    QGuiApplication::inputMethod()->commit(); // what is half composed would go with the old window
    if (QGuiApplication::platformName() == u"xcb"_s && window.isActiveWindow())
        new KeyHold(window, remake);
    else
        remake();
}
#else
#include <QGuiApplication>
#include <QInputMethod>

void PLRemakeHoldingKeys(QWidget &, const std::function<void()> &remake)
{
    QGuiApplication::inputMethod()->commit(); // what is half composed would go with the old window
    remake();
}
#endif
