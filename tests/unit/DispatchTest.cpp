#include "app/Dispatch.h"
#include "front_end/Help.h"
#include "front_end/Words.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <set>
#include <string>

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
// dispatched or knowingly left to the command's usage text, and every
// dispatched operation has a usage block (and so is offered by the help).
TEST(DispatchTest, HelpAndDispatchAgree) {
    std::set<std::pair<unsigned, unsigned>> helpOnly = {
        {cmd::Hidden, op::ValidateConnectionParams}, {cmd::Hidden, op::ConnectStorages},
        {cmd::Hidden, op::DisconnectStorages},       {cmd::Hidden, op::DoVbsr},
        {cmd::Hidden, op::GetReflexaStatus},         {cmd::Hidden, op::BreakReflexas},
        {cmd::Hidden, op::ResyncReflexas},           {cmd::Hidden, op::ReleaseReflexas},
        {cmd::Hidden, op::GetClonaraStatus},
    };
    for (unsigned i = 0; i < OperationUsageCount(); ++i) {
        const OperationUsage &usage = OperationUsageAt(i);
        EXPECT_NE(FindCommandHelp(usage.command), nullptr) << usage.command;
        const bool hasHandlers = UnlistedPairBehaviour(usage.command) != UnlistedPair::GeneralUsage;
        const bool handled = FindHandler(usage.command, usage.operation) != nullptr;
        EXPECT_EQ(handled, hasHandlers && helpOnly.count({usage.command, usage.operation}) == 0)
            << usage.command << "/" << usage.operation;
    }
    for (unsigned i = 0; i < DispatchRowCount(); ++i) {
        const DispatchRow &row = DispatchRowAt(i);
        EXPECT_NE(FindOperationUsage(row.command, row.operation), nullptr) << row.command << "/" << row.operation;
    }
}

} // namespace
