#include "front_end/Messages.h"
#include "MessageIds.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// How an alert is composed (message, separator, the system's text or the
// unknown-error text in radix 17) is compared end to end for every failure
// code the cases use; these are what no case shows.
constexpr unsigned kStepMessage = MSG_LIST_DISKS_FAILED;

TEST(MessagesTest, ZeroResultLeavesTextEmpty) {
    AlertUserException e(kStepMessage, S_OK);
    ASSERT_NE(e.Text(), nullptr);
    EXPECT_EQ(std::wstring(e.Text()), L"");
}

TEST(MessagesTest, MessageFilePathIsInTheProgramDirectory) {
    CoTaskPtr<wchar_t> path(MessageFilePath(MSG_MESSAGE_FILE_NAME));
    ASSERT_TRUE(path);
    std::wstring text = path.Get();
    std::wstring name = LoadMessageText(MSG_MESSAGE_FILE_NAME, 100);
    ASSERT_GE(text.size(), name.size() + 1);
    EXPECT_EQ(text.substr(text.size() - name.size() - 1), L"\\" + name);
}

} // namespace
