// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLNewFolderPanel.h"

#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"
#include "platform/PLToolTip.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

PLNewFolderPanel::PLNewFolderPanel(const PLPanelTexts &texts, const QString &nameLabel,
                                   const QString &proposedName, QWidget *parent)
    : QDialog(parent), m_nameField(new QLineEdit(proposedName)), m_locationLabel(new QLabel)
{
    setWindowTitle(texts.title);
    auto *message = new QLabel(texts.message);
    message->setWordWrap(true);
    message->setTextFormat(Qt::PlainText);

    auto *locationButton = new QPushButton(PLDesktopString(u"Choisir le dossier…"_s));
    locationButton->setAutoDefault(false);
    connect(locationButton, &QPushButton::clicked, this, &PLNewFolderPanel::chooseLocation);
    m_locationLabel->setTextFormat(Qt::PlainText);
    auto *locationRow = new QHBoxLayout;
    locationRow->addWidget(m_locationLabel, 1);
    locationRow->addWidget(locationButton);

    auto *form = new QFormLayout;
    form->addRow(nameLabel, m_nameField);
    form->addRow(PLDesktopString(u"Dans le dossier :"_s), locationRow);

    auto *buttons = new QDialogButtonBox;
    m_createButton = buttons->addButton(texts.prompt, QDialogButtonBox::AcceptRole);
    buttons->addButton(PLLocalizedString(u"Annuler"_s), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_nameField, &QLineEdit::textChanged, this, &PLNewFolderPanel::updateButtons);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(message);
    layout->addLayout(form);
    layout->addWidget(buttons);
    m_createButton->setDefault(true); // the dialog takes note only of a button that it holds
    setMinimumWidth(520);
    setLocation(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    m_nameField->selectAll();
    m_nameField->setFocus();
}

QString PLNewFolderPanel::path() const
{
    return QDir(m_location).filePath(m_nameField->text().trimmed());
}

void PLNewFolderPanel::chooseLocation()
{
    const QString folder = QFileDialog::getExistingDirectory(this, windowTitle(), m_location);
    if (!folder.isEmpty())
        setLocation(folder);
}

void PLNewFolderPanel::setLocation(const QString &folder)
{
    m_location = QDir(folder).exists() ? folder : QDir::homePath();
    m_locationLabel->setText(
        fontMetrics().elidedText(QDir::toNativeSeparators(m_location), Qt::ElideMiddle, 300));
    m_locationLabel->setToolTip(PLPlainToolTip(m_location));
    updateButtons();
}

void PLNewFolderPanel::updateButtons()
{
    const QString name = m_nameField->text().trimmed();
    const bool isPath = name.contains(u'/') || name == u"." || name == u"..";
    const bool isCutOff = name.contains(QChar(u'\0')); // the system would take what stands before it
    m_createButton->setEnabled(!name.isEmpty() && !isPath && !isCutOff);
}
