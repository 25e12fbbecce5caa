// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

class QWidget;

/// The commands of the menu bar and the context menus, by what they do.
enum class PLCommand {
    None,
    ShowAbout,
    ShowPreferences,
    ShowLibrary,
    Hide,
    HideOtherApplications,
    UnhideAllApplications,
    Terminate,
    NewProject,
    OpenProject,
    NewChapter,
    NewCharacter,
    NewPlace,
    NewSheet,
    NewNote,
    PerformClose,
    SaveDocument,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    PerformFindPanelAction,
    ShowGuessPanel,
    CheckSpelling,
    ToggleContinuousSpellChecking,
    FormatBold,
    FormatItalic,
    FormatStrikethrough,
    FormatHeading,
    FormatQuote,
    FormatBulletList,
    FormatNumberedList,
    FormatSeparator,
    FormatLink,
    TogglePreview,
    RenameSelectedItem,
    RevealInFinder,
    TrashSelectedItem,
    PerformMiniaturize,
    PerformZoom,
    ToggleFullScreen,
    ArrangeInFront,
    OpenSelected,
    RemoveSelected,
    ChooseCover,
    RemoveCover,
};

/// How a command stands with whoever handles it.
struct PLCommandState
{
    bool enabled = true;
    bool checked = false;
};

/// Who can carry out commands: a view, a window's controller, the application's delegate.
class PLCommandHandler
{
public:
    virtual ~PLCommandHandler() = default;

    /// Nothing if this object does not know the command, so that the next one in the chain is asked.
    /// `tag` tells commands apart that share a name: the heading's level, the kind of find.
    virtual std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const = 0;
    virtual void performCommand(PLCommand command, int tag) = 0;
};

/// The chain a command goes along: the focus widget of the active window and its parents, the window's
/// controller, the application's delegate.
class PLCommandChain final
{
public:
    /// The last link. Null when the delegate goes away.
    static void setApplicationHandler(PLCommandHandler *handler);

    static PLCommandState state(PLCommand command, int tag = 0);
    /// Does nothing if nobody handles the command or whoever does has it disabled.
    static void perform(PLCommand command, int tag = 0);
};
