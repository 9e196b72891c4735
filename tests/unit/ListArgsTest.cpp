#include "front_end/ListArgs.h"
#include "Arguments.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// A command line whose output is captured while it lives.
struct Parsed : Arguments {
    explicit Parsed(std::vector<std::wstring> words) : Arguments(std::move(words)), cl(pointers.data()) {
        CaptureOutput(&output);
    }
    ~Parsed() { CaptureOutput(nullptr); }
    CCommandLine cl;
    std::wstring output;
};

// What a reader kept: the number of records, or -1 when it refused the list.
template <typename Record, void (*Read)(const CCommandLine &, std::vector<Record> &)> long Kept(const CCommandLine &cl) {
    std::vector<Record> out;
    Read(cl, out);
    return static_cast<long>(out.size());
}

template <typename Record, bool (*Read)(const CCommandLine &, std::vector<std::unique_ptr<Record>> &)>
long Accepted(const CCommandLine &cl) {
    std::vector<std::unique_ptr<Record>> out;
    return Read(cl, out) ? static_cast<long>(out.size()) : -1;
}

// Every reader of switch lists: what it keeps of the words, and what it prints
// for a duplicate, a broken group or a missing list.
TEST(ListArgsTest, ReadersKeepWholeGroupsAndRefuseDuplicates) {
    const auto igroups = Kept<InitiatorGroupPair, GetInitiatorGroupList>;
    const auto backup = Kept<BackupSetEntry, GetBackupSetList>;
    const auto pairs = Accepted<StorageVolume, GetStorageVolumeList>;
    const struct {
        std::vector<std::wstring> words;
        long (*read)(const CCommandLine &);
        long kept;
        const wchar_t *output;
    } cases[] = {
        {{L"-IG", L"n", L"g", L"-I", L"n", L"i"}, igroups, 0, L"\nInput either Initiator groups or Initiators but not both.\n\n"},
        {{L"-DS", L"E:", L"s1", L"F:\\mnt", L"s2"}, backup, 2, L""},
        {{L"-DS", L"E:", L"s1", L"E:", L"s2"},
         backup,
         0,
         L"\n\nError: Duplicated mount point E: was found. Emptying backupset...\n"},
        {{L"-DS", L"E:", L"s1", L"1:", L"s2"},
         backup,
         0,
         L"\n\nError: Invalid mount point 1: was found. Emptying backupset...\n"},
        {{L"-DS", L"E:", L"s1", L"E"}, backup, 0, L"\n\n<MountPoint> <SourceSnapshotCopy> must be in pairs!\n\n"},
        {{}, pairs, -1, L""},
        {{L"-SV"}, pairs, -1, L"\n\nNo <StorageSystem, Volume> input!\n\n"},
        {{L"-SV", L"a", L"b", L"c"}, pairs, -1, L"\n\n<StorageSystem, Volume> must be in pairs!\n\n"},
        {{L"-SV", L"store1", L"vol0", L"store1", L"vol0"},
         pairs,
         -1,
         L"\n\n pair (store1,vol0) entered \n\n\nError: Duplicated pair (store1,vol0) found.\n"},
        // Stored names are lower-cased while the new one is compared as typed.
        {{L"-SV", L"STORE1", L"vol0", L"STORE1", L"vol0"},
         pairs,
         2,
         L"\n\n pair (STORE1,vol0) entered \n\n\n pair (STORE1,vol0) entered \n"},
        {{L"-SVS", L"S1", L"v", L"snap", L"s1", L"v", L"snap"},
         Accepted<StorageVolumeSnapshot, GetStorageVolumeSnapshotList>,
         -1,
         L"\n\n triplet (S1, v, snap) entered\n\n\nError: Duplicated triplet (s1, v, snap) found.\n"},
        {{L"-SLM", L"s", L"/vol/v/l"},
         Accepted<StorageLunMountPath, GetStorageLunMountPathList>,
         -1,
         L"\n\n<StorageSystem, LunPath, MountPath> must be triplets!\n\n"},
        {{L"-R", L"a", L"b", L"c"},
         Accepted<ReflexaRelation, GetReflexaRelationList>,
         -1,
         L"\n\n<SourceStorageSystem> <SourceVolume> <DestStorageSystem> <DestVolume> must be quadruplets!\n\n"},
        {{L"-md", L"owner", L"x", L"owner", L"y"},
         Kept<MetadataField, GetMetadataList>,
         0,
         L"\nError: duplicated field name - owner !!!\n"},
        {{L"-SL", L"snap1", L"E:", L"snap2", L"E:"},
         Kept<SnapshotAccessPoint, GetSnapshotAccessPointList>,
         0,
         L"\nError: duplicated mount point - E: !!!\n"},
    };
    for (const auto &c : cases) {
        Parsed p(c.words);
        EXPECT_EQ(c.read(p.cl), c.kept) << testing::PrintToString(c.words);
        EXPECT_EQ(p.output, c.output) << testing::PrintToString(c.words);
    }
}

TEST(ListArgsTest, StoredNamesAreLowerCased) {
    Parsed none({});
    std::vector<SpecifierEntry> specifiers;
    GetSpecifierList({L"VOL1", L"volume", L"vol1", L"volume"}, specifiers);
    EXPECT_TRUE(specifiers.empty());
    EXPECT_EQ(none.output, L"\n\nError: Duplicated specifier vol1 was found. Please remove from list\n");

    Parsed pairs({L"-SV", L"STORE1", L"vol0", L"STORE1", L"vol0"});
    std::vector<std::unique_ptr<StorageVolume>> volumes;
    ASSERT_TRUE(GetStorageVolumeList(pairs.cl, volumes));
    EXPECT_EQ(volumes[0]->StorageSystem, L"store1");
    EXPECT_EQ(volumes[1]->StorageSystem, L"store1");

    Parsed relation({L"-R", L"SRC", L"v1", L"DST", L"v2"});
    std::vector<std::unique_ptr<ReflexaRelation>> out;
    ASSERT_TRUE(GetReflexaRelationList(relation.cl, out));
    EXPECT_EQ(out[0]->SourceStorageSystem, L"src");
    EXPECT_EQ(out[0]->DestStorageSystem, L"dst");
    EXPECT_EQ(out[0]->SourceVolume, L"v1");
    EXPECT_EQ(relation.output, L"\n\nreflexa relation (SRC,v1,DST,v2)\n");
}

} // namespace
