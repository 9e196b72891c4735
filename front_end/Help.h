// The three levels of help: general usage (the command list), command usage
// (the operations of one command) and operation usage (syntax and description
// of one operation). All name the program as it was invoked (g_programName).
#pragma once

#include "front_end/CommandLine.h"

// Every operation handler: takes the switches, returns nothing, reports
// failure only by the failure classes.
using OperationHandler = void (*)(CCommandLine &);

// One description line of an operation's usage. When switchWord is set, the
// line's single "%s" is filled with it.
struct UsageLine {
    const wchar_t *format;
    const wchar_t *switchWord;
};

// One row per (command, operation) that cvcli knows: the handler that
// dispatch calls (null for an operation that help describes and nothing
// dispatches) and the usage block; the rows of a command, in their order, are
// the list that `help <command>` prints. The syntax line starts with
// "%s %s %s" (program, command word, operation word); each further "%s" is
// filled, in order, from syntaxSwitches. Both arrays end at the first null (a
// line with a null format). Switch words always come from the sw:: constants,
// so the help shows exactly the words that handlers look up.
struct OperationRow {
    unsigned command;
    unsigned operation;
    OperationHandler handler;
    const wchar_t *syntax;
    const wchar_t *syntaxSwitches[16];
    UsageLine lines[12];
    bool machineLine; // closes with the line about the local machine
};

// The rows of one family of commands.
struct OperationRows {
    const OperationRow *rows;
    unsigned count;
};

// Every row, family after family; the application layer above puts it together.
class OperationTable {
public:
    template <unsigned N> explicit OperationTable(const OperationRows (&families)[N]) : m_families(families), m_count(N) {}
    unsigned Count() const;
    const OperationRow &At(unsigned index) const;
    const OperationRow *Find(unsigned commandId, unsigned operationId) const; // null when the pair has no row

private:
    const OperationRows *m_families;
    unsigned m_count;
};

// What a command does with a pair that has no handler.
enum class UnlistedPair {
    CommandUsage, // print the command's operation list, return normally
    Nothing,      // print nothing, return normally
    GeneralUsage, // print the general usage, return normally
};

// One row per command: what `help <command>` shows around the command's
// operation list (the list itself is the command's rows in the operation
// table), where the general usage lists it, and what a pair without a handler
// prints.
struct CommandHelp {
    unsigned command;
    const wchar_t *heading; // one "%s": the command word
    const wchar_t *footer;  // "%s %s %s": program, command word, "help"
    bool threeColumns;      // "\t%-30s" fields, three to a line
    unsigned generalRow;    // 1 or 2: the row of the general usage that lists it; 0: not listed
    UnlistedPair unlisted;
};

const CommandHelp *FindCommandHelp(unsigned commandId);
UnlistedPair UnlistedPairBehaviour(unsigned commandId); // CommandUsage for a command without a row

void PrintGeneralUsage();
void PrintCommandUsage(const OperationTable &operations, unsigned commandId);
void PrintOperationUsage(const OperationTable &operations, unsigned commandId, unsigned operationId);
