// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLCommand.h"

#include "platform/PLWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Knows some commands, and writes down under its name what it carries out.
class Handler : public PLCommandHandler
{
public:
    Handler(QString name, QStringList &log) : m_name(std::move(name)), m_log(log) {}

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int) const override
    {
        return command == known ? std::optional(state) : std::nullopt;
    }
    void performCommand(PLCommand, int tag) override { m_log.append(m_name + u' ' + QString::number(tag)); }

    PLCommand known = PLCommand::None;
    PLCommandState state;

private:
    QString m_name;
    QStringList &m_log;
};

class HandlingWidget final : public QWidget, public Handler
{
public:
    using Handler::Handler;
};

} // namespace

class PLCommandTest final : public QObject
{
    Q_OBJECT

private:
    QStringList m_log;
    std::unique_ptr<PLWindow> m_window;
    std::unique_ptr<Handler> m_controller;
    std::unique_ptr<Handler> m_application;
    HandlingWidget *m_outer = nullptr;
    HandlingWidget *m_inner = nullptr;
    QLineEdit *m_line = nullptr;

private Q_SLOTS:
    void init();
    void cleanup();

    void theFocusWidgetComesFirst();
    void itsParentsComeNext();
    void theWindowsControllerComesAfterTheViews();
    void theApplicationComesLast();
    void whoeverKnowsACommandEndsTheSearch();
    void aCommandNobodyKnowsIsDisabled();
    void theStateIsThatOfWhoeverHandlesIt();
    void theWindowHandlesItsOwnCommands();
    void aLineOfTextHandlesEditing();
    void aLineOfTextSaysWhatItCanDo();
};

void PLCommandTest::init()
{
    m_log.clear();
    m_window = std::make_unique<PLWindow>(nullptr);
    m_controller = std::make_unique<Handler>(u"controller"_s, m_log);
    m_application = std::make_unique<Handler>(u"application"_s, m_log);
    m_outer = new HandlingWidget(u"outer"_s, m_log);
    m_inner = new HandlingWidget(u"inner"_s, m_log);
    m_line = new QLineEdit(u"some text"_s);
    auto *outerLayout = new QVBoxLayout(m_outer);
    outerLayout->addWidget(m_inner);
    outerLayout->addWidget(m_line);
    m_inner->setFocusPolicy(Qt::StrongFocus);
    m_window->setCentralWidget(m_outer);
    m_window->setController(m_controller.get());
    PLCommandChain::setApplicationHandler(m_application.get());
    m_window->makeKeyAndOrderFront();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_inner->setFocus();
}

void PLCommandTest::cleanup()
{
    PLCommandChain::setApplicationHandler(nullptr);
    m_window.reset();
}

void PLCommandTest::theFocusWidgetComesFirst()
{
    for (Handler *handler : {static_cast<Handler *>(m_inner), static_cast<Handler *>(m_outer),
                             m_controller.get(), m_application.get()})
        handler->known = PLCommand::FormatHeading;
    PLCommandChain::perform(PLCommand::FormatHeading, 2);
    QCOMPARE(m_log, QStringList{u"inner 2"_s});
}

void PLCommandTest::itsParentsComeNext()
{
    m_outer->known = m_controller->known = PLCommand::FormatHeading;
    PLCommandChain::perform(PLCommand::FormatHeading, 3);
    QCOMPARE(m_log, QStringList{u"outer 3"_s});
}

void PLCommandTest::theWindowsControllerComesAfterTheViews()
{
    m_controller->known = m_application->known = PLCommand::SaveDocument;
    PLCommandChain::perform(PLCommand::SaveDocument);
    QCOMPARE(m_log, QStringList{u"controller 0"_s});
}

void PLCommandTest::theApplicationComesLast()
{
    m_application->known = PLCommand::Terminate;
    PLCommandChain::perform(PLCommand::Terminate);
    QCOMPARE(m_log, QStringList{u"application 0"_s});
}

void PLCommandTest::whoeverKnowsACommandEndsTheSearch()
{
    m_inner->known = m_application->known = PLCommand::SaveDocument;
    m_inner->state.enabled = false;
    PLCommandChain::perform(PLCommand::SaveDocument);
    QCOMPARE(m_log, QStringList());
    QVERIFY(!PLCommandChain::state(PLCommand::SaveDocument).enabled);
}

void PLCommandTest::aCommandNobodyKnowsIsDisabled()
{
    PLCommandChain::perform(PLCommand::ShowGuessPanel);
    QCOMPARE(m_log, QStringList());
    QVERIFY(!PLCommandChain::state(PLCommand::ShowGuessPanel).enabled);
    QVERIFY(!PLCommandChain::state(PLCommand::ShowGuessPanel).checked);
}

void PLCommandTest::theStateIsThatOfWhoeverHandlesIt()
{
    m_controller->known = PLCommand::TogglePreview;
    m_controller->state = {true, true};
    QVERIFY(PLCommandChain::state(PLCommand::TogglePreview).enabled);
    QVERIFY(PLCommandChain::state(PLCommand::TogglePreview).checked);
}

void PLCommandTest::theWindowHandlesItsOwnCommands()
{
    QVERIFY(!PLCommandChain::state(PLCommand::ToggleFullScreen).checked);
    PLCommandChain::perform(PLCommand::ToggleFullScreen);
    QVERIFY(m_window->isFullScreen());
    QVERIFY(PLCommandChain::state(PLCommand::ToggleFullScreen).checked);
    PLCommandChain::perform(PLCommand::ToggleFullScreen);
    QVERIFY(!m_window->isFullScreen());
    PLCommandChain::perform(PLCommand::PerformClose);
    QVERIFY(!m_window->isVisible());
}

void PLCommandTest::aLineOfTextHandlesEditing()
{
    m_line->setFocus();
    PLCommandChain::perform(PLCommand::SelectAll);
    QCOMPARE(m_line->selectedText(), u"some text"_s);
    PLCommandChain::perform(PLCommand::Cut);
    QCOMPARE(m_line->text(), u""_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"some text"_s);
    PLCommandChain::perform(PLCommand::Undo);
    QCOMPARE(m_line->text(), u"some text"_s);
    PLCommandChain::perform(PLCommand::Redo);
    QCOMPARE(m_line->text(), u""_s);
    PLCommandChain::perform(PLCommand::Paste);
    QCOMPARE(m_line->text(), u"some text"_s);
}

void PLCommandTest::aLineOfTextSaysWhatItCanDo()
{
    m_line->setFocus();
    m_line->deselect();
    QVERIFY(!PLCommandChain::state(PLCommand::Copy).enabled);
    QVERIFY(!PLCommandChain::state(PLCommand::Undo).enabled);
    m_line->selectAll();
    QVERIFY(PLCommandChain::state(PLCommand::Copy).enabled);
    m_controller->known = PLCommand::SaveDocument; // not a line's own: goes on
    QVERIFY(PLCommandChain::state(PLCommand::SaveDocument).enabled);
}

QTEST_MAIN(PLCommandTest)
#include "PLCommandTest.moc"
