// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLCrashProof.h"

#include "faults/PLCrashModel.h"
#include "faults/PLFileCallRecorder.h"

#include <QFile>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

bool changesTheDisk(const PLFileCall &call)
{
    using Kind = PLFileCall::Kind;
    return call.error == 0 && call.kind != Kind::Look && call.kind != Kind::Read && call.kind != Kind::Open &&
           call.kind != Kind::Close;
}

class Examination final
{
public:
    Examination(const PLNotebookOperation &operation, const QString &folder)
        : m_operation(operation), m_folder(folder)
    {
    }

    PLCrashProof run(int forgottenFlush);
    bool record();
    QList<qsizetype> flushes() const;

private:
    void lookAtBothEnds();
    void examineAfter(qsizetype calls);
    void examine(const PLDiskState &state, bool isAcknowledged);
    bool isSound(const PLNotebookView &view);
    void blame(qint64 &count, const QString &reason, const PLNotebookView &view);

    const PLNotebookOperation &m_operation;
    QString m_folder;
    PLDiskState m_initial;
    PLDiskState m_final;       ///< as the operation left it
    PLDiskState m_finalOpened; ///< and after the next opening
    PLRecording m_calls;
    PLNotebookView m_before;
    PLNotebookView m_after;
    PLDiskState m_present; ///< what is in the folder now
    QSet<QByteArray> m_seen;
    qsizetype m_callsDone = 0;
    PLCrashProof m_proof;
};

bool Examination::record()
{
    if (!m_operation.before.build(m_folder))
        return false;
    const PLNotebookOperation::Action act = m_operation.prepare(m_folder);
    m_initial = PLDiskState::read(m_folder);
    PLError error;
    PLFileCallRecorder::start(QFile::encodeName(m_folder));
    const bool isDone = act(&error);
    m_calls = PLFileCallRecorder::stop();
    m_final = PLDiskState::read(m_folder);
    const PLCrashModel model(m_initial, m_calls);
    if (!isDone)
        m_proof.fault = u"the operation failed: "_s + error.message;
    else if (!model.isUnderstood())
        m_proof.fault = u"it makes a call that the model does not know"_s;
    else if (model.liveState(m_calls.size()) != m_final)
        m_proof.fault = u"the recording does not lead to what is on the disk"_s;
    return m_proof.fault.isEmpty();
}

void Examination::lookAtBothEnds()
{
    if (m_initial.build(m_folder))
        m_before = PLNotebookView::open(m_folder);
    if (m_final.build(m_folder))
        m_after = PLNotebookView::open(m_folder);
    m_finalOpened = m_present = PLDiskState::read(m_folder);
}

void Examination::blame(qint64 &count, const QString &reason, const PLNotebookView &view)
{
    if (++count == 1 && m_proof.fault.isEmpty())
        m_proof.fault = u"%1 after %2 of %3 calls: %4\nbefore: %5\nafter: %6"_s.arg(reason)
                            .arg(m_callsDone)
                            .arg(m_calls.size())
                            .arg(view.description(), m_before.description(), m_after.description());
}

bool Examination::isSound(const PLNotebookView &view)
{
    if (view == m_after)
        return true;
    if (!m_operation.mayBeSeen || !m_operation.mayBeSeen(view))
        return view == m_before;
    if (view.isNotebook)
        return true;
    // Half a notebook is none, and the writer can ask for it again.
    return m_operation.prepare(m_folder)(nullptr) && PLNotebookView::open(m_folder, &m_present) == m_after;
}

void Examination::examine(const PLDiskState &state, bool isAcknowledged)
{
    const qsizetype seen = m_seen.size();
    m_seen.insert(state.fingerprint());
    if (m_seen.size() == seen && !isAcknowledged)
        return;
    m_proof.states += m_seen.size() - seen;
    if (!state.build(m_folder, m_present)) {
        m_proof.fault = u"a state could not be built"_s;
        return;
    }
    const PLNotebookView view = PLNotebookView::open(m_folder, &m_present);
    if (isAcknowledged && (view != m_after || m_present != m_finalOpened))
        blame(m_proof.acknowledgedButOld, u"acknowledged but old"_s, view);
    if (!isSound(view))
        blame(m_proof.damaged, u"damaged"_s, view);
}

void Examination::examineAfter(qsizetype calls)
{
    m_callsDone = calls;
    const bool isAcknowledged = calls == m_calls.size();
    if (calls > 0 && !isAcknowledged && !changesTheDisk(m_calls[calls - 1]))
        return; // as before that call
    const PLCrashModel model(m_initial, m_calls);
    const bool isComplete =
        model.visitCrashStates(calls, [&](const PLDiskState &state) { examine(state, isAcknowledged); });
    if (!isComplete)
        m_proof.fault = u"more states than can be visited"_s;
}

QList<qsizetype> Examination::flushes() const
{
    QList<qsizetype> indices;
    for (qsizetype index = 0; index < m_calls.size(); ++index) {
        if (m_calls[index].kind == PLFileCall::Kind::Flush)
            indices.append(index);
    }
    return indices;
}

PLCrashProof Examination::run(int forgottenFlush)
{
    if (!record())
        return m_proof;
    if (forgottenFlush >= 0)
        m_calls.removeAt(flushes().at(forgottenFlush));
    // Nothing below this asks what a power cut would leave; the disk need not be waited for.
    PLFileCallRecorder::setFlushing(false);
    lookAtBothEnds();
    for (qsizetype calls = 0; calls <= m_calls.size(); ++calls)
        examineAfter(calls);
    PLFileCallRecorder::setFlushing(true);
    return m_proof;
}

} // namespace

PLCrashProof PLCrashProof::of(const PLNotebookOperation &operation, const QString &folder, int forgottenFlush)
{
    return Examination(operation, folder).run(forgottenFlush);
}

int PLCrashProof::flushesOf(const PLNotebookOperation &operation, const QString &folder)
{
    Examination examination(operation, folder);
    return examination.record() ? int(examination.flushes().size()) : 0;
}
