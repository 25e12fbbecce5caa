// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLCrashProof.h"
#include "faults/PLFaultsFolder.h"
#include "faults/PLWrongWriters.h"
#include "support/PLTestEnvironment.h"

#include <QTest>

/// Power cuts: every state that one can leave, at any moment of any operation, is built on disk and opened.
/// Each page is in its old or its new text, whole, under its old or its new name, and what was answered with
/// success is never lost.
class PLCrashStatesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noPowerCutLosesAnything_data();
    void noPowerCutLosesAnything();
    void thereAreEnoughStatesToBelieveIt();
    void wrongWritersAreFound_data();
    void wrongWritersAreFound();
    void aForgottenFlushIsFound_data();
    void aForgottenFlushIsFound();

private:
    PLTestEnvironment m_environment;
    PLFaultsFolder m_folder;
    qint64 m_states = 0;
    qint64 m_damaged = 0;
    qint64 m_acknowledgedButOld = 0;
};

void PLCrashStatesTest::noPowerCutLosesAnything_data()
{
    QTest::addColumn<qsizetype>("index");
    const QList<PLNotebookOperation> operations = PLNotebookOperations();
    for (qsizetype index = 0; index < operations.size(); ++index)
        QTest::newRow(operations[index].name) << index;
}

void PLCrashStatesTest::noPowerCutLosesAnything()
{
    QFETCH(qsizetype, index);
    const PLCrashProof proof = PLCrashProof::of(PLNotebookOperations().at(index), m_folder.path());
    m_states += proof.states;
    m_damaged += proof.damaged;
    m_acknowledgedButOld += proof.acknowledgedButOld;
    qInfo("%lld crash states, %lld damaged, %lld acknowledged but old", proof.states, proof.damaged,
          proof.acknowledgedButOld);
    QVERIFY2(proof.fault.isEmpty(), qPrintable(proof.fault));
    QVERIFY(proof.states >= 1); // one alone where nothing is to be changed
    QCOMPARE(proof.damaged, 0);
    QCOMPARE(proof.acknowledgedButOld, 0);
}

void PLCrashStatesTest::thereAreEnoughStatesToBelieveIt()
{
    qInfo("%lld crash states built and opened: %lld damaged, %lld acknowledged but old", m_states, m_damaged,
          m_acknowledgedButOld);
    QVERIFY(m_states >= 16'000);
}

void PLCrashStatesTest::wrongWritersAreFound_data()
{
    QTest::addColumn<qsizetype>("index");
    const QList<PLWrongWriter> writers = PLWrongWriters();
    for (qsizetype index = 0; index < writers.size(); ++index)
        QTest::newRow(writers[index].operation.name) << index;
}

void PLCrashStatesTest::wrongWritersAreFound()
{
    QFETCH(qsizetype, index);
    const PLWrongWriter writer = PLWrongWriters().at(index);
    const PLCrashProof proof = PLCrashProof::of(writer.operation, m_folder.path());
    QVERIFY2(proof.states > 1, qPrintable(proof.fault));
    QCOMPARE(proof.damaged > 0, writer.mayDamage);
    QCOMPARE(proof.acknowledgedButOld > 0, writer.mayBeUndone);
}

void PLCrashStatesTest::aForgottenFlushIsFound_data()
{
    QTest::addColumn<qsizetype>("index");
    const QByteArrayList names{"autosave a page that has grown", "create a chapter", "rename a chapter",
                               "set a cover for one of its kind"};
    const QList<PLNotebookOperation> operations = PLNotebookOperations();
    for (qsizetype index = 0; index < operations.size(); ++index) {
        if (names.contains(operations[index].name))
            QTest::newRow(operations[index].name) << index;
    }
}

void PLCrashStatesTest::aForgottenFlushIsFound()
{
    QFETCH(qsizetype, index);
    const PLNotebookOperation operation = PLNotebookOperations().at(index);
    const int flushes = PLCrashProof::flushesOf(operation, m_folder.path());
    QVERIFY(flushes >= 1);
    for (int flush = 0; flush < flushes; ++flush) {
        const PLCrashProof proof = PLCrashProof::of(operation, m_folder.path(), flush);
        QVERIFY2(proof.damaged + proof.acknowledgedButOld > 0, qPrintable(proof.fault));
    }
}

QTEST_GUILESS_MAIN(PLCrashStatesTest)
#include "PLCrashStatesTest.moc"
