#include "front_end/Operation.h"

#include "front_end/Exceptions.h"
#include "front_end/ListArgs.h"

#include <cwchar>
#include <stdexcept>
#include <string>

namespace {

std::string Narrow(const wchar_t *word) {
    std::string text;
    for (const wchar_t *p = word; *p != L'\0'; ++p)
        text += static_cast<char>(*p); // switch words are ASCII
    return text;
}

} // namespace

const SwitchSpec *DeclaredSwitch(const OperationRow &row, const wchar_t *word) {
    for (const SwitchSpec &spec : row.switches) {
        if (spec.word == nullptr)
            break;
        if (wcscmp(spec.word, word) == 0)
            return &spec;
    }
    return nullptr;
}

const SwitchSpec &Operation::Declared(const wchar_t *word, SwitchKind kind) const {
    const SwitchSpec *spec = DeclaredSwitch(row, word);
    if (spec == nullptr)
        throw std::logic_error("the operation's row does not declare " + Narrow(word));
    if (spec->kind != kind)
        throw std::logic_error("the operation's row declares " + Narrow(word) + " as another kind");
    return *spec;
}

const SwitchSpec &Operation::Needed(const wchar_t *word, SwitchKind kind) const {
    const SwitchSpec &spec = Declared(word, kind);
    if (spec.need == SwitchNeed::Optional || spec.need == SwitchNeed::Hidden)
        throw std::logic_error("the operation's row declares " + Narrow(word) + " as optional");
    return spec;
}

const wchar_t *Operation::Required(const wchar_t *word) const {
    const SwitchSpec &spec = Needed(word, SwitchKind::Value);
    const wchar_t *value = cl.SingleValue(word);
    if (value == nullptr)
        UsageFault(spec.message);
    return value;
}

std::wstring Operation::RequiredText(const wchar_t *word) const {
    const SwitchSpec &spec = Needed(word, SwitchKind::Text);
    std::wstring value;
    if (!cl.SingleValueInto(word, value))
        UsageFault(spec.message);
    return value;
}

std::wstring Operation::RequiredMountPoint() const {
    const SwitchSpec &spec = Needed(sw::d, SwitchKind::MountPoint);
    std::wstring mountPoint;
    if (!cl.MountPointInto(mountPoint))
        UsageFault(spec.message);
    return mountPoint;
}

void Operation::RequiredFlag(const wchar_t *word) const {
    const SwitchSpec &spec = Needed(word, SwitchKind::Flag);
    if (!cl.IsPresent(word))
        UsageFault(spec.message);
}

const CCommandLine::ValueList &Operation::RequiredList(const wchar_t *word) const {
    const SwitchSpec &spec = Needed(word, SwitchKind::List);
    const CCommandLine::ValueList &values = cl.List(word);
    if (values.empty())
        UsageFault(spec.message);
    return values;
}

bool Operation::Has(const wchar_t *word) const {
    Declared(word, SwitchKind::Flag);
    return cl.IsPresent(word);
}

const wchar_t *Operation::Optional(const wchar_t *word) const {
    Declared(word, SwitchKind::Value);
    return cl.SingleValue(word);
}

const CCommandLine::ValueList *Operation::OptionalList(const wchar_t *word) const {
    Declared(word, SwitchKind::List);
    return cl.Values(word);
}

bool Operation::OptionalMountPoint(std::wstring &mountPoint) const {
    Declared(sw::d, SwitchKind::MountPoint);
    return cl.MountPointInto(mountPoint);
}

unsigned Operation::Number(const wchar_t *word, unsigned absent) const {
    Declared(word, SwitchKind::Number);
    return cl.IsPresent(word) ? cl.SingleNumber(word) : absent;
}

std::optional<const wchar_t *> Operation::YesNo(const wchar_t *word) const {
    Declared(word, SwitchKind::YesNo);
    if (!cl.IsPresent(word))
        return std::nullopt;
    return cl.SingleValue(word);
}

bool Operation::YesUnlessNo() const {
    Declared(sw::u, SwitchKind::YesNo);
    return cl.YesUnlessNo();
}

const wchar_t *Operation::Machine() const {
    Declared(sw::m, SwitchKind::Machine);
    return cl.MachineName();
}

const wchar_t *Operation::Password() const {
    Declared(sw::pwd, SwitchKind::Password);
    return cl.Password();
}

void Operation::InitiatorPairs(std::vector<InitiatorPair> &pairs) const {
    Declared(sw::I, SwitchKind::List);
    GetInitiatorList(cl, pairs);
}

void Operation::Usage(const wchar_t *word) const {
    const SwitchSpec *spec = DeclaredSwitch(row, word);
    if (spec == nullptr)
        throw std::logic_error("the operation's row does not declare " + Narrow(word));
    UsageFault(spec->message);
}

void Operation::UsageFault(unsigned messageId) const {
    throw OperationUsageException(row.command, row.operation, messageId);
}
