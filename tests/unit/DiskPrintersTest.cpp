#include "commands/disk/DiskPrinters.h"
#include "commands/disk/LunPath.h"
#include "front_end/Console.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Captured {
    Captured() { CaptureOutput(&text); }
    ~Captured() { CaptureOutput(nullptr); }
    std::wstring text;
};

// A LUN with every optional field present.
struct SampleDisk {
    wchar_t unc[32] = L"\\\\filer1\\share\\lun1";
    wchar_t system[16] = L"filer1";
    wchar_t path[32] = L"/vol/vol0/lun1";
    wchar_t volume[64] = L"\\\\?\\Volume{1234}\\";
    char serial[16] = "C4e6SJ";
    wchar_t snapshot[16] = L"nightly";
    wchar_t e[2] = L"E";
    wchar_t folder[16] = L"F:\\mnt";
    wchar_t *mounts[2] = {e, folder};
    wchar_t ip1[16] = L"10.0.0.1";
    wchar_t ip2[16] = L"10.0.0.2";
    wchar_t *ips[2] = {ip1, ip2};
    DiskInfo disk = {};
    SampleDisk() {
        disk.dwType = 1;
        disk.dwPartitionStyle = 2;
        disk.wszUncPath = unc;
        disk.wszStorageSystem = system;
        disk.wszStorageSystemPath = path;
        disk.wszVolumeName = volume;
        disk.szSerialNumber = serial;
        disk.bBackedBySnapshot = 1;
        disk.wszSnapshotName = snapshot;
        disk.bShared = 1;
        disk.bySCSIPort = 3;
        disk.byBus = 0;
        disk.byTarget = 1;
        disk.byLun = 7;
        disk.llSize = 5368709120ll;
        disk.dwDiskId = 2;
        disk.dwMountPointCount = 2;
        disk.pwszMountPoints = mounts;
        disk.dwIpAddressCount = 2;
        disk.pwszIpAddresses = ips;
        disk.dwCloneSplitPercent = 0xFFFFFFFFu;
    }
};

const wchar_t *const kFullDisk = L"UNC Path: \\\\filer1\\share\\lun1\n"
                                 L"LUN Path: filer1:/vol/vol0/lun1\n"
                                 L"\tStorage System:\t\tfiler1\n"
                                 L"\tStorage System Path:\t/vol/vol0/lun1\n"
                                 L"\tType:\t\t\tlun\n"
                                 L"\tDisk serial number:\tC4e6SJ\n"
                                 L"\tBacked by Snapshot Copy:\tnightly\n"
                                 L"\tShared:\t\t\tYes\n"
                                 L"\tBootOrSystem Disk:\tNo\n"
                                 L"\tSCSI port:\t\t3\n"
                                 L"\tBus:\t\t\t0\n"
                                 L"\tTarget:\t\t\t1\n"
                                 L"\tLUN:\t\t\t7\n"
                                 L"\tReadonly:\t\tNo\n"
                                 L"\tSize:\t\t\t1073741824\n"
                                 L"\tReflexa Source:\tNo\n"
                                 L"\tArkhold Primary:\tNo\n"
                                 L"\tDisk Partition Style:\tGUID Partition Table (GPT)\n"
                                 L"\tClone Split Restore status: Normal\n"
                                 L"\tDiskID:\t\t\t2\n"
                                 L"\tVolume Name:\t\t\\\\?\\Volume{1234}\\\n"
                                 L"\tMount points:\t\tE:\\, F:\\mnt\n"
                                 L"\tIP Addresses:\t\t10.0.0.1, 10.0.0.2\n";

TEST(DiskPrintersTest, EveryFieldPresent) {
    SampleDisk sample;
    Captured out;
    PrintDiskInfo(sample.disk);
    EXPECT_EQ(out.text, kFullDisk);
}

TEST(DiskPrintersTest, FieldVariants) {
    const struct {
        void (*change)(DiskInfo &);
        const wchar_t *line;
        bool present;
    } cases[] = {
        {[](DiskInfo &d) { d.wszUncPath[0] = L'x', d.wszUncPath[1] = 0; }, L"UNC Path: None\n", true},
        {[](DiskInfo &d) { d.wszUncPath = nullptr; }, L"UNC Path: None\n", true},
        {[](DiskInfo &d) { d.dwType = 2; }, L"\tType:\t\t\t(null)\n", true},
        {[](DiskInfo &d) { d.szSerialNumber = nullptr; }, L"\tDisk serial number:\t(null)\n", true},
        {[](DiskInfo &d) { d.bBackedBySnapshot = 0; }, L"\tBacked by Snapshot Copy:\t\n", true},
        {[](DiskInfo &d) { d.llSize = 5120; }, L"\tSize:\t\t\t5120\n", true},
        {[](DiskInfo &d) { d.llSize = 0x80000000ll; }, L"\tSize:\t\t\t-2147483648\n", true},
        {[](DiskInfo &d) { d.dwPartitionStyle = 1; }, L"\tDisk Partition Style:\tMaster Boot Record (MBR)\n", true},
        {[](DiskInfo &d) { d.dwPartitionStyle = 3; }, L"\tDisk Partition Style:\tRaw\n", true},
        {[](DiskInfo &d) { d.dwPartitionStyle = 9; }, L"\tDisk Partition Style:\tUnknown\n", true},
        {[](DiskInfo &d) { d.dwCloneSplitPercent = 40; }, L"\tClone Split Restore progress percentage:40 \n", true},
        {[](DiskInfo &d) { d.dwCloneSplitPercent = 0; }, L"\tClone Split", false},
        {[](DiskInfo &d) { d.dwCloneSplitPercent = 0x80000000u; }, L"\tClone Split", false},
        {[](DiskInfo &d) { d.dwMountPointCount = 0; }, L"\tMount points:\t\t\n", true},
        {[](DiskInfo &d) { d.dwIpAddressCount = 1; }, L"\tIP Addresses:\t\t10.0.0.1\n", true},
    };
    for (const auto &c : cases) {
        SampleDisk sample;
        c.change(sample.disk);
        Captured out;
        PrintDiskInfo(sample.disk);
        EXPECT_EQ(out.text.find(c.line) != std::wstring::npos, c.present) << c.line << "\n"
                                                                          << std::string(out.text.begin(), out.text.end());
    }
}

TEST(DiskPrintersTest, ExtendedRecordNamesItsVirtualMachines) {
    SampleDisk sample;
    wchar_t vm1[8] = L"web01", vm2[8] = L"db01";
    VmUsage vms[2] = {};
    vms[0].wszVmName = vm1;
    vms[1].wszVmName = vm2;
    DiskInfoEx entry = {};
    entry.pDisk = &sample.disk;
    entry.bHyperVVhdPresent = 1;
    entry.pVms = vms;
    const struct {
        DWORD count;
        bool present;
        const wchar_t *lines;
    } cases[] = {
        {2, true, L"\tHyper-V VHD Present:\tYes\n\tHyper-V VMs Name:\tweb01, db01\n"},
        {1, true, L"\tHyper-V VHD Present:\tYes\n\tHyper-V VM Name:\tweb01\n"},
        {0, true, L"\tHyper-V VHD Present:\tYes\n"},
        {2, false, L"\tHyper-V VHD Present:\tNo\n"},
    };
    for (const auto &c : cases) {
        entry.dwVmCount = c.count;
        entry.bHyperVVhdPresent = c.present;
        Captured out;
        PrintDiskInfoEx(entry);
        std::wstring full = kFullDisk;
        const std::wstring afterPath = L"\tStorage System Path:\t/vol/vol0/lun1\n";
        full.insert(full.find(afterPath) + afterPath.size(), c.lines);
        EXPECT_EQ(out.text, full);
    }
}

TEST(DiskPrintersTest, Initiators) {
    wchar_t wwpn[32] = L"10:00:00:00:c9:2b:5a:01";
    InitiatorInfo fcp = {0, wwpn};
    InitiatorInfo iscsi = {1, wwpn};
    InitiatorInfo other = {2, wwpn};
    Captured out;
    PrintInitiatorInfo(L"", fcp);
    PrintInitiatorInfo(L"\t", iscsi);
    PrintInitiatorInfo(L"", other);
    const unsigned char port[8] = {0x10, 0, 0, 0, 0xc9, 0x2b, 0x5a, 0x0f};
    PrintFcpPortName(L"", port);
    EXPECT_EQ(out.text, L"FCP initiator WWPN:\t10:00:00:00:c9:2b:5a:01\n"
                        L"\tiSCSI initiator:\t10:00:00:00:c9:2b:5a:01\n"
                        L"Initiator FCP Port Name:\t10:00:00:00:c9:2b:5a:0f\n");
}

TEST(LunPathTest, LunPathForm) {
    const struct {
        const wchar_t *path;
        long status;
        const wchar_t *system;
        const wchar_t *onSystem;
    } cases[] = {
        {L"st1:/vol/vol0/lun1", 0, L"st1", L"/vol/vol0/lun1"},
        {L"st1:/vol/", 0, L"st1", L"/vol/"},
        {L":/vol/a/b", 0, L"", L"/vol/a/b"},
        {L"st1:/vol/a:b/c", 0, L"st1", L"/vol/a:b/c"},
        {L"st1:vol/vol0/lun1", kInvalidLunPath, L"", L""},
        {L"st1:/Vol/vol0/lun1", kInvalidLunPath, L"", L""},
        {L"st1:/VOL/vol0/lun1", kInvalidLunPath, L"", L""},
        {L"st1:x:/vol/a/b", kInvalidLunPath, L"", L""},
        {L"st1/vol/a", kInvalidLunPath, L"", L""},
        {L"", kInvalidLunPath, L"", L""},
        {nullptr, kInvalidLunPath, L"", L""},
    };
    for (const auto &c : cases) {
        LunLocation location;
        EXPECT_EQ(SplitLunPath(c.path, location), c.status) << (c.path ? c.path : L"(null)");
        EXPECT_EQ(location.storageSystem, c.system);
        EXPECT_EQ(location.storageSystemPath, c.onSystem);
    }
}

} // namespace
