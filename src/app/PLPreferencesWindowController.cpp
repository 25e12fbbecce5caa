// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLPreferencesWindowController.h"

#include "i18n/PLLocalization.h"
#include "platform/PLAlert.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

QLabel *wrappingLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel *explanation()
{
    QLabel *label = wrappingLabel(PLLocalizedString(
        u"Les dossiers d'un carnet (Livre, Personnages, Lieux…) gardent leur nom quelle que soit la langue, pour que tous les carnets restent compatibles."_s));
    QFont smallFont = label->font();
    smallFont.setPixelSize(11);
    label->setFont(smallFont);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

PLPreferencesWindowController::PLPreferencesWindowController(QObject *parent)
    : QObject(parent), m_window(std::make_unique<PLWindow>(nullptr))
{
    m_window->setWindowTitle(PLLocalizedString(u"Préférences"_s));
    buildContent();
    m_window->resize(460, m_window->sizeHint().height());
    m_window->center();
    m_window->setMinimumWidth(m_window->width()); // less than asked for on a small screen
    updateControls();
}

PLPreferencesWindowController::~PLPreferencesWindowController() = default;

void PLPreferencesWindowController::showWindow()
{
    updateControls();
    m_window->makeKeyAndOrderFront();
}

void PLPreferencesWindowController::buildContent()
{
    m_languagePopUp = new QComboBox;
    const QStringList codes = PLLocalization::availableLanguages();
    for (const QString &code : codes)
        m_languagePopUp->addItem(PLLocalization::nameOfLanguage(code), code);
    connect(m_languagePopUp, &QComboBox::activated, this, &PLPreferencesWindowController::changeLanguage);

    auto *label = new QLabel(PLLocalizedString(u"Langue de l'interface :"_s));
    label->setBuddy(m_languagePopUp);
    m_pendingLabel = wrappingLabel(QString());

    auto *content = new QWidget;
    auto *layout = new QGridLayout(content);
    layout->setContentsMargins(20, 20, 20, 20);
    layout->setVerticalSpacing(12);
    layout->addWidget(label, 0, 0, Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(m_languagePopUp, 0, 1, Qt::AlignLeft);
    layout->addWidget(explanation(), 1, 0, 1, 2);
    layout->addWidget(m_pendingLabel, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);
    m_window->setCentralWidget(content);
}

void PLPreferencesWindowController::updateControls()
{
    const QString preferred = PLLocalization::preferredLanguage();
    m_languagePopUp->setCurrentIndex(m_languagePopUp->findData(preferred));
    const bool isPending = preferred != PLLocalization::currentLanguage();
    m_pendingLabel->setText(
        isPending ? PLLocalization::string(
                        u"La nouvelle langue sera appliquée au prochain lancement d'Aquilane."_s, preferred)
                  : QString());
    fitHeight();
}

/// A window's least height leaves out how its texts wrap.
void PLPreferencesWindowController::fitHeight()
{
    QWidget *content = m_window->centralWidget();
    content->setMinimumHeight(content->layout()->totalHeightForWidth(m_window->minimumWidth()));
}

void PLPreferencesWindowController::changeLanguage()
{
    const QString code = m_languagePopUp->currentData().toString();
    if (code.isEmpty() || code == PLLocalization::preferredLanguage())
        return;
    PLLocalization::setPreferredLanguage(code);
    updateControls();
    if (code != PLLocalization::currentLanguage())
        offerRestart(code);
}

/// In the language that was chosen: it is the one the writer wants to read.
void PLPreferencesWindowController::offerRestart(const QString &language)
{
    const auto text = [&language](const QString &french) { return PLLocalization::string(french, language); };
    PLAlert alert;
    alert.message = text(u"Aquilane doit redémarrer pour passer en français."_s);
    alert.informativeText = text(u"Vos carnets ouverts seront enregistrés puis rouverts."_s);
    alert.buttons = {text(u"Redémarrer maintenant"_s), text(u"Plus tard"_s)};
    alert.style = PLAlert::Style::Informational;
    if (alert.runModal(m_window.get()) == PLAlert::FirstButton && m_restartHandler)
        m_restartHandler();
}
