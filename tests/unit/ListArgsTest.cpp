#include "front_end/ListArgs.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Parsed {
    explicit Parsed(std::vector<std::wstring> words) : storage(std::move(words)) {
        for (std::wstring &w : storage)
            pointers.push_back(&w[0]);
        pointers.push_back(nullptr);
        cl.reset(new CCommandLine(pointers.data()));
        CaptureOutput(&output);
    }
    ~Parsed() { CaptureOutput(nullptr); }
    std::vector<std::wstring> storage;
    std::vector<wchar_t *> pointers;
    std::unique_ptr<CCommandLine> cl;
    std::wstring output;
};

TEST(ListArgsTest, InitiatorGroupsAndInitiatorsExcludeEachOther) {
    Parsed p({L"-IG", L"n", L"g", L"-I", L"n", L"i"});
    std::vector<InitiatorGroupPair> out;
    GetInitiatorGroupList(*p.cl, out);
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(p.output, L"\nInput either Initiator groups or Initiators but not both.\n\n");
}

TEST(ListArgsTest, BackupSetRejectsDuplicateAndInvalidMountPoints) {
    const struct {
        std::vector<std::wstring> words;
        size_t records;
        const wchar_t *output;
    } cases[] = {
        {{L"-DS", L"E:", L"s1", L"F:\\mnt", L"s2"}, 2, L""},
        {{L"-DS", L"E:", L"s1", L"E:", L"s2"}, 0, L"\n\nError: Duplicated mount point E: was found. Emptying backupset...\n"},
        {{L"-DS", L"E:", L"s1", L"1:", L"s2"}, 0, L"\n\nError: Invalid mount point 1: was found. Emptying backupset...\n"},
        {{L"-DS", L"E:", L"s1", L"E"}, 0, L"\n\n<MountPoint> <SourceSnapshotCopy> must be in pairs!\n\n"},
    };
    for (const auto &c : cases) {
        Parsed p(c.words);
        std::vector<BackupSetEntry> out;
        GetBackupSetList(*p.cl, out);
        EXPECT_EQ(out.size(), c.records);
        EXPECT_EQ(p.output, c.output);
    }
}

TEST(ListArgsTest, SpecifiersAreStoredLowerCased) {
    Parsed p({});
    std::vector<SpecifierEntry> out;
    GetSpecifierList({L"VOL1", L"volume", L"vol1", L"volume"}, out);
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(p.output, L"\n\nError: Duplicated specifier vol1 was found. Please remove from list\n");
}

TEST(ListArgsTest, StorageVolumePairsCompareTypedAgainstStored) {
    const struct {
        std::vector<std::wstring> words;
        bool ok;
        const wchar_t *output;
    } cases[] = {
        {{}, false, L""},
        {{L"-SV"}, false, L"\n\nNo <StorageSystem, Volume> input!\n\n"},
        {{L"-SV", L"a", L"b", L"c"}, false, L"\n\n<StorageSystem, Volume> must be in pairs!\n\n"},
        {{L"-SV", L"store1", L"vol0", L"store1", L"vol0"},
         false,
         L"\n\n pair (store1,vol0) entered \n\n\nError: Duplicated pair (store1,vol0) found.\n"},
        // Stored names are lower-cased while the new one is compared as typed.
        {{L"-SV", L"STORE1", L"vol0", L"STORE1", L"vol0"},
         true,
         L"\n\n pair (STORE1,vol0) entered \n\n\n pair (STORE1,vol0) entered \n"},
    };
    for (const auto &c : cases) {
        Parsed p(c.words);
        std::vector<std::unique_ptr<StorageVolume>> out;
        EXPECT_EQ(GetStorageVolumeList(*p.cl, out), c.ok);
        EXPECT_EQ(p.output, c.output);
        if (c.ok) {
            EXPECT_EQ(out[0]->StorageSystem, L"store1");
            EXPECT_EQ(out[1]->StorageSystem, L"store1");
        }
    }
}

TEST(ListArgsTest, TripletsAndQuadruplets) {
    {
        Parsed p({L"-SVS", L"S1", L"v", L"snap", L"s1", L"v", L"snap"});
        std::vector<std::unique_ptr<StorageVolumeSnapshot>> out;
        EXPECT_FALSE(GetStorageVolumeSnapshotList(*p.cl, out));
        EXPECT_EQ(p.output, L"\n\n triplet (S1, v, snap) entered\n\n\nError: Duplicated triplet (s1, v, snap) found.\n");
    }
    {
        Parsed p({L"-SLM", L"s", L"/vol/v/l"});
        std::vector<std::unique_ptr<StorageLunMountPath>> out;
        EXPECT_FALSE(GetStorageLunMountPathList(*p.cl, out));
        EXPECT_EQ(p.output, L"\n\n<StorageSystem, LunPath, MountPath> must be triplets!\n\n");
    }
    {
        Parsed p({L"-R", L"a", L"b", L"c"});
        std::vector<std::unique_ptr<ReflexaRelation>> out;
        EXPECT_FALSE(GetReflexaRelationList(*p.cl, out));
        EXPECT_EQ(p.output,
                  L"\n\n<SourceStorageSystem> <SourceVolume> <DestStorageSystem> <DestVolume> must be quadruplets!\n\n");
    }
    {
        Parsed p({L"-R", L"SRC", L"v1", L"DST", L"v2"});
        std::vector<std::unique_ptr<ReflexaRelation>> out;
        EXPECT_TRUE(GetReflexaRelationList(*p.cl, out));
        EXPECT_EQ(out[0]->SourceStorageSystem, L"src");
        EXPECT_EQ(out[0]->DestStorageSystem, L"dst");
        EXPECT_EQ(out[0]->SourceVolume, L"v1");
        EXPECT_EQ(p.output, L"\n\nreflexa relation (SRC,v1,DST,v2)\n");
    }
}

TEST(ListArgsTest, MetadataAndAccessPoints) {
    {
        Parsed p({L"-md", L"owner", L"x", L"owner", L"y"});
        std::vector<MetadataField> out;
        GetMetadataList(*p.cl, out);
        EXPECT_TRUE(out.empty());
        EXPECT_EQ(p.output, L"\nError: duplicated field name - owner !!!\n");
    }
    {
        Parsed p({L"-SL", L"snap1", L"E:", L"snap2", L"E:"});
        std::vector<SnapshotAccessPoint> out;
        GetSnapshotAccessPointList(*p.cl, out);
        EXPECT_TRUE(out.empty());
        EXPECT_EQ(p.output, L"\nError: duplicated mount point - E: !!!\n");
    }
}

} // namespace
