#include "commands/common/DiskPrinters.h"
#include "front_end/Console.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Captured {
    Captured() { CaptureOutput(&text); }
    ~Captured() { CaptureOutput(nullptr); }
    std::wstring text;
};

// Every listing line of a disk is checked end to end (tests/e2e/cases/disk_list.py);
// these are the printers no listing reaches yet.
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

} // namespace
