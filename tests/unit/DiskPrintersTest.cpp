#include "commands/common/DiskPrinters.h"
#include "front_end/Console.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// Every listing line of a disk and of the initiators is checked end to end
// (tests/e2e/cases/disk_list.py, fcp.py); this printer no listing reaches yet.
TEST(DiskPrintersTest, FcpPortName) {
    std::wstring text;
    CaptureOutput(&text);
    const unsigned char port[8] = {0x10, 0, 0, 0, 0xc9, 0x2b, 0x5a, 0x0f};
    PrintFcpPortName(L"\t", port);
    CaptureOutput(nullptr);
    EXPECT_EQ(text, L"\tInitiator FCP Port Name:\t10:00:00:00:c9:2b:5a:0f\n");
}

} // namespace
