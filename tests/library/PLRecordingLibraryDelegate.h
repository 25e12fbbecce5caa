// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLLibraryWindowController.h"
#include "storage/PLFiles.h"

/// Writes down what the library asks of the application.
class PLRecordingLibraryDelegate final : public PLLibraryDelegate
{
public:
    bool openProjectAtURL(const QUrl &folder) override
    {
        opened.append(PLStandardizedPath(folder));
        return true;
    }
    void newProject() override { ++newProjects; }
    void openProject() override { ++openProjects; }

    QStringList opened;
    int newProjects = 0;
    int openProjects = 0;
};
