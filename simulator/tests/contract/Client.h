// The contract test's client side: a scenario file and a call log of its own,
// service objects created as cvcli creates them (one interface, out of
// process), and what came back turned into text for the checks.
#pragma once

#include "Corvane.h"

#include <nlohmann/json.hpp>

#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace contract {

using Json = nlohmann::json;

std::wstring Directory();
void WriteScenario(const std::string &text);
void RemoveScenario();
void ClearLog();
std::vector<Json> LogOf(const char *event); // the call log's lines of one event

// Creates `clsid` asking for `iid` only: the creation's own result, else the
// member's.
HRESULT Create(const CLSID &clsid, const IID &iid, Microsoft::WRL::ComPtr<IUnknown> &out);

// Runs this test program again as a client of its own (`--client mode`) and
// returns its exit code: COM releases a client's objects for good only when
// the client leaves.
// A client that has not ended in a minute is ended with this code.
constexpr DWORD kClientStalled = 0xC1E57A11;
DWORD RunClient(const wchar_t *mode);
int Client(const std::wstring &mode);

// "0x80070057"
std::wstring Hr(HRESULT hr);
std::wstring Text(const wchar_t *text); // null gives "(null)"
std::wstring Ansi(const char *text);

// The scenario that the tests start from and return to.
extern const char kScenario[];

} // namespace contract
