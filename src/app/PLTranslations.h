// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

class QCoreApplication;

/// Makes the toolkit's own dialogs speak the interface language, whatever the system's is.
void PLInstallTranslations(QCoreApplication &application);
