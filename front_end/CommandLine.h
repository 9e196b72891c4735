// The switches of one invocation: everything after the operation word. The
// class never validates and never prints; handlers ask for the switches they
// need and decide what is missing or malformed.
#pragma once

#include <map>
#include <string>
#include <vector>

class CCommandLine {
public:
    using ValueList = std::vector<std::wstring>;

    // args: null-terminated array of wide strings (argv from the switches on).
    explicit CCommandLine(wchar_t *const *args);
    virtual ~CCommandLine();

    CCommandLine(const CCommandLine &) = delete;
    CCommandLine &operator=(const CCommandLine &) = delete;

    // Generic accessors, bound to a switch word by the named ones below.
    bool IsPresent(const wchar_t *word) const;
    const ValueList *Values(const wchar_t *word) const;    // null when absent
    const wchar_t *SingleValue(const wchar_t *word) const; // null unless exactly one value
    const wchar_t *SingleValueOrEmpty(const wchar_t *word) const;
    bool SingleValueInto(const wchar_t *word, std::wstring &out) const;
    unsigned SingleNumber(const wchar_t *word) const; // all-ones unless exactly one value
    const ValueList &List(const wchar_t *word) const; // empty when absent

    // The machine whose service an operation addresses; null means local.
    const wchar_t *MachineName() const;

    // -d with drive normalisation: "E" and "E:" give "E"; a folder path gets a
    // trailing backslash.
    bool MountPointInto(std::wstring &out) const;

    // -u: true unless given exactly one value equal to "No" (any case).
    bool YesUnlessNo() const;

    // -pwd: null when absent, the value when exactly one, "" otherwise.
    const wchar_t *Password() const;

    // -debug or -break.
    bool DebugOrBreak() const;

private:
    std::map<std::wstring, ValueList> m_switches;
};

// The drive normalisation of -d, also used for mount point lists.
std::wstring NormalizeMountPoint(const std::wstring &value);
