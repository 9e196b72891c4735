// SnapShotService's snapshot interfaces: creating, managing and listing
// snapshot copies (ISnapShotCreate, ISnapShotManage, ISnapShotList,
// ISnapShotSpace) and the archive interface.
#include "simulator/Contract.h"
#include "simulator/contract/Answer.h"
#include "simulator/contract/Parts.h"

namespace sim {

namespace {

void QueuedData(Reader &r, boolean &queued) {
    r.Field("queued", queued);
}

void SnapshotsData(Reader &r, SnapshotArray &snapshots, ULONGLONG &reserved1, ULONGLONG &reserved2, ULONGLONG &reserved3) {
    r.Array("snapshots", snapshots.dwCount, snapshots.pSnapshots, ReadSnapshotInfo);
    r.Field("reserved1", reserved1);
    r.Field("reserved2", reserved2);
    r.Field("reserved3", reserved3);
}

void ReadDriveSnapshots(Reader &r, DriveSnapshots &drive) {
    r.Field("wszDrive", drive.wszDrive);
    // A failure code is naturally written in hexadecimal ("0xC0040401").
    DWORD status = 0;
    r.Field("hrStatus", status);
    drive.hrStatus = static_cast<HRESULT>(status);
    r.Field("wszError", drive.wszError);
    r.Array("pSnapshots", drive.dwSnapshotCount, drive.pSnapshots, ReadSnapshotInfo);
}

void DriveSnapshotsData(Reader &r, DriveSnapshotsArray &snapshots) {
    r.Array("snapshots", snapshots.dwCount, snapshots.pDrives, ReadDriveSnapshots);
}

Json LogCreateRequest(const SnapshotCreateRequest *request) {
    if (request == nullptr)
        return nullptr;
    return {{"bReserved", request->bReserved},
            {"bAllLunsOnVolumes", request->bAllLunsOnVolumes},
            {"pDrives", LogArray(request->dwDriveCount, request->pDrives, [](const SnapshotDriveEntry &entry) {
                 return Json{{"wszDrive", LogText(entry.wszDrive)}, {"reserved", entry.reserved}};
             })}};
}

Json LogDrives(const DriveNameArray *drives) {
    return drives == nullptr ? Json(nullptr) : LogStrings(drives->dwCount, drives->pwszDrives);
}

Json NamesRequest(const wchar_t *mountPoint, const char *key, const wchar_t *name) {
    return {{"mountPoint", LogText(mountPoint)}, {key, LogText(name)}};
}

class CSnapShotCreate final : public TPart<ISnapShotCreate> {
public:
    using TPart::TPart;
    SIM_RESERVED(ISnapShotCreate, 3)

    HRESULT STDMETHODCALLTYPE CreateSnapshot(SnapshotCreateRequest *request, const wchar_t *snapshotName,
                                             BOOL updateMirror) override {
        return Answer(
            owner_, "ISnapShotCreate.CreateSnapshot", IID_ISnapShotCreate,
            {{"request", LogCreateRequest(request)}, {"snapshotName", LogText(snapshotName)}, {"updateMirror", updateMirror}});
    }
};

class CSnapShotManage final : public TPart<ISnapShotManage> {
public:
    using TPart::TPart;
    SIM_RESERVED(ISnapShotManage, 3)

    HRESULT STDMETHODCALLTYPE RestoreSnapshot(const wchar_t *mountPoint, const wchar_t *snapshotName) override {
        return Answer(owner_, "ISnapShotManage.RestoreSnapshot", IID_ISnapShotManage,
                      NamesRequest(mountPoint, "snapshotName", snapshotName));
    }

    HRESULT STDMETHODCALLTYPE DeleteSnapshot(const wchar_t *mountPoint, const wchar_t *snapshotName, boolean *queued) override {
        return Answer(owner_, "ISnapShotManage.DeleteSnapshot", IID_ISnapShotManage,
                      NamesRequest(mountPoint, "snapshotName", snapshotName), &QueuedData, queued);
    }

    HRESULT STDMETHODCALLTYPE RenameSnapshot(const wchar_t *mountPoint, const wchar_t *oldName, const wchar_t *newName) override {
        Json request = NamesRequest(mountPoint, "oldName", oldName);
        request["newName"] = LogText(newName);
        return Answer(owner_, "ISnapShotManage.RenameSnapshot", IID_ISnapShotManage, std::move(request));
    }

    SIM_RESERVED(ISnapShotManage, 7)
    SIM_RESERVED(ISnapShotManage, 8)
    SIM_RESERVED(ISnapShotManage, 9)
    SIM_RESERVED(ISnapShotManage, 10)
    SIM_RESERVED(ISnapShotManage, 11)
    SIM_RESERVED(ISnapShotManage, 12)
    SIM_RESERVED(ISnapShotManage, 13)

    HRESULT STDMETHODCALLTYPE UnmountSnapshot(const wchar_t *mountPoint, const wchar_t *reserved) override {
        return Answer(owner_, "ISnapShotManage.UnmountSnapshot", IID_ISnapShotManage,
                      NamesRequest(mountPoint, "reserved", reserved));
    }

    HRESULT STDMETHODCALLTYPE UnmountSnapshotForced(const wchar_t *mountPoint, const wchar_t *reserved) override {
        return Answer(owner_, "ISnapShotManage.UnmountSnapshotForced", IID_ISnapShotManage,
                      NamesRequest(mountPoint, "reserved", reserved));
    }

    SIM_RESERVED(ISnapShotManage, 16)
    SIM_RESERVED(ISnapShotManage, 17)

    HRESULT STDMETHODCALLTYPE UpdateMirror(const wchar_t *mountPoint) override {
        return Answer(owner_, "ISnapShotManage.UpdateMirror", IID_ISnapShotManage, {{"mountPoint", LogText(mountPoint)}});
    }
};

class CSnapShotList final : public TPart<ISnapShotList> {
public:
    using TPart::TPart;
    HRESULT STDMETHODCALLTYPE ListSnapshots(const wchar_t *mountPoint, SnapshotArray *snapshots, ULONGLONG *reserved1,
                                            ULONGLONG *reserved2, ULONGLONG *reserved3) override {
        return Answer(owner_, "ISnapShotList.ListSnapshots", IID_ISnapShotList, {{"mountPoint", LogText(mountPoint)}},
                      &SnapshotsData, snapshots, reserved1, reserved2, reserved3);
    }
};

class CSnapShotSpace final : public TPart<ISnapShotSpace> {
public:
    using TPart::TPart;
    HRESULT STDMETHODCALLTYPE ListDriveSnapshots(DriveNameArray *drives, DriveSnapshotsArray *snapshots, BOOL reserved) override {
        return Answer(owner_, "ISnapShotSpace.ListDriveSnapshots", IID_ISnapShotSpace,
                      {{"drives", LogDrives(drives)}, {"reserved", reserved}}, &DriveSnapshotsData, snapshots);
    }
};

class CSnapShotArchive final : public TPart<ISnapShotArchive> {
public:
    using TPart::TPart;
    SIM_RESERVED(ISnapShotArchive, 3)
};

} // namespace

void ReadSnapshotInfo(Reader &r, SnapshotInfo &out) {
    r.Field("wszName", out.wszName);
    r.Field("ftCreated", out.ftCreated);
    r.Field("nUsedInnerPercent", out.nUsedInnerPercent);
    r.Field("nTotalInnerPercent", out.nTotalInnerPercent);
    r.Field("nUsedPercent", out.nUsedPercent);
    r.Field("nTotalPercent", out.nTotalPercent);
    r.Field("dwConsistency", out.dwConsistency);
}

std::unique_ptr<PartBase> MakeSnapShotCreatePart(CServiceObject &owner) {
    return std::make_unique<CSnapShotCreate>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotManagePart(CServiceObject &owner) {
    return std::make_unique<CSnapShotManage>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotListPart(CServiceObject &owner) {
    return std::make_unique<CSnapShotList>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotSpacePart(CServiceObject &owner) {
    return std::make_unique<CSnapShotSpace>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotArchivePart(CServiceObject &owner) {
    return std::make_unique<CSnapShotArchive>(owner);
}

std::vector<MethodEntry> SnapshotMethods() {
    return {{"ISnapShotCreate.CreateSnapshot", CheckOf(&NoData)},
            {"ISnapShotManage.RestoreSnapshot", CheckOf(&NoData)},
            {"ISnapShotManage.DeleteSnapshot", CheckOf(&QueuedData)},
            {"ISnapShotManage.RenameSnapshot", CheckOf(&NoData)},
            {"ISnapShotManage.UnmountSnapshot", CheckOf(&NoData)},
            {"ISnapShotManage.UnmountSnapshotForced", CheckOf(&NoData)},
            {"ISnapShotManage.UpdateMirror", CheckOf(&NoData)},
            {"ISnapShotList.ListSnapshots", CheckOf(&SnapshotsData)},
            {"ISnapShotSpace.ListDriveSnapshots", CheckOf(&DriveSnapshotsData)}};
}

} // namespace sim
