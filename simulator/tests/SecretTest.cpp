#include "simulator/Secret.h"

#include <gtest/gtest.h>

namespace sim {
namespace {

TEST(Secret, Sha256KnownAnswers) {
    // Lengths around the padding boundaries (55, 56 and 64 bytes) included.
    const struct {
        std::string input;
        const char *digest;
    } cases[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {std::string(55, 'a'), "9f4390f8d30c2dd92ec9f095b65e2b9ae9b0a925a5258e241c9f1e910f734318"},
        {std::string(64, 'a'), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Sha256Hex(c.input), c.digest) << c.input.size();
}

TEST(Secret, LogsTheDigestOfTheUtf16TextNeverTheText) {
    EXPECT_TRUE(LogSecret(nullptr).is_null());
    // "ab" as UTF-16LE is 61 00 62 00.
    EXPECT_EQ(LogSecret(L"ab"), "sha256:" + Sha256Hex(std::string("a\0b\0", 4)));
    EXPECT_EQ(LogSecret(L""), "sha256:" + Sha256Hex(""));
    EXPECT_EQ(LogSecret(L"\x00e9\x0008"), "sha256:" + Sha256Hex(std::string("\xe9\0\x08\0", 4)));
}

} // namespace
} // namespace sim
