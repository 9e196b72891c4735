// Parsers of switches whose values come in fixed-size groups (pairs, triplets,
// quadruplets). Each is bound to one switch and one record shape; they report
// a bad list by a message and their result, and throw only when memory runs out.
#pragma once

#include "front_end/CommandLine.h"

#include <memory>
#include <string>
#include <vector>

struct InitiatorPair {
    std::wstring NodeMachineName;
    std::wstring InitiatorName;
};
struct InitiatorGroupPair {
    std::wstring NodeMachineName;
    std::wstring InitiatorgroupName;
};
struct BackupSetEntry {
    std::wstring MountPoint;
    std::wstring SourceSnapshotCopy;
};
struct SpecifierEntry {
    std::wstring Specifier;
    std::wstring Type;
};
struct MetadataField {
    std::wstring FieldName;
    std::wstring FieldValue;
};
struct SnapshotAccessPoint {
    std::wstring SnapshotCopyName;
    std::wstring Accesspoint;
};
struct StorageVolume {
    std::wstring StorageSystem;
    std::wstring Volume;
};
struct StorageVolumeSnapshot {
    std::wstring StorageSystem;
    std::wstring Volume;
    std::wstring Snapshotcopy;
};
struct StorageLunMountPath {
    std::wstring StorageSystem;
    std::wstring LunPath;
    std::wstring MountPath;
};
struct ReflexaRelation {
    std::wstring SourceStorageSystem;
    std::wstring SourceVolume;
    std::wstring DestStorageSystem;
    std::wstring DestVolume;
};

// Records held by value: on a bad list the vector is emptied (or, for a wrong
// group size, left untouched); an empty vector means a missing or invalid list.
void GetInitiatorList(const CCommandLine &cl, std::vector<InitiatorPair> &out);
void GetInitiatorGroupList(const CCommandLine &cl, std::vector<InitiatorGroupPair> &out);
void GetBackupSetList(const CCommandLine &cl, std::vector<BackupSetEntry> &out);
void GetSpecifierList(const CCommandLine::ValueList &values, std::vector<SpecifierEntry> &out);
void GetMetadataList(const CCommandLine &cl, std::vector<MetadataField> &out);
void GetSnapshotAccessPointList(const CCommandLine &cl, std::vector<SnapshotAccessPoint> &out);

// Records held by pointer: the caller owns them, also after a failure. The
// result says whether the whole list was accepted.
bool GetStorageVolumeList(const CCommandLine &cl, std::vector<std::unique_ptr<StorageVolume>> &out);
bool GetStorageVolumeSnapshotList(const CCommandLine &cl, std::vector<std::unique_ptr<StorageVolumeSnapshot>> &out);
bool GetStorageLunMountPathList(const CCommandLine &cl, std::vector<std::unique_ptr<StorageLunMountPath>> &out);
bool GetReflexaRelationList(const CCommandLine &cl, std::vector<std::unique_ptr<ReflexaRelation>> &out);

// A mount point as backup sets accept it: a drive letter (E, E:, E:\) or an
// absolute folder path on a drive (E:\dir\...).
bool IsValidMountPoint(const std::wstring &value);
