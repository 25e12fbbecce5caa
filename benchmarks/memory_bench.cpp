// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a page and its preview weigh. The program with a chapter open and the preview hidden, against a bare
// text field with the same text, without spelling and with, where the field has the same dictionary beside
// it; and a program with the preview shown, all its processes together, against one with a bare view of the
// engine and the same document. Proportional set size (PSS), in which a page shared by several processes
// counts once. By turns; medians.

#include "memory_document.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;
constexpr double largestPageRatio = 1.5;     // times the bare text field
constexpr double largestPreviewRatio = 1.15; // times the bare view
constexpr int restingReadings = 8;           // a dictionary is read when the writer pauses

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The parent of a process: the second field after the name, which stands in parentheses.
qint64 parentOf(const QString &process)
{
    const QByteArray status = contentsOf(u"/proc/%1/stat"_s.arg(process));
    return status.mid(status.lastIndexOf(')') + 2).split(' ').value(1).toLongLong();
}

double megabytesOf(const QString &process)
{
    for (const QByteArray &line : contentsOf(u"/proc/%1/smaps_rollup"_s.arg(process)).split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

/// A process with all its descendants.
double megabytesOfTree(qint64 process)
{
    double megabytes = megabytesOf(QString::number(process));
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        if (name.toLongLong() > 0 && parentOf(name) == process)
            megabytes += megabytesOfTree(name.toLongLong());
    }
    return megabytes;
}

/// The memory once it has come to rest: so many readings in a row within one in a hundred.
double settledMegabytes(qint64 process)
{
    double last = megabytesOfTree(process);
    for (int reading = 0, alike = 0; reading < 60 && alike < restingReadings; ++reading) {
        QThread::msleep(250);
        const double now = megabytesOfTree(process);
        alike = std::abs(now - last) <= last / 100 ? alike + 1 : 0;
        last = now;
    }
    return last;
}

/// The environment of a writer whose home is `home`, and who has hidden the preview.
QProcessEnvironment environmentIn(const QString &home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    for (const QString &name : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_RUNTIME_DIR"_s})
        environment.insert(name, home);
    environment.insert(u"LANG"_s, u"fr_FR.UTF-8"_s);
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    if (::geteuid() == 0)
        environment.insert(u"QTWEBENGINE_DISABLE_SANDBOX"_s, u"1"_s); // the engine refuses to start otherwise
    return environment;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// A home with a notebook of one chapter in it, null if it cannot be made.
QString makeNotebook(const QString &home)
{
    const QString notebook = home + u"/Roman"_s;
    const bool isMade = QDir(home).mkpath(u"Roman/Livre"_s) &&
                        writeFile(notebook + u"/projet.md"_s, "---\ntitre: Roman\n---\n") &&
                        writeFile(notebook + u"/Livre/01 - Chapitre.md"_s, PLMemoryText().toUtf8());
    return isMade ? notebook : QString();
}

/// The preferences of a writer who has hidden the preview.
bool writePreferences(const QString &home, bool checksSpelling)
{
    const QByteArray spelling = checksSpelling ? "true" : "false";
    return QDir(home).mkpath(u"aquilane"_s) &&
           writeFile(home + u"/aquilane/aquilane.ini"_s,
                     "[General]\nPLPreviewVisible=false\nPLContinuousSpellChecking=" + spelling + '\n');
}

struct Contestant
{
    QString name;
    QStringList command;
    bool tellsWhenReady = true; ///< says so on its standard output; else its memory alone tells
    bool checksSpelling = false;
    std::vector<double> megabytes{};
};

/// Runs one of the programs until its document is shown, and weighs it. False if it does not come to that.
bool weigh(Contestant &contestant, const QString &home)
{
    if (!writePreferences(home, contestant.checksSpelling))
        return false;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(QCoreApplication::applicationDirPath() + u'/' + contestant.command.first(),
                  contestant.command.mid(1));
    const bool isReady = contestant.tellsWhenReady
                             ? program.waitForReadyRead() && program.readAll().startsWith("ready")
                             : program.waitForStarted();
    if (isReady)
        contestant.megabytes.push_back(settledMegabytes(program.processId()));
    const bool hasLived = program.state() == QProcess::Running;
    contestant.tellsWhenReady ? program.closeWriteChannel() : program.terminate();
    if (!program.waitForFinished())
        program.kill();
    return isReady && hasLived;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Prints both medians and their ratio; true if it holds the limit.
bool report(const Contestant &ours, const Contestant &bare, double largestRatio)
{
    const double ratio = median(ours.megabytes) / median(bare.megabytes);
    const bool isHeld = ratio <= largestRatio;
    std::printf("%-28s %8.1f MB\n", qPrintable(bare.name), median(bare.megabytes));
    std::printf("%-28s %8.1f MB %8.2f   limit %.2f   %s\n", qPrintable(ours.name), median(ours.megabytes),
                ratio, largestRatio, isHeld ? "held" : "NOT HELD");
    return isHeld;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTemporaryDir home;
    const QString notebook = makeNotebook(home.path());
    Contestant contestants[] = {{u"bare text field"_s, {u"memory_bare_text"_s}},
                                {u"page open"_s, {u"aquilane"_s, notebook}, false},
                                {u"bare text field, dictionary"_s, {u"memory_bare_text"_s, u"fr_FR"_s}},
                                {u"page open, spelling"_s, {u"aquilane"_s, notebook}, false, true},
                                {u"bare view"_s, {u"memory_bare_view"_s}},
                                {u"preview"_s, {u"memory_preview_view"_s}}};
    for (int round = 0; round < rounds; ++round) {
        for (Contestant &contestant : contestants) {
            if (!weigh(contestant, home.path())) {
                std::fprintf(stderr, "%s did not show its document\n", qPrintable(contestant.name));
                return 2;
            }
        }
    }
    std::printf("Memory of all processes (PSS) with a chapter of 8,000 words; medians of %d\n", rounds);
    const bool isPageHeld = report(contestants[1], contestants[0], largestPageRatio);
    const bool isSpellingHeld = report(contestants[3], contestants[2], largestPageRatio);
    const bool isPreviewHeld = report(contestants[5], contestants[4], largestPreviewRatio);
    return isPageHeld && isSpellingHeld && isPreviewHeld ? 0 : 1;
}
