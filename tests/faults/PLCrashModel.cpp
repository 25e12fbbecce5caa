// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLCrashModel.h"

#include "faults/PLCrashDisk.h"

#include <algorithm>

namespace {

constexpr int rootNode = 0;

/// What one node may be after the power cut.
struct Choice
{
    int node = 0;
    QList<PLDiskEntry> entries;
};

PLCrashDisk diskAfter(const PLDiskState &initial, const PLRecording &recording, qsizetype calls)
{
    PLCrashDisk disk(initial);
    for (qsizetype index = 0; index < calls; ++index)
        disk.replay(recording[index]);
    return disk;
}

/// The paths under which nodes can be reached.
using Paths = std::map<QByteArray, int>;

void addPaths(const PLNames &names, int folder, const QByteArray &prefix, Paths &paths)
{
    const auto first = names.lower_bound({folder, QByteArray()});
    for (auto name = first; name != names.end() && name->first.first == folder; ++name) {
        const QByteArray path = prefix + name->first.second;
        paths[path] = name->second;
        addPaths(names, name->second, path + '/', paths);
    }
}

Choice choiceOf(int index, const PLDiskNode &node)
{
    Choice choice{index, {}};
    if (node.isFolder) {
        choice.entries.append({true, 0, QByteArray()});
        return choice;
    }
    const QList<QByteArray> contents = node.possibleBytes(PLCrashModel::mostContents);
    for (const QByteArray &bytes : contents) {
        for (const unsigned mode : node.modes)
            choice.entries.append({false, mode, bytes});
    }
    return choice;
}

/// One choice for each node that has a name; empty if one has too many.
QList<Choice> choicesFor(const Paths &paths, const QList<PLDiskNode> &nodes)
{
    QList<Choice> choices;
    QList<int> met;
    for (const auto &[path, node] : paths) {
        if (met.contains(node))
            continue;
        met.append(node);
        choices.append(choiceOf(node, nodes[node]));
        if (choices.last().entries.isEmpty())
            return {};
    }
    return choices;
}

/// Goes to the next combination; false after the last.
bool advance(QList<qsizetype> &picks, const QList<Choice> &choices)
{
    for (qsizetype index = 0; index < picks.size(); ++index) {
        if (++picks[index] < choices[index].entries.size())
            return true;
        picks[index] = 0;
    }
    return false;
}

bool visitContents(const Paths &paths, const QList<PLDiskNode> &nodes, const PLCrashModel::Visitor &visit)
{
    const QList<Choice> choices = choicesFor(paths, nodes);
    if (choices.isEmpty() && !paths.empty())
        return false;
    QList<qsizetype> picks(choices.size(), 0);
    do {
        std::map<int, PLDiskEntry> picked;
        for (qsizetype index = 0; index < choices.size(); ++index)
            picked[choices[index].node] = choices[index].entries[picks[index]];
        PLDiskState state;
        for (const auto &[path, node] : paths) {
            const PLDiskEntry &entry = picked[node];
            if (entry.isFolder)
                state.addFolder(path);
            else
                state.addFile(path, entry.bytes, entry.mode);
        }
        visit(state);
    } while (advance(picks, choices));
    return true;
}

} // namespace

bool PLCrashModel::isUnderstood() const
{
    return std::none_of(m_recording.begin(), m_recording.end(), [](const PLFileCall &call) {
        return call.kind == PLFileCall::Kind::Unknown && call.error == 0;
    });
}

PLDiskState PLCrashModel::liveState(qsizetype calls) const
{
    const PLCrashDisk disk = diskAfter(m_initial, m_recording, calls);
    Paths paths;
    addPaths(disk.liveNames(), rootNode, QByteArray(), paths);
    PLDiskState state;
    for (const auto &[path, index] : paths) {
        const PLDiskNode &node = disk.nodes()[index];
        if (node.isFolder)
            state.addFolder(path);
        else
            state.addFile(path, node.liveBytes(), node.modes.last());
    }
    return state;
}

bool PLCrashModel::visitCrashStates(qsizetype calls, const Visitor &visit) const
{
    const PLCrashDisk disk = diskAfter(m_initial, m_recording, calls);
    const QList<qsizetype> unflushed = disk.unflushedSteps();
    if (unflushed.size() > mostUnflushedNames)
        return false;
    for (unsigned lost = 0; lost < 1U << unflushed.size(); ++lost) {
        QList<qsizetype> chosen;
        for (qsizetype index = 0; index < unflushed.size(); ++index) {
            if (!(lost >> index & 1U))
                chosen.append(unflushed[index]);
        }
        Paths paths;
        addPaths(disk.namesWith(chosen), rootNode, QByteArray(), paths);
        if (!visitContents(paths, disk.nodes(), visit))
            return false;
    }
    return true;
}
