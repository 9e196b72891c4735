#include "front_end/Dispatch.h"
#include "front_end/Help.h"
#include "front_end/Words.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <set>
#include <string>
#include <utility>

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

TEST(WordsTest, IdsAreTheFixedOnes) {
    // Scripts and the help printers key on these numbers.
    const std::pair<const wchar_t *, unsigned> commands[] = {{L"help", 1},
                                                             {L"snap", 2},
                                                             {L"arkhold", 3},
                                                             {L"disk", 4},
                                                             {L"fcp_initiator", 5},
                                                             {L"iscsi_initiator", 6},
                                                             {L"iscsi_target", 7},
                                                             {L"sysconfig", 9},
                                                             {L"preferredIP", 10},
                                                             {L"spacemon", 11},
                                                             {L"hidden", 12},
                                                             {L"igroup", 13},
                                                             {L"spacereclaimer", 14},
                                                             {L"transport_protocol", 15},
                                                             {L"dataset", 16},
                                                             {L"vsconfig", 17},
                                                             {L"qrm_config", 18},
                                                             {L"hyperv", 19}};
    for (const auto &c : commands)
        EXPECT_EQ(GetCommandId(c.first), c.second) << c.first;
    EXPECT_EQ(g_commandWordCount, 18u);
    const std::pair<const wchar_t *, unsigned> operations[] = {{L"help", 1},
                                                               {L"list", 6},
                                                               {L"mount", 8},
                                                               {L"update_mirror", 13},
                                                               {L"add_initiator", 18},
                                                               {L"set", 20},
                                                               {L"mirror_list", 28},
                                                               {L"GetActiveDrives3", 29},
                                                               {L"cache", 31},
                                                               {L"ExecuteEMSHomecall", 33},
                                                               {L"restore_volume", 41},
                                                               {L"status", 46},
                                                               {L"list_members", 47},
                                                               {L"get_backup_version_info", 85}};
    for (const auto &o : operations)
        EXPECT_EQ(GetOperationId(o.first), o.second) << o.first;
    std::set<unsigned> ids;
    for (unsigned i = 0; i < g_operationWordCount; ++i)
        EXPECT_TRUE(ids.insert(g_operationWords[i].id).second) << g_operationWords[i].word;
    for (unsigned never : {7u, 14u, 15u, 16u, 17u, 32u})
        EXPECT_EQ(ids.count(never), 0u) << never;
}

TEST(WordsTest, UnknownAndMissingWordsGiveZero) {
    for (const wchar_t *word : {L"", L"frobnicate", L"snapx", L"-m", L"lïst", L"list "})
        EXPECT_EQ(GetOperationId(word), 0u) << word;
    EXPECT_EQ(GetCommandId(nullptr), 0u);
    EXPECT_EQ(GetOperationId(nullptr), 0u);
    EXPECT_EQ(GetCommandId(L"preferredip"), 10u); // command words ignore case too
    EXPECT_EQ(GetCommandId(L"fcp"), 0u);
}

TEST(DispatchTest, EveryPairReachesAtMostOneHandler) {
    std::set<std::pair<unsigned, unsigned>> pairs;
    for (unsigned i = 0; i < DispatchRowCount(); ++i) {
        const DispatchRow &row = DispatchRowAt(i);
        EXPECT_TRUE(pairs.insert({row.command, row.operation}).second) << row.command << "/" << row.operation;
        EXPECT_NE(row.handler, nullptr);
        EXPECT_NE(CommandWord(row.command), nullptr);
        EXPECT_NE(OperationWord(row.operation), nullptr);
    }
}

// Every operation that help offers for a command with handlers is either
// dispatched or knowingly left to the command's usage text.
TEST(DispatchTest, HelpAndDispatchAgree) {
    std::set<std::pair<unsigned, unsigned>> helpOnly = {
        {cmd::Hidden, op::ValidateConnectionParams}, {cmd::Hidden, op::ConnectStorages},
        {cmd::Hidden, op::DisconnectStorages},       {cmd::Hidden, op::DoVbsr},
        {cmd::Hidden, op::GetReflexaStatus},         {cmd::Hidden, op::BreakReflexas},
        {cmd::Hidden, op::ResyncReflexas},           {cmd::Hidden, op::ReleaseReflexas},
        {cmd::Hidden, op::GetClonaraStatus},
    };
    for (unsigned i = 0; i < g_commandWordCount; ++i) {
        const unsigned command = g_commandWords[i].id;
        const CommandHelp *help = FindCommandHelp(command);
        if (command == cmd::Help)
            continue;
        ASSERT_NE(help, nullptr) << g_commandWords[i].word;
        const bool hasHandlers = UnlistedPairBehaviour(command) != UnlistedPair::GeneralUsage;
        for (unsigned j = 0; j < help->operationCount; ++j) {
            const unsigned operation = help->operations[j];
            EXPECT_NE(FindOperationUsage(command, operation), nullptr) << g_commandWords[i].word << " " << operation;
            if (!hasHandlers)
                EXPECT_EQ(FindHandler(command, operation), nullptr);
            else if (helpOnly.count({command, operation}) == 0 && FindHandler(command, operation) == nullptr)
                ADD_FAILURE() << "help offers an operation nobody handles: " << command << "/" << operation;
        }
    }
    // ...and every dispatched operation is offered by the help of its command.
    for (unsigned i = 0; i < DispatchRowCount(); ++i) {
        const DispatchRow &row = DispatchRowAt(i);
        const CommandHelp *help = FindCommandHelp(row.command);
        ASSERT_NE(help, nullptr);
        bool listed = false;
        for (unsigned j = 0; j < help->operationCount; ++j)
            listed = listed || help->operations[j] == row.operation;
        EXPECT_TRUE(listed) << row.command << "/" << row.operation;
    }
}

TEST(DispatchTest, UnlistedPairs) {
    EXPECT_EQ(UnlistedPairBehaviour(cmd::Snap), UnlistedPair::CommandUsage);
    EXPECT_EQ(UnlistedPairBehaviour(cmd::FcpInitiator), UnlistedPair::Nothing);
    EXPECT_EQ(UnlistedPairBehaviour(cmd::Dataset), UnlistedPair::GeneralUsage);
    EXPECT_EQ(UnlistedPairBehaviour(cmd::Vsconfig), UnlistedPair::GeneralUsage);
    EXPECT_EQ(UnlistedPairBehaviour(cmd::QrmConfig), UnlistedPair::GeneralUsage);
    EXPECT_EQ(FindHandler(cmd::Snap, op::Archive), nullptr);
}

} // namespace
