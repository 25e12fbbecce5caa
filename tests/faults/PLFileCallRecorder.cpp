// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLFileCallRecorder.h"

#include "faults/PLInterposed.h"

#include <QHash>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct OpenFile
{
    QByteArray path;
    int handle = 0;
};

/// What is recorded. Made at the first start: calls come before this module has been set up, too.
struct Record
{
    QByteArray folder;
    PLFault fault;
    PLRecording calls;
    QHash<int, OpenFile> files;
    int handles = 0;
};

Record *record = nullptr;
bool isSkippingFlushes = false;
thread_local bool isRecording = false;

bool strikes(const PLFileCall &call)
{
    const PLFault &fault = record->fault;
    const qsizetype index = record->calls.size();
    if (fault.call < 0 || index < fault.call)
        return false;
    if (index == fault.call || fault.reach == PLFault::Reach::Everything)
        return true;
    return fault.reach == PLFault::Reach::SameKind && record->calls[fault.call].kind == call.kind;
}

} // namespace

void PLFileCallRecorder::start(const QByteArray &folder, const PLFault &fault)
{
    if (!record)
        record = new Record;
    *record = {folder, fault, {}, {}, 0};
    isRecording = true;
}

PLRecording PLFileCallRecorder::stop()
{
    isRecording = false;
    return record ? record->calls : PLRecording();
}

int PLFileCallRecorder::openFiles()
{
    return record ? int(record->files.size()) : 0;
}

void PLFileCallRecorder::setFlushing(bool isFlushing)
{
    isSkippingFlushes = !isFlushing;
}

bool PLFileCallRecorder::isFlushing()
{
    return !isSkippingFlushes;
}

std::optional<QByteArray> PLInterposed::pathBelow(int folder, const char *path)
{
    if (!isRecording || !path)
        return std::nullopt;
    if (*path != '/') {
        const auto file = record->files.constFind(folder);
        if (file == record->files.constEnd())
            return std::nullopt;
        if (!*path)
            return file->path;
        return file->path.isEmpty() ? QByteArray(path) : file->path + '/' + path;
    }
    QByteArray whole(path);
    while (whole.size() > 1 && whole.endsWith('/'))
        whole.chop(1);
    if (whole == record->folder)
        return QByteArray("");
    return whole.startsWith(record->folder + '/') ? std::optional(whole.sliced(record->folder.size() + 1))
                                                  : std::nullopt;
}

std::optional<PLFileCall> PLInterposed::callOnFile(int number, PLFileCall::Kind kind)
{
    if (!isRecording)
        return std::nullopt;
    const auto file = record->files.constFind(number);
    if (file == record->files.constEnd())
        return std::nullopt;
    PLFileCall call;
    call.kind = kind;
    call.path = file->path;
    call.handle = file->handle;
    return call;
}

int PLInterposed::errorFor(const PLFileCall &call)
{
    return strikes(call) ? record->fault.error : 0;
}

size_t PLInterposed::bytesTaken(const PLFileCall &call, size_t wanted)
{
    const auto most = size_t(record->fault.writtenBytes);
    return strikes(call) && record->fault.error == 0 && most > 0 ? qMin(most, wanted) : wanted;
}

void PLInterposed::note(const PLFileCall &call)
{
    record->calls.append(call);
}

void PLInterposed::noteOpened(PLFileCall call, int number)
{
    call.handle = ++record->handles;
    record->files.insert(number, {call.path, call.handle});
    note(call);
}

void PLInterposed::forget(int number)
{
    record->files.remove(number);
}
