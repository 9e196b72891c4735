// Hostile but legal answers cross the real proxy as scripted, and each client
// object walks its own list of responses.
#include "simulator/tests/contract/Client.h"

#include <gtest/gtest.h>

using Microsoft::WRL::ComPtr;

namespace contract {
namespace {

IVirtualDisk *Disk(ComPtr<IUnknown> &object) {
    return static_cast<IVirtualDisk *>(object.Get());
}

// What a client finds in the listing: the count, whether an array came, and
// the first mount point of the first disk.
struct Listing {
    DWORD count;
    bool array;
    DWORD mountPoints;
    std::wstring firstMountPoint;
};

Listing ListDisks(IVirtualDisk *disk) {
    DiskInfoList list{};
    EXPECT_EQ(disk->EnumerateDisks(&list), S_OK);
    Listing seen{list.dwCount, list.pDisks != nullptr, 0, L"(no disk)"};
    if (list.pDisks != nullptr && list.dwCount > 0) {
        seen.mountPoints = list.pDisks[0].dwMountPointCount;
        seen.firstMountPoint =
            list.pDisks[0].pwszMountPoints == nullptr ? L"(no array)" : Text(list.pDisks[0].pwszMountPoints[0]);
    }
    return seen;
}

TEST(Shapes, ACountWithoutAnArrayAndANullElementReachTheClient) {
    const struct {
        const char *shapes;
        Listing expected;
    } cases[] = {
        {"", {2, true, 2, L"E"}},
        {R"("nullArray": "disks",)", {2, false, 0, L"(no disk)"}},
        {R"("nullArray": "pwszMountPoints",)", {2, true, 2, L"(no array)"}},
        {R"("nullElement": "pwszMountPoints",)", {2, true, 3, L"(null)"}},
        {R"("nullElement": "disks",)", {3, true, 0, L"(no array)"}},
    };
    for (const auto &c : cases) {
        WriteScenario(std::string(R"({"methods": {"IVirtualDisk.EnumerateDisks": {)") + c.shapes +
                      R"("disks": [{"pwszMountPoints": ["E", "F"]}, {}]}}})");
        ComPtr<IUnknown> object;
        ASSERT_EQ(Create(CLSID_VirtualDiskService, IID_IVirtualDisk, object), S_OK) << c.shapes;
        const Listing seen = ListDisks(Disk(object));
        EXPECT_EQ(seen.count, c.expected.count) << c.shapes;
        EXPECT_EQ(seen.array, c.expected.array) << c.shapes;
        EXPECT_EQ(seen.mountPoints, c.expected.mountPoints) << c.shapes;
        EXPECT_EQ(seen.firstMountPoint, c.expected.firstMountPoint) << c.shapes;
    }
    WriteScenario(kScenario);
}

// Two clients at once: each takes the first response first, whatever the
// other has taken already.
TEST(Shapes, EachObjectWalksItsOwnListOfResponses) {
    WriteScenario(R"({"methods": {"IVirtualDisk.GetPortInitiator": [
        {"initiator": {"dwKind": 1, "wszName": "first"}}, {"initiator": {"dwKind": 1, "wszName": "second"}}]}})");
    ComPtr<IUnknown> one, two;
    ASSERT_EQ(Create(CLSID_VirtualDiskService, IID_IVirtualDisk, one), S_OK);
    ASSERT_EQ(Create(CLSID_VirtualDiskService, IID_IVirtualDisk, two), S_OK);
    const struct {
        IVirtualDisk *disk;
        const wchar_t *expected;
    } calls[] = {
        {Disk(one), L"first"}, {Disk(two), L"first"}, {Disk(one), L"second"}, {Disk(two), L"second"}, {Disk(one), L"second"}};
    for (const auto &call : calls) {
        InitiatorInfo initiator{};
        ASSERT_EQ(call.disk->GetPortInitiator(3, &initiator), S_OK);
        EXPECT_EQ(Text(initiator.wszName), call.expected) << (call.disk == Disk(one) ? "first object" : "second object");
        CoTaskMemFree(initiator.wszName);
    }
    WriteScenario(kScenario);
}

} // namespace
} // namespace contract
