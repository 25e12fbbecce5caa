// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What other programs do to the files of the notebooks meanwhile.

#include "model/PLWriter.h"
#include "model/PLWriterActions.h"
#include "support/PLTestFiles.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fewestPages = 4;

/// The notebook that has the focus, or the other, which may be closed.
PLWriterDesk &deskAt(PLWriter &writer, quint32 number)
{
    return number % 4 == 0 ? writer.otherDesk() : writer.desk();
}

void writeFile(PLWriterDesk &desk, const QString &path, const QByteArray &bytes)
{
    if (!PLMakeFile(desk.notebook.path(path), bytes))
        desk.fail(u"cannot write "_s + path);
    desk.model.disk.insert(path, bytes);
    desk.tagsAreOld = true;
}

void changePage(PLWriter &writer, quint32 which, quint32 whose)
{
    PLWriterDesk &desk = deskAt(writer, whose);
    const QString path = PLPickPath(desk.model.disk, which);
    if (!path.isNull())
        writeFile(desk, path,
                  "---\ntags: ailleurs\n---\n\nautre texte " + QByteArray::number(++desk.counter) + '\n');
}

void changeTags(PLWriter &writer, quint32 which, quint32 whose)
{
    PLWriterDesk &desk = deskAt(writer, whose);
    const QString path = PLPickPath(desk.model.disk, which);
    if (path.isNull())
        return;
    PLModelPage page = PLModelPage::fromBytes(desk.model.disk.value(path));
    page.tags = {u"venu d'ailleurs"_s, u"n° %1"_s.arg(++desk.counter)};
    writeFile(desk, path, page.bytes());
}

void makePage(PLWriter &writer, quint32, quint32 whose)
{
    PLWriterDesk &desk = deskAt(writer, whose);
    writeFile(desk, u"Fiches/Venue d'ailleurs %1.md"_s.arg(++desk.counter), "x");
    desk.listIsOld = true;
}

void removePage(PLWriter &writer, quint32 which, quint32 whose)
{
    PLWriterDesk &desk = deskAt(writer, whose);
    if (desk.model.disk.size() < fewestPages)
        return;
    const QString path = PLPickPath(desk.model.disk, which);
    QFile::remove(desk.notebook.path(path));
    desk.model.disk.remove(path);
    desk.listIsOld = true;
}

void renamePage(PLWriter &writer, quint32 which, quint32 whose)
{
    PLWriterDesk &desk = deskAt(writer, whose);
    const QString path = PLPickPath(desk.model.disk, which);
    if (path.isNull())
        return;
    const QString renamed = path.section(u'/', 0, 0) + u"/Renommée %1.md"_s.arg(++desk.counter);
    QFile::rename(desk.notebook.path(path), desk.notebook.path(renamed));
    desk.model.disk.insert(renamed, desk.model.disk.take(path));
    desk.listIsOld = true;
}

constexpr auto window = PLWriterAction::Needs::Window;
constexpr PLWriterAction actions[] = {
    {"another program changes a page", 2, window, changePage},
    {"another program changes tags", 1, window, changeTags},
    {"another program makes a page", 1, window, makePage},
    {"another program removes a page", 1, window, removePage},
    {"another program renames a page", 1, window, renamePage},
};

} // namespace

std::span<const PLWriterAction> PLOutsideActions()
{
    return actions;
}
