// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLPanels.h"

#include "platform/PLNewFolderPanel.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// A file dialog that accepts a folder as well as a file: Qt's own knows only the one or the other.
class PLFolderOrFilePanel final : public QFileDialog
{
public:
    using QFileDialog::QFileDialog;

    void accept() override
    {
        const QStringList files = selectedFiles();
        if (files.size() == 1 && QFileInfo(files.first()).isFile())
            return QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): past the file panel's own
                                      // refusal
        QFileDialog::accept();
    }
};

void addMessage(QFileDialog &panel, const QString &message)
{
    auto *grid = qobject_cast<QGridLayout *>(panel.layout());
    if (!grid)
        return;
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText); // before the text: it holds a notebook's title
    label->setText(message);
    label->setWordWrap(true);
    grid->addWidget(label, grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

QUrl PLChooseFolderOrMarkdownFile(const PLPanelTexts &texts, QWidget *parent)
{
    PLFolderOrFilePanel panel(parent, texts.title,
                              QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    panel.setOption(QFileDialog::DontUseNativeDialog);
    panel.setOption(QFileDialog::ReadOnly); // or the key Delete would delete a page here, past the trash
    panel.setFileMode(QFileDialog::Directory);
    panel.setOption(QFileDialog::ShowDirsOnly, false);
    panel.setNameFilters({u"Markdown (*.md)"_s});
    panel.setLabelText(QFileDialog::Accept, texts.prompt);
    addMessage(panel, texts.message);
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty())
        return {};
    return QUrl::fromLocalFile(panel.selectedFiles().constFirst());
}

QUrl PLChooseFile(const PLPanelTexts &texts, const QStringList &extensions, QWidget *parent)
{
    QFileDialog panel(parent, texts.title,
                      QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    panel.setOption(QFileDialog::DontUseNativeDialog);
    panel.setOption(QFileDialog::ReadOnly);
    panel.setFileMode(QFileDialog::ExistingFile);
    panel.setNameFilter(u"%1 (*.%2)"_s.arg(texts.title, extensions.join(u" *.")));
    panel.setLabelText(QFileDialog::Accept, texts.prompt);
    addMessage(panel, texts.message);
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty())
        return {};
    return QUrl::fromLocalFile(panel.selectedFiles().constFirst());
}

QUrl PLChooseNewFolder(const PLPanelTexts &texts, const QString &nameLabel, const QString &proposedName,
                       QWidget *parent)
{
    PLNewFolderPanel panel(texts, nameLabel, proposedName, parent);
    if (panel.exec() != QDialog::Accepted)
        return {};
    return QUrl::fromLocalFile(panel.path());
}
