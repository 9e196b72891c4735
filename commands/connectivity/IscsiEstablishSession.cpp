// iscsi_initiator establish_session: one session with one connection to a
// target portal, refused by the tool itself when it would duplicate a session
// the host already has.
#include <winsock2.h> // before anything that pulls in windows.h

#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/connectivity/IscsiRecords.h"
#include "commands/connectivity/LocalComputer.h"
#include "commands/connectivity/PasswordPrompt.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"
#include "front_end/Switches.h"
#include "front_end/SystemLibraries.h"
#include "service/OwnedRecord.h"
#include "service/ProxySecurity.h"
#include "service/ServiceSession.h"

#include <cwchar>
#include <string>

namespace {

struct SessionRequest {
    const wchar_t *target = nullptr;
    DWORD hbaId = 0;
    DWORD initiatorPortalId = 0;
    DWORD targetAddress = 0; // network byte order, as inet_addr gives it
    DWORD targetPort = 0;
    const wchar_t *chapName = nullptr;     // both null without -c
    const wchar_t *chapPassword = nullptr; // null with -c and the name alone: asked for at the console
};

// 0 when the switch is absent, as the HBA and its portal default to the
// host's software initiator.
DWORD NumberOrZero(const Operation &operation, const wchar_t *word) {
    const wchar_t *value = operation.Optional(word);
    return value != nullptr ? static_cast<DWORD>(_wtol(value)) : 0;
}

// The address goes to the service as inet_addr reads it, unchecked: an address
// it cannot read arrives as INADDR_NONE and the service decides.
DWORD AddressOf(const std::wstring &text) {
    std::string narrow(text.size() * 4 + 1, '\0');
    int bytes = WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, &narrow[0], static_cast<int>(narrow.size()), nullptr, nullptr);
    if (bytes <= 0)
        narrow.clear();
    return static_cast<DWORD>(Ipv4AddressOf(narrow.c_str()));
}

SessionRequest ReadRequest(const Operation &operation) {
    SessionRequest request;
    request.target = operation.Required(sw::t);
    const CCommandLine::ValueList &portal = operation.RequiredList(sw::np);
    if (portal.size() != 2)
        operation.Usage(sw::np);
    if (const CCommandLine::ValueList *given = operation.OptionalList(sw::c)) {
        const CCommandLine::ValueList &chap = *given;
        if (chap.empty() || chap.size() > 2)
            operation.Usage(sw::c); // no message of its own: the usage shows the CHAP name and password
        request.chapName = chap[0].c_str();
        if (chap.size() == 2)
            request.chapPassword = chap[1].c_str();
    }
    // Neither the address nor the port is checked here: the service decides.
    request.targetAddress = AddressOf(portal[0]);
    request.targetPort = static_cast<DWORD>(_wtol(portal[1].c_str()));
    request.hbaId = NumberOrZero(operation, sw::h);
    request.initiatorPortalId = NumberOrZero(operation, sw::hp);
    return request;
}

// The name the host is asked about: the -m machine, else this computer.
std::wstring HostName(const Operation &operation) {
    const wchar_t *machine = operation.Machine();
    if (machine != nullptr) // an empty name is a name too: it is asked about as given
        return machine;
    std::wstring name;
    if (!LocalComputerName(name)) {
        const DWORD error = GetLastError();
        throw AlertUserException(MSG_MULTI_SESSION_QUERY_FAILED, error != 0 ? HRESULT_FROM_WIN32(error) : E_FAIL);
    }
    return name;
}

bool HostAllowsSeveralSessions(const Operation &operation) {
    const std::wstring host = HostName(operation);
    ServiceSession<IInitiator> initiator(operation, CLSID_VirtualDiskService);
    InitiatorCapabilities *capabilities = nullptr;
    const HRESULT hr = initiator->GetInitiatorCapabilities(host.c_str(), &capabilities);
    CoTaskPtr<InitiatorCapabilities> owned(capabilities);
    CheckServiceCall(hr, MSG_MULTI_SESSION_QUERY_FAILED);
    return capabilities != nullptr && capabilities->dwMultipleSessions != 0;
}

// Only fields whose bits are set take part: an HBA or portal the service did
// not report cannot be the one asked for.
bool SameConnection(const IscsiConnection &c, const SessionRequest &request) {
    const IscsiPortal &local = c.initiatorPortal;
    const IscsiPortal &remote = c.targetPortal;
    return HasField(c.dwMask, 4) && HasField(local.dwMask, 8) && local.dwPortalId == request.initiatorPortalId &&
           HasField(c.dwMask, 8) && HasField(remote.dwMask, 1) && remote.dwIpAddress == request.targetAddress &&
           HasField(remote.dwMask, 2) && remote.dwPort == request.targetPort;
}

bool SameSession(const IscsiSession &session, const SessionRequest &request) {
    if (!HasField(session.dwMask, 4) || !HasField(session.hba.dwMask, 1) || session.hba.dwHbaId != request.hbaId)
        return false;
    if (!HasField(session.dwMask, 8) || session.pConnections == nullptr)
        return false;
    for (DWORD i = 0; i < session.dwConnectionCount; ++i)
        if (SameConnection(session.pConnections[i], request))
            return true;
    return false;
}

// An identical session is refused first (6016); a further session to a target
// that has one is refused (6017) only when the host allows one per target.
void RefuseDuplicate(IIscsi *iscsi, const Operation &operation, const SessionRequest &request) {
    OwnedConnectedTargets targets;
    CheckServiceCall(iscsi->ListSessions(operation.Machine(), targets.Out()), MSG_LIST_SESSIONS_FAILED);
    for (DWORD t = 0; targets->pTargets != nullptr && t < targets->dwCount; ++t) {
        const IscsiConnectedTarget &target = targets->pTargets[t];
        if (!HasField(target.dwMask, 1) || target.wszTargetName == nullptr || wcscmp(target.wszTargetName, request.target) != 0)
            continue;
        if (!HasField(target.dwMask, 4) || target.pSessions == nullptr || target.dwSessionCount == 0)
            continue;
        for (DWORD s = 0; s < target.dwSessionCount; ++s)
            if (SameSession(target.pSessions[s], request))
                throw LocalErrorException(MSG_SESSION_EXISTS);
        if (!HostAllowsSeveralSessions(operation))
            throw LocalErrorException(MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED);
    }
}

// The CHAP password copy is wiped before its memory goes back.
struct SecretCopy {
    CoTaskPtr<wchar_t> text;
    ~SecretCopy() {
        if (text)
            SecureZeroMemory(text.Get(), wcslen(text.Get()) * sizeof(wchar_t));
    }
};

wchar_t *CopyOrThrow(const wchar_t *text) {
    wchar_t *copy = CoTaskStrDup(text);
    if (text != nullptr && copy == nullptr)
        throw AlertUserException(MSG_ESTABLISH_SESSION_FAILED, E_OUTOFMEMORY);
    return copy;
}

} // namespace

void IscsiInitiatorEstablishSession(const Operation &operation) {
    SessionRequest request = ReadRequest(operation);
    // A secret typed at the prompt never shows in the process list, as one on
    // the command line does.
    const SecretText typedSecret = request.chapName != nullptr && request.chapPassword == nullptr ? ReadPassword() : SecretText();
    if (request.chapName != nullptr && request.chapPassword == nullptr)
        request.chapPassword = typedSecret.Get();
    ServiceSession<IIscsi> iscsi(operation, CLSID_VirtualDiskService);
    RefuseDuplicate(iscsi.Get(), operation, request);

    CoTaskPtr<IscsiConnection> connection = AllocateSentRecords<IscsiConnection>(1, MSG_ESTABLISH_SESSION_FAILED);
    connection.Get()->dwMask = 4 | 8;
    connection.Get()->initiatorPortal.dwMask = 8;
    connection.Get()->initiatorPortal.dwPortalId = request.initiatorPortalId;
    connection.Get()->targetPortal.dwMask = 1 | 2;
    connection.Get()->targetPortal.dwIpAddress = request.targetAddress;
    connection.Get()->targetPortal.dwPort = request.targetPort;

    CoTaskPtr<IscsiSession> session = AllocateSentRecords<IscsiSession>(1, MSG_ESTABLISH_SESSION_FAILED);
    session.Get()->dwMask = 4 | 8;
    session.Get()->dwInitiatorType = 1;
    session.Get()->hba.dwMask = 1;
    session.Get()->hba.dwHbaId = request.hbaId;
    session.Get()->dwConnectionCount = 1;
    session.Get()->pConnections = connection.Get();

    CoTaskPtr<IscsiChap> chap = AllocateSentRecords<IscsiChap>(1, MSG_ESTABLISH_SESSION_FAILED);
    CoTaskPtr<wchar_t> chapName(CopyOrThrow(request.chapName));
    SecretCopy chapPassword;
    chapPassword.text.Reset(CopyOrThrow(request.chapPassword));
    chap.Get()->dwUseChap = request.chapName != nullptr ? 1 : 0;
    chap.Get()->wszName = chapName.Get();
    chap.Get()->wszPassword = chapPassword.text.Get();

    RequestPacketPrivacy(iscsi.Get()); // the CHAP record carries the password
    CheckServiceCall(iscsi->EstablishSession(operation.Machine(), request.target, session.Get(), chap.Get()),
                     MSG_ESTABLISH_SESSION_FAILED);
}
