// The three levels of help: general usage (the command list), command usage
// (the operations of one command) and operation usage (syntax and description
// of one operation). All name the program as it was invoked (g_programName).
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Switches.h"

class Operation; // front_end/Operation.h: one invocation, its switches read by its row

// Every operation handler: takes the invocation, returns nothing, reports
// failure only by the failure classes.
using OperationHandler = void (*)(const Operation &);

// One description line of an operation's usage. When switchWord is set, the
// line's single "%s" is filled with it.
struct UsageLine {
    const wchar_t *format;
    const wchar_t *switchWord;
};

// The accessor through which a handler reads a switch.
enum class SwitchKind : unsigned char {
    Described,  // shown in the help only: the operation is not provided here
    Flag,       // present or not
    Value,      // exactly one value, as typed
    Text,       // exactly one value, copied (an empty value is a value)
    MountPoint, // -d, normalised
    List,       // all its values
    Number,     // one value read as a number
    YesNo,      // y/n or yes/no
    Machine,    // -m: the machine whose service is addressed
    Password,   // -pwd
};

// What the operation needs of a switch, and so how its syntax line shows it.
enum class SwitchNeed : unsigned char {
    Optional,    // inside [...]
    Required,    // bare; absent (or unusable) is the usage fault with its message
    Alternative, // one of a {... | ...} group; none of them is the usage fault with its message
    Sometimes,   // shown inside [...], yet required where the handler says so (with its message)
    Hidden,      // read by the handler but left out of the help
};

// One switch of an operation. message: the usage message when it is missing
// or its value cannot be used; 0 where the usage block alone is shown.
struct SwitchSpec {
    const wchar_t *word;
    SwitchKind kind;
    SwitchNeed need;
    unsigned message;
};

constexpr SwitchSpec OptionalSwitch(const wchar_t *word, SwitchKind kind = SwitchKind::Described, unsigned message = 0) {
    return {word, kind, SwitchNeed::Optional, message};
}
constexpr SwitchSpec RequiredSwitch(const wchar_t *word, SwitchKind kind = SwitchKind::Described, unsigned message = 0) {
    return {word, kind, SwitchNeed::Required, message};
}
constexpr SwitchSpec AlternativeSwitch(const wchar_t *word, SwitchKind kind = SwitchKind::Described, unsigned message = 0) {
    return {word, kind, SwitchNeed::Alternative, message};
}
constexpr SwitchSpec SometimesSwitch(const wchar_t *word, SwitchKind kind, unsigned message) {
    return {word, kind, SwitchNeed::Sometimes, message};
}
constexpr SwitchSpec HiddenSwitch(const wchar_t *word, SwitchKind kind) {
    return {word, kind, SwitchNeed::Hidden, 0};
}
// -m as nearly every operation takes it.
constexpr SwitchSpec kMachineSwitch = OptionalSwitch(sw::m, SwitchKind::Machine);

// One row per (command, operation) that cvcli knows: the handler that
// dispatch calls (null for an operation that help describes and nothing
// dispatches), the switches it takes and the usage block; the rows of a
// command, in their order, are the list that `help <command>` prints. The
// syntax line starts with "%s %s %s" (program, command word, operation word);
// each further "%s" is filled, in order, from the switches that are not
// hidden. Both arrays end at the first null (a switch with a null word, a
// line with a null format). Switch words always come from the sw:: constants,
// so the help shows exactly the words that handlers look up.
struct OperationRow {
    unsigned command;
    unsigned operation;
    OperationHandler handler;
    const wchar_t *syntax;
    SwitchSpec switches[16];
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
