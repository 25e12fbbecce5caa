// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLPageSession.h"

#include "editor/PLEditorView.h"
#include "editor/PLPageDocument.h"
#include "editor/PLPageTextView.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "platform/PLAlert.h"

#include <QFileInfo>
#include <QScrollBar>

#include <cerrno>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto autosaveDelay = 2000ms;
constexpr QChar byteOrderMark(0xFEFF);

} // namespace

PLPageSession::PLPageSession(PLEditorView &editor, QObject *parent)
    : QObject(parent), m_editor(editor), m_saveTimer(this)
{
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(autosaveDelay);
    connect(&m_saveTimer, &QTimer::timeout, this, &PLPageSession::autosave);
    connect(editor.textView(), &PLPageTextView::textDidChange, this, &PLPageSession::contentDidChange);
}

PLPageSession::~PLPageSession() = default;

bool PLPageSession::openItem(const PLProjectItemPointer &item, PLError *error)
{
    QByteArray bytes;
    QString contents = item->readContents(error, &bytes);
    if (contents.isNull()) {
        closeItem();
        return false;
    }
    const QString leadingMark = contents.startsWith(byteOrderMark) ? QString(byteOrderMark) : QString();
    contents.remove(0, leadingMark.size());
    QString body;
    QStringList keys;
    const auto fields = PLFrontMatter::fieldsFromString(contents, &body, &keys);
    if (PLIsTooLargeForPage(body) || PLIsTooLargeForPage(fields.value(u"tags"_s))) {
        PLFail(error, PLFileError(EFBIG));
        closeItem();
        return false;
    }
    m_onDisk.remember(bytes);
    m_leadingMark = leadingMark;
    m_currentFields = fields;
    m_currentKeys = keys;
    m_saveTimer.stop();
    m_currentItem = item;
    m_editor.setText(body,
                     QUrl::fromLocalFile(QFileInfo(item->fileURL().toLocalFile()).absolutePath() + u'/'));
    m_editor.setTags(PLProjectItem::tagsFromString(m_currentFields.value(u"tags"_s)));
    setDirty(false);
    return true;
}

void PLPageSession::followDisk()
{
    if (!m_currentItem || m_dirty || !m_onDisk.changedBytes(*m_currentItem))
        return;
    const PLProjectItemPointer item = m_currentItem;
    const PLPageOnDisk onDisk = m_onDisk;
    const int caret = m_editor.textView()->textCursor().position();
    const int scroll = m_editor.textView()->verticalScrollBar()->value();
    if (!openItem(item, nullptr)) {
        // What is on the screen stays the text of the page, and what cannot be read will not be overwritten.
        m_currentItem = item;
        m_onDisk = onDisk;
        return;
    }
    QTextCursor cursor = m_editor.textView()->textCursor();
    cursor.setPosition(qMin(caret, m_editor.textView()->document()->characterCount() - 1));
    m_editor.textView()->setTextCursor(cursor);
    m_editor.textView()->verticalScrollBar()->setValue(scroll);
}

void PLPageSession::setCurrentItem(const PLProjectItemPointer &item)
{
    m_currentItem = item;
}

void PLPageSession::closeItem()
{
    m_saveTimer.stop();
    m_currentItem = nullptr;
    setDirty(false);
}

void PLPageSession::contentDidChange()
{
    if (!m_currentItem)
        return;
    setDirty(true);
    m_saveTimer.start();
}

/// What was typed while the alert of a failed save is up is saved behind it.
void PLPageSession::autosave()
{
    if (m_saving)
        m_saveTimer.start();
    else
        saveCurrentItem(SaveFailure::TellWhoTypes);
}

bool PLPageSession::saveCurrentItem(SaveFailure failure)
{
    m_saveTimer.stop();
    if (!m_currentItem || !m_dirty)
        return true;
    // A save that is under way here waits in its alert. A quiet one is the last before the end: it tries
    // again.
    if (m_saving && failure != SaveFailure::KeepQuiet)
        return false;
    m_saving = true;
    PLError error;
    const bool written = writeCurrentItem(&error);
    if (written)
        setDirty(false);
    else if (failure != SaveFailure::KeepQuiet)
        tellSaveFailure(error, failure);
    m_saving = false;
    return written;
}

/// If another program has changed the file, what it holds goes into a page of its own first; without that
/// nothing is written.
bool PLPageSession::writeCurrentItem(PLError *error)
{
    const QString contents = composedFileContents();
    const QByteArray ours = contents.toUtf8();
    PLError unreadable;
    const std::optional<QByteArray> theirs = m_onDisk.changedBytes(*m_currentItem, &unreadable);
    if (unreadable.code != 0)
        return PLFail(error, unreadable);
    if (theirs && *theirs != ours) {
        const PLProjectItemPointer kept = PLKeepBesidePage(*m_currentItem, *theirs, error);
        if (!kept)
            return false;
        m_onDisk.remember(*theirs); // it is kept, even if the write fails and is tried again
        Q_EMIT outsideTextKept(m_currentItem, kept);
    }
    if (!m_currentItem->writeContents(contents, error))
        return false;
    m_onDisk.remember(ours);
    return true;
}

void PLPageSession::saveDocument()
{
    setDirty(m_currentItem != nullptr);
    saveCurrentItem(SaveFailure::TellWhoTypes);
}

bool PLPageSession::haveTagsChanged() const
{
    const QStringList before = PLProjectItem::tagsFromString(m_currentFields.value(u"tags"_s));
    return PLProjectItem::stringFromTags(before) != PLProjectItem::stringFromTags(m_editor.tags());
}

bool PLPageSession::saveChangedTags()
{
    if (!m_currentItem || !haveTagsChanged())
        return false;
    setDirty(true);
    return saveCurrentItem();
}

QString PLPageSession::composedFileContents()
{
    const QStringList tags = m_editor.tags();
    if (!tags.isEmpty() && !m_currentKeys.contains(u"tags"))
        m_currentKeys.append(u"tags"_s);
    m_currentFields.insert(u"tags"_s, PLProjectItem::stringFromTags(tags));
    const QString body = m_editor.text();
    // A text between two scene breaks at the top of a page would be taken for a header, and go. An empty one
    // before it keeps it text.
    if (m_currentKeys.isEmpty() && !PLFrontMatter::losesLinesOfString(body))
        return m_leadingMark + body;
    return m_leadingMark + PLFrontMatter::stringWithKeys(m_currentKeys, m_currentFields, body);
}

void PLPageSession::setDirty(bool dirty)
{
    if (dirty == m_dirty)
        return;
    m_dirty = dirty;
    Q_EMIT dirtyChanged(dirty);
}

void PLPageSession::tellSaveFailure(const PLError &error, SaveFailure failure) const
{
    PLAlert alert;
    alert.message =
        PLFormat(PLLocalizedString(u"Impossible d'enregistrer « %@ »"_s), {m_currentItem->title()});
    alert.informativeText = PLFormat(
        PLLocalizedString(
            u"%@\n\nSi le carnet est sur une clé USB, vérifiez qu'elle est bien branchée. Votre texte reste affiché tant que la fenêtre est ouverte."_s),
        {error.message});
    alert.letsTypingGoOn = failure == SaveFailure::TellWhoTypes;
    alert.runModal();
}
