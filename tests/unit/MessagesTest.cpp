#include "front_end/Messages.h"
#include "MessageIds.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <string>

namespace {

constexpr unsigned kStepMessage = MSG_LIST_DISKS_FAILED;

std::wstring Prefix(unsigned messageId) {
    return LoadMessageText(messageId, 2048) + LoadMessageText(MSG_ERROR_SEPARATOR, 20);
}

// The system's own text, looked up the way the tool does: Wine's wording
// differs from Windows', so tests never compare with literal system texts.
std::wstring SystemText(const wchar_t *module, DWORD id) {
    Library library(LoadLibraryW(module));
    LocalText text;
    DWORD n = FormatMessageW(0x1B00, library.Get(), id, 0, reinterpret_cast<LPWSTR>(text.Receive()), 256, nullptr);
    return n == 0 ? std::wstring() : std::wstring(text.Get());
}

TEST(MessagesTest, ResourceLibraryIsLoaded) {
    ASSERT_NE(ResourceModule(), nullptr) << "CorvaneRes.dll must sit next to the test executable";
    EXPECT_FALSE(LoadMessageText(MSG_SERVICE_UNAVAILABLE).empty());
    EXPECT_FALSE(LoadMessageText(MSG_ERROR_SEPARATOR).empty());
}

TEST(MessagesTest, Win32ErrorUsesKernelText) {
    SetErrorInfo(0, nullptr);
    AlertUserException e(kStepMessage, HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    std::wstring system = SystemText(L"Kernel32.DLL", ERROR_FILE_NOT_FOUND);
    ASSERT_FALSE(system.empty());
    EXPECT_EQ(std::wstring(e.Text()), Prefix(kStepMessage) + system);
    EXPECT_EQ(e.Hresult(), static_cast<HRESULT>(0x80070002));
}

TEST(MessagesTest, ZeroResultLeavesTextEmpty) {
    AlertUserException e(kStepMessage, S_OK);
    ASSERT_NE(e.Text(), nullptr);
    EXPECT_EQ(std::wstring(e.Text()), L"");
}

TEST(MessagesTest, OtherFacilitiesAskTheSystemAlone) {
    SetErrorInfo(0, nullptr);
    const HRESULT hr = static_cast<HRESULT>(0x80ABCDEF); // facility 0xAB: nobody knows it
    wchar_t buffer[2048] = {};
    AppendSystemErrorText(hr, buffer, 2048);
    wchar_t number[17] = {};
    _itow(static_cast<int>(hr), number, 17);
    EXPECT_EQ(std::wstring(buffer), LoadMessageText(MSG_UNKNOWN_ERROR, 256) + number);
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
