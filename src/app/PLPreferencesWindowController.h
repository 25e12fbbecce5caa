// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLWindow.h"

#include <QObject>

#include <functional>
#include <memory>

class QComboBox;
class QLabel;

/// The preferences window with its one setting, the interface language. A change is stored at once and shows
/// after a restart, which is offered.
class PLPreferencesWindowController final : public QObject
{
    Q_OBJECT

public:
    explicit PLPreferencesWindowController(QObject *parent = nullptr);
    ~PLPreferencesWindowController() override;

    PLWindow *window() const { return m_window.get(); }
    QComboBox *languagePopUp() const { return m_languagePopUp; }
    QLabel *pendingLabel() const { return m_pendingLabel; }

    void showWindow();
    /// What "Redémarrer maintenant" does.
    void setRestartHandler(std::function<void()> handler) { m_restartHandler = std::move(handler); }

private:
    void buildContent();
    void updateControls();
    void fitHeight();
    void changeLanguage();
    void offerRestart(const QString &language);

    std::unique_ptr<PLWindow> m_window;
    QComboBox *m_languagePopUp = nullptr;
    QLabel *m_pendingLabel = nullptr;
    std::function<void()> m_restartHandler;
};
