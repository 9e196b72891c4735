// transport_protocol set and delete.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/common/RequiredSwitch.h"
#include "commands/connectivity/PasswordPrompt.h"
#include "commands/connectivity/TransportProtocolRecords.h"
#include "front_end/Console.h"
#include "front_end/Holders.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/ProxySecurity.h"
#include "service/ServiceSession.h"

#include <cwchar>

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
    return RequiredValue(cl, sw::f, cmd::TransportProtocol, operationId, MSG_USAGE_STORAGE_SYSTEM);
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

// A given -port replaces the type's port with the number as _wtoi reads it:
// text that is no number sends 0, and the service judges the port.
DWORD ReadPort(const CCommandLine &cl, DWORD defaultPort) {
    return cl.IsPresent(sw::port) ? cl.SingleNumber(sw::port) : defaultPort;
}

// Only an absent -pwd prompts. Given without a value or with several, the
// password is empty and nothing is asked.
SecretText ReadPasswordSwitch(const CCommandLine &cl) {
    const wchar_t *given = cl.Password();
    return given != nullptr ? SecretText(given) : ReadPassword();
}

void SetProtocol(const CCommandLine &cl, HRESULT &hr) {
    ServiceSession<ITransportProtocol, CVirtualDiskEvents> protocols(cl, CLSID_VirtualDiskService, hr);
    OwnedProtocolRecord record;

    const bool isDefault = cl.IsPresent(sw::default_);
    record.SetText(&TransportProtocolInfo::wszName, EntryName(cl, op::Set));
    const ProtocolType &type = ReadType(cl);
    record.Get()->dwProtocolType = type.type;
    record.Get()->dwPort = ReadPort(cl, type.port);
    if (type.type != kRpc) {
        const wchar_t *user = RequiredValue(cl, sw::user, cmd::TransportProtocol, op::Set, MSG_USAGE_USER_NAME);
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
    ServiceSession<ITransportProtocol, CVirtualDiskEvents> protocols(cl, CLSID_VirtualDiskService, hr);
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
