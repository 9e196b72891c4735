// iscsi_initiator list and terminate_session.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/connectivity/IscsiPrinters.h"
#include "commands/connectivity/IscsiRecords.h"
#include "front_end/Switches.h"
#include "front_end/Values.h"
#include "service/OwnedRecord.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void IscsiInitiatorList(const Operation &operation) {
    // -s only selects the session list; it carries no value.
    operation.RequiredFlag(sw::s);
    ServiceSession<IIscsi> iscsi(operation, CLSID_VirtualDiskService);
    OwnedConnectedTargets targets;
    CheckServiceCall(iscsi->ListSessions(operation.Machine(), targets.Out()), MSG_LIST_SESSIONS_FAILED);
    PrintConnectedTargetList(L"\t", targets.Get());
}

void IscsiInitiatorTerminateSession(const Operation &operation) {
    uint64_t first = 0, second = 0;
    if (!ParseIdentifierPair(operation.Required(sw::s), first, second))
        operation.Usage(sw::s);
    ServiceSession<IIscsi> iscsi(operation, CLSID_VirtualDiskService);
    // The session is named by its id alone; everything else stays zero.
    CoTaskPtr<IscsiSession> owned = AllocateSentRecords<IscsiSession>(1, MSG_TERMINATE_SESSION_FAILED);
    IscsiSession *session = owned.Get();
    session->dwMask = 1;
    session->ullSessionId1 = first;
    session->ullSessionId2 = second;
    session->dwInitiatorType = 1;
    CheckServiceCall(iscsi->TerminateSession(operation.Machine(), session), MSG_TERMINATE_SESSION_FAILED);
}
