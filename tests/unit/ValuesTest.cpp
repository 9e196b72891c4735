#include "front_end/Values.h"

#include <gtest/gtest.h>

namespace {

struct SizeCase {
    const wchar_t *text;
    bool ok;
    uint64_t value;
};

TEST(ValuesTest, SizeInBytes) {
    const SizeCase cases[] = {
        {L"10GB", true, 10737418240ull},
        {L"10gb", true, 10737418240ull},
        {L"10Kb", true, 10240},
        {L"3tB", true, 3ull << 40},
        {L"512", true, 512},
        {L"10G", false, 0},   // a one-letter suffix is no suffix
        {L"1.5GB", false, 0}, // decimals are refused
        {L"-5MB", false, 0},  // so are negative numbers
        {L"5 MB", false, 0},
        {L"gb", false, 0},                   // two characters: no suffix, letters in the number
        {L"12345678901234567890", false, 0}, // 20 digits
        {L"1234567890123456789", true, 1234567890123456789ull},
        {L"16777216TB", true, 0}, // the shift wraps without complaint
        {L"12#4", true, 12},      // conversion stops at a character that is no letter
        {L"", true, 0},
    };
    for (const SizeCase &c : cases) {
        uint64_t value = 99;
        EXPECT_EQ(ParseSize(c.text, value), c.ok) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
}

TEST(ValuesTest, SizeFormat) {
    EXPECT_EQ(FormatSize(1610612736ull), L"1536MB");
    EXPECT_EQ(FormatSize(2ull << 40), L"2TB");
    EXPECT_EQ(FormatSize((1ull << 30) + (512ull << 10)), L"1024MB");
    EXPECT_EQ(FormatSize(3ull << 30), L"3GB");
    EXPECT_EQ(FormatSize(1000), L"0MB");
}

TEST(ValuesTest, WordsAndPercentages) {
    EXPECT_EQ(ParseBoolean(L"Enabled"), 1u);
    EXPECT_EQ(ParseBoolean(L"TRUE"), 1u);
    EXPECT_EQ(ParseBoolean(L"1"), 1u);
    EXPECT_EQ(ParseBoolean(L"disabled"), 0u);
    EXPECT_EQ(ParseBoolean(L"0"), 0u);
    EXPECT_EQ(ParseBoolean(L"yes"), kInvalidValue);
    EXPECT_EQ(ParseBoolean(nullptr), kInvalidValue);

    EXPECT_EQ(ParsePercentage(L"100"), 100u);
    EXPECT_EQ(ParsePercentage(L"0"), 0u);
    EXPECT_EQ(ParsePercentage(L""), 0u);
    EXPECT_EQ(ParsePercentage(L"101"), kInvalidValue);
    EXPECT_EQ(ParsePercentage(L"50%"), kInvalidValue);
    EXPECT_EQ(ParsePercentage(L"-1"), kInvalidValue);
    EXPECT_EQ(ParsePercentage(L"5.5"), kInvalidValue);

    unsigned level = 99;
    EXPECT_TRUE(ParseLogLevel(L"Warning", level));
    EXPECT_EQ(level, 4u);
    EXPECT_TRUE(ParseLogLevel(L"emergency", level));
    EXPECT_EQ(level, 0u);
    EXPECT_FALSE(ParseLogLevel(L"verbose", level));
    unsigned app = 0;
    EXPECT_TRUE(ParseApplicationName(L"AppKeeper_SQL", app));
    EXPECT_EQ(app, 21u);
    EXPECT_FALSE(ParseApplicationName(L"appkeeper", app));
}

TEST(ValuesTest, Paths) {
    EXPECT_TRUE(HasValidPathCharacters(L"/vol/vol1/lun1"));
    EXPECT_TRUE(HasValidPathCharacters(L"\\\\st1\\share\\lun_1.lun"));
    EXPECT_FALSE(HasValidPathCharacters(L"/vol/vol 1/lun"));
    EXPECT_FALSE(HasValidPathCharacters(L"C:\\mnt"));
    EXPECT_FALSE(HasValidPathCharacters(L"x/vol/a")); // "/vol/" not at the start: back-slash set
    EXPECT_FALSE(HasValidPathCharacters(L"/vol/a\\b"));
    EXPECT_FALSE(HasValidPathCharacters(nullptr));
}

} // namespace
