// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLCrashModel.h"

#include <QSet>
#include <QTest>

namespace {

using Kind = PLFileCall::Kind;

constexpr qsizetype sector = PLCrashModel::sectorSize;

PLFileCall call(Kind kind, const QByteArray &path, const QByteArray &otherPath = QByteArray())
{
    PLFileCall made;
    made.kind = kind;
    made.path = path;
    made.otherPath = otherPath;
    made.mode = 0644;
    return made;
}

PLFileCall onHandle(Kind kind, int handle, const QByteArray &bytes = QByteArray())
{
    PLFileCall made = call(kind, QByteArray());
    made.handle = handle;
    made.bytes = bytes;
    return made;
}

PLFileCall opened(Kind kind, const QByteArray &path, int handle)
{
    PLFileCall made = call(kind, path);
    made.handle = handle;
    return made;
}

/// What a test asks of a state: the files, as "name=bytes", by their first bytes and lengths.
QByteArray summary(const PLDiskState &state)
{
    QByteArrayList files;
    for (const auto &[path, entry] : state.entries()) {
        QByteArray sectors;
        for (qsizetype offset = 0; offset < entry.bytes.size(); offset += sector) {
            const char first = entry.bytes[offset];
            sectors += first == '\0' ? '0' : first;
        }
        files.append(path + '=' + (entry.isFolder ? QByteArray("/") : sectors));
    }
    return files.join(' ');
}

QSet<QByteArray> statesAfter(const PLDiskState &initial, const PLRecording &calls)
{
    QSet<QByteArray> states;
    const bool isComplete =
        PLCrashModel(initial, calls).visitCrashStates(calls.size(), [&](const PLDiskState &state) {
            states.insert(summary(state));
        });
    return isComplete ? states : QSet<QByteArray>{"too many"};
}

QByteArray sectors(const char *letters)
{
    QByteArray bytes;
    for (const char *letter = letters; *letter; ++letter)
        bytes += QByteArray(sector, *letter);
    return bytes;
}

} // namespace

/// What the model takes for possible after a power cut, on recordings small enough to be counted by hand.
class PLCrashModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anUnflushedTextMayBeLostByTheSector();
    void aFlushedTextIsSafe();
    void anOverwrittenTextMayBeAnyMixture();
    void aTruncationMayComeAlone();
    void aNewNameMayBeLostUntilItsFolderIsFlushed();
    void namesMayBeLostIndependently();
    void aRenameIsWholeOrNotAtAll();
    void aFlushedRenameOfAnUnflushedTextLeavesAnEmptyFile();
    void flushingOneOfTwoFoldersSavesTheMoveBetweenThem();
    void aFileOfALostFolderIsLost();
    void aModeMayBeLost();
    void failedCallsChangeNothing();
    void tooManyStatesAreRefused();
    void aCallThatIsNotKnownIsToldOf();
    void theLiveStateIsThatOfAllCalls();
};

void PLCrashModelTest::anUnflushedTextMayBeLostByTheSector()
{
    const auto states = statesAfter(PLDiskState().addFile("a", ""),
                                    {opened(Kind::Open, "a", 1), onHandle(Kind::Write, 1, sectors("xy"))});
    QCOMPARE(states, (QSet<QByteArray>{"a=", "a=0", "a=x", "a=00", "a=x0", "a=0y", "a=xy"}));
}

void PLCrashModelTest::aFlushedTextIsSafe()
{
    const auto states = statesAfter(
        PLDiskState().addFile("a", ""),
        {opened(Kind::Open, "a", 1), onHandle(Kind::Write, 1, sectors("xy")), onHandle(Kind::Flush, 1)});
    QCOMPARE(states, QSet<QByteArray>{"a=xy"});
}

void PLCrashModelTest::anOverwrittenTextMayBeAnyMixture()
{
    const auto states = statesAfter(PLDiskState().addFile("a", sectors("ab")),
                                    {opened(Kind::Open, "a", 1), onHandle(Kind::Write, 1, sectors("xy"))});
    for (const char *state : {"a=ab", "a=xb", "a=ay", "a=xy"})
        QVERIFY2(states.contains(state), state);
}

void PLCrashModelTest::aTruncationMayComeAlone()
{
    const auto states = statesAfter(
        PLDiskState().addFile("a", sectors("a")),
        {opened(Kind::Open, "a", 1), onHandle(Kind::Truncate, 1), onHandle(Kind::Write, 1, sectors("x"))});
    for (const char *state : {"a=a", "a=", "a=0", "a=x"})
        QVERIFY2(states.contains(state), state);
}

void PLCrashModelTest::aNewNameMayBeLostUntilItsFolderIsFlushed()
{
    PLRecording calls{opened(Kind::Create, "a", 1), onHandle(Kind::Write, 1, sectors("x")),
                      onHandle(Kind::Flush, 1)};
    QCOMPARE(statesAfter({}, calls), (QSet<QByteArray>{"", "a=x"}));
    calls << opened(Kind::Open, "", 2) << onHandle(Kind::Flush, 2);
    QCOMPARE(statesAfter({}, calls), QSet<QByteArray>{"a=x"});
}

void PLCrashModelTest::namesMayBeLostIndependently()
{
    const PLDiskState initial = PLDiskState().addFile("a", sectors("a")).addFile("b", sectors("b"));
    QCOMPARE(statesAfter(initial, {call(Kind::Unlink, "a"), call(Kind::Unlink, "b")}),
             (QSet<QByteArray>{"a=a b=b", "a=a", "b=b", ""}));
    QCOMPARE(statesAfter(initial, {call(Kind::Link, "a", "c"), call(Kind::Unlink, "a")}),
             (QSet<QByteArray>{"a=a b=b", "a=a b=b c=a", "b=b", "b=b c=a"}));
}

void PLCrashModelTest::aRenameIsWholeOrNotAtAll()
{
    const PLDiskState initial = PLDiskState().addFile("a", sectors("a")).addFile("b", sectors("b"));
    QCOMPARE(statesAfter(initial, {call(Kind::Rename, "a", "b")}), (QSet<QByteArray>{"a=a b=b", "b=a"}));
}

void PLCrashModelTest::aFlushedRenameOfAnUnflushedTextLeavesAnEmptyFile()
{
    const auto states =
        statesAfter(PLDiskState().addFile("a", sectors("a")),
                    {opened(Kind::Create, "t", 1), onHandle(Kind::Write, 1, sectors("x")),
                     call(Kind::Rename, "t", "a"), opened(Kind::Open, "", 2), onHandle(Kind::Flush, 2)});
    QCOMPARE(states, (QSet<QByteArray>{"a=", "a=0", "a=x"}));
}

void PLCrashModelTest::flushingOneOfTwoFoldersSavesTheMoveBetweenThem()
{
    const PLDiskState initial = PLDiskState().addFolder("f").addFile("a", sectors("a"));
    const PLRecording calls{call(Kind::Rename, "a", "f/a"), opened(Kind::Open, "f", 1),
                            onHandle(Kind::Flush, 1)};
    QCOMPARE(statesAfter(initial, calls.first(1)), (QSet<QByteArray>{"a=a f=/", "f=/ f/a=a"}));
    QCOMPARE(statesAfter(initial, calls), QSet<QByteArray>{"f=/ f/a=a"});
}

void PLCrashModelTest::aFileOfALostFolderIsLost()
{
    const auto states = statesAfter({}, {call(Kind::MakeFolder, "f"), opened(Kind::Create, "f/a", 1),
                                         opened(Kind::Open, "f", 2), onHandle(Kind::Flush, 2)});
    QCOMPARE(states, (QSet<QByteArray>{"", "f=/ f/a="}));
}

void PLCrashModelTest::aModeMayBeLost()
{
    PLFileCall mode = onHandle(Kind::SetMode, 1);
    mode.mode = 0600;
    const PLRecording calls{opened(Kind::Open, "a", 1), mode, onHandle(Kind::Flush, 1)};
    const auto modesAfter = [&calls](qsizetype count) {
        QSet<unsigned> modes;
        const PLCrashModel model(PLDiskState().addFile("a", "", 0640), calls);
        (void)model.visitCrashStates(
            count, [&](const PLDiskState &state) { modes.insert(state.entries().at("a").mode); });
        return modes;
    };
    QCOMPARE(modesAfter(2), (QSet<unsigned>{0640, 0600}));
    QCOMPARE(modesAfter(3), QSet<unsigned>{0600});
}

void PLCrashModelTest::failedCallsChangeNothing()
{
    PLFileCall failed = call(Kind::Unlink, "a");
    failed.error = 5;
    QCOMPARE(statesAfter(PLDiskState().addFile("a", sectors("a")), {failed}), QSet<QByteArray>{"a=a"});
}

void PLCrashModelTest::tooManyStatesAreRefused()
{
    PLRecording names;
    for (int count = 0; count <= PLCrashModel::mostUnflushedNames; ++count)
        names << call(Kind::MakeFolder, QByteArray::number(count));
    QCOMPARE(statesAfter({}, names), QSet<QByteArray>{"too many"});
    const PLRecording text{opened(Kind::Open, "a", 1),
                           onHandle(Kind::Write, 1, QByteArray(20 * sector, 'x'))};
    QCOMPARE(statesAfter(PLDiskState().addFile("a", ""), text), QSet<QByteArray>{"too many"});
}

void PLCrashModelTest::aCallThatIsNotKnownIsToldOf()
{
    QVERIFY(PLCrashModel({}, {call(Kind::MakeFolder, "f")}).isUnderstood());
    QVERIFY(!PLCrashModel({}, {call(Kind::Unknown, "f")}).isUnderstood());
}

void PLCrashModelTest::theLiveStateIsThatOfAllCalls()
{
    const PLRecording calls{opened(Kind::Create, "t", 1), onHandle(Kind::Write, 1, sectors("x")),
                            call(Kind::Rename, "t", "a")};
    const PLCrashModel model(PLDiskState().addFile("a", sectors("a")), calls);
    QCOMPARE(summary(model.liveState(0)), "a=a");
    QCOMPARE(summary(model.liveState(2)), "a=a t=x");
    QCOMPARE(summary(model.liveState(3)), "a=x");
}

QTEST_GUILESS_MAIN(PLCrashModelTest)
#include "PLCrashModelTest.moc"
