// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

// What the preview's engine needs in order to start. It ends the whole program if it cannot lock its
// processes in, so the question is asked before.

/// True for the system's administrator, for whom the engine refuses to start.
bool PLIsSuperUser();

/// True if the engine will start: it can make a sandbox, or the user has switched that off by setting
/// QTWEBENGINE_DISABLE_SANDBOX to 1.
bool PLCanSandboxPreview();
