// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLError.h"

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// A question or a piece of bad news: a bold message, an explanation, and buttons of which the first is the
/// default. Escape is the button that changes nothing.
class PLAlert final
{
public:
    /// What runModal answers for the first and the second button.
    static constexpr int FirstButton = 1000;
    static constexpr int SecondButton = 1001;

    enum class Style { Informational, Warning };

    QString message;
    QString informativeText;
    QStringList buttons; ///< without any, one "OK"
    Style style = Style::Warning;
    int escapeButton = SecondButton; ///< what Escape and the close box answer
    /// For news that comes by itself: what is being typed goes on into the text, until a pause of half a
    /// second, and does not answer the alert. Escape does.
    bool letsTypingGoOn = false;

    /// Shows the alert and waits. With a parent it is a sheet of that window, else it holds the whole
    /// program.
    int runModal(QWidget *parent = nullptr) const;

    /// Shows an error to the writer: its message and an "OK".
    static void presentError(const PLError &error, QWidget *parent = nullptr);

    /// Answers every alert from now on without showing it; an empty function shows them again. For tests.
    static void setResponder(std::function<int(const PLAlert &)> responder);
};
