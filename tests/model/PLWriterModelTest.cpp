// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "model/PLWriter.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Steps = QList<PLWriterStep>;

constexpr int defaultSteps = 5000;
constexpr int stepsOfADay = 250; ///< then another writer begins with another notebook
constexpr int shrinkingMilliseconds = 60'000;

int numberFromEnvironment(const char *name, int otherwise)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

QtMessageHandler testHandler = nullptr;

/// The platform without a screen tells each time what it has not: it would fill the log.
void dropPlatformWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(u"This plugin does not support"))
        testHandler(type, context, text);
}

Steps randomSteps(QRandomGenerator &random, int count)
{
    Steps steps;
    for (int step = 0; step < count; ++step)
        steps.append({random.bounded(PLWriter::actionCount()), random.generate(), random.generate()});
    return steps;
}

/// What goes wrong, null if nothing does; `steps` then ends with the step at which it does.
QString play(Steps &steps)
{
    PLWriter writer;
    for (qsizetype step = 0; step < steps.size(); ++step) {
        const QString problem = writer.perform(steps[step]);
        if (!problem.isNull()) {
            steps.resize(step + 1);
            return problem;
        }
    }
    return QString();
}

/// Fewer steps that go wrong as well: parts are left out for as long as something still does.
Steps shrunk(Steps steps)
{
    QElapsedTimer clock;
    clock.start();
    for (qsizetype part = steps.size() / 2; part > 0; part = part > 1 ? (part + 1) / 2 : 0) {
        for (qsizetype from = 0; from < steps.size() && !clock.hasExpired(shrinkingMilliseconds);) {
            Steps fewer = steps;
            fewer.remove(from, qMin(part, steps.size() - from));
            if (play(fewer).isNull())
                from += part;
            else
                steps = fewer;
        }
    }
    return steps;
}

} // namespace

/// A random sequence of what a writer does, against a plain model of what must be on the disk and on the
/// screen. AQUILANE_MODEL_STEPS and AQUILANE_MODEL_SEED choose how many steps and which.
class PLWriterModelTest final : public QObject
{
    Q_OBJECT

public:
    /// A long run is not cut short after five minutes, as Qt Test would.
    PLWriterModelTest() { qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(INT_MAX)); }

private Q_SLOTS:
    void initTestCase();
    void aWrongScreenIsFound();
    void aWritersDaysGoAsTheModelSays();

private:
    QTemporaryDir m_home; ///< has the trash in it
};

void PLWriterModelTest::initTestCase()
{
    qputenv("XDG_DATA_HOME", m_home.path().toUtf8());
    testHandler = qInstallMessageHandler(dropPlatformWarnings);
}

/// The proof that the comparison can fail: a word is changed behind the writer's back.
void PLWriterModelTest::aWrongScreenIsFound()
{
    PLWriter writer;
    QVERIFY(writer.perform({0, 1, 0}).isNull());
    writer.desk().textView()->replaceText({0, 1}, u"\u00E8"_s);
    QVERIFY(!writer.perform({0, 1, 0}).isNull());
}

void PLWriterModelTest::aWritersDaysGoAsTheModelSays()
{
    const int total = numberFromEnvironment("AQUILANE_MODEL_STEPS", defaultSteps);
    const auto seed = quint32(
        numberFromEnvironment("AQUILANE_MODEL_SEED", int(QRandomGenerator::system()->generate() >> 1)));
    qInfo("seed %u, %d steps", seed, total);
    QElapsedTimer clock;
    clock.start();
    QRandomGenerator random(seed);
    for (int done = 0; done < total; done += stepsOfADay) {
        Steps steps = randomSteps(random, stepsOfADay);
        const QString problem = play(steps);
        if (problem.isNull())
            continue;
        const auto found = done + steps.size();
        steps = shrunk(steps);
        for (const PLWriterStep &step : steps)
            qInfo("  %s", qPrintable(step.description()));
        const QString after = play(steps);
        QFAIL(qPrintable(u"seed %1, step %2: %3; shrunk: %4"_s.arg(seed).arg(found).arg(problem, after)));
    }
    qInfo("%.1f seconds", double(clock.elapsed()) / 1000);
}

QTEST_MAIN(PLWriterModelTest)
#include "PLWriterModelTest.moc"
