// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

class QMenu;

/// Makes the menu end with the program's windows each time it is opened, by title, the one in front checked.
void PLAddWindowList(QMenu *menu);
