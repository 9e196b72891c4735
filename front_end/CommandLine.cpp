#include "front_end/CommandLine.h"

#include "front_end/Secret.h"
#include "front_end/Switches.h"

#include <wchar.h>

CCommandLine::CCommandLine(wchar_t *const *args) {
    // Every list gets its final size before the first value: a list that grew
    // would give back its earlier buffer, values (a password among them)
    // still in it, without the wipe below.
    std::map<std::wstring, size_t> counts;
    size_t *counted = nullptr;
    for (wchar_t *const *arg = args; arg != nullptr && *arg != nullptr; ++arg) {
        if ((*arg)[0] == L'-')
            counted = &counts[*arg];
        else if (counted != nullptr)
            ++*counted;
    }
    for (const auto &count : counts)
        m_switches[count.first].reserve(count.second);

    ValueList *current = nullptr;
    for (; args != nullptr && *args != nullptr; ++args) {
        const wchar_t *arg = *args;
        if (arg[0] == L'-') {
            current = &m_switches[arg];
        } else if (current != nullptr) {
            current->push_back(arg);
        }
        // A word before the first switch belongs to nothing and is skipped.
    }
}

CCommandLine::~CCommandLine() {
    // Any value may be a password (-pwd, -c): none leaves its text behind.
    for (auto &entry : m_switches)
        for (std::wstring &value : entry.second)
            WipeText(value);
}

bool CCommandLine::IsPresent(const wchar_t *word) const {
    return m_switches.find(word) != m_switches.end();
}

const CCommandLine::ValueList *CCommandLine::Values(const wchar_t *word) const {
    auto it = m_switches.find(word);
    return it == m_switches.end() ? nullptr : &it->second;
}

const wchar_t *CCommandLine::SingleValue(const wchar_t *word) const {
    const ValueList *values = Values(word);
    if (values == nullptr || values->size() != 1)
        return nullptr;
    return (*values)[0].c_str();
}

const wchar_t *CCommandLine::SingleValueOrEmpty(const wchar_t *word) const {
    const wchar_t *value = SingleValue(word);
    return value != nullptr ? value : L"";
}

bool CCommandLine::SingleValueInto(const wchar_t *word, std::wstring &out) const {
    const wchar_t *value = SingleValue(word);
    if (value == nullptr)
        return false;
    out = value;
    return true;
}

unsigned CCommandLine::SingleNumber(const wchar_t *word) const {
    const wchar_t *value = SingleValue(word);
    if (value == nullptr)
        return 0xFFFFFFFFu;
    return static_cast<unsigned>(_wtoi(value));
}

const CCommandLine::ValueList &CCommandLine::List(const wchar_t *word) const {
    static const ValueList empty;
    const ValueList *values = Values(word);
    return values != nullptr ? *values : empty;
}

const wchar_t *CCommandLine::MachineName() const {
    return SingleValue(sw::m);
}

std::wstring NormalizeMountPoint(const std::wstring &value) {
    if (value.size() == 1 || (value.size() == 2 && value[1] == L':'))
        return value.substr(0, 1);
    std::wstring path = value;
    size_t lastBackslash = path.rfind(L'\\');
    if (lastBackslash == std::wstring::npos || lastBackslash + 1 != path.size())
        path += L'\\';
    return path;
}

bool CCommandLine::MountPointInto(std::wstring &out) const {
    const wchar_t *value = SingleValue(sw::d);
    if (value == nullptr)
        return false;
    out = NormalizeMountPoint(value);
    return true;
}

bool CCommandLine::YesUnlessNo() const {
    const wchar_t *value = SingleValue(sw::u);
    if (value == nullptr)
        return true;
    return _wcsicmp(value, L"No") != 0;
}

const wchar_t *CCommandLine::Password() const {
    const ValueList *values = Values(sw::pwd);
    if (values == nullptr)
        return nullptr;
    if (values->size() != 1)
        return L"";
    return (*values)[0].c_str();
}

bool CCommandLine::DebugOrBreak() const {
    return IsPresent(sw::debug) || IsPresent(sw::break_);
}
