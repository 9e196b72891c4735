// iscsi_target list and disconnect.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/connectivity/IscsiPrinters.h"
#include "commands/connectivity/IscsiRecords.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/ServiceAccess.h"

namespace {

// A name switch given once with a non-empty value; anything else is a usage fault.
const wchar_t *RequiredName(const CCommandLine &cl, const wchar_t *word, unsigned operation, unsigned messageId) {
    const wchar_t *value = cl.SingleValue(word);
    if (value == nullptr || value[0] == L'\0')
        throw OperationUsageException(cmd::IscsiTarget, operation, messageId);
    return value;
}

} // namespace

void IscsiTargetList(CCommandLine &cl) {
    const wchar_t *storageSystem = RequiredName(cl, sw::f, op::List, MSG_USAGE_STORAGE_SYSTEM);
    ComPtr<IIscsi> iscsi;
    CreateServiceInterface(cl.MachineName(), CLSID_VirtualDiskService, iscsi);
    OwnedStorageTargets targets;
    CheckServiceCall(iscsi->ListTargets(storageSystem, targets.Out()), MSG_LIST_TARGETS_FAILED);
    PrintStorageTargetList(targets.Get());
}

void IscsiTargetDisconnect(CCommandLine &cl) {
    const wchar_t *target = RequiredName(cl, sw::t, op::Disconnect, MSG_USAGE_TARGET_NAME);
    ComPtr<IIscsi> iscsi;
    CreateServiceInterface(cl.MachineName(), CLSID_VirtualDiskService, iscsi);
    CheckServiceCall(iscsi->DisconnectTarget(cl.MachineName(), target), MSG_DISCONNECT_TARGET_FAILED);
}
