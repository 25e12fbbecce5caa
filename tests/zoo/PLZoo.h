// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "zoo/PLZooCage.h"

#include <functional>
#include <optional>
#include <vector>

/// One hostile notebook, and what the program must make of it.
struct PLZooNotebook
{
    QByteArray name; ///< of its folder, in bytes
    std::function<void(const PLZooCage &)> make;
    bool opens = true;              ///< as a notebook, else an error is told
    std::optional<int> pages = {};  ///< how many are listed
    std::optional<int> opened = {}; ///< how many of them can be read; all, if nothing is said
    std::optional<bool> cover = {}; ///< whether the library shows its picture
    bool needsOrdinaryUser = false; ///< its permissions mean nothing to the superuser
    bool needsDevices = false;      ///< which only the superuser can make
    double longestStep = 2;         ///< seconds that the windows may have to wait
};

/// Notebooks that are hostile in the same way.
struct PLZooFamily
{
    const char *name;
    std::vector<PLZooNotebook> (*notebooks)();
};

std::vector<PLZooNotebook> PLZooPageNames();
std::vector<PLZooNotebook> PLZooFolderNames();
std::vector<PLZooNotebook> PLZooPageContents();
std::vector<PLZooNotebook> PLZooHugePages();
std::vector<PLZooNotebook> PLZooPagesThatAreNoFiles();
std::vector<PLZooNotebook> PLZooPermissions();
std::vector<PLZooNotebook> PLZooHeaders();
std::vector<PLZooNotebook> PLZooMetadata();
std::vector<PLZooNotebook> PLZooSections();
std::vector<PLZooNotebook> PLZooMultitudes();
std::vector<PLZooNotebook> PLZooCovers();

inline constexpr PLZooFamily PLZooFamilies[] = {
    {"page names", PLZooPageNames},
    {"folder names", PLZooFolderNames},
    {"page contents", PLZooPageContents},
    {"huge pages", PLZooHugePages},
    {"pages that are no files", PLZooPagesThatAreNoFiles},
    {"permissions", PLZooPermissions},
    {"headers", PLZooHeaders},
    {"metadata", PLZooMetadata},
    {"sections", PLZooSections},
    {"multitudes", PLZooMultitudes},
    {"covers", PLZooCovers},
};

/// A `projet.md` without harm.
inline const QByteArray PLZooMetadataText =
    "---\ntitre: Zoo\nauteur: Personne\ncreation: 2026-01-01\nformat: aquilane-1\n---\n\n";

/// Every section folder, `projet.md`, and two harmless pages that must not suffer from their neighbours.
void PLMakeTameNotebook(const PLZooCage &cage);
/// Two pages and a file in the folder outside, for links.
void PLMakeOutside(const PLZooCage &cage);
