// iscsi_target list and disconnect.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/connectivity/IscsiPrinters.h"
#include "commands/connectivity/IscsiRecords.h"
#include "front_end/Switches.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

void IscsiTargetList(const Operation &operation) {
    const wchar_t *storageSystem = operation.Required(sw::f);
    ServiceSession<IIscsi> iscsi(operation, CLSID_VirtualDiskService);
    OwnedStorageTargets targets;
    CheckServiceCall(iscsi->ListTargets(storageSystem, targets.Out()), MSG_LIST_TARGETS_FAILED);
    PrintStorageTargetList(targets.Get());
}

void IscsiTargetDisconnect(const Operation &operation) {
    const wchar_t *target = operation.Required(sw::t);
    ServiceSession<IIscsi> iscsi(operation, CLSID_VirtualDiskService);
    CheckServiceCall(iscsi->DisconnectTarget(operation.Machine(), target), MSG_DISCONNECT_TARGET_FAILED);
}
