// cvcli_remote.exe: cvcli itself (the same core library and entry) with its
// activation call replaced, so that a case can run any operation with
// "-m SOMEHOST" against the local simulator. Wine cannot activate on a named
// machine at all; without this every remote run ends at the creation.
//
// Each activation is written, as the program built it, to the file named by
// CVCLI_ACTIVATION_LOG (one JSON object a line): the context, the server
// information (name, authentication information, reserved fields) and the
// interface asked for. A remote activation is then made locally; a local one
// as it is. Each proxy security setting is written there too ("blanket": the
// authentication level asked for, "result": what the runtime answered).
#include "WindowsSide.h"
#include "app/Startup.h"
#include "service/ProxySecurity.h"
#include "service/ServiceAccess.h"

#include <windows.h>

#include <cstdio>
#include <string>

namespace {

// A JSON string literal: the test names are plain, but a case may send any text.
std::string Quoted(const std::string &text) {
    std::string out = "\"";
    for (unsigned char c : text) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            out += escaped;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out + "\"";
}

void Append(const std::string &line) {
    if (File log = FileNamedBy(L"CVCLI_ACTIVATION_LOG", L"ab"))
        fwrite(line.data(), 1, line.size(), log.get());
}

void Record(DWORD context, const COSERVERINFO *server, DWORD count, const MULTI_QI *qi) {
    std::string line = "{\"context\": " + std::to_string(context) + ", \"count\": " + std::to_string(count);
    if (server == nullptr) {
        line += ", \"server\": null";
    } else {
        line += ", \"server\": {\"name\": " + (server->pwszName != nullptr ? Quoted(Utf8(server->pwszName)) : "null");
        line += std::string(", \"authInfo\": ") + (server->pAuthInfo != nullptr ? "\"set\"" : "null");
        line +=
            ", \"reserved1\": " + std::to_string(server->dwReserved1) + ", \"reserved2\": " + std::to_string(server->dwReserved2);
        line += "}";
    }
    wchar_t iid[64] = L"";
    if (count > 0 && qi[0].pIID != nullptr)
        StringFromGUID2(*qi[0].pIID, iid, 64);
    line += ", \"iid\": " + Quoted(Utf8(iid)) + "}\n";
    Append(line);
}

HRESULT WINAPI RecordBlanket(IUnknown *proxy, DWORD authnService, DWORD authzService, OLECHAR *principal, DWORD authnLevel,
                             DWORD impLevel, RPC_AUTH_IDENTITY_HANDLE authInfo, DWORD capabilities) {
    const HRESULT hr =
        CoSetProxyBlanket(proxy, authnService, authzService, principal, authnLevel, impLevel, authInfo, capabilities);
    char result[16];
    std::snprintf(result, sizeof result, "0x%08lX", static_cast<unsigned long>(hr));
    Append("{\"blanket\": " + std::to_string(authnLevel) + ", \"result\": \"" + result + "\"}\n");
    return hr;
}

HRESULT WINAPI RecordAndActivateLocally(REFCLSID clsid, IUnknown *outer, DWORD context, COSERVERINFO *server, DWORD count,
                                        MULTI_QI *qi) {
    Record(context, server, count, qi);
    if (context & CLSCTX_REMOTE_SERVER)
        return CoCreateInstanceEx(clsid, outer, CLSCTX_LOCAL_SERVER, nullptr, count, qi);
    return CoCreateInstanceEx(clsid, outer, context, server, count, qi);
}

} // namespace

int wmain(int /*argc*/, wchar_t **argv) {
    SetCreateInstanceExForTesting(RecordAndActivateLocally);
    SetProxyBlanketForTesting(RecordBlanket);
    return RunCvcli(argv);
}
