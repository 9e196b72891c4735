#include "front_end/CommandLine.h"
#include "Arguments.h"
#include "front_end/Switches.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(CommandLineTest, AccessorKinds) {
    struct Case {
        std::vector<std::wstring> words;
        unsigned port;
        const wchar_t *sdv;
        bool update;
        const wchar_t *password;
        bool debug;
    };
    const Case cases[] = {
        {{}, 0xFFFFFFFFu, L"", true, nullptr, false},
        {{L"-port", L"443", L"-sdv", L"vol0", L"-u", L"no", L"-pwd", L"secret", L"-break"}, 443, L"vol0", false, L"secret", true},
        {{L"-port", L"abc", L"-u", L"NO", L"-pwd", L"-debug"}, 0, L"", false, L"", true},
        {{L"-port", L"1", L"2", L"-u", L"false", L"-pwd", L"a", L"b"}, 0xFFFFFFFFu, L"", true, L"", false},
        {{L"-u", L"yes", L"no"}, 0xFFFFFFFFu, L"", true, nullptr, false},
    };
    for (const Case &c : cases) {
        Arguments args(c.words);
        CCommandLine cl(args.pointers.data());
        EXPECT_EQ(cl.SingleNumber(sw::port), c.port);
        EXPECT_STREQ(cl.SingleValueOrEmpty(sw::sdv), c.sdv);
        EXPECT_EQ(cl.YesUnlessNo(), c.update);
        if (c.password == nullptr)
            EXPECT_EQ(cl.Password(), nullptr);
        else
            EXPECT_STREQ(cl.Password(), c.password);
        EXPECT_EQ(cl.DebugOrBreak(), c.debug);
    }
}

TEST(CommandLineTest, SingleValueIntoLeavesTheStringAloneWhenAbsent) {
    Arguments args({L"-k", L"E:", L"-o", L"a", L"b"});
    CCommandLine cl(args.pointers.data());
    std::wstring value = L"unchanged";
    EXPECT_FALSE(cl.SingleValueInto(sw::o, value));
    EXPECT_EQ(value, L"unchanged");
    EXPECT_TRUE(cl.SingleValueInto(sw::k, value));
    EXPECT_EQ(value, L"E:");
}

TEST(CommandLineTest, AThousandRepeatedSwitchesMerge) {
    std::vector<std::wstring> words;
    for (int i = 0; i < 1000; ++i) {
        words.push_back(L"-D");
        words.push_back(L"E" + std::to_wstring(i));
    }
    Arguments args(words);
    CCommandLine cl(args.pointers.data());
    ASSERT_EQ(cl.List(sw::D).size(), 1000u);
    EXPECT_EQ(cl.List(sw::D)[999], L"E999");
}

} // namespace
