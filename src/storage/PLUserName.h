// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The full name of the person who runs the program, as the system knows it; "" if it does not.
QString PLFullUserName();
