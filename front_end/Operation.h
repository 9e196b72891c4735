// One invocation of an operation as its handler sees it: the switches, and the
// row that says which switches the operation takes, how each is read and which
// usage message its absence shows. Handlers ask for a switch by its word alone.
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Help.h"

#include <string>

class Operation {
public:
    Operation(const CCommandLine &switches, const OperationRow &operationRow) : cl(switches), row(operationRow) {}

    const CCommandLine &cl;
    const OperationRow &row;

    // A switch the row declares as needed (required, an alternative, or
    // required sometimes), with one value: absent, without a value or given
    // twice is the usage fault with its message. An empty value is a value.
    const wchar_t *Required(const wchar_t *word) const;                     // SwitchKind::Value
    std::wstring RequiredText(const wchar_t *word) const;                   // SwitchKind::Text
    std::wstring RequiredMountPoint() const;                                // -d, SwitchKind::MountPoint
    void RequiredFlag(const wchar_t *word) const;                           // SwitchKind::Flag: present, with or without values
    const CCommandLine::ValueList &RequiredList(const wchar_t *word) const; // SwitchKind::List: at least one value

    // The usage fault with the message the row gives the switch: one that is
    // missing in a way the handler tells, or whose value cannot be used.
    [[noreturn]] void Usage(const wchar_t *word) const;
    // The usage fault with a message that no single switch's absence explains
    // (two switches that do not agree, a value out of its set); 0 shows the
    // usage block alone.
    [[noreturn]] void UsageFault(unsigned messageId) const;

private:
    const SwitchSpec &Needed(const wchar_t *word, SwitchKind kind) const;
};

// The row's declaration of word, or null. A handler that asks for a word its
// row does not declare, or through another accessor than the declared kind, is
// a programming error: the accessors above throw std::logic_error, which no
// failure handling catches, and the run ends abnormally.
const SwitchSpec *DeclaredSwitch(const OperationRow &row, const wchar_t *word);
