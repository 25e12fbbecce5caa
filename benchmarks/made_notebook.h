// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <vector>

/// How large a made notebook is.
struct PLMadeNotebook
{
    int pages = 0;
    int tags = 0; ///< so many different ones; without any, words of the text are the tags
};

/// Makes a notebook in a new folder, the same at every run: pages of 100 to 2,000 words, two in five of them
/// chapters, every second one with a header of three tags. False if the disk will not have it.
bool PLMakeNotebook(const QString &path, const PLMadeNotebook &size);

/// The least that any program must do to know the pages and their tags: lists the five folders, opens each
/// file, reads its first 4 KiB.
void PLReadBarely(const QString &path);

double PLMilliseconds(const std::function<void()> &work);

/// The value below which this part of the values lies: 0.5 for the median.
double PLPercentile(std::vector<double> values, double part);
