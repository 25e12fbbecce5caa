// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What the start of the program costs beside one bare window of the toolkit: the time until the first window
// is painted, and the memory of the process with its children. The library is looked at empty, and with
// covers of 12 megapixels, which must not make it wait. All under the same X server, by turns, their files in
// the cache, for a writer with an empty home.

#include "start_watch.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr double largestTimeRatio = 1.4;
constexpr double largestTimeRatioOfCovers = 1.5;
constexpr double largestMemoryRatio = 1.5;
constexpr double anyRatio = HUGE_VAL;
constexpr int leastRuns = 15;
constexpr int booksOfLibrary = 15;

struct Contestant
{
    const char *name;
    std::vector<std::string> command;
    std::string preferences{}; ///< what is in the writer's file of them; none for an empty library
    std::vector<double> times{};
    std::vector<double> memory{};
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void makeHome(const fs::path &folder)
{
    for (const char *name : {"home", "run", "config", "data"})
        fs::create_directories(folder / name);
    fs::permissions(folder / "run", fs::perms::owner_all);
    setenv("HOME", (folder / "home").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", (folder / "run").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
}

/// A novel of 30 chapters of about 12,000 characters.
fs::path makeNotebook(const fs::path &folder)
{
    const fs::path notebook = folder / "Roman";
    fs::create_directories(notebook / "Livre");
    std::ofstream(notebook / "projet.md") << "---\ntitre: Roman\n---\n";
    for (int number = 1; number <= 30; ++number) {
        char name[32];
        std::snprintf(name, sizeof name, "%02d - Chapitre.md", number);
        std::ofstream page(notebook / "Livre" / name);
        page << "---\ntags: Paris, mer\n---\n\n";
        for (int paragraph = 0; paragraph < 40; ++paragraph)
            page << "La pluie avait cessé vers le soir, et l'on voyait les toits mouillés de la ville, "
                    "rouges et "
                    "noirs sous un ciel qui n'en finissait pas de s'éclaircir. Elle posa sa valise, et "
                    "attendit "
                    "sans bouger que le bruit du train se fût tout à fait perdu au loin, derrière les "
                    "entrepôts.\n\n";
    }
    return notebook;
}

/// Known notebooks with a photograph each for a cover; the preferences that list them.
std::string makeLibrary(const fs::path &folder, const fs::path &pictureMaker)
{
    const fs::path picture = folder / "photograph.jpg";
    const std::string command =
        '"' + pictureMaker.string() + "\" -platform offscreen \"" + picture.string() + '"';
    if (std::system(command.c_str()) != 0)
        throw std::runtime_error("the photograph for the covers cannot be made");
    std::string paths;
    for (int number = 1; number <= booksOfLibrary; ++number) {
        const fs::path notebook = folder / ("Carnet " + std::to_string(number));
        fs::create_directories(notebook);
        std::ofstream(notebook / "projet.md") << "---\ntitre: Carnet " << number << "\nauteur: Anne\n---\n";
        fs::copy_file(picture, notebook / "couverture.jpg");
        paths += (number > 1 ? ", " : "") + notebook.string();
    }
    return "[General]\nPLRecentProjects=" + paths + '\n';
}

/// Prints both medians and their ratios; true if they hold the limits.
bool report(const Contestant &ours, const Contestant &bare, double largestTime, double largestMemory)
{
    const double time = median(ours.times) / median(bare.times);
    const double memory = median(ours.memory) / median(bare.memory);
    std::printf("%-22s %7.1f ms %7.1f MiB   bare window %7.1f ms %7.1f MiB   ratios %.2f and %.2f\n",
                ours.name, median(ours.times), median(ours.memory) / 1024, median(bare.times),
                median(bare.memory) / 1024, time, memory);
    return time <= largestTime && memory <= largestMemory;
}

void givePreferences(const std::string &preferences, const fs::path &config)
{
    fs::remove_all(config);
    if (preferences.empty())
        return;
    fs::create_directories(config / "aquilane");
    std::ofstream(config / "aquilane" / "aquilane.ini") << preferences;
}

/// Starts each in turn, `runs` times after a first time that fills the cache and does not count.
void startByTurns(std::span<Contestant> contestants, int runs, const fs::path &config)
{
    StartWatch watch;
    for (int run = -1; run < runs; ++run) {
        for (Contestant &contestant : contestants) {
            givePreferences(contestant.preferences, config);
            const StartCost cost = watch.start(contestant.command);
            if (run < 0)
                continue;
            contestant.times.push_back(cost.milliseconds);
            contestant.memory.push_back(cost.kibibytes);
        }
    }
}

int measure(const fs::path &folder, int runs)
{
    const fs::path programs = fs::read_symlink("/proc/self/exe").parent_path();
    const std::string program = programs / "aquilane";
    const std::string bareWindow = programs / "bare_window";
    makeHome(folder);
    Contestant contestants[] = {
        {"bare 900x640", {bareWindow, "900", "640"}},
        {"empty library", {program}},
        {"library with 15 covers", {program}, makeLibrary(folder, programs / "cover_picture")},
        {"bare 1100x720", {bareWindow, "1100", "720"}},
        {"notebook of 30 pages", {program, makeNotebook(folder)}}};
    startByTurns(contestants, runs, folder / "config");
    std::printf(
        "medians of %d starts; at most %.1f times the time and %.1f times the memory for the empty library,\n"
        "%.1f times the time with covers\n",
        runs, largestTimeRatio, largestMemoryRatio, largestTimeRatioOfCovers);
    const bool emptyHolds = report(contestants[1], contestants[0], largestTimeRatio, largestMemoryRatio);
    const bool coversHold = report(contestants[2], contestants[0], largestTimeRatioOfCovers, anyRatio);
    report(contestants[4], contestants[3], anyRatio, anyRatio);
    return emptyHolds && coversHold ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const int runs = std::max(leastRuns, argc > 1 ? std::atoi(argv[1]) : leastRuns);
    const fs::path folder = fs::temp_directory_path() / ("start_bench." + std::to_string(getpid()));
    int status = 1;
    try {
        status = measure(folder, runs);
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "start_bench: %s\n", failure.what());
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return status;
}
