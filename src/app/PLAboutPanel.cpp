// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAboutPanel.h"

#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"

#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>

using namespace Qt::StringLiterals;

QWidget *PLMakeAboutPanel()
{
    auto *panel = new QMessageBox;
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowTitle(PLLocalizedString(u"À propos d'Aquilane"_s));
    panel->setIconPixmap(QGuiApplication::windowIcon().pixmap(64));
    panel->setText(u"Aquilane %1"_s.arg(QStringLiteral(AQUILANE_VERSION)));
    panel->setInformativeText(
        u"%1\n\n%2\n%3"_s.arg(PLLocalizedString(u"Un carnet d'écriture pour les Mac d'hier."_s),
                              PLDesktopString(u"© 2026 les auteurs d'Aquilane."_s),
                              PLDesktopString(u"Logiciel libre, sous licence MIT."_s)));
    panel->addButton(PLLocalizedString(u"OK"_s), QMessageBox::AcceptRole);
    panel->setModal(false);
    return panel;
}
