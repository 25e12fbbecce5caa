// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLAlert.h"

#include <QList>

#include <utility>
#include <vector>

/// Answers the alerts of a test one after the other and keeps what they said. An alert that no answer was
/// given for gets the one that changes nothing; tests look at how many there were.
class PLAlertScript final
{
public:
    explicit PLAlertScript(QList<int> answers = {}) : m_answers(std::move(answers))
    {
        PLAlert::setResponder([this](const PLAlert &alert) {
            m_shown.push_back(alert);
            return m_answers.isEmpty() ? alert.escapeButton : m_answers.takeFirst();
        });
    }
    ~PLAlertScript() { PLAlert::setResponder({}); }

    PLAlertScript(const PLAlertScript &) = delete;
    PLAlertScript &operator=(const PLAlertScript &) = delete;

    int count() const { return int(m_shown.size()); }
    const PLAlert &shown(int index) const { return m_shown.at(size_t(index)); }

private:
    QList<int> m_answers;
    std::vector<PLAlert> m_shown;
};
