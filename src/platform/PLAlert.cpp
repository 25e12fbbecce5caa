// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLAlert.h"

#include "i18n/PLLocalization.h"
#include "platform/PLTypingOn.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

std::function<int(const PLAlert &)> &currentResponder()
{
    static std::function<int(const PLAlert &)> responder;
    return responder;
}

void addButtons(QMessageBox &box, const PLAlert &alert)
{
    const QStringList titles =
        alert.buttons.isEmpty() ? QStringList{PLLocalizedString(u"OK"_s)} : alert.buttons;
    for (qsizetype index = 0; index < titles.size(); ++index) {
        // The roles keep the given order from right to left on every desktop's layout of buttons.
        auto *button =
            box.addButton(titles[index], index == 0 ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
        if (index == 0)
            box.setDefaultButton(button);
        if (index == alert.escapeButton - PLAlert::FirstButton || titles.size() == 1)
            box.setEscapeButton(button);
    }
}

/// Qt 6.4 guesses whether an explanation is HTML, and would draw what a folder's name says.
void showTextsAsTheyAre(QMessageBox &box)
{
    const QList<QLabel *> labels = box.findChildren<QLabel *>();
    for (QLabel *label : labels)
        label->setTextFormat(Qt::PlainText);
}

} // namespace

int PLAlert::runModal(QWidget *parent) const
{
    if (currentResponder())
        return currentResponder()(*this);
    QMessageBox box(parent);
    box.setWindowModality(parent ? Qt::WindowModal : Qt::ApplicationModal);
    box.setIcon(style == Style::Warning ? QMessageBox::Warning : QMessageBox::Information);
    box.setWindowTitle(u"Aquilane"_s);
    box.setText(message);
    box.setInformativeText(informativeText);
    showTextsAsTheyAre(box);
    addButtons(box, *this);
    std::optional<PLTypingOn> typingOn;
    if (letsTypingGoOn)
        typingOn.emplace(box);
    box.exec();
    const qsizetype index = box.buttons().indexOf(box.clickedButton());
    return index < 0 ? escapeButton : FirstButton + int(index);
}

void PLAlert::presentError(const PLError &error, QWidget *parent)
{
    PLAlert alert;
    alert.message = error.message;
    alert.runModal(parent);
}

void PLAlert::setResponder(std::function<int(const PLAlert &)> responder)
{
    currentResponder() = std::move(responder);
}
