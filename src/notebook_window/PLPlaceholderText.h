// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class PLSidebarNode;

/// What stands in place of the page when this row is selected (null: no row is) and it is no page.
QString PLPlaceholderText(const PLSidebarNode *node);
