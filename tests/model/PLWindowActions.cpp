// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// How a writer goes from window to window, and ends the day.

#include "model/PLWriter.h"
#include "model/PLWriterActions.h"

using namespace Qt::StringLiterals;

namespace {

/// The page of the window that loses the focus is saved; the list of the other follows the disk.
void changeNotebook(PLWriter &writer, quint32 way, quint32)
{
    writer.goTo(writer.otherDesk(), way);
}

/// The notebook that has the focus is opened once more, which changes nothing.
void openAgain(PLWriter &writer, quint32 way, quint32)
{
    writer.goTo(writer.desk(), way);
}

void closeAndReopen(PLWriter &writer, quint32 way, quint32)
{
    writer.closeWindow();
    writer.goTo(writer.desk(), way);
}

void closeNotebook(PLWriter &writer, quint32 way, quint32)
{
    writer.closeWindow();
    writer.goTo(writer.otherDesk(), way);
}

void visitLibrary(PLWriter &writer, quint32 what, quint32 which)
{
    writer.showLibrary();
    const auto books = quint32(writer.program().library()->shelfView()->books().size());
    if (what % 3 == 0 && books > 0)
        writer.forgetBook(int(which % books));
    if (what / 3 % 2 == 0)
        writer.program().library()->window()->close();
    writer.comeBack();
}

void leaveAndComeBack(PLWriter &writer, quint32, quint32)
{
    writer.leave();
    writer.comeBack();
}

void quitAndStart(PLWriter &writer, quint32, quint32)
{
    writer.quit();
    writer.start();
}

void resize(PLWriter &writer, quint32 width, quint32 height)
{
    writer.desk().controller->window()->resize(int(780 + width % 900), int(440 + height % 600));
}

void togglePreview(PLWriter &writer, quint32, quint32)
{
    writer.desk().perform(PLCommand::TogglePreview);
}

constexpr auto window = PLWriterAction::Needs::Window;
constexpr PLWriterAction actions[] = {
    {"change notebooks", 5, window, changeNotebook},   {"open again", 1, window, openAgain},
    {"close and reopen", 1, window, closeAndReopen},   {"close the notebook", 1, window, closeNotebook},
    {"visit the library", 2, window, visitLibrary},    {"leave and come back", 4, window, leaveAndComeBack},
    {"quit and start again", 1, window, quitAndStart}, {"resize", 2, window, resize},
    {"toggle the preview", 1, window, togglePreview},
};

} // namespace

std::span<const PLWriterAction> PLWindowActions()
{
    return actions;
}
