#include "app/Dispatch.h"
#include "app/Operations.h"
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

TEST(WordsTest, UnknownAndMissingWordsGiveZero) {
    for (const wchar_t *word : {L"", L"frobnicate", L"snapx", L"-m", L"lïst", L"list "})
        EXPECT_EQ(GetOperationId(word), 0u) << word;
    EXPECT_EQ(GetCommandId(nullptr), 0u);
    EXPECT_EQ(GetOperationId(nullptr), 0u);
    EXPECT_EQ(GetCommandId(L"preferredip"), 10u); // command words ignore case too
    EXPECT_EQ(GetCommandId(L"fcp"), 0u);
}

// The one table against the words and the dispatch rules: every row names
// known words, no pair has two rows (a second would be listed twice and never
// dispatched), and a command whose unknown pairs print the general usage has
// no handler at all.
TEST(OperationTableTest, RowsAgreeWithWordsAndDispatchRules) {
    std::set<std::pair<unsigned, unsigned>> pairs;
    for (unsigned i = 0; i < Operations().Count(); ++i) {
        const OperationRow &row = Operations().At(i);
        EXPECT_TRUE(pairs.insert({row.command, row.operation}).second) << row.command << "/" << row.operation;
        EXPECT_NE(CommandWord(row.command), nullptr);
        EXPECT_NE(OperationWord(row.operation), nullptr);
        EXPECT_NE(FindCommandHelp(row.command), nullptr) << row.command;
        if (UnlistedPairBehaviour(row.command) == UnlistedPair::GeneralUsage) {
            EXPECT_EQ(row.handler, nullptr) << row.command << "/" << row.operation;
        }
    }
}

} // namespace
