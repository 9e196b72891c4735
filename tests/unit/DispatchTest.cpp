#include "app/Dispatch.h"
#include "MessageIds.h"
#include "app/Operations.h"
#include "front_end/Exceptions.h"
#include "front_end/Help.h"
#include "front_end/Operation.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

std::wstring Upper(const wchar_t *word) {
    std::wstring text = word;
    for (wchar_t &c : text)
        c = static_cast<wchar_t>(towupper(c));
    return text;
}

TEST(WordsTest, EveryWordMapsToItsIdInAnyCase) {
    for (unsigned i = 0; i < g_commandWordCount; ++i) {
        EXPECT_EQ(GetCommandId(g_commandWords[i].word), g_commandWords[i].id);
        EXPECT_EQ(GetCommandId(Upper(g_commandWords[i].word).c_str()), g_commandWords[i].id);
    }
    for (unsigned i = 0; i < g_operationWordCount; ++i) {
        EXPECT_EQ(GetOperationId(g_operationWords[i].word), g_operationWords[i].id);
        EXPECT_EQ(GetOperationId(Upper(g_operationWords[i].word).c_str()), g_operationWords[i].id);
    }
}

TEST(WordsTest, UnknownAndMissingWordsGiveZero) {
    for (const wchar_t *word : {L"", L"frobnicate", L"snapx", L"-m", L"lïst", L"list "})
        EXPECT_EQ(GetOperationId(word), 0u) << word;
    EXPECT_EQ(GetCommandId(nullptr), 0u);
    EXPECT_EQ(GetOperationId(nullptr), 0u);
    EXPECT_EQ(GetCommandId(L"preferredip"), 10u); // command words ignore case too
    EXPECT_EQ(GetCommandId(L"fcp"), 0u);
}

// Where each switch of a syntax line stands: bare, inside [...] or inside {...}.
std::vector<SwitchNeed> ShownNeeds(const wchar_t *syntax, bool *stray) {
    std::vector<SwitchNeed> needs;
    int squares = 0, braces = 0, conversions = 0;
    for (const wchar_t *p = syntax; *p != L'\0'; ++p) {
        squares += *p == L'[' ? 1 : *p == L']' ? -1 : 0;
        braces += *p == L'{' ? 1 : *p == L'}' ? -1 : 0;
        if (*p != L'%')
            continue;
        *stray = *stray || p[1] != L's';
        if (++conversions > 3)
            needs.push_back(squares > 0 ? SwitchNeed::Optional : braces > 0 ? SwitchNeed::Alternative : SwitchNeed::Required);
        ++p;
    }
    return needs;
}

// The one table checked against itself, the words, the messages and the
// dispatch rules, row by row: every row names known words and has one pair of
// its own; its syntax line shows exactly its switches, each where its need
// says (required bare, optional in [...], an alternative in {...}; a switch
// required only sometimes is shown optional, a hidden one not at all); each
// usage line names a declared switch; a dispatched row says how each switch is
// read and which known message a missing one shows; a shown -m is followed by
// the machine line unless the row's own lines say the local machine is
// implied, and only a row that reads -m has that line; and a command whose unknown pairs print the general usage has no handler.
TEST(OperationTableTest, TheTableAgreesWithItselfAndTheWords) {
    std::set<std::pair<unsigned, unsigned>> pairs;
    const std::set<std::wstring> known(std::begin(sw::kAll), std::end(sw::kAll));
    std::set<unsigned> messages;
    for (const MessageIdName &message : kAllMessageIds)
        messages.insert(message.id);
    for (unsigned i = 0; i < Operations().Count(); ++i) {
        const OperationRow &row = Operations().At(i);
        ASSERT_TRUE(CommandWord(row.command) != nullptr && OperationWord(row.operation) != nullptr) << row.command;
        SCOPED_TRACE(std::wstring(CommandWord(row.command)) + L" " + OperationWord(row.operation));
        EXPECT_TRUE(pairs.insert({row.command, row.operation}).second);
        EXPECT_NE(FindCommandHelp(row.command), nullptr);
        if (UnlistedPairBehaviour(row.command) == UnlistedPair::GeneralUsage) {
            EXPECT_EQ(row.handler, nullptr);
        }
        const bool dispatched = row.handler != nullptr && row.handler != OperationNotAvailable;
        bool stray = false;
        const std::vector<SwitchNeed> shown = ShownNeeds(row.syntax, &stray);
        EXPECT_EQ(std::wstring(row.syntax).rfind(L"%s %s %s", 0), 0u);
        EXPECT_EQ(std::wstring(row.syntax).back(), L'\n');
        size_t next = 0;
        bool showsMachine = false, readsMachine = false;
        std::set<std::wstring> declared;
        for (const SwitchSpec &spec : row.switches) {
            if (spec.word == nullptr)
                break;
            EXPECT_TRUE(known.count(spec.word) == 1 && declared.insert(spec.word).second) << spec.word;
            readsMachine = readsMachine || spec.kind == SwitchKind::Machine;
            showsMachine = showsMachine || (spec.kind == SwitchKind::Machine && spec.need != SwitchNeed::Hidden);
            if (spec.need != SwitchNeed::Hidden) {
                const SwitchNeed expected = spec.need == SwitchNeed::Sometimes ? SwitchNeed::Optional : spec.need;
                EXPECT_TRUE(next < shown.size() && shown[next] == expected) << spec.word << " as shown";
                ++next;
            }
            EXPECT_TRUE(spec.kind == SwitchKind::Machine || (spec.kind == SwitchKind::Described) != dispatched) << spec.word;
            const bool needed = spec.need != SwitchNeed::Optional && spec.need != SwitchNeed::Hidden;
            EXPECT_TRUE(spec.message == 0 ? !(needed && dispatched) : messages.count(spec.message) == 1) << spec.word;
        }
        EXPECT_EQ(next, shown.size()) << "switches shown but not declared";
        EXPECT_NE(row.lines[0].format, nullptr) << "no description";
        bool saysLocalMachine = false;
        for (const UsageLine &line : row.lines) {
            if (line.format == nullptr)
                break;
            saysLocalMachine = saysLocalMachine || std::wstring(line.format).find(L"local machine") != std::wstring::npos;
            const std::vector<SwitchNeed> conversions = ShownNeeds((L"%s %s %s " + std::wstring(line.format)).c_str(), &stray);
            EXPECT_EQ(conversions.size(), line.switchWord != nullptr ? 1u : 0u) << line.format;
            EXPECT_EQ(std::wstring(line.format).back(), L'\n') << line.format;
            EXPECT_TRUE(line.switchWord == nullptr || declared.count(line.switchWord) == 1) << line.format;
        }
        EXPECT_FALSE(stray) << "a conversion other than %s in a usage line";
        EXPECT_TRUE(showsMachine ? row.machineLine != saysLocalMachine : !row.machineLine || readsMachine) << "machine line";
    }
}

// A handler that asks for a switch its row does not declare, or through
// another accessor than the declared one, is stopped at once; one that asks
// rightly gets the value or the usage fault with the row's message.
TEST(OperationTableTest, HandlersReadOnlyWhatTheirRowDeclares) {
    constexpr unsigned kReads = ~0u;
    wchar_t *noSwitches[] = {nullptr};
    const CCommandLine cl(noSwitches);
    const struct {
        unsigned command, operation;
        void (*ask)(const Operation &);
        unsigned message; // the usage fault expected; 0: a programming error; kReads: none
    } cases[] = {
        {cmd::IGroup, op::Delete, [](const Operation &o) { o.Required(sw::ig); }, MSG_USAGE_IGROUP_NAME},
        {cmd::IGroup, op::Delete, [](const Operation &o) { o.RequiredText(sw::f); }, 0},
        {cmd::Snap, op::Delete, [](const Operation &o) { o.RequiredMountPoint(); }, MSG_USAGE_MOUNT_POINT},
        {cmd::Snap, op::Create, [](const Operation &o) { o.RequiredList(sw::D); }, MSG_USAGE_MOUNT_POINT},
        {cmd::Snap, op::Mount, [](const Operation &o) { o.RequiredList(sw::int_); }, 0},
        {cmd::Disk, op::Expand, [](const Operation &o) { o.Usage(sw::rs); }, MSG_USAGE_SPACE_RESERVATION},
        {cmd::Disk, op::Expand, [](const Operation &o) { o.Usage(sw::x); }, 0},
        {cmd::Snap, op::Unmount, [](const Operation &o) { o.Has(sw::x); }, 0},
        {cmd::Snap, op::Mount, [](const Operation &o) { o.Optional(sw::smdest); }, 0},
        {cmd::Disk, op::Expand, [](const Operation &o) { o.Number(sw::rs, 0); }, 0},
        {cmd::Snap, op::MirrorList, [](const Operation &o) { o.Machine(); }, kReads},
        {cmd::Snap, op::Mount, [](const Operation &o) { o.OptionalList(sw::int_); }, kReads},
    };
    for (const auto &c : cases) {
        const Operation operation(cl, *Operations().Find(c.command, c.operation));
        try {
            c.ask(operation);
            EXPECT_EQ(c.message, kReads) << "nothing thrown";
        } catch (const OperationUsageException &e) {
            EXPECT_EQ(e.MessageId(), c.message);
            EXPECT_EQ(e.OperationId(), c.operation);
        } catch (const std::logic_error &) {
            EXPECT_EQ(c.message, 0u);
        }
    }
}

} // namespace
