// Renaming and deleting an initiator group.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/common/RequiredSwitch.h"
#include "front_end/Console.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"
#include "service/ServiceSession.h"

namespace {

void DeleteGroup(const CCommandLine &cl, HRESULT &hr) {
    const wchar_t *storageSystem = RequiredValue(cl, sw::f, cmd::IGroup, op::Delete, MSG_USAGE_STORAGE_SYSTEM);
    const wchar_t *groupName = RequiredValue(cl, sw::ig, cmd::IGroup, op::Delete, MSG_USAGE_IGROUP_NAME);
    ServiceSession<IIGroup, CVirtualDiskEvents> igroup(cl, CLSID_VirtualDiskService, hr);
    Print(L"\nDeleting the Initiator group ...\n");
    hr = igroup->DeleteIGroup(storageSystem, groupName);
    if (hr != S_OK) {
        Print(L"\nError occurred while deleting the storage system Initiator group...hr=0x%lxd\n\n",
              static_cast<unsigned long>(hr));
        throw AlertUserException(0, hr);
    }
}

void RenameGroup(const CCommandLine &cl, HRESULT &hr) {
    const wchar_t *storageSystem = RequiredValue(cl, sw::f, cmd::IGroup, op::Rename, MSG_USAGE_STORAGE_SYSTEM);
    const wchar_t *groupName = RequiredValue(cl, sw::ig, cmd::IGroup, op::Rename, MSG_USAGE_IGROUP_NAME);
    const wchar_t *newName = RequiredValue(cl, sw::igNew, cmd::IGroup, op::Rename, MSG_USAGE_NEW_IGROUP_NAME);
    ServiceSession<IIGroup, CVirtualDiskEvents> igroup(cl, CLSID_VirtualDiskService, hr);
    Print(L"\nRenaming the Initiator group ...\n");
    hr = igroup->RenameIGroup(storageSystem, groupName, newName);
    if (hr != S_OK) {
        Print(L"\nError occurred while renaming the storage system Initiator group...\n\n");
        throw AlertUserException(0, hr);
    }
}

} // namespace

void DeleteInitiatorGroup(CCommandLine &cl) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to delete the Initiator group. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { DeleteGroup(cl, hr); });
}

void RenameInitiatorGroup(CCommandLine &cl) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to rename the Initiator group. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { RenameGroup(cl, hr); });
}
