#include "front_end/ListArgs.h"

#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"

#include <cstring>
#include <cwchar>
#include <cwctype>
#include <new>

namespace {

// How a by-value family reports and checks its groups.
struct ByValueSpec {
    const char *arityMessage; // printed when the values do not form whole groups
    bool arityNarrow;         // printed with the narrow writer
    const wchar_t *duplicate; // one "%s": the key field
    const wchar_t *invalid;   // one "%s": the key field; null when keys are not validated
    bool (*isValidKey)(const std::wstring &);
    bool lowerKey; // the key is stored lower-cased
};

void PrintArity(const ByValueSpec &spec) {
    if (spec.arityNarrow)
        PrintNarrow("%s", spec.arityMessage);
    else
        PrintText(std::wstring(spec.arityMessage, spec.arityMessage + strlen(spec.arityMessage)));
}

void PrintWithStrings(const wchar_t *format, const std::wstring *values, unsigned count) {
    const wchar_t *args[4] = {};
    for (unsigned i = 0; i < count && i < 4; ++i)
        args[i] = values[i].c_str();
    PrintText(SubstituteStrings(format, args, count));
}

// Pairs held by value; `key` names the field that must be unique.
template <typename Record>
void ParsePairsByValue(const CCommandLine::ValueList *values, const ByValueSpec &spec, std::wstring Record::*first,
                       std::wstring Record::*second, std::wstring Record::*key, std::vector<Record> &out) {
    if (values == nullptr)
        return;
    if (values->size() % 2 != 0) {
        PrintArity(spec);
        return;
    }
    out.resize(values->size() / 2);
    for (size_t i = 0; i < out.size(); ++i) {
        Record incoming;
        incoming.*first = (*values)[2 * i];
        incoming.*second = (*values)[2 * i + 1];
        const std::wstring &newKey = incoming.*key;
        for (size_t j = 0; j < i; ++j) {
            if (out[j].*key == newKey) {
                PrintWithStrings(spec.duplicate, &newKey, 1);
                out.clear();
                return;
            }
        }
        if (spec.isValidKey != nullptr && !spec.isValidKey(newKey)) {
            PrintWithStrings(spec.invalid, &newKey, 1);
            out.clear();
            return;
        }
        if (spec.lowerKey)
            for (wchar_t &c : incoming.*key)
                c = static_cast<wchar_t>(towlower(c));
        out[i] = incoming;
    }
}

// How a by-pointer family reports its groups.
struct ByPointerSpec {
    const char *emptyMessage;
    const char *arityMessage;
    bool narrow; // empty-list and group-size messages through the narrow writer
    const char *allocationFailure;
    const wchar_t *duplicate; // one "%s" per field
    const wchar_t *echo;      // one "%s" per field
};

void PrintSpecText(const char *text, bool narrow) {
    if (narrow)
        PrintNarrow("%s", text);
    else
        PrintText(std::wstring(text, text + strlen(text)));
}

void LowerInPlace(std::wstring &text) {
    for (wchar_t &c : text)
        c = static_cast<wchar_t>(towlower(c));
}

// Groups held by pointer. Every field takes part in the duplicate test; the
// fields listed in `lowered` are stored lower-cased, while the incoming group
// is compared as typed (so STORE1 vol0 STORE1 vol0 are two different groups).
template <typename Record, size_t N>
bool ParseGroupsByPointer(const CCommandLine::ValueList *values, const ByPointerSpec &spec,
                          std::wstring Record::*const (&fields)[N], const bool (&lowered)[N],
                          std::vector<std::unique_ptr<Record>> &out) {
    if (values == nullptr)
        return false;
    if (values->empty()) {
        PrintSpecText(spec.emptyMessage, spec.narrow);
        return false;
    }
    if (values->size() % N != 0) {
        PrintSpecText(spec.arityMessage, spec.narrow);
        return false;
    }
    const size_t count = values->size() / N;
    out.resize(count);
    for (size_t i = 0; i < count; ++i) {
        out[i].reset(new (std::nothrow) Record());
        if (!out[i]) {
            PrintNarrow("%s", spec.allocationFailure);
            throw OperationUsageException(cmd::Hidden, 0, 0);
        }
    }
    for (size_t i = 0; i < count; ++i) {
        const std::wstring *typed = &(*values)[N * i];
        for (size_t j = 0; j < i; ++j) {
            bool same = true;
            for (size_t f = 0; f < N && same; ++f)
                same = (typed[f] == (*out[j]).*fields[f]);
            if (same) {
                PrintWithStrings(spec.duplicate, typed, N);
                return false;
            }
        }
        for (size_t f = 0; f < N; ++f) {
            (*out[i]).*fields[f] = typed[f];
            if (lowered[f])
                LowerInPlace((*out[i]).*fields[f]);
        }
        PrintWithStrings(spec.echo, typed, N);
    }
    return true;
}

bool IsValidSpecifier(const std::wstring &value) {
    return !value.empty() && wcspbrk(value.c_str(), L"/\\*:?\"<>| ") == nullptr;
}

} // namespace

bool IsValidMountPoint(const std::wstring &value) {
    if (value.empty() || !iswalpha(value[0]))
        return false;
    if (value.size() == 1)
        return true;
    if (value[1] != L':')
        return false;
    if (value.size() == 2)
        return true;
    return value[2] == L'\\' && value.find_first_of(L"/*?\"<>|") == std::wstring::npos &&
           value.find(L':', 2) == std::wstring::npos;
}

void GetInitiatorList(const CCommandLine &cl, std::vector<InitiatorPair> &out) {
    static const ByValueSpec spec = {"\n<NodeMachineName> <InitiatorName> must be in pairs!\n\n",
                                     true,
                                     L"\nError: duplicated initiator - %s !!!\n",
                                     nullptr,
                                     nullptr,
                                     false};
    ParsePairsByValue(cl.Values(sw::I), spec, &InitiatorPair::NodeMachineName, &InitiatorPair::InitiatorName,
                      &InitiatorPair::InitiatorName, out);
}

void GetInitiatorGroupList(const CCommandLine &cl, std::vector<InitiatorGroupPair> &out) {
    static const ByValueSpec spec = {"\n<NodeMachineName> <InitiatorgroupName> must be in pairs!\n\n",
                                     false,
                                     L"\nError: duplicated initiator - %s !!!\n",
                                     nullptr,
                                     nullptr,
                                     false};
    if (cl.IsPresent(sw::IG) && cl.IsPresent(sw::I)) {
        Print(L"\nInput either Initiator groups or Initiators but not both.\n\n");
        return;
    }
    const CCommandLine::ValueList *values = cl.IsPresent(sw::IG) ? cl.Values(sw::IG) : cl.Values(sw::I);
    ParsePairsByValue(values, spec, &InitiatorGroupPair::NodeMachineName, &InitiatorGroupPair::InitiatorgroupName,
                      &InitiatorGroupPair::InitiatorgroupName, out);
}

void GetBackupSetList(const CCommandLine &cl, std::vector<BackupSetEntry> &out) {
    static const ByValueSpec spec = {"\n\n<MountPoint> <SourceSnapshotCopy> must be in pairs!\n\n",
                                     true,
                                     L"\n\nError: Duplicated mount point %s was found. Emptying backupset...\n",
                                     L"\n\nError: Invalid mount point %s was found. Emptying backupset...\n",
                                     IsValidMountPoint,
                                     false};
    ParsePairsByValue(cl.Values(sw::DS), spec, &BackupSetEntry::MountPoint, &BackupSetEntry::SourceSnapshotCopy,
                      &BackupSetEntry::MountPoint, out);
}

void GetSpecifierList(const CCommandLine::ValueList &values, std::vector<SpecifierEntry> &out) {
    static const ByValueSpec spec = {"\n\n<Specifier> <Type> must be in pairs!\n\n",
                                     true,
                                     L"\n\nError: Duplicated specifier %s was found. Please remove from list\n",
                                     L"\n\nError: Invalid specifier %s was found.\n",
                                     IsValidSpecifier,
                                     true};
    ParsePairsByValue(&values, spec, &SpecifierEntry::Specifier, &SpecifierEntry::Type, &SpecifierEntry::Specifier, out);
}

void GetMetadataList(const CCommandLine &cl, std::vector<MetadataField> &out) {
    static const ByValueSpec spec = {"\n\n<FieldName> <FieldValue> must be in pairs!\n\n",
                                     false,
                                     L"\nError: duplicated field name - %s !!!\n",
                                     nullptr,
                                     nullptr,
                                     false};
    ParsePairsByValue(cl.Values(sw::md), spec, &MetadataField::FieldName, &MetadataField::FieldValue, &MetadataField::FieldName,
                      out);
}

void GetSnapshotAccessPointList(const CCommandLine &cl, std::vector<SnapshotAccessPoint> &out) {
    static const ByValueSpec spec = {"\n\n<SnapshotCopyName> <Accesspoint> must be in pairs!\n\n",
                                     false,
                                     L"\nError: duplicated mount point - %s !!!\n",
                                     nullptr,
                                     nullptr,
                                     false};
    ParsePairsByValue(cl.Values(sw::SL), spec, &SnapshotAccessPoint::SnapshotCopyName, &SnapshotAccessPoint::Accesspoint,
                      &SnapshotAccessPoint::Accesspoint, out);
}

bool GetStorageVolumeList(const CCommandLine &cl, std::vector<std::unique_ptr<StorageVolume>> &out) {
    static const ByPointerSpec spec = {"\n\nNo <StorageSystem, Volume> input!\n\n",
                                       "\n\n<StorageSystem, Volume> must be in pairs!\n\n",
                                       true,
                                       "\ngetStorageVolumeList: failed to allocate memory!\n",
                                       L"\n\nError: Duplicated pair (%s,%s) found.\n",
                                       L"\n\n pair (%s,%s) entered \n"};
    static std::wstring StorageVolume::*const fields[] = {&StorageVolume::StorageSystem, &StorageVolume::Volume};
    static const bool lowered[] = {true, false};
    return ParseGroupsByPointer(cl.Values(sw::SV), spec, fields, lowered, out);
}

// The triplet parsers share one allocation-failure text on purpose.
static const char kTripletAllocationFailure[] = "\ngetStorageLunMountPathList: failed to allocate memory!\n";

bool GetStorageVolumeSnapshotList(const CCommandLine &cl, std::vector<std::unique_ptr<StorageVolumeSnapshot>> &out) {
    static const ByPointerSpec spec = {"\n\nNo <StorageSystem, Volume, Snapshotcopy> input!\n\n",
                                       "\n\n<StorageSystem, Volume, Snapshotcopy> must be triplets!\n\n",
                                       true,
                                       kTripletAllocationFailure,
                                       L"\n\nError: Duplicated triplet (%s, %s, %s) found.\n",
                                       L"\n\n triplet (%s, %s, %s) entered\n"};
    static std::wstring StorageVolumeSnapshot::*const fields[] = {
        &StorageVolumeSnapshot::StorageSystem, &StorageVolumeSnapshot::Volume, &StorageVolumeSnapshot::Snapshotcopy};
    static const bool lowered[] = {true, false, false};
    return ParseGroupsByPointer(cl.Values(sw::SVS), spec, fields, lowered, out);
}

bool GetStorageLunMountPathList(const CCommandLine &cl, std::vector<std::unique_ptr<StorageLunMountPath>> &out) {
    static const ByPointerSpec spec = {"\n\nNo <StorageSystem, LunPath, MountPath> input!\n\n",
                                       "\n\n<StorageSystem, LunPath, MountPath> must be triplets!\n\n",
                                       true,
                                       kTripletAllocationFailure,
                                       L"\n\nError: Duplicated triplet (%s, %s, %s) found!\n",
                                       L"\n\ntriplet (%s, %s, %s) entered\n"};
    static std::wstring StorageLunMountPath::*const fields[] = {&StorageLunMountPath::StorageSystem,
                                                                &StorageLunMountPath::LunPath, &StorageLunMountPath::MountPath};
    static const bool lowered[] = {true, false, false};
    return ParseGroupsByPointer(cl.Values(sw::SLM), spec, fields, lowered, out);
}

bool GetReflexaRelationList(const CCommandLine &cl, std::vector<std::unique_ptr<ReflexaRelation>> &out) {
    static const ByPointerSpec spec = {
        "\n\nNo reflexa relationship input!\n\n",
        "\n\n<SourceStorageSystem> <SourceVolume> <DestStorageSystem> <DestVolume> must be quadruplets!\n\n",
        false,
        "\ngetReflexaRelationList: failed to allocate memory!\n",
        L"\n\nError: Duplicated reflexa relation (%s,%s,%s,%s) found.\n",
        L"\n\nreflexa relation (%s,%s,%s,%s)\n"};
    static std::wstring ReflexaRelation::*const fields[] = {&ReflexaRelation::SourceStorageSystem, &ReflexaRelation::SourceVolume,
                                                            &ReflexaRelation::DestStorageSystem, &ReflexaRelation::DestVolume};
    static const bool lowered[] = {true, false, true, false};
    return ParseGroupsByPointer(cl.Values(sw::R), spec, fields, lowered, out);
}
