// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLPanels.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

/// The panel that asks for a new folder: its name, and the folder it goes into.
/// A save dialog will not do: it enters a folder that exists instead of accepting it.
class PLNewFolderPanel final : public QDialog
{
    Q_OBJECT

public:
    PLNewFolderPanel(const PLPanelTexts &texts, const QString &nameLabel, const QString &proposedName,
                     QWidget *parent = nullptr);

    QString path() const;

private:
    void chooseLocation();
    void setLocation(const QString &folder);
    void updateButtons();

    QString m_location;
    QLineEdit *m_nameField;
    QLabel *m_locationLabel;
    QPushButton *m_createButton;
};
