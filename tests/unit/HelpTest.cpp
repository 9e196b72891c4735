#include "front_end/Help.h"
#include "app/Operations.h"
#include "front_end/Console.h"
#include "front_end/Process.h"
#include "front_end/Words.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

// Captures what the printers write, under a chosen program name.
class HelpTest : public testing::Test {
protected:
    void SetUp() override {
        wcscpy_s(savedName_, g_programName);
        SetName(L"cvcli");
        CaptureOutput(&out_);
    }
    void TearDown() override {
        CaptureOutput(nullptr);
        wcscpy_s(g_programName, savedName_);
    }
    static void SetName(const wchar_t *name) { wcscpy_s(g_programName, name); }
    std::wstring Take() { return std::exchange(out_, std::wstring()); }

private:
    std::wstring out_;
    wchar_t savedName_[_MAX_FNAME] = {};
};

// The general usage, the snap, hidden and fcp_initiator lists and the program
// name at every level are compared literally by the end-to-end cases
// (foundation.py); these are the lists that no case prints.

// The name comes from any path the program was started by, however long.
TEST_F(HelpTest, TheProgramNameComesFromAnyPath) {
    const std::wstring deep = L"C:\\" + std::wstring(300, L'd') + L"\\tools\\CorVane-Admin.EXE";
    const struct {
        const wchar_t *argv0;
        const wchar_t *name;
    } cases[] = {
        {L"cvcli", L"cvcli"},
        {L"C:\\Program Files\\Corvane\\CVCLI.exe", L"cvcli"},
        {L"Z:/opt/bin/store.tool.exe", L"store.tool"},
        {L"D:cvcli.exe", L"cvcli"},
        {deep.c_str(), L"corvane-admin"},
    };
    for (const auto &c : cases) {
        SetProgramName(c.argv0);
        PrintGeneralUsage();
        EXPECT_NE(Take().find(std::wstring(L"\"") + c.name + L" help <command>\""), std::wstring::npos) << c.argv0;
    }
}

TEST_F(HelpTest, CommandUsageTexts) {
    const struct {
        unsigned command;
        const wchar_t *expected;
    } cases[] = {
        {cmd::IGroup, L"\nThe igroup command performs operations on Initiator group. The following operations are "
                      L"available:\n\n\tlist\tcreate\trename\tdelete\n\n"
                      L"For information about an individual operation type \"cvcli igroup help <operation>\"\n"},
        {cmd::SpaceReclaimer, L"\nThe spacereclaimer command performs operations on Space Reclamation. The following "
                              L"operations are available:\n\n\tstart\tstop\tanalyze\tstatus\n\n"
                              L"For information about an individual operation type \"cvcli spacereclaimer help "
                              L"<operation>\"\n"},
        {cmd::TransportProtocol, L"\nThe transport_protocol command performs operations related to transport protocol "
                                 L"configuration. The following operations are available:\n\n\tlist\tset\tdelete\n\n"
                                 L"For information about an individual operation type \"cvcli transport_protocol help "
                                 L"<operation>\"\n"},
        {cmd::HyperV, L"\nThe hyperv command performs operations on Hyper-V virtual machines. The following operations "
                      L"are available:\n\tlist\n\n"
                      L"For information about an individual operation type \"cvcli hyperv help <operation>\"\n"},
        // Ids without a case print nothing: help itself, the unused 8, and unknown ones.
        {cmd::Help, L""},
        {8, L""},
        {cmd::None, L""},
        {99, L""},
    };
    for (const auto &c : cases) {
        PrintCommandUsage(Operations(), c.command);
        EXPECT_EQ(Take(), c.expected) << c.command;
    }
}

TEST_F(HelpTest, DatasetOperationsComeInThreeColumns) {
    PrintCommandUsage(Operations(), cmd::Dataset);
    std::wstring text = Take();
    const std::wstring heading = L"\nThe dataset command performs operations on a dataset and related objects. The "
                                 L"following operations are available:\n";
    ASSERT_EQ(text.rfind(heading, 0), 0u);
    const size_t footer = text.find(L"\n\nFor information about an individual operation type \"cvcli dataset help");
    ASSERT_NE(footer, std::wstring::npos);
    std::wistringstream rows(text.substr(heading.size(), footer - heading.size()));
    std::vector<std::wstring> words;
    std::wstring row;
    unsigned rowCount = 0;
    while (std::getline(rows, row)) {
        ++rowCount;
        ASSERT_EQ(row.size() % 31, 0u) << "fields are a tab and 30 columns: [" << row.size() << "]";
        const size_t fields = row.size() / 31;
        EXPECT_TRUE(fields == 3 || (fields == 2 && words.size() == 30)) << rowCount;
        for (size_t i = 0; i < fields; ++i) {
            std::wstring field = row.substr(i * 31, 31);
            ASSERT_EQ(field[0], L'\t');
            words.push_back(field.substr(1, field.find_last_not_of(L' ')));
        }
    }
    EXPECT_EQ(rowCount, 11u);
    ASSERT_EQ(words.size(), 32u);
    EXPECT_EQ(words.front(), L"list_members");
    EXPECT_EQ(words.back(), L"get_backup_version_info");
}

// The usage of every operation that can fail on its switches is compared
// literally by the end-to-end cases; these are the ones that cannot, and pairs
// without a row, which print nothing.
TEST_F(HelpTest, OperationUsageTexts) {
    const std::wstring local = L"If the machine name is not specified the command is executed on a local machine.\n";
    const struct {
        unsigned command, operation;
        std::wstring expected;
    } cases[] = {
        {cmd::HyperV, op::List,
         L"cvcli hyperv list [-m <MachineName>] [-detail]\nLists all Hyper-V virtual machines and their attributes.\n"
         L"If the Hyper-V virtual machine VHDs are configured on Talvex LUNs, -detail switch will provide the LUN details.\n" +
             local},
        {cmd::FcpInitiator, op::List,
         L"cvcli fcp_initiator list [-m MachineName]\nLists the Fibre Channel (FCP) initiators of the host.\n" + local},
        {cmd::PreferredIP, op::List,
         L"cvcli preferredIP list [-m MachineName]\nLists the preferred IP address of each storage system.\n" + local},
        {cmd::TransportProtocol, op::List,
         L"cvcli transport_protocol list [-m MachineName]\nLists the default transport protocol and the protocol of each "
         L"storage system.\n" +
             local},
        {cmd::Snap, op::Start, L""},
        {cmd::Help, op::List, L""},
        {cmd::FcpInitiator, op::Create, L""},
        {cmd::None, op::None, L""},
    };
    for (const auto &c : cases) {
        PrintOperationUsage(Operations(), c.command, c.operation);
        EXPECT_EQ(Take(), c.expected) << c.command << "/" << c.operation;
    }
}

} // namespace
