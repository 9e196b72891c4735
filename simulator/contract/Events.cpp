// The service's progress events, fired from scenario entries such as
// {"event": "ProgressMessage", "subject": "E:\\", "code": 3}.
#include "simulator/Events.h"

#include "simulator/CallLog.h"
#include "simulator/Records.h"
#include "simulator/Text.h"

#include "Corvane.h"

#include <string>

namespace sim {

namespace {

struct ProgressArgs {
    unsigned long reserved;
    wchar_t *subject;
    unsigned long code;
};

void ReadProgress(Reader &r, ProgressArgs &a) {
    r.Field("reserved", a.reserved);
    r.Field("subject", a.subject);
    r.Field("code", a.code);
}

struct ReadyArgs {
    unsigned long reserved1;
    unsigned long reserved2;
    wchar_t *name;
};

void ReadReady(Reader &r, ReadyArgs &a) {
    r.Field("reserved1", a.reserved1);
    r.Field("reserved2", a.reserved2);
    r.Field("name", a.name);
}

struct MirrorArgs {
    wchar_t *name;
    wchar_t *drive;
    wchar_t *text;
    MirrorProgress progress;
};

void ReadMirror(Reader &r, MirrorArgs &a) {
    r.Field("name", a.name);
    r.Field("drive", a.drive);
    r.Field("text", a.text);
    r.Field("transferred", a.progress.transferred);
    r.Field("reserved", a.progress.reserved);
    r.Field("countValid", a.progress.countValid);
    r.Field("mirrorState", a.progress.mirrorState);
}

template <typename Args> DataCheck EventCheck(void (*read)(Reader &, Args &)) {
    return [read](const Json &data, const std::string &path) {
        Allocator memory;
        Reader reader(data, path, memory);
        Args args{};
        read(reader, args);
        reader.Done();
    };
}

template <typename Args> Args Build(void (*read)(Reader &, Args &), const Json &event, Allocator &memory) {
    Json data = event;
    data.erase("event");
    Reader reader(data, "event", memory);
    Args args{};
    read(reader, args);
    reader.Done();
    return args;
}

void FireOn(CServiceObject &object, const IID &iid, const std::function<HRESULT(IUnknown *)> &invoke, unsigned &sinksCalled,
            unsigned &failures) {
    if (CConnectionPoint *point = object.FindPoint(iid))
        sinksCalled += point->Fire(invoke, failures);
}

} // namespace

void FireEvent(CServiceObject &object, const Json &event, unsigned &sinksCalled, unsigned &failures) {
    const std::string name = event.value("event", std::string());
    Allocator memory; // the arguments live for the length of the calls only
    if (name == "ProgressMessage") {
        ProgressArgs a = Build(&ReadProgress, event, memory);
        FireOn(
            object, IID__IVirtualDiskEvents,
            [&](IUnknown *sink) {
                return static_cast<_IVirtualDiskEvents *>(sink)->ProgressMessage(a.reserved, a.subject, a.code);
            },
            sinksCalled, failures);
        FireOn(
            object, IID__ISnapShotEvents,
            [&](IUnknown *sink) { return static_cast<_ISnapShotEvents *>(sink)->ProgressMessage(a.reserved, a.subject, a.code); },
            sinksCalled, failures);
    } else if (name == "ReadyToCreate") {
        ReadyArgs a = Build(&ReadReady, event, memory);
        FireOn(
            object, IID__ISnapShotEvents,
            [&](IUnknown *sink) {
                return static_cast<_ISnapShotEvents *>(sink)->ReadyToCreate(a.reserved1, a.reserved2, a.name);
            },
            sinksCalled, failures);
    } else if (name == "MirrorProgress") {
        MirrorArgs a = Build(&ReadMirror, event, memory);
        FireOn(
            object, IID__ISnapShotEvents2,
            [&](IUnknown *sink) {
                return static_cast<_ISnapShotEvents2 *>(sink)->MirrorProgress(a.name, a.drive, a.text, &a.progress);
            },
            sinksCalled, failures);
    }
}

std::map<std::string, DataCheck> EventChecks() {
    return {{"ProgressMessage", EventCheck(&ReadProgress)},
            {"ReadyToCreate", EventCheck(&ReadReady)},
            {"MirrorProgress", EventCheck(&ReadMirror)}};
}

} // namespace sim
