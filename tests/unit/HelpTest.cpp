#include "front_end/Help.h"
#include "app/Operations.h"
#include "front_end/Console.h"
#include "front_end/Process.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <set>
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

unsigned CountConversions(const wchar_t *format, bool *stray) {
    unsigned count = 0;
    for (const wchar_t *p = format; *p != L'\0'; ++p) {
        if (p[0] != L'%')
            continue;
        if (p[1] == L's')
            ++count;
        else if (p[1] != L'%')
            *stray = true;
        ++p;
    }
    return count;
}

std::wstring FirstLine(const std::wstring &text) {
    return text.substr(0, text.find(L'\n') + 1);
}

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

// Formats are filled by position: one "%s" too many or too few shifts every
// word after it, and any other conversion would read a missing argument.
TEST_F(HelpTest, UsageFormatsMatchTheirSwitches) {
    for (unsigned i = 0; i < Operations().Count(); ++i) {
        const OperationRow &usage = Operations().At(i);
        const std::wstring where = std::wstring(CommandWord(usage.command)) + L" " + OperationWord(usage.operation);
        unsigned switches = 0;
        while (switches < 16 && usage.syntaxSwitches[switches] != nullptr)
            ++switches;
        bool stray = false;
        EXPECT_EQ(CountConversions(usage.syntax, &stray), 3 + switches) << where.c_str();
        EXPECT_EQ(std::wstring(usage.syntax).rfind(L"%s %s %s ", 0), 0u) << where.c_str();
        EXPECT_EQ(std::wstring(usage.syntax).back(), L'\n') << where.c_str();
        EXPECT_NE(usage.lines[0].format, nullptr) << "no description: " << where.c_str();
        for (const UsageLine &line : usage.lines) {
            if (line.format == nullptr)
                break;
            EXPECT_EQ(CountConversions(line.format, &stray), line.switchWord != nullptr ? 1u : 0u) << where.c_str();
            EXPECT_EQ(std::wstring(line.format).back(), L'\n') << where.c_str();
        }
        EXPECT_FALSE(stray) << "a conversion other than %s: " << where.c_str();
    }
}

TEST_F(HelpTest, UsageSwitchesAreKnownSwitchWords) {
    std::set<std::wstring> known(std::begin(sw::kAll), std::end(sw::kAll));
    for (unsigned i = 0; i < Operations().Count(); ++i) {
        const OperationRow &usage = Operations().At(i);
        for (const wchar_t *word : usage.syntaxSwitches) {
            if (word != nullptr) {
                EXPECT_EQ(known.count(word), 1u) << OperationWord(usage.operation) << ": " << word;
            }
        }
        for (const UsageLine &line : usage.lines) {
            if (line.format != nullptr && line.switchWord != nullptr) {
                EXPECT_EQ(known.count(line.switchWord), 1u) << OperationWord(usage.operation) << ": " << line.switchWord;
            }
        }
    }
}

// An operation that takes the machine switch ends with the local-machine line.
// snap mount says it in its own words; mirror_list takes -m without showing it.
TEST_F(HelpTest, MachineLineFollowsTheMachineSwitch) {
    for (unsigned i = 0; i < Operations().Count(); ++i) {
        const OperationRow &usage = Operations().At(i);
        if (usage.command == cmd::Snap && (usage.operation == op::Mount || usage.operation == op::MirrorList))
            continue;
        bool takesMachine = false;
        for (const wchar_t *word : usage.syntaxSwitches)
            takesMachine = takesMachine || (word != nullptr && wcscmp(word, sw::m) == 0);
        EXPECT_EQ(usage.machineLine, takesMachine) << CommandWord(usage.command) << " " << OperationWord(usage.operation);
    }
}

constexpr const wchar_t *kLocal = L"If the machine name is not specified the command is executed on a local machine.\n";

// The usage of every operation that can fail on its switches is compared
// literally by the end-to-end cases; these are the ones that cannot.
TEST_F(HelpTest, QuotedBlocksPrintExactly) {
    const struct {
        unsigned command;
        unsigned operation;
        std::wstring expected;
    } cases[] = {
        {cmd::HyperV, op::List,
         std::wstring(L"cvcli hyperv list [-m <MachineName>] [-detail]\n"
                      L"Lists all Hyper-V virtual machines and their attributes.\n"
                      L"If the Hyper-V virtual machine VHDs are configured on Talvex LUNs, -detail switch will provide "
                      L"the LUN details.\n") +
             kLocal},
    };
    for (const auto &c : cases) {
        PrintOperationUsage(Operations(), c.command, c.operation);
        EXPECT_EQ(Take(), c.expected) << OperationWord(c.operation);
    }
}

TEST_F(HelpTest, QuotedSyntaxLines) {
    const struct {
        unsigned command;
        unsigned operation;
        const wchar_t *expected;
    } cases[] = {
        {cmd::FcpInitiator, op::List, L"cvcli fcp_initiator list [-m MachineName]\n"},
        {cmd::PreferredIP, op::List, L"cvcli preferredIP list [-m MachineName]\n"},
        {cmd::TransportProtocol, op::List, L"cvcli transport_protocol list [-m MachineName]\n"},
    };
    for (const auto &c : cases) {
        PrintOperationUsage(Operations(), c.command, c.operation);
        EXPECT_EQ(FirstLine(Take()), c.expected) << OperationWord(c.operation);
    }
}

TEST_F(HelpTest, PairWithoutUsagePrintsNothing) {
    const std::pair<unsigned, unsigned> cases[] = {
        {cmd::Snap, op::Start}, {cmd::Help, op::List}, {cmd::FcpInitiator, op::Create}, {cmd::None, op::None}};
    for (const auto &c : cases) {
        PrintOperationUsage(Operations(), c.first, c.second);
        EXPECT_EQ(Take(), L"") << c.first << "/" << c.second;
    }
}

} // namespace
