// The lines the progress sinks print, built apart from the COM objects so that
// their exact shapes can be checked on their own.
#pragma once

#include <cstdint>
#include <string>

constexpr unsigned kMirrorStart = 33;
constexpr unsigned kMirrorEnd = 34;
constexpr unsigned kMirrorReplicate = 35;
constexpr unsigned kMirrorUserCancelled = 36;

// "<subject> : <text of the event code>"
std::wstring ProgressLine(const wchar_t *subject, unsigned eventCode);
// "<snapshot name> : Ready to create snapshot copy"
std::wstring ReadyToCreateLine(const wchar_t *snapshotName);
// "<name> : Mounting snapshot copy <text> Drive <drive>- Status <state>"
std::wstring MirrorProgressLine(const wchar_t *snapshotName, const wchar_t *drive, const wchar_t *text, uint64_t transferred,
                                unsigned countValid, unsigned mirrorState);
