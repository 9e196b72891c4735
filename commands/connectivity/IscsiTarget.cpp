// iscsi_target list and disconnect.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/RequiredSwitch.h"
#include "commands/connectivity/IscsiPrinters.h"
#include "commands/connectivity/IscsiRecords.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void IscsiTargetList(CCommandLine &cl) {
    const wchar_t *storageSystem = RequiredValue(cl, sw::f, cmd::IscsiTarget, op::List, MSG_USAGE_STORAGE_SYSTEM);
    ServiceSession<IIscsi> iscsi(cl, CLSID_VirtualDiskService);
    OwnedStorageTargets targets;
    CheckServiceCall(iscsi->ListTargets(storageSystem, targets.Out()), MSG_LIST_TARGETS_FAILED);
    PrintStorageTargetList(targets.Get());
}

void IscsiTargetDisconnect(CCommandLine &cl) {
    const wchar_t *target = RequiredValue(cl, sw::t, cmd::IscsiTarget, op::Disconnect, MSG_USAGE_TARGET_NAME);
    ServiceSession<IIscsi> iscsi(cl, CLSID_VirtualDiskService);
    CheckServiceCall(iscsi->DisconnectTarget(cl.MachineName(), target), MSG_DISCONNECT_TARGET_FAILED);
}
