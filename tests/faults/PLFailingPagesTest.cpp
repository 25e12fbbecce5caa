// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLPageUnderFaults.h"

#include <QTest>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

using Reach = PLFault::Reach;

const QList<int> errors{EIO, ENOSPC, EDQUOT, EACCES, EROFS, ENOENT, EINTR};
/// For the further roads to the same calls: a disk that is broken, and one that is not there.
const QList<int> fewErrors{EIO, ENOENT};

} // namespace

/// A page is written in, in the real window, and each file-system call of what the writer does then fails, in
/// every way a disk has, once and for good. The disk has the old text or the new one; what is not on the disk
/// is on the screen still, and marked so; the writer is told what has happened; and once the fault has gone
/// the page saves itself again.
class PLFailingPagesTest final : public QObject
{
    Q_OBJECT

public:
    /// The notebooks are built in memory where the system has such a place; there are many.
    static void initMain()
    {
        if (QFileInfo(u"/dev/shm"_s).isWritable())
            qputenv("TMPDIR", "/dev/shm");
    }

private Q_SLOTS:
    void initTestCase() { PLFileCallRecorder::setFlushing(false); }
    void everyCallMayFail_data();
    void everyCallMayFail();
    void whatIsWrongWouldBeFound();
    void thereWereEnoughFaultsToBelieveIt();

private:
    int m_injections = 0;
    int m_told = 0;
};

void PLFailingPagesTest::everyCallMayFail_data()
{
    QTest::addColumn<qsizetype>("index");
    const QList<PLPageAction> actions = PLPageActions();
    for (qsizetype index = 0; index < actions.size(); ++index)
        QTest::newRow(actions[index].name) << index;
}

void PLFailingPagesTest::everyCallMayFail()
{
    QFETCH(qsizetype, index);
    const PLPageAction action = PLPageActions().at(index);
    PLPageUnderFaults page(action);
    QVERIFY(page.isReady());
    page.perform({});
    QCOMPARE(page.complaint(), QString());
    QVERIFY(page.isDone());
    const int calls = int(page.calls().size());
    QVERIFY(calls >= 8);
    QStringList complaints;
    const auto attempt = [&](const PLFault &fault) {
        page.perform(fault);
        complaints.append(page.complaint());
        ++m_injections;
        m_told += page.isTold() ? 1 : 0;
    };
    for (int call = 0; call < calls; ++call) {
        for (const int error : action.isOneOfMany ? fewErrors : errors) {
            for (const Reach reach : {Reach::Once, Reach::SameKind})
                attempt({call, error, reach});
        }
        attempt({call, EIO, Reach::Everything});
    }
    complaints.removeAll(QString());
    const QString all =
        u"%1 faults are taken badly:\n"_s.arg(complaints.size()) + complaints.mid(0, 12).join(u'\n');
    QVERIFY2(complaints.isEmpty(), qPrintable(all));
}

/// After a save that went well, what should not be is put there by hand.
void PLFailingPagesTest::whatIsWrongWouldBeFound()
{
    const PLPageAction save = PLPageActions().first();
    const QString path = u"Livre/01 - A.md"_s;
    using Tampering = std::function<void(PLNotebookWindowFixture &)>;
    const std::pair<QString, Tampering> wrongs[] = {
        {u"neither old nor new"_s, [&](auto &window) { window.notebook.write(path, u"---\ntags: ba"_s); }},
        {u"strays"_s, [&](auto &window) { window.notebook.write(u"Livre/.aquilane-01234567.tmp"_s, u""_s); }},
        {u"strays"_s, [&](auto &window) { window.notebook.write(u"Livre/01 - A 2.md"_s, u""_s); }},
        {u"0 times"_s, [&](auto &window) { QFile::remove(window.notebook.path(path)); }},
        {u"not marked so"_s,
         [&](auto &window) { window.notebook.write(path, u"---\ntags: bal\n---\n\nun"_s); }},
        {u"on the screen"_s, [&](auto &window) { window.editor()->textView()->undo(); }},
        {u"the text is gone"_s,
         [&](auto &window) {
             window.notebook.write(path, u"---\ntags: bal\n---\n\nun"_s);
             window.session().closeItem();
         }},
        {u"not told"_s, [&](auto &window) { window.session().contentDidChange(); }},
    };
    for (const auto &[complaint, tamper] : wrongs) {
        PLPageUnderFaults page(save);
        page.perform({});
        tamper(page.window());
        const QString said = page.complaint();
        QVERIFY2(said.contains(complaint), qPrintable(said));
    }
}

void PLFailingPagesTest::thereWereEnoughFaultsToBelieveIt()
{
    qInfo("%d faults injected, the writer told of %d", m_injections, m_told);
    QVERIFY(m_injections >= 1'200);
    QVERIFY(m_told > m_injections / 4);
}

QTEST_MAIN(PLFailingPagesTest)
#include "PLFailingPagesTest.moc"
