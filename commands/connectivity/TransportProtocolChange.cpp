// transport_protocol set and delete.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/connectivity/PasswordPrompt.h"
#include "commands/connectivity/TransportProtocolRecords.h"
#include "front_end/Console.h"
#include "front_end/Holders.h"
#include "front_end/Messages.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/ProxySecurity.h"
#include "service/ServiceAccess.h"

#include <cwchar>
#include <cwctype>

namespace {

constexpr DWORD kRpc = 1;
constexpr DWORD kHttp = 2;
constexpr DWORD kHttps = 3;

[[noreturn]] void Usage(unsigned operationId, unsigned messageId) {
    throw OperationUsageException(cmd::TransportProtocol, operationId, messageId);
}

// "#!Default#!SSProtocol" with -default, else the -f value.
const wchar_t *EntryName(const CCommandLine &cl, unsigned operationId) {
    if (cl.IsPresent(sw::default_))
        return kDefaultProtocolEntry;
    const wchar_t *storageSystem = cl.SingleValue(sw::f);
    if (storageSystem == nullptr || storageSystem[0] == L'\0')
        Usage(operationId, MSG_USAGE_STORAGE_SYSTEM);
    return storageSystem;
}

struct ProtocolType {
    const wchar_t *word;
    DWORD type;
    DWORD port;
};
constexpr ProtocolType kTypes[] = {{L"HTTP", kHttp, 80}, {L"HTTPS", kHttps, 443}, {L"RPC", kRpc, 0}};

const ProtocolType &ReadType(const CCommandLine &cl) {
    const wchar_t *word = cl.SingleValue(sw::type);
    if (word == nullptr)
        Usage(op::Set, MSG_USAGE_PROTOCOL_TYPE);
    for (const ProtocolType &type : kTypes)
        if (_wcsicmp(word, type.word) == 0)
            return type;
    Usage(op::Set, MSG_USAGE_INVALID_PROTOCOL_TYPE);
}

// A decimal port from 1 to 65535; anything else is refused with its own text
// and the operation's usage.
DWORD ReadPort(const CCommandLine &cl, DWORD defaultPort) {
    if (!cl.IsPresent(sw::port))
        return defaultPort;
    const wchar_t *text = cl.SingleValue(sw::port);
    bool valid = text != nullptr && text[0] != L'\0' && wcslen(text) <= 5;
    for (const wchar_t *p = text; valid && *p != L'\0'; ++p)
        valid = *p >= L'0' && *p <= L'9';
    const unsigned long port = valid ? wcstoul(text, nullptr, 10) : 0;
    if (port < 1 || port > 65535) {
        PrintLocalError(MSG_INVALID_IP_PORT);
        Usage(op::Set, 0);
    }
    return port;
}

// The -pwd value when one is given; with -pwd alone or without -pwd, the prompt.
SecretText ReadPasswordSwitch(const CCommandLine &cl) {
    const CCommandLine::ValueList *values = cl.Values(sw::pwd);
    if (values != nullptr && values->size() == 1)
        return SecretText((*values)[0].c_str());
    if (values != nullptr && values->size() > 1)
        Usage(op::Set, 0);
    return ReadPassword();
}

void SetProtocol(const CCommandLine &cl, HRESULT &hr) {
    ComPtr<ITransportProtocol> protocols;
    CreateServiceInterface(cl.MachineName(), CLSID_VirtualDiskService, protocols);
    EventConnection events = ConnectProgressSinkOrFail(protocols.Get(), hr);
    OwnedProtocolRecord record;

    const bool isDefault = cl.IsPresent(sw::default_);
    record.SetText(&TransportProtocolInfo::wszName, EntryName(cl, op::Set));
    const ProtocolType &type = ReadType(cl);
    record.Get()->dwProtocolType = type.type;
    record.Get()->dwPort = ReadPort(cl, type.port);
    if (type.type != kRpc) {
        const wchar_t *user = cl.SingleValue(sw::user);
        if (user == nullptr || user[0] == L'\0')
            Usage(op::Set, MSG_USAGE_USER_NAME);
        record.SetText(&TransportProtocolInfo::wszUserName, user);
        const SecretText password = ReadPasswordSwitch(cl);
        record.SetText(&TransportProtocolInfo::wszPassword, password.Get());
    }

    RequestPacketPrivacy(protocols.Get()); // both calls below carry the password
    if (!isDefault) {
        hr = protocols->CheckTransportProtocol(record.Get());
        CheckServiceCall(hr, MSG_SET_TRANSPORT_PROTOCOL_FAILED);
    }
    Print(L"\n");
    TransportProtocolList list = {1, record.Get()};
    hr = protocols->SetTransportProtocols(1, 0, &list);
    if (hr != S_OK) {
        Print(L"Protocol set failed\n");
        throw AlertUserException(MSG_SET_TRANSPORT_PROTOCOL_FAILED, hr);
    }
}

void DeleteProtocol(const CCommandLine &cl, HRESULT &hr) {
    const wchar_t *entryName = EntryName(cl, op::Delete);
    ComPtr<ITransportProtocol> protocols;
    CreateServiceInterface(cl.MachineName(), CLSID_VirtualDiskService, protocols);
    EventConnection events = ConnectProgressSinkOrFail(protocols.Get(), hr);
    CoTaskPtr<wchar_t> name(CoTaskStrDup(entryName));
    if (name.Get() == nullptr)
        throw AlertUserException(MSG_DELETE_TRANSPORT_PROTOCOL_FAILED, E_OUTOFMEMORY);
    hr = protocols->DeleteTransportProtocol(name.Get());
    CheckServiceCall(hr, MSG_DELETE_TRANSPORT_PROTOCOL_FAILED);
}

} // namespace

void SetTransportProtocol(CCommandLine &cl) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to set transport protocol. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { SetProtocol(cl, hr); });
}

void DeleteTransportProtocolSetting(CCommandLine &cl) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to delete transport protocol. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { DeleteProtocol(cl, hr); });
}
