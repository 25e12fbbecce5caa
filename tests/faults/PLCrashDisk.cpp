// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLCrashDisk.h"

#include "faults/PLCrashModel.h"

#include <QSet>

namespace {

constexpr qsizetype sector = PLCrashModel::sectorSize;
constexpr int rootNode = 0;

void apply(const PLDataStep &step, QByteArray &bytes)
{
    if (step.isTruncation) {
        bytes.resize(step.offset, '\0');
        return;
    }
    const qsizetype end = step.offset + step.bytes.size();
    if (bytes.size() < end)
        bytes.resize(end, '\0');
    bytes.replace(step.offset, step.bytes.size(), step.bytes);
}

void apply(const PLNames &change, PLNames &names)
{
    for (const auto &[place, node] : change) {
        if (node < 0)
            names.erase(place);
        else
            names[place] = node;
    }
}

QByteArray sectorOf(const QByteArray &bytes, qsizetype index)
{
    QByteArray part = bytes.mid(index * sector, sector);
    part.resize(sector, '\0');
    return part;
}

/// The sizes and the texts of each sector that a file has had since it was flushed.
struct Versions
{
    QList<qsizetype> sizes;
    QList<QList<QByteArray>> sectors;

    void add(const QByteArray &bytes, qsizetype sizeBefore);
    void addSize(qsizetype size);
    void addSector(qsizetype index, const QByteArray &bytes);
    qsizetype count() const;
};

void Versions::addSize(qsizetype size)
{
    if (!sizes.contains(size))
        sizes.append(size);
}

void Versions::addSector(qsizetype index, const QByteArray &bytes)
{
    while (sectors.size() <= index)
        sectors.append({QByteArray(sector, '\0')}); // allocated and never written
    if (!sectors[index].contains(bytes))
        sectors[index].append(bytes);
}

void Versions::add(const QByteArray &bytes, qsizetype sizeBefore)
{
    // A file grows sector by sector, so it may have any size in between.
    for (qsizetype size = (sizeBefore / sector + 1) * sector; size < bytes.size(); size += sector)
        addSize(size);
    addSize(bytes.size());
    for (qsizetype index = 0; index * sector < bytes.size(); ++index)
        addSector(index, sectorOf(bytes, index));
}

qsizetype Versions::count() const
{
    qsizetype all = 0;
    for (const qsizetype size : sizes) {
        qsizetype contents = 1;
        for (qsizetype index = 0; index * sector < size && contents <= PLCrashModel::mostContents; ++index)
            contents *= sectors[index].size();
        all += contents;
    }
    return all;
}

/// All files of this size that can be put together from the sectors.
void addContents(const Versions &versions, qsizetype size, QSet<QByteArray> &contents)
{
    QList<QByteArray> parts{QByteArray()};
    for (qsizetype index = 0; index * sector < size; ++index) {
        QList<QByteArray> longer;
        for (const QByteArray &part : std::as_const(parts)) {
            for (const QByteArray &version : versions.sectors[index])
                longer.append(part + version.left(size - index * sector));
        }
        parts = longer;
    }
    for (const QByteArray &part : std::as_const(parts))
        contents.insert(part);
}

} // namespace

QByteArray PLDiskNode::liveBytes() const
{
    QByteArray bytes = flushed;
    for (const PLDataStep &step : steps)
        apply(step, bytes);
    return bytes;
}

QList<QByteArray> PLDiskNode::possibleBytes(qsizetype most) const
{
    if (steps.isEmpty())
        return {flushed};
    Versions versions;
    versions.add(flushed, flushed.size());
    QByteArray bytes = flushed;
    for (const PLDataStep &step : steps) {
        const qsizetype sizeBefore = bytes.size();
        apply(step, bytes);
        versions.add(bytes, sizeBefore);
    }
    if (versions.count() > most)
        return {};
    QSet<QByteArray> contents;
    for (const qsizetype size : versions.sizes)
        addContents(versions, size, contents);
    return contents.values();
}

void PLDiskNode::flush()
{
    flushed = liveBytes();
    steps.clear();
    modes = {modes.last()};
}

PLCrashDisk::PLCrashDisk(const PLDiskState &initial)
{
    addNode(true, QByteArray(), 0);
    for (const auto &[path, entry] : initial.entries())
        m_live[placeOf(path)] = addNode(entry.isFolder, entry.bytes, entry.mode);
    m_initial = m_live;
}

int PLCrashDisk::addNode(bool isFolder, const QByteArray &bytes, unsigned mode)
{
    m_nodes.append({isFolder, bytes, {}, {mode}});
    return int(m_nodes.size()) - 1;
}

int PLCrashDisk::nodeAt(const QByteArray &path) const
{
    if (path.isEmpty())
        return rootNode;
    const auto found = m_live.find(placeOf(path));
    return found == m_live.end() ? -1 : found->second;
}

std::pair<int, QByteArray> PLCrashDisk::placeOf(const QByteArray &path) const
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? std::pair(rootNode, path)
                     : std::pair(nodeAt(path.first(slash)), path.sliced(slash + 1));
}

void PLCrashDisk::changeNames(const PLNames &names)
{
    m_steps.append({names, false});
    apply(names, m_live);
}

void PLCrashDisk::flush(int node)
{
    if (!m_nodes[node].isFolder)
        return m_nodes[node].flush();
    for (PLNameStep &step : m_steps) {
        for (const auto &[place, target] : step.names)
            step.isFlushed = step.isFlushed || place.first == node;
    }
}

void PLCrashDisk::replay(const PLFileCall &call)
{
    if (call.error != 0)
        return;
    using Kind = PLFileCall::Kind;
    const int node = call.handle > 0 ? m_handles.value(call.handle, -1) : nodeAt(call.path);
    switch (call.kind) {
    case Kind::Open:
        m_handles[call.handle] = nodeAt(call.path);
        break;
    case Kind::Create:
        m_handles[call.handle] = addNode(false, QByteArray(), call.mode);
        changeNames({{placeOf(call.path), m_handles[call.handle]}});
        break;
    case Kind::MakeFolder:
        changeNames({{placeOf(call.path), addNode(true, QByteArray(), 0)}});
        break;
    case Kind::Truncate:
    case Kind::Write:
        m_nodes[node].steps.append({call.kind == Kind::Truncate, call.offset, call.bytes});
        break;
    case Kind::SetMode:
        m_nodes[node].modes.append(call.mode);
        break;
    case Kind::Flush:
        flush(node);
        break;
    case Kind::Rename:
        changeNames({{placeOf(call.path), -1}, {placeOf(call.otherPath), nodeAt(call.path)}});
        break;
    case Kind::Link:
        changeNames({{placeOf(call.otherPath), nodeAt(call.path)}});
        break;
    case Kind::Unlink:
    case Kind::RemoveFolder:
        changeNames({{placeOf(call.path), -1}});
        break;
    case Kind::Look:
    case Kind::Read:
    case Kind::Close:
    case Kind::Unknown:
        break;
    }
}

QList<qsizetype> PLCrashDisk::unflushedSteps() const
{
    QList<qsizetype> indices;
    for (qsizetype index = 0; index < m_steps.size(); ++index) {
        if (!m_steps[index].isFlushed)
            indices.append(index);
    }
    return indices;
}

PLNames PLCrashDisk::namesWith(const QList<qsizetype> &chosen) const
{
    PLNames names = m_initial;
    for (qsizetype index = 0; index < m_steps.size(); ++index) {
        if (m_steps[index].isFlushed || chosen.contains(index))
            apply(m_steps[index].names, names);
    }
    return names;
}
