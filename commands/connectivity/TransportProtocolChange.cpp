// transport_protocol set and delete.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/connectivity/PasswordPrompt.h"
#include "commands/connectivity/TransportProtocolRecords.h"
#include "front_end/Console.h"
#include "front_end/Holders.h"
#include "front_end/Switches.h"
#include "service/ProxySecurity.h"
#include "service/ServiceSession.h"

#include <cwchar>

namespace {

constexpr DWORD kRpc = 1;
constexpr DWORD kHttp = 2;
constexpr DWORD kHttps = 3;

// "#!Default#!SSProtocol" with -default, else the -f value.
const wchar_t *EntryName(const Operation &operation) {
    if (operation.Has(sw::default_))
        return kDefaultProtocolEntry;
    return operation.Required(sw::f);
}

struct ProtocolType {
    const wchar_t *word;
    DWORD type;
    DWORD port;
};
constexpr ProtocolType kTypes[] = {{L"HTTP", kHttp, 80}, {L"HTTPS", kHttps, 443}, {L"RPC", kRpc, 0}};

const ProtocolType &ReadType(const Operation &operation) {
    const wchar_t *word = operation.Required(sw::type);
    for (const ProtocolType &type : kTypes)
        if (_wcsicmp(word, type.word) == 0)
            return type;
    operation.UsageFault(MSG_USAGE_INVALID_PROTOCOL_TYPE);
}

// Only an absent -pwd prompts. Given without a value or with several, the
// password is empty and nothing is asked.
SecretText ReadPasswordSwitch(const Operation &operation) {
    const wchar_t *given = operation.Password();
    return given != nullptr ? SecretText(given) : ReadPassword();
}

void SetProtocol(const Operation &operation, HRESULT &hr) {
    ServiceSession<ITransportProtocol, CVirtualDiskEvents> protocols(operation, CLSID_VirtualDiskService, hr);
    OwnedProtocolRecord record;

    const bool isDefault = operation.Has(sw::default_);
    record.SetText(&TransportProtocolInfo::wszName, EntryName(operation));
    const ProtocolType &type = ReadType(operation);
    record.Get()->dwProtocolType = type.type;
    // A given -port replaces the type's port with the number as _wtoi reads
    // it: text that is no number sends 0, and the service judges the port.
    record.Get()->dwPort = operation.Number(sw::port, type.port);
    if (type.type != kRpc) {
        const wchar_t *user = operation.Required(sw::user);
        record.SetText(&TransportProtocolInfo::wszUserName, user);
        const SecretText password = ReadPasswordSwitch(operation);
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

void DeleteProtocol(const Operation &operation, HRESULT &hr) {
    const wchar_t *entryName = EntryName(operation);
    ServiceSession<ITransportProtocol, CVirtualDiskEvents> protocols(operation, CLSID_VirtualDiskService, hr);
    CoTaskPtr<wchar_t> name(CoTaskStrDup(entryName));
    if (name.Get() == nullptr)
        throw AlertUserException(MSG_DELETE_TRANSPORT_PROTOCOL_FAILED, E_OUTOFMEMORY);
    hr = protocols->DeleteTransportProtocol(name.Get());
    CheckServiceCall(hr, MSG_DELETE_TRANSPORT_PROTOCOL_FAILED);
}

} // namespace

void SetTransportProtocol(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to set transport protocol. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { SetProtocol(operation, hr); });
}

void DeleteTransportProtocolSetting(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to delete transport protocol. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { DeleteProtocol(operation, hr); });
}
