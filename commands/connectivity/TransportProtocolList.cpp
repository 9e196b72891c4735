#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/connectivity/TransportProtocolRecords.h"
#include "front_end/Console.h"
#include "service/ServiceSession.h"

#include <cwchar>
#include <string>

namespace {

const wchar_t *ProtocolWord(DWORD type) {
    switch (type) {
    case 1:
        return L"RPC";
    case 2:
        return L"HTTP";
    case 3:
        return L"HTTPS";
    default:
        return L"Unknown";
    }
}

bool IsWebProtocol(DWORD type) {
    return type == 2 || type == 3;
}

bool IsDefaultEntry(const TransportProtocolInfo &protocol) {
    return protocol.wszName != nullptr && wcscmp(protocol.wszName, kDefaultProtocolEntry) == 0;
}

void PrintLabelled(const wchar_t *label, const wchar_t *value) {
    Print(L"%-30ls%ls\n", label, value);
}

// Passwords are never printed.
void PrintUserAndPort(const TransportProtocolInfo &protocol) {
    if (!IsWebProtocol(protocol.dwProtocolType))
        return;
    PrintLabelled(L"User Name: ", protocol.wszUserName);
    Print(L"%-30ls%d\n", L"Port: ", static_cast<int>(protocol.dwPort));
}

std::wstring JoinOtherAddresses(const TransportProtocolInfo &protocol) {
    std::wstring joined;
    for (DWORD i = 0; i < protocol.dwOtherAddressCount; ++i) {
        if (i > 0)
            joined += L", ";
        joined += protocol.pwszOtherAddresses[i] != nullptr ? protocol.pwszOtherAddresses[i] : L"(null)";
    }
    return joined;
}

void PrintProtocols(const TransportProtocolList &list) {
    if (list.dwCount == 0 || list.pProtocols == nullptr) {
        Print(L"No transport protocol settings exist\n");
        return;
    }
    bool printed = false;
    for (DWORD i = 0; i < list.dwCount; ++i) {
        const TransportProtocolInfo &protocol = list.pProtocols[i];
        if (!IsDefaultEntry(protocol))
            continue;
        PrintLabelled(L"Default Protocol: ", ProtocolWord(protocol.dwProtocolType));
        PrintUserAndPort(protocol);
        printed = true;
        break;
    }
    for (DWORD i = 0; i < list.dwCount; ++i) {
        const TransportProtocolInfo &protocol = list.pProtocols[i];
        if (IsDefaultEntry(protocol))
            continue;
        if (printed)
            Print(L"\n");
        PrintLabelled(L"Storage System: ", protocol.wszName);
        if (protocol.dwOtherAddressCount > 0 && protocol.pwszOtherAddresses != nullptr)
            PrintLabelled(L"Other IP Address(s)/Name: ", JoinOtherAddresses(protocol).c_str());
        PrintLabelled(L"Protocol: ", ProtocolWord(protocol.dwProtocolType));
        PrintUserAndPort(protocol);
        printed = true;
    }
}

void ListProtocols(const Operation &operation, HRESULT &hr) {
    ServiceSession<ITransportProtocol, CVirtualDiskEvents> protocols(operation, CLSID_VirtualDiskService, hr);
    OwnedTransportProtocolList list;
    hr = protocols->ListTransportProtocols(list.Out(), FALSE);
    CheckServiceCall(hr, MSG_LIST_TRANSPORT_PROTOCOLS_FAILED);
    PrintProtocols(list.Get());
}

} // namespace

void ListTransportProtocolSettings(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to list tranport protocol. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { ListProtocols(operation, hr); });
}
