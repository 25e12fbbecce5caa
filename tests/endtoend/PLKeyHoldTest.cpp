// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The keys of a whole desktop are held while a window is made anew: never for longer than said.

#include "platform/PLKeyHold.h"

#include "PLTestScreen.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QThread>
#include <QWidget>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace {

/// Whether another program could have the keyboard now; it does not keep it.
bool isKeyboardFree()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
    const auto request = xcb_grab_keyboard(connection.get(), 0, root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                           XCB_GRAB_MODE_ASYNC);
    const std::unique_ptr<xcb_grab_keyboard_reply_t, decltype(&std::free)> reply(
        xcb_grab_keyboard_reply(connection.get(), request, nullptr), &std::free);
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool becomesFree()
{
    QElapsedTimer timer;
    timer.start();
    while (!isKeyboardFree() && !timer.hasExpired(10'000))
        QThread::msleep(20);
    return isKeyboardFree();
}

} // namespace

class PLKeyHoldTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theKeysAreHeldUntilTheWindowIsMade();
    void aProgramThatHangsMeanwhileHoldsNoKeys();

private:
    QWidget m_window;
};

void PLKeyHoldTest::init()
{
    m_window.show();
    QTRY_VERIFY_WITH_TIMEOUT(m_window.isActiveWindow(), 20'000);
    QVERIFY(becomesFree());
}

void PLKeyHoldTest::theKeysAreHeldUntilTheWindowIsMade()
{
    bool isMade = false;
    PLRemakeHoldingKeys(m_window, [&] { isMade = true; });
    QVERIFY(!isMade);
    QVERIFY(!isKeyboardFree());
    QTRY_VERIFY(isMade);
    QVERIFY(becomesFree());
}

void PLKeyHoldTest::aProgramThatHangsMeanwhileHoldsNoKeys()
{
    bool isMade = false;
    bool isFree = false;
    PLRemakeHoldingKeys(m_window, [&] {
        isFree = becomesFree(); // and until then the event loop does not turn
        isMade = true;
    });
    QTRY_VERIFY_WITH_TIMEOUT(isMade, 20'000);
    QVERIFY(isFree);
}

int main(int argc, char *argv[])
{
    PLTestScreen screen;
    const QString missing = screen.start();
    if (!missing.isEmpty()) {
        qCritical("%s", qPrintable(missing));
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DISPLAY", screen.display().toUtf8());
    const QApplication application(argc, argv);
    PLKeyHoldTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "PLKeyHoldTest.moc"
