// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "notebook_window/PLPageCommands.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLProjectWindowController.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "platform/PLAlert.h"
#include "platform/PLReveal.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QLineEdit>
#include <QTest>

#include <algorithm>

/// A notebook window on a notebook of the test's, its alerts answered and written down.
class PLNotebookWindowFixture
{
public:
    PLNotebookWindowFixture()
    {
        environment.setLanguage(QStringLiteral("fr"));
        revealedLocation().clear();
        PLAlert::setResponder([this](const PLAlert &alert) {
            alerts.append(alert.message);
            return answers.isEmpty() ? PLAlert::FirstButton : answers.takeFirst();
        });
        PLSetRevealHandler([](const QUrl &location) { revealedLocation() = location; });
    }

    ~PLNotebookWindowFixture()
    {
        controller.reset();
        PLAlert::setResponder({});
        PLSetRevealHandler(nullptr);
    }

    void open()
    {
        controller = std::make_unique<PLProjectWindowController>(notebook.open());
        controller->showWindow();
    }

    void select(const QString &relative) const
    {
        sidebar().selectSidebarObject(sidebar().tree().sectionItemForURL(notebook.url(relative)));
    }

    void type(const QString &text) const { QTest::keyClicks(textView(), text); }

    PLSidebarController &sidebar() const { return controller->sidebar(); }
    PLPageSession &session() const { return controller->session(); }
    PLEditorView *editor() const { return controller->editorView(); }
    PLPageTextView *textView() const { return editor()->textView(); }
    /// The field in which a title is typed, null when none is.
    QLineEdit *titleField() const
    {
        const QList<QLineEdit *> fields = sidebar().view()->findChildren<QLineEdit *>();
        const auto shown = std::find_if(fields.begin(), fields.end(),
                                        [](const QLineEdit *field) { return field->isVisible(); });
        return shown == fields.end() ? nullptr : *shown;
    }

    QString selectedText() const
    {
        return sidebar().selectedNode() ? PLSidebarText(*sidebar().selectedNode()) : QString();
    }

    /// Where the file manager was last sent.
    static QUrl &revealedLocation()
    {
        static QUrl location;
        return location;
    }

    PLTestEnvironment environment;
    PLTestNotebook notebook;
    std::unique_ptr<PLProjectWindowController> controller;
    QStringList alerts; ///< the messages shown, in order
    QList<int> answers; ///< to the next alerts; the first button for those after
};
