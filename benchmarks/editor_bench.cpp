// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

//
// What a page costs to open and a key to type, beside a plain QTextEdit that holds the same text with the
// same formats and fonts. Both in one run, by turns. A key's time is from the event to the end of the
// repaint. The page marks unknown words, as in the program; one key in twelve comes just when the words typed
// before are due to be looked up, and pays for it.

#include "editor/PLPageTextView.h"
#include "editor/PLSpellingController.h"
#include "foundation/PLPreferences.h"

#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextEdit>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr double frame = 16.7;   // milliseconds
constexpr int wordsAreDue = 160; // milliseconds after a key

double percentile(std::vector<double> times, double fraction)
{
    std::sort(times.begin(), times.end());
    return times[size_t(double(times.size() - 1) * fraction)];
}

/// Prose of this many characters: the chapters of a folder of notebooks, over and over, or made-up
/// paragraphs.
QString prose(const QString &folder, qsizetype length)
{
    QString text;
    QDirIterator chapters(folder, {u"*.md"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (!folder.isEmpty() && chapters.hasNext() && text.size() < length) {
        QFile file(chapters.next());
        if (file.open(QIODevice::ReadOnly))
            text += QString::fromUtf8(file.readAll());
    }
    if (text.isEmpty())
        text =
            u"La pluie avait cessé vers le soir, et l'on voyait les toits mouillés de la ville. "_s.repeated(
                6) +
            u"\n\n"_s;
    while (text.size() < length)
        text += text.first(qMin(text.size(), length - text.size()));
    return text.first(length);
}

void showAsPage(QTextEdit &edit)
{
    edit.resize(860, 680);
    edit.show();
    QApplication::processEvents();
}

/// What a writer without our care would do: set the text, then give every paragraph its line height.
void openPlainly(QTextEdit &edit, const QString &text)
{
    edit.setPlainText(text);
    QTextCursor cursor(edit.document());
    cursor.select(QTextCursor::Document);
    QTextBlockFormat format;
    format.setLineHeight(130, QTextBlockFormat::ProportionalHeight);
    cursor.setBlockFormat(format);
    edit.document()->clearUndoRedoStacks();
}

template <typename Function>
double milliseconds(Function function)
{
    QElapsedTimer timer;
    timer.start();
    function();
    return double(timer.nsecsElapsed()) / 1e6;
}

void repaintNow(QTextEdit &edit)
{
    QApplication::processEvents();
    edit.viewport()->repaint();
}

double typeKey(QTextEdit &edit, QChar character)
{
    return milliseconds([&] {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QApplication::sendEvent(&edit, &press);
        QApplication::processEvents();
    });
}

void moveTo(QTextEdit &edit, double fraction)
{
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(int(double(edit.document()->characterCount() - 1) * fraction));
    cursor.movePosition(QTextCursor::EndOfBlock);
    edit.setTextCursor(cursor);
    edit.ensureCursorVisible();
    repaintNow(edit);
}

enum class Spelling { Off, On };

std::vector<double> typeEverywhere(QTextEdit &edit, int keys, Spelling spelling)
{
    std::vector<double> times;
    for (const double place : {0.0, 0.5, 0.98}) {
        moveTo(edit, place);
        for (int key = 0; key < keys; ++key) {
            if (spelling == Spelling::On && key % 12 == 11)
                QThread::msleep(wordsAreDue);
            times.push_back(typeKey(edit, key % 6 == 5 ? u' ' : u'e'));
        }
    }
    return times;
}

struct Limits
{
    double openMilliseconds;
    double openRatio; // beside a plain QTextEdit, 0 for none
    double keyRatio;
};

bool measure(const char *name, const QString &text, const Limits &limits)
{
    std::vector<double> ourOpenings;
    std::vector<double> plainOpenings;
    std::vector<double> ourKeys;
    std::vector<double> plainKeys;
    for (int round = 0; round < 5; ++round) {
        PLPageTextView page;
        PLSpellingController spelling(&page);
        QTextEdit plain;
        plain.setFont(page.document()->defaultFont());
        showAsPage(page);
        showAsPage(plain);
        ourOpenings.push_back(milliseconds([&] {
            page.setPageText(text);
            repaintNow(page);
        }));
        plainOpenings.push_back(milliseconds([&] {
            openPlainly(plain, text);
            repaintNow(plain);
        }));
        for (const double time : typeEverywhere(page, 60, Spelling::On))
            ourKeys.push_back(time);
        for (const double time : typeEverywhere(plain, 60, Spelling::Off))
            plainKeys.push_back(time);
    }
    const double opening = percentile(ourOpenings, 0.5);
    const double openRatio = opening / percentile(plainOpenings, 0.5);
    const double keyRatio = percentile(ourKeys, 0.5) / percentile(plainKeys, 0.5);
    std::printf("%-12s %9lld %9.1f %9.1f %7.2f %9.2f %9.2f %7.2f %9.2f %9.2f\n", name, (long long)text.size(),
                opening, percentile(plainOpenings, 0.5), openRatio, percentile(ourKeys, 0.5),
                percentile(plainKeys, 0.5), keyRatio, percentile(ourKeys, 0.99), percentile(plainKeys, 0.99));
    return opening <= limits.openMilliseconds && (limits.openRatio == 0 || openRatio <= limits.openRatio) &&
           keyRatio <= limits.keyRatio && percentile(ourKeys, 0.99) <= frame;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QString folder = argc > 1 ? QFile::decodeName(argv[1]) : QString();
    std::puts(
        "               length  open, ms     plain   ratio   key, ms     plain   ratio  key, p99     plain");
    const QTemporaryDir preferences; // not the writer's own
    PLPreferences::useFile(preferences.filePath(u"preferences.ini"_s));
    const std::shared_ptr<PLSpellChecker> checker = PLSpellChecker::shared();
    checker->setContinuous(true);
    std::printf("spelling: %s\n", checker->isAvailable() ? "on" : "no dictionary");
    const bool chapterHolds = measure("chapter", prose(folder, 50'000), {50, 0, 1.3});
    const bool novelHolds = measure("whole novel", prose(folder, 3'200'000), {400, 0.2, 1.1});
    std::puts(chapterHolds && novelHolds ? "all limits hold" : "NOT all limits hold");
    return chapterHolds && novelHolds ? 0 : 1;
}
