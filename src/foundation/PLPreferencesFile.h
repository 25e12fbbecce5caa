// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Gives a file of preferences that the toolkit cannot read safely another name, "….damaged", so that the
/// preferences begin anew. Qt (6.4) does what a value in the form "@Variant(…)" tells it: one damaged length
/// in it takes all the memory there is, and the program could never be started again. So with a named pipe
/// in the place of the file, which would be waited for. False if such a file is still there.
[[nodiscard]] bool PLSetAsideDamagedPreferences(const QString &path);
