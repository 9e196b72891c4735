#include "front_end/Words.h"

#include <cwchar>
#include <wchar.h>

#define CV_WORD_ROW(constant, id, word) {word, id},
const WordId g_commandWords[] = {CV_COMMAND_WORDS(CV_WORD_ROW)};
const unsigned g_commandWordCount = sizeof(g_commandWords) / sizeof(g_commandWords[0]);

const WordId g_operationWords[] = {CV_OPERATION_WORDS(CV_WORD_ROW)};
const unsigned g_operationWordCount = sizeof(g_operationWords) / sizeof(g_operationWords[0]);
#undef CV_WORD_ROW

static unsigned Lookup(const WordId *table, unsigned count, const wchar_t *word) {
    if (word == nullptr)
        return 0;
    for (unsigned i = 0; i < count; ++i)
        if (_wcsicmp(table[i].word, word) == 0)
            return table[i].id;
    return 0;
}

static const wchar_t *ReverseLookup(const WordId *table, unsigned count, unsigned id) {
    for (unsigned i = 0; i < count; ++i)
        if (table[i].id == id)
            return table[i].word;
    return nullptr;
}

unsigned GetCommandId(const wchar_t *word) {
    return Lookup(g_commandWords, g_commandWordCount, word);
}
unsigned GetOperationId(const wchar_t *word) {
    return Lookup(g_operationWords, g_operationWordCount, word);
}

const wchar_t *CommandWord(unsigned commandId) {
    return ReverseLookup(g_commandWords, g_commandWordCount, commandId);
}
const wchar_t *OperationWord(unsigned operationId) {
    return ReverseLookup(g_operationWords, g_operationWordCount, operationId);
}
