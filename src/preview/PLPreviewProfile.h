// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class QWebEngineProfile;

/// The one profile of all previews: nothing of it is written to the disk. It goes with the last preview,
/// which must have let go of its page first.
std::shared_ptr<QWebEngineProfile> PLPreviewProfile();
