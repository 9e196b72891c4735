// One invocation of an operation as its handler sees it: the switches, and the
// row that says which switches the operation takes, how each is read and which
// usage message its absence shows. Handlers ask for a switch by its word alone.
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Help.h"

#include <optional>
#include <string>
#include <vector>

struct InitiatorPair; // front_end/ListArgs.h

class Operation {
public:
    Operation(const CCommandLine &switches, const OperationRow &operationRow) : row(operationRow), cl(switches) {}

    const OperationRow &row;

    // A switch the row declares as needed (required, an alternative, or
    // required sometimes), with one value: absent, without a value or given
    // twice is the usage fault with its message. An empty value is a value.
    const wchar_t *Required(const wchar_t *word) const;                     // SwitchKind::Value
    std::wstring RequiredText(const wchar_t *word) const;                   // SwitchKind::Text
    std::wstring RequiredMountPoint() const;                                // -d, SwitchKind::MountPoint
    void RequiredFlag(const wchar_t *word) const;                           // SwitchKind::Flag: present, with or without values
    const CCommandLine::ValueList &RequiredList(const wchar_t *word) const; // SwitchKind::List: at least one value

    // A switch the row declares, whatever its need, read without a fault of
    // its own: the handler decides what absent or malformed means.
    bool Has(const wchar_t *word) const;                                    // SwitchKind::Flag: present, with or without values
    const wchar_t *Optional(const wchar_t *word) const;                     // SwitchKind::Value: null unless exactly one value
    const CCommandLine::ValueList *OptionalList(const wchar_t *word) const; // SwitchKind::List: null when absent
    bool OptionalMountPoint(std::wstring &mountPoint) const;                // -d, SwitchKind::MountPoint: false when unusable
    unsigned Number(const wchar_t *word, unsigned absent) const; // SwitchKind::Number: given, all-ones unless one value
    // SwitchKind::YesNo: nothing when absent, else the one value (null when
    // not exactly one); the handler says which answers it takes.
    std::optional<const wchar_t *> YesNo(const wchar_t *word) const;
    bool YesUnlessNo() const;                                     // -u, SwitchKind::YesNo
    const wchar_t *Machine() const;                               // -m, SwitchKind::Machine: null means local
    const wchar_t *Password() const;                              // -pwd, SwitchKind::Password: null when absent
    void InitiatorPairs(std::vector<InitiatorPair> &pairs) const; // -I, SwitchKind::List, as node and initiator pairs

    // The usage fault with the message the row gives the switch: one that is
    // missing in a way the handler tells, or whose value cannot be used.
    [[noreturn]] void Usage(const wchar_t *word) const;
    // The usage fault with a message that no single switch's absence explains
    // (two switches that do not agree, a value out of its set); 0 shows the
    // usage block alone.
    [[noreturn]] void UsageFault(unsigned messageId) const;

private:
    const SwitchSpec &Declared(const wchar_t *word, SwitchKind kind) const;
    const SwitchSpec &Needed(const wchar_t *word, SwitchKind kind) const;

    // Read only through the accessors above, so that every read is checked
    // against the row.
    const CCommandLine &cl;
};

// The row's declaration of word, or null. A handler that asks for a word its
// row does not declare, or through another accessor than the declared kind, is
// a programming error: the accessors above throw std::logic_error, which no
// failure handling catches, and the run ends abnormally.
const SwitchSpec *DeclaredSwitch(const OperationRow &row, const wchar_t *word);
