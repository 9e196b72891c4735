// SnapShotService's mount and restore interfaces: mounting snapshot copies
// (ISnapShotMount, ISnapShotInfo), mirror destinations of mount points
// (ISnapShotDrives) and volume restore (ISnapShotVolumeRestore).
#include "simulator/Contract.h"
#include "simulator/contract/Answer.h"
#include "simulator/contract/Parts.h"

namespace sim {

namespace {

void ReadDestination(Reader &r, MirrorDestination &destination) {
    r.Field("wszSource", destination.wszSource);
    r.Field("wszDestination", destination.wszDestination);
    r.Field("wszSnapshot", destination.wszSnapshot);
    r.Field("dwRelationState", destination.dwRelationState);
    r.Field("dwCloneStatus", destination.dwCloneStatus);
}

void ReadMountPointMirror(Reader &r, MountPointMirror &mirror) {
    r.Field("dwDiskId", mirror.dwDiskId);
    r.Field("wszMountPoint", mirror.wszMountPoint);
    r.Field("bValidMountPoint", mirror.bValidMountPoint);
    r.Array("pDestinations", mirror.dwDestinationCount, mirror.pDestinations, ReadDestination);
}

void VolumeSnapshotsData(Reader &r, VolumeSnapshotArray &snapshots) {
    r.Array("snapshots", snapshots.dwCount, snapshots.pSnapshots,
            [](Reader &s, VolumeSnapshot &snapshot) { s.Field("wszName", snapshot.wszName); });
}

void DestinationsData(Reader &r, MirrorDestinationList &list) {
    r.Array("destinations", list.dwCount, list.pDestinations, ReadDestination);
}

void MountPointListsData(Reader &r, MountPointMirrorList &list) {
    r.Array("lists", list.dwCount, list.pMountPoints, ReadMountPointMirror);
}

void VolumeRestoreData(Reader &r, NewerSnapshotList &newer, NonLunFileList &files, MirrorDestinationState &mirror) {
    r.Array("newer", newer.dwCount, newer.pSnapshots, [](Reader &s, NewerSnapshot &snapshot) {
        s.Field("wszName", snapshot.wszName);
        s.Field("bBusy", snapshot.bBusy);
        s.Field("bConsistent", snapshot.bConsistent);
        s.Field("wszDependency", snapshot.wszDependency);
    });
    r.Array("files", files.dwCount, files.pFiles, [](Reader &f, NonLunFile &file) {
        f.Field("wszFileName", file.wszFileName);
        f.Field("wszFilePath", file.wszFilePath);
    });
    r.Nested("mirror", [&](Reader &m) {
        m.Field("bIsUnbrokenDestination", mirror.bIsUnbrokenDestination);
        m.Field("dwMirrorState", mirror.dwMirrorState);
    });
}

Json LogDestination(const MirrorDestination &destination) {
    return {{"wszSource", LogText(destination.wszSource)},
            {"wszDestination", LogText(destination.wszDestination)},
            {"wszSnapshot", LogText(destination.wszSnapshot)},
            {"dwRelationState", destination.dwRelationState},
            {"dwCloneStatus", destination.dwCloneStatus}};
}

Json LogDestinations(const MirrorDestinationList *list) {
    return list == nullptr ? Json(nullptr) : LogArray(list->dwCount, list->pDestinations, LogDestination);
}

Json LogMountPointLists(const MountPointMirrorList *list) {
    if (list == nullptr)
        return nullptr;
    return LogArray(list->dwCount, list->pMountPoints, [](const MountPointMirror &mirror) {
        return Json{{"dwDiskId", mirror.dwDiskId},
                    {"wszMountPoint", LogText(mirror.wszMountPoint)},
                    {"bValidMountPoint", mirror.bValidMountPoint},
                    {"pDestinations", LogArray(mirror.dwDestinationCount, mirror.pDestinations, LogDestination)}};
    });
}

Json LogDrives(const DriveNameArray *drives) {
    return drives == nullptr ? Json(nullptr) : LogStrings(drives->dwCount, drives->pwszDrives);
}

Json RestoreRequest(const wchar_t *storageSystem, const wchar_t *volume, const wchar_t *snapshotName) {
    return {{"storageSystem", LogText(storageSystem)}, {"volume", LogText(volume)}, {"snapshotName", LogText(snapshotName)}};
}

class CSnapShotMount final : public TPart<ISnapShotMount> {
public:
    using TPart::TPart;

    HRESULT STDMETHODCALLTYPE ListVolumeSnapshots(const wchar_t *volumePath, VolumeSnapshotArray *snapshots) override {
        return Answer(owner_, "ISnapShotMount.ListVolumeSnapshots", IID_ISnapShotMount, {{"volumePath", LogText(volumePath)}},
                      &VolumeSnapshotsData, snapshots);
    }

    HRESULT STDMETHODCALLTYPE GetMirrorDestinations(const wchar_t *mountPoint, MirrorDestinationList *destinations) override {
        return Answer(owner_, "ISnapShotMount.GetMirrorDestinations", IID_ISnapShotMount, {{"mountPoint", LogText(mountPoint)}},
                      &DestinationsData, destinations);
    }

    HRESULT STDMETHODCALLTYPE FreeMirrorDestinations(MirrorDestinationList *destinations) override {
        return Answer(owner_, "ISnapShotMount.FreeMirrorDestinations", IID_ISnapShotMount,
                      {{"destinations", LogDestinations(destinations)}});
    }

    HRESULT STDMETHODCALLTYPE MountSnapshot(const wchar_t *liveMachine, const wchar_t *liveMountPoint,
                                            const wchar_t *snapshotName, const wchar_t *mountPoint, boolean tryDrive,
                                            boolean reflexaDestination, const wchar_t *storageSystem, const wchar_t *volume,
                                            LONG number) override {
        return Answer(owner_, "ISnapShotMount.MountSnapshot", IID_ISnapShotMount,
                      {{"liveMachine", LogText(liveMachine)},
                       {"liveMountPoint", LogText(liveMountPoint)},
                       {"snapshotName", LogText(snapshotName)},
                       {"mountPoint", LogText(mountPoint)},
                       {"tryDrive", tryDrive},
                       {"reflexaDestination", reflexaDestination},
                       {"storageSystem", LogText(storageSystem)},
                       {"volume", LogText(volume)},
                       {"number", number}});
    }
};

class CSnapShotInfo final : public TPart<ISnapShotInfo> {
public:
    using TPart::TPart;
    SIM_RESERVED(ISnapShotInfo, 3)

    HRESULT STDMETHODCALLTYPE MountSnapshotOld(const wchar_t *liveMachine, const wchar_t *liveMountPoint,
                                               const wchar_t *snapshotName, const wchar_t *mountPoint,
                                               boolean reserved) override {
        return Answer(owner_, "ISnapShotInfo.MountSnapshotOld", IID_ISnapShotInfo,
                      {{"liveMachine", LogText(liveMachine)},
                       {"liveMountPoint", LogText(liveMountPoint)},
                       {"snapshotName", LogText(snapshotName)},
                       {"mountPoint", LogText(mountPoint)},
                       {"reserved", reserved}});
    }
};

class CSnapShotDrives final : public TPart<ISnapShotDrives> {
public:
    using TPart::TPart;

    HRESULT STDMETHODCALLTYPE GetMirrorMountPointLists(DriveNameArray *drives, MountPointMirrorList *lists) override {
        return Answer(owner_, "ISnapShotDrives.GetMirrorMountPointLists", IID_ISnapShotDrives, {{"drives", LogDrives(drives)}},
                      &MountPointListsData, lists);
    }

    HRESULT STDMETHODCALLTYPE FreeMirrorMountPointLists(MountPointMirrorList *lists) override {
        return Answer(owner_, "ISnapShotDrives.FreeMirrorMountPointLists", IID_ISnapShotDrives,
                      {{"lists", LogMountPointLists(lists)}});
    }
};

class CSnapShotVolumeRestore final : public TPart<ISnapShotVolumeRestore> {
public:
    using TPart::TPart;

    HRESULT STDMETHODCALLTYPE CheckVolumeRestore(const wchar_t *storageSystem, const wchar_t *volume, const wchar_t *snapshotName,
                                                 NewerSnapshotList *newer, NonLunFileList *files,
                                                 MirrorDestinationState *mirror) override {
        return Answer(owner_, "ISnapShotVolumeRestore.CheckVolumeRestore", IID_ISnapShotVolumeRestore,
                      RestoreRequest(storageSystem, volume, snapshotName), &VolumeRestoreData, newer, files, mirror);
    }

    HRESULT STDMETHODCALLTYPE RestoreVolume(const wchar_t *storageSystem, const wchar_t *volume, const wchar_t *snapshotName,
                                            boolean force) override {
        Json request = RestoreRequest(storageSystem, volume, snapshotName);
        request["force"] = force;
        return Answer(owner_, "ISnapShotVolumeRestore.RestoreVolume", IID_ISnapShotVolumeRestore, std::move(request));
    }
};

} // namespace

std::unique_ptr<PartBase> MakeSnapShotMountPart(CServiceObject &owner) {
    return std::make_unique<CSnapShotMount>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotInfoPart(CServiceObject &owner) {
    return std::make_unique<CSnapShotInfo>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotDrivesPart(CServiceObject &owner) {
    return std::make_unique<CSnapShotDrives>(owner);
}
std::unique_ptr<PartBase> MakeSnapShotVolumeRestorePart(CServiceObject &owner) {
    return std::make_unique<CSnapShotVolumeRestore>(owner);
}

std::vector<MethodEntry> SnapshotMountMethods() {
    return {{"ISnapShotMount.ListVolumeSnapshots", CheckOf(&VolumeSnapshotsData)},
            {"ISnapShotMount.GetMirrorDestinations", CheckOf(&DestinationsData)},
            {"ISnapShotMount.FreeMirrorDestinations", CheckOf(&NoData)},
            {"ISnapShotMount.MountSnapshot", CheckOf(&NoData)},
            {"ISnapShotInfo.MountSnapshotOld", CheckOf(&NoData)},
            {"ISnapShotDrives.GetMirrorMountPointLists", CheckOf(&MountPointListsData)},
            {"ISnapShotDrives.FreeMirrorMountPointLists", CheckOf(&NoData)},
            {"ISnapShotVolumeRestore.CheckVolumeRestore", CheckOf(&VolumeRestoreData)},
            {"ISnapShotVolumeRestore.RestoreVolume", CheckOf(&NoData)}};
}

} // namespace sim
