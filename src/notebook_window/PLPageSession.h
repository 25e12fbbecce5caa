// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLError.h"
#include "notebook_window/PLPageOnDisk.h"
#include "storage/PLFrontMatter.h"
#include "storage/PLProjectItem.h"

#include <QObject>
#include <QTimer>

class PLEditorView;

/// The page that is open in a notebook window: loaded into the editor, changed, and written back two seconds
/// after the last change, its header as it was but for the tags. The disk is written here and nowhere else.
/// What another program has written into the same page meanwhile is kept as a page of its own.
class PLPageSession final : public QObject
{
    Q_OBJECT

public:
    /// Whether a failure to save is told at once, to a writer who may be typing on, or left to whoever asked.
    enum class SaveFailure { Tell, TellWhoTypes, KeepQuiet };

    explicit PLPageSession(PLEditorView &editor, QObject *parent = nullptr);
    ~PLPageSession() override;

    /// Null when no page is open.
    const PLProjectItemPointer &currentItem() const { return m_currentItem; }
    bool isDirty() const { return m_dirty; }
    bool isSaving() const { return m_saving; }

    /// Loads a page; on failure no page is open. What was open must have been saved before.
    [[nodiscard]] bool openItem(const PLProjectItemPointer &item, PLError *error);
    /// Loads the page anew if another program has changed it and the writer has not.
    void followDisk();
    /// The same file as another object, as after the list was read again; the text is left as it is.
    void setCurrentItem(const PLProjectItemPointer &item);
    /// No page is open any more; what was not saved is dropped.
    void closeItem();

    /// The writer has changed the text or the tags: the page is dirty, and will be saved in two seconds.
    void contentDidChange();
    /// Writes the page if it is dirty. False if that failed, or if a write is under way.
    bool saveCurrentItem(SaveFailure failure = SaveFailure::Tell);
    /// The Save command: writes the page even if it is not dirty.
    void saveDocument();
    /// Whether the editor's tags are others than those of the page's header.
    bool haveTagsChanged() const;
    /// Saves the page with its new tags; false if they are the same or could not be saved.
    bool saveChangedTags();

    /// The whole text to write: the mark, the header with the editor's tags, the body.
    QString composedFileContents();

Q_SIGNALS:
    void dirtyChanged(bool isDirty);
    /// Another program had changed the page's file; its text is now this other page.
    void outsideTextKept(const PLProjectItemPointer &page, const PLProjectItemPointer &keptPage);

private:
    void autosave();
    bool writeCurrentItem(PLError *error);
    void setDirty(bool dirty);
    void tellSaveFailure(const PLError &error, SaveFailure failure) const;

    PLEditorView &m_editor;
    PLProjectItemPointer m_currentItem;
    PLFrontMatter::Fields m_currentFields;
    QStringList m_currentKeys;
    QString m_leadingMark; ///< U+FEFF if the file begins with it
    PLPageOnDisk m_onDisk;
    QTimer m_saveTimer;
    bool m_dirty = false;
    bool m_saving = false;
};
