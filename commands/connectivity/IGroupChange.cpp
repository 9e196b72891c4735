// Renaming and deleting an initiator group.
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "front_end/Console.h"
#include "front_end/Switches.h"
#include "service/ServiceSession.h"

namespace {

void DeleteGroup(const Operation &operation, HRESULT &hr) {
    const wchar_t *storageSystem = operation.Required(sw::f);
    const wchar_t *groupName = operation.Required(sw::ig);
    ServiceSession<IIGroup, CVirtualDiskEvents> igroup(operation, CLSID_VirtualDiskService, hr);
    Print(L"\nDeleting the Initiator group ...\n");
    hr = igroup->DeleteIGroup(storageSystem, groupName);
    if (hr != S_OK) {
        Print(L"\nError occurred while deleting the storage system Initiator group...hr=0x%lxd\n\n",
              static_cast<unsigned long>(hr));
        throw AlertUserException(0, hr);
    }
}

void RenameGroup(const Operation &operation, HRESULT &hr) {
    const wchar_t *storageSystem = operation.Required(sw::f);
    const wchar_t *groupName = operation.Required(sw::ig);
    const wchar_t *newName = operation.Required(sw::igNew);
    ServiceSession<IIGroup, CVirtualDiskEvents> igroup(operation, CLSID_VirtualDiskService, hr);
    Print(L"\nRenaming the Initiator group ...\n");
    hr = igroup->RenameIGroup(storageSystem, groupName, newName);
    if (hr != S_OK) {
        Print(L"\nError occurred while renaming the storage system Initiator group...\n\n");
        throw AlertUserException(0, hr);
    }
}

} // namespace

void DeleteInitiatorGroup(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to delete the Initiator group. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { DeleteGroup(operation, hr); });
}

void RenameInitiatorGroup(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to rename the Initiator group. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { RenameGroup(operation, hr); });
}
