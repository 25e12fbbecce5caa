// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLFaultsFolder.h"
#include "faults/PLFileCallRecorder.h"
#include "faults/PLNotebookOperations.h"
#include "support/PLTestEnvironment.h"

#include <QTest>

#include <algorithm>
#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

using Kind = PLFileCall::Kind;
using Reach = PLFault::Reach;

constexpr int errors[] = {EIO, ENOSPC, EDQUOT, EACCES, EROFS, ENOENT, EINTR};

const char *const kindNames[] = {"look",  "read",   "open",        "create",        "truncate",
                                 "write", "mode",   "flush",       "close",         "rename",
                                 "link",  "unlink", "make folder", "remove folder", "unknown"};

/// What one attempt with a fault came to.
struct Attempt
{
    bool isDone = false;
    PLError error;
    PLRecording calls;
    int filesLeftOpen = 0;
};

/// Some errors are answers: what is not there need not be deleted, and can be created. And a folder that
/// cannot be listed is shown as empty, so that a new chapter there takes the first number.
bool isAnswer(const PLFileCall &call, const PLFault &fault)
{
    const bool isListing = call.kind == Kind::Read && call.handle == 0;
    return isListing || (fault.error == ENOENT && (call.kind == Kind::Look || call.kind == Kind::Unlink));
}

/// A step without which the operation is not done; when it fails, nobody may say that it is.
bool isEssential(const PLFileCall &call)
{
    return call.kind == Kind::Create || call.kind == Kind::Write || call.kind == Kind::Flush ||
           call.kind == Kind::Rename;
}

QString nameOf(const PLFileCall &call, const PLFault &fault)
{
    const char *const reaches[] = {"once", "for good", "with everything after it"};
    return u"%1 of “%2”, call %3: %4, %5"_s
        .arg(QString::fromLatin1(kindNames[int(call.kind)]), QString::fromUtf8(call.path))
        .arg(fault.call)
        .arg(QString::fromLocal8Bit(fault.error != 0 ? std::strerror(fault.error) : "short write"),
             QString::fromLatin1(reaches[int(fault.reach)]));
}

} // namespace

/// Each file-system call of each operation fails, in every way a disk has, once and for good. What is on the
/// disk is what was before or what was to be; a failure is told; and once the fault has gone the writer's
/// next try succeeds.
class PLFailingCallsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCallMayFail_data();
    void everyCallMayFail();
    void everyWriteMayBeShort_data();
    void everyWriteMayBeShort();
    void thereWereEnoughFaultsToBelieveIt();

private:
    Attempt attempt(const PLNotebookOperation &operation, const PLFault &fault);
    void lookAtBothEnds(const PLNotebookOperation &operation);
    QString complaint(const PLNotebookOperation &operation, const PLFault &fault);
    QString complaintOfAnswer(const PLNotebookOperation &operation, const Attempt &made,
                              const PLFault &fault) const;
    QString complaintOfView(const PLNotebookOperation &operation, const Attempt &made, const PLFault &fault);
    QString complaintOfNextTry(const PLNotebookOperation &operation, const PLFault &fault);
    bool losesNothing(const PLNotebookView &view) const;

    PLTestEnvironment m_environment;
    PLFaultsFolder m_folder;
    PLNotebookView m_before;
    PLNotebookView m_after;
    PLNotebookOperation::Action m_action;
    int m_injections = 0;
    int m_reported = 0;
};

Attempt PLFailingCallsTest::attempt(const PLNotebookOperation &operation, const PLFault &fault)
{
    Attempt made;
    if (!operation.before.build(m_folder.path()))
        return made;
    m_action = operation.prepare(m_folder.path());
    PLFileCallRecorder::start(QFile::encodeName(m_folder.path()), fault);
    made.isDone = m_action(&made.error);
    made.calls = PLFileCallRecorder::stop();
    made.filesLeftOpen = PLFileCallRecorder::openFiles();
    return made;
}

void PLFailingCallsTest::lookAtBothEnds(const PLNotebookOperation &operation)
{
    QVERIFY(operation.before.build(m_folder.path()));
    m_before = PLNotebookView::open(m_folder.path());
    const Attempt made = attempt(operation, {});
    QVERIFY2(made.isDone, qPrintable(made.error.message));
    m_after = PLNotebookView::open(m_folder.path());
}

/// Each text that was there is there still, if only in the trash, or is what was to be.
bool PLFailingCallsTest::losesNothing(const PLNotebookView &view) const
{
    if (m_before.isNotebook && view.notes != m_before.notes && view.notes != m_after.notes)
        return false;
    return std::all_of(m_before.pages.begin(), m_before.pages.end(), [&](const auto &old) {
        const QByteArray bytes = old.second.text.toUtf8();
        const auto after = m_after.pages.find(old.first);
        const auto isKept = [&](const auto &page) {
            const bool isNew = after != m_after.pages.end() && page.first == after->first &&
                               page.second.text == after->second.text;
            return isNew || page.second.text == old.second.text;
        };
        return std::any_of(view.pages.begin(), view.pages.end(), isKept) ||
               std::any_of(view.trashed.begin(), view.trashed.end(),
                           [&](const auto &file) { return file.second.endsWith(bytes); });
    });
}

QString PLFailingCallsTest::complaintOfAnswer(const PLNotebookOperation &operation, const Attempt &made,
                                              const PLFault &fault) const
{
    const bool isInterruption = fault.error == EINTR;
    if (made.filesLeftOpen != 0)
        return u"files are left open"_s;
    if (!made.isDone && made.error.message.isEmpty())
        return u"a failure without a reason"_s;
    if (!made.isDone && isInterruption && fault.reach == Reach::Once)
        return u"an interrupted call was not made again"_s;
    // With the whole disk gone a name cannot be taken back either; the answer is then where the file is.
    const bool mustTell = isEssential(made.calls[fault.call]) && fault.reach != Reach::Everything;
    if (made.isDone && !isInterruption && mustTell && !operation.isPartlySilent)
        return u"a failure that was not told"_s;
    return QString();
}

QString PLFailingCallsTest::complaintOfView(const PLNotebookOperation &operation, const Attempt &made,
                                            const PLFault &fault)
{
    const PLNotebookView view = PLNotebookView::open(m_folder.path());
    if (isAnswer(made.calls[fault.call], fault))
        return losesNothing(view) ? QString() : u"lost: "_s + view.description();
    const bool isBetween =
        operation.mayBeSeen && operation.mayBeSeen(view) && (view.isNotebook || !made.isDone);
    const bool isSound = view == m_after || isBetween || (!made.isDone && view == m_before);
    return isSound ? QString() : u"neither old nor new: "_s + view.description();
}

QString PLFailingCallsTest::complaintOfNextTry(const PLNotebookOperation &operation, const PLFault &fault)
{
    PLError error;
    if (!m_action(&error))
        return u"the next try fails: "_s + error.message;
    const PLNotebookView view = PLNotebookView::open(m_folder.path());
    const bool isBetween = operation.mayBeSeen && operation.mayBeSeen(view);
    // What could not be taken back on a disk that had gone may be there twice.
    const bool isKept = fault.reach == Reach::Everything && losesNothing(view);
    return view == m_after || isBetween || isKept ? QString()
                                                  : u"after the next try: "_s + view.description();
}

/// What is wrong with the way this fault was taken, if anything.
QString PLFailingCallsTest::complaint(const PLNotebookOperation &operation, const PLFault &fault)
{
    const Attempt made = attempt(operation, fault);
    if (made.calls.size() <= fault.call)
        return u"the fault has not struck"_s;
    ++m_injections;
    m_reported += made.isDone ? 0 : 1;
    const PLDiskState left = PLDiskState::read(m_folder.path());
    QString reason = complaintOfAnswer(operation, made, fault);
    if (reason.isEmpty())
        reason = complaintOfView(operation, made, fault);
    // The program has gone on, without opening the notebook again.
    if (reason.isEmpty() && !made.isDone)
        reason = left.build(m_folder.path()) ? complaintOfNextTry(operation, fault) : u"not built"_s;
    return reason.isEmpty() ? reason : nameOf(made.calls.value(fault.call), fault) + u"\n    "_s + reason;
}

void PLFailingCallsTest::everyCallMayFail_data()
{
    QTest::addColumn<qsizetype>("index");
    const QList<PLNotebookOperation> operations = PLNotebookOperations();
    for (qsizetype index = 0; index < operations.size(); ++index)
        QTest::newRow(operations[index].name) << index;
}

void PLFailingCallsTest::everyCallMayFail()
{
    QFETCH(qsizetype, index);
    const PLNotebookOperation operation = PLNotebookOperations().at(index);
    lookAtBothEnds(operation);
    const int calls = int(attempt(operation, {}).calls.size());
    QVERIFY(calls >= 8);
    QStringList complaints;
    for (int call = 0; call < calls; ++call) {
        for (const int error : errors) {
            for (const Reach reach : {Reach::Once, Reach::SameKind})
                complaints << complaint(operation, {call, error, reach});
        }
        complaints << complaint(operation, {call, EIO, Reach::Everything});
    }
    complaints.removeAll(QString());
    const QString all =
        u"%1 faults are taken badly:\n"_s.arg(complaints.size()) + complaints.mid(0, 12).join(u'\n');
    QVERIFY2(complaints.isEmpty(), qPrintable(all));
}

void PLFailingCallsTest::everyWriteMayBeShort_data()
{
    everyCallMayFail_data();
}

void PLFailingCallsTest::everyWriteMayBeShort()
{
    QFETCH(qsizetype, index);
    const PLNotebookOperation operation = PLNotebookOperations().at(index);
    lookAtBothEnds(operation);
    const PLRecording calls = attempt(operation, {}).calls;
    for (int call = 0; call < calls.size(); ++call) {
        if (calls[call].kind != Kind::Write)
            continue;
        for (const qsizetype bytes : {1, 7, 512, 4'096}) {
            for (const Reach reach : {Reach::Once, Reach::SameKind}) {
                const Attempt made = attempt(operation, {call, 0, reach, bytes});
                QVERIFY2(made.isDone, qPrintable(made.error.message));
                QVERIFY(PLNotebookView::open(m_folder.path()) == m_after);
                ++m_injections;
            }
        }
    }
}

void PLFailingCallsTest::thereWereEnoughFaultsToBelieveIt()
{
    qInfo("%d faults injected, %d operations told of one", m_injections, m_reported);
    QVERIFY(m_injections >= 1'200);
    QVERIFY(m_reported > m_injections / 4);
}

QTEST_GUILESS_MAIN(PLFailingCallsTest)
#include "PLFailingCallsTest.moc"
