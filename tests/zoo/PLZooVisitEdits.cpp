// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a visit does to pages: it types, undoes, saves, makes, renames and trashes them.

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "notebook_window/PLPageCommands.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "storage/PLFiles.h"
#include "zoo/PLZooMeasure.h"
#include "zoo/PLZooVisit.h"

#include <QFile>
#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int pagesEdited = 45;
constexpr int pagesHandled = 45;
constexpr QByteArrayView mark("\xEF\xBB\xBF");

/// Where a page really is, links followed.
QByteArray realPath(const QString &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.toUtf8().constData(), nullptr),
                                                           &std::free);
    return QByteArray(real.get());
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What a page without a header, in UTF-8, must hold once an "x" has been typed at its start; null for
/// others.
QByteArray withLetter(const QByteArray &bytes)
{
    const bool hasMark = bytes.startsWith(mark);
    const QByteArray body = hasMark ? bytes.sliced(mark.size()) : bytes;
    if (body.startsWith("---") || bytes.contains('\r') || bytes.startsWith("\xFF\xFE") ||
        bytes.startsWith("\xFE\xFF") || !PLDecodedUTF8(bytes))
        return QByteArray();
    return (hasMark ? mark.toByteArray() : QByteArray()) + 'x' + body;
}

} // namespace

void PLZooVisit::editPages()
{
    // Of a page and a link to it, the second finds what was typed into the first.
    QSet<QByteArray> edited;
    const QStringList pages = m_opened.mid(0, pagesEdited);
    for (const QString &path : pages) {
        const QByteArray real = realPath(path);
        if (edited.contains(real) || !select(path))
            continue;
        edited.insert(real);
        m_mayDiffer.insert(real);
        typeAndUndo(path);
        typeAndSave(path);
    }
}

void PLZooVisit::typeAndUndo(const QString &path)
{
    PLPageTextView *view = m_controller->editorView()->textView();
    const QString text = view->pageText();
    const QByteArray bytes = bytesOf(path);
    const QString shown = PLZooShown(path);
    measure(u"typing in "_s + shown, [&] { QTest::keyClicks(view, u"x"_s); });
    if (view->pageText() != u'x' + text)
        complain(u"what is typed is not in "_s + shown);
    measure(u"undoing in "_s + shown, [&] { view->undo(); });
    if (view->pageText() != text)
        complain(u"undo does not bring back "_s + shown);
    measure(u"saving the undone "_s + shown, [&] { m_controller->saveCurrentItem(); });
    if (!withLetter(bytes).isNull() && bytesOf(path) != bytes)
        complain(u"other bytes after an undone letter: "_s + shown);
}

void PLZooVisit::typeAndSave(const QString &path)
{
    PLPageSession &session = m_controller->session();
    PLPageTextView *view = m_controller->editorView()->textView();
    const QString text = view->pageText();
    const QByteArray bytes = bytesOf(path);
    const QString shown = PLZooShown(path);
    const qsizetype alertsBefore = m_alerts.size();
    QTest::keyClicks(view, u"x"_s);
    bool isSaved = false;
    measure(u"saving "_s + shown, [&] { isSaved = m_controller->saveCurrentItem(); });
    measure(u"the turn after saving "_s + shown, [&] { settle(); });
    if (session.isDirty() == isSaved || (m_alerts.size() > alertsBefore) == isSaved)
        complain(u"a save is not what it says: "_s + shown);
    const QByteArray expected = isSaved ? withLetter(bytes) : bytes;
    if (!expected.isNull() && bytesOf(path) != expected)
        complain(u"wrong bytes after saving "_s + shown);
    if (!isSaved)
        return;
    m_controller->sidebar().selectSidebarObject(nullptr);
    m_controller->sidebar().selectSidebarObject(
        m_controller->sidebar().tree().sectionItemForURL(QUrl::fromLocalFile(path)));
    // A lone carriage return that has come to stand before a line feed makes one line end with it.
    if (!session.currentItem() || view->pageText() != QString(u'x' + text).replace(u"\r\n"_s, u"\n"_s))
        complain(u"opened again it is another text: "_s + shown);
}

/// Whatever is renamed and put into the trash: all that was there is somewhere, and nothing outside is
/// touched.
void PLZooVisit::handlePages()
{
    m_controller->sidebar().selectSidebarObject(nullptr);
    for (const PLSection section : PLAllSections)
        makePageIn(section);
    m_controller->sidebar().selectSidebarObject(nullptr);
    const PLZooSnapshot outside = PLTakeZooSnapshot({m_outside});
    const QList<QByteArray> before = PLZooHoldings(PLTakeZooSnapshot({m_folder, m_outside, m_trash}));
    const QStringList pages = pagesToTry(pagesHandled);
    for (qsizetype index = 0; index < pages.size(); ++index) {
        const QUrl url = QUrl::fromLocalFile(pages[index]);
        const PLSidebarPage *row = m_controller->sidebar().tree().sectionItemForURL(url);
        if (!row)
            continue; // a section that is a link to another one: the page has gone with its twin
        const QString shown = PLZooShown(pages[index]);
        const PLProjectItemPointer item = row->item;
        measure(u"renaming "_s + shown, [&] {
            m_controller->pageCommands().renameItem(item);
            typeTitle(u"Renommée %1"_s.arg(index));
        });
        measure(u"trashing "_s + shown, [&] {
            m_controller->pageCommands().trashItem(item);
            settle();
        });
    }
    if (PLZooHoldings(PLTakeZooSnapshot({m_folder, m_outside, m_trash})) != before)
        complain(u"renaming and trashing have lost something"_s);
    if (QFile::symLinkTarget(QString::fromUtf8(m_folder + "/Fiches")).isEmpty()) {
        const QStringList changes = PLZooChanges(outside, PLTakeZooSnapshot({m_outside}), {});
        for (const QString &change : changes)
            complain(u"renaming and trashing reach outside: "_s + change);
    }
}

void PLZooVisit::makePageIn(PLSection section)
{
    const qsizetype pagesBefore = listedPages().size();
    const qsizetype alertsBefore = m_alerts.size();
    measure(u"making a page"_s, [&] {
        m_controller->pageCommands().createItemInSection(section);
        settle();
    });
    const bool isMade = listedPages().size() > pagesBefore;
    if (isMade == (m_alerts.size() > alertsBefore))
        complain(u"a page is not made without a word, or made with one"_s);
    if (isMade)
        measure(u"naming a page"_s, [&] { typeTitle(u"Née au zoo"_s); });
}

void PLZooVisit::typeTitle(const QString &title)
{
    const QList<QLineEdit *> fields = m_controller->sidebar().view()->findChildren<QLineEdit *>();
    const auto field = std::find_if(fields.begin(), fields.end(),
                                    [](const QLineEdit *candidate) { return candidate->isVisible(); });
    if (field == fields.end())
        return complain(u"there is no field for a title"_s);
    (*field)->setText(title);
    QTest::keyClick(*field, Qt::Key_Return);
    settle();
}
