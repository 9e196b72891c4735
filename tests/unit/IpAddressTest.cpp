#include "front_end/Values.h"

#include <gtest/gtest.h>

namespace {

struct AddressCase {
    const wchar_t *text;
    bool valid;
};

TEST(IpAddressTest, DottedIpv4) {
    const AddressCase cases[] = {
        {L"0.0.0.0", true},
        {L"255.255.255.255", true},
        {L"10.20.1.11", true},
        {L"192.168.0.1", true},
        {L"1.2.3.4.5", false},       // one part too many
        {L"10.20.1", false},         // one part too few
        {L"10.20.1.", false},        // an empty last part
        {L".10.20.1.11", false},     // an empty first part
        {L"10..1.11", false},        // an empty inner part
        {L"256.1.1.1", false},       // a part over 255
        {L"1.1.1.256", false},       // ...in the last place too
        {L"1.1.1.1000", false},      // four digits
        {L"abc.def.ghi.jkl", false}, // letters
        {L"10.20.1.1a", false},      // letters after a valid part
        {L"0x0a.1.1.1", false},      // hexadecimal
        {L"010.1.1.1", false},       // a leading zero reads as octal elsewhere
        {L"1.1.1.00", false},
        {L"+1.1.1.1", false}, // signs
        {L"-1.1.1.1", false},
        {L" 1.1.1.1", false}, // blanks
        {L"1.1.1.1 ", false},
        {L"1.1.1.1\n", false},
        {L"1,1,1,1", false},
        {L"\xFF11.1.1.1", false}, // a fullwidth digit is not a digit here
        {L"167772161", false},    // one number for the whole address
        {L"::1", false},          // IPv6
        {L"", false},
        {nullptr, false},
    };
    for (const AddressCase &c : cases)
        EXPECT_EQ(IsValidIpv4Address(c.text), c.valid) << (c.text != nullptr ? c.text : L"(null)");
}

} // namespace
