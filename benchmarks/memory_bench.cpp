// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

//
// What the preview weighs: the memory of a program with the preview shown, all its processes together,
// against one with a bare view of the engine and the same document. Proportional set size (PSS), in which a
// page shared by several processes counts once. By turns; medians.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;
constexpr double largestRatio = 1.15; // times the bare view

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

/// The memory once it has come to rest: four readings in a row within one in a hundred.
double settledMegabytes(qint64 process)
{
    double last = megabytesOfTree(process);
    for (int reading = 0, alike = 0; reading < 60 && alike < 4; ++reading) {
        QThread::msleep(250);
        const double now = megabytesOfTree(process);
        alike = std::abs(now - last) <= last / 100 ? alike + 1 : 0;
        last = now;
    }
    return last;
}

/// Runs one of the programs until its document is shown, and weighs it. Nothing if it does not come to that.
std::optional<double> weigh(const QString &name)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    if (::geteuid() == 0)
        environment.insert(u"QTWEBENGINE_DISABLE_SANDBOX"_s, u"1"_s); // the engine refuses to start otherwise
    program.setProcessEnvironment(environment);
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(QCoreApplication::applicationDirPath() + u'/' + name, QStringList());
    std::optional<double> megabytes;
    if (program.waitForReadyRead() && program.readAll().startsWith("ready"))
        megabytes = settledMegabytes(program.processId());
    program.closeWriteChannel();
    if (!program.waitForFinished())
        program.kill();
    return megabytes;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    std::vector<double> bare;
    std::vector<double> preview;
    for (int round = 0; round < rounds; ++round) {
        const auto one = weigh(u"memory_bare_view"_s);
        const auto other = weigh(u"memory_preview_view"_s);
        if (!one || !other) {
            std::fprintf(stderr, "A program did not show its document\n");
            return 2;
        }
        bare.push_back(*one);
        preview.push_back(*other);
    }
    const double ratio = median(preview) / median(bare);
    const bool isHeld = ratio <= largestRatio;
    std::printf("Memory of all processes (PSS) with a chapter shown; medians of %d\n", rounds);
    std::printf("%-24s %8.1f MB\n", "bare view", median(bare));
    std::printf("%-24s %8.1f MB %8.2f   limit %.2f   %s\n", "preview", median(preview), ratio, largestRatio,
                isHeld ? "held" : "NOT HELD");
    return isHeld ? 0 : 1;
}
