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

// Every listing line of a disk and of the initiators is checked end to end
// (tests/e2e/cases/disk_list.py, fcp.py); this printer no listing reaches yet.
TEST(DiskPrintersTest, FcpPortName) {
    Captured out;
    const unsigned char port[8] = {0x10, 0, 0, 0, 0xc9, 0x2b, 0x5a, 0x0f};
    PrintFcpPortName(L"\t", port);
    EXPECT_EQ(out.text, L"\tInitiator FCP Port Name:\t10:00:00:00:c9:2b:5a:0f\n");
}

} // namespace
