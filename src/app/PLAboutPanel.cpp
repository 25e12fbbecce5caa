// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAboutPanel.h"

#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

/// The name large and each sentence on a line of its own.
void arrangeTexts(const QMessageBox &panel)
{
    auto *name = panel.findChild<QLabel *>(u"qt_msgbox_label"_s);
    auto *sentences = panel.findChild<QLabel *>(u"qt_msgbox_informativelabel"_s);
    if (!name || !sentences)
        return;
    QFont font = name->font();
    font.setBold(true);
    font.setPixelSize(18);
    name->setFont(font);
    sentences->setWordWrap(false);
}

} // namespace

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
    arrangeTexts(*panel);
    panel->addButton(PLLocalizedString(u"OK"_s), QMessageBox::AcceptRole);
    panel->setModal(false);
    return panel;
}
