// CorvaneRes.dll against MessageIds.h: every id the code can name has a text,
// the library holds no text that the code cannot name, and each text has the
// form that the way it is printed needs.
#include "MessageIds.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstring>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

HMODULE Library() {
    return GetModuleHandleW(L"CorvaneRes.dll");
}

std::wstring Text(unsigned id) {
    wchar_t buffer[2048] = {};
    LoadStringW(Library(), id, buffer, 2048);
    return buffer;
}

// Texts that reach the user through PrintLocalError: FormatMessageW, then a wprintf format.
const std::set<unsigned> kLocalErrorTexts = {
    // general ones, disks and snapshot copies
    MSG_PLEASE_WAIT, MSG_OPERATION_NOT_AVAILABLE, MSG_LUN_PATH_NOT_CONNECTED, MSG_INVALID_MOUNT_POINT, MSG_MOUNT_POINT_NOT_FOUND,
    MSG_INVALID_SNAPSHOT_NAME,
    // addresses, iSCSI sessions, log levels, preferred IPs
    MSG_INVALID_IP_ADDRESS, MSG_INVALID_IP_PORT, MSG_INVALID_LOG_LEVEL, MSG_SESSION_EXISTS, MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED,
    MSG_PREFERRED_IP_NOT_FOUND};

class MessageResourceTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(Library(), nullptr) << "CorvaneRes.dll must sit next to the test executable"; }
};

TEST_F(MessageResourceTest, IdsAndNamesAreUnique) {
    std::set<unsigned> ids;
    std::set<std::string> names;
    for (const MessageIdName &message : kAllMessageIds) {
        EXPECT_TRUE(ids.insert(message.id).second) << "id used twice: " << message.id;
        EXPECT_TRUE(names.insert(message.name).second) << "name listed twice: " << message.name;
    }
}

BOOL CALLBACK CollectStringBlock(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR context) {
    if (IS_INTRESOURCE(name))
        reinterpret_cast<std::set<unsigned> *>(context)->insert(static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(name)));
    return TRUE;
}

// A text in the library that no name reaches would be dead, or an id typed
// into the script by mistake.
TEST_F(MessageResourceTest, LibraryHoldsOnlyListedIds) {
    std::set<unsigned> blocks;
    EnumResourceNamesW(Library(), MAKEINTRESOURCEW(6) /* RT_STRING */, CollectStringBlock, reinterpret_cast<LONG_PTR>(&blocks));
    ASSERT_FALSE(blocks.empty());
    std::set<unsigned> listed;
    for (const MessageIdName &message : kAllMessageIds)
        listed.insert(message.id);
    unsigned found = 0;
    for (unsigned block : blocks) {
        for (unsigned id = (block - 1) * 16; id < block * 16; ++id) {
            if (Text(id).empty())
                continue;
            ++found;
            EXPECT_EQ(listed.count(id), 1u) << "text without a name in MessageIds.h: " << id;
        }
    }
    EXPECT_EQ(found, listed.size());
}

// The resource script sees only the #defines, the code walks the list: the two must name the same ids.
TEST_F(MessageResourceTest, DefinesAndListAgree) {
    std::string header = __FILE__;
    const std::string self = "tests/unit/MessageResourceTest.cpp";
    ASSERT_GT(header.size(), self.size());
    header.replace(header.size() - self.size(), self.size(), "resources/MessageIds.h");
    std::ifstream in(header);
    ASSERT_TRUE(in.good()) << "cannot read " << header;

    std::map<std::string, unsigned> defined;
    const std::regex define(R"(^\s*#define\s+(MSG_\w+)\s+(\d+)\b)");
    std::string line;
    std::smatch match;
    while (std::getline(in, line))
        if (std::regex_search(line, match, define))
            defined[match[1]] = static_cast<unsigned>(std::stoul(match[2]));

    std::map<std::string, unsigned> listed;
    for (const MessageIdName &message : kAllMessageIds)
        listed[message.name] = message.id;
    EXPECT_EQ(defined, listed);
}

// Local errors pass FormatMessageW (inserts, %n, %%) and then wprintf (every
// %): a text must come out of both unchanged, apart from its line ends, and
// end its line.
TEST_F(MessageResourceTest, LocalErrorTextsSurviveBothFormatters) {
    for (unsigned id : kLocalErrorTexts) {
        const std::wstring text = Text(id);
        ASSERT_FALSE(text.empty()) << id;
        EXPECT_EQ(text.back(), L'\n') << id;
        EXPECT_EQ(text.find(L'%'), std::wstring::npos) << id;
        wchar_t *formatted = nullptr;
        DWORD length =
            FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_STRING, text.c_str(), 0,
                           MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<LPWSTR>(&formatted), 0, nullptr);
        ASSERT_NE(length, 0u) << id;
        wchar_t printed[2048] = {};
        _snwprintf(printed, 2047, formatted);
        LocalFree(formatted);
        // FormatMessageW writes line ends as CR LF; nothing else may change.
        std::wstring result = printed;
        for (size_t at = result.find(L"\r\n"); at != std::wstring::npos; at = result.find(L"\r\n", at))
            result.erase(at, 1);
        EXPECT_EQ(result, text) << id;
    }
}

// Every other text is followed by more output on the same line: the separator
// and the cause, " ...", or nothing at all before the next event line.
TEST_F(MessageResourceTest, OtherTextsDoNotEndTheLine) {
    for (const MessageIdName &message : kAllMessageIds) {
        if (kLocalErrorTexts.count(message.id) != 0 || message.id == MSG_OPERATION_COMPLETED)
            continue;
        EXPECT_EQ(Text(message.id).find(L'\n'), std::wstring::npos) << message.name;
    }
}

TEST_F(MessageResourceTest, CompletionLineIsAPlainFormat) {
    const std::wstring text = Text(MSG_OPERATION_COMPLETED);
    EXPECT_EQ(text.find(L'%'), std::wstring::npos);
    EXPECT_EQ(text.back(), L'\n');
}

} // namespace
