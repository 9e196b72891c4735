// preferredIP list, set and delete. The service keeps one address per storage
// system; set never replaces an entry (delete it first), and one address never
// serves two storage systems.
#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/connectivity/PreferredIpTable.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Switches.h"
#include "front_end/Values.h"
#include "service/EventSinks.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <cwchar>

namespace {

bool Equal(const wchar_t *stored, const wchar_t *given) {
    return stored != nullptr && wcscmp(stored, given) == 0;
}

// -f with one value that is a valid storage system name (the empty name holds
// no forbidden character, so it passes).
const wchar_t *StorageSystem(const Operation &operation) {
    const wchar_t *name = operation.Required(sw::f);
    if (!IsValidName(name))
        operation.Usage(sw::f);
    return name;
}

// The disk interface with the virtual-disk sink connected for the whole operation.
using DiskService = ServiceSession<IVirtualDisk, CVirtualDiskEvents>;

} // namespace

void PreferredIpList(const Operation &operation) {
    DiskService service(operation, CLSID_VirtualDiskService);
    OwnedPreferredIPTable table;
    CheckServiceCall(service->GetPreferredIPs(table.Out()), MSG_GET_PREFERRED_IPS_FAILED);
    if (table->dwCount == 0 || table->pEntries == nullptr) {
        Print(L"No preferred IP addresses exist.\n");
        return;
    }
    for (DWORD i = 0; i < table->dwCount; ++i) {
        const PreferredIPEntry &entry = table.Get().pEntries[i];
        Print(L"\tStorage System Name: %ls\tPreferred IP: %ls\n", OrNull(entry.wszStorageSystem), OrNull(entry.wszIpAddress));
    }
}

void PreferredIpSet(const Operation &operation) {
    const wchar_t *storageSystem = StorageSystem(operation);
    const wchar_t *address = operation.Required(sw::IP);
    if (!IsValidIpv4Address(address))
        throw LocalErrorException(MSG_INVALID_IP_ADDRESS);

    DiskService service(operation, CLSID_VirtualDiskService);
    OwnedPreferredIPTable table;
    CheckServiceCall(service->GetPreferredIPs(table.Out()), MSG_GET_PREFERRED_IPS_FAILED);
    const DWORD count = table->pEntries != nullptr ? table->dwCount : 0;
    for (DWORD i = 0; i < count; ++i) {
        const PreferredIPEntry &entry = table.Get().pEntries[i];
        // An existing entry for the system, or another system with this
        // address: the table stays as it is, and that is no failure.
        if (Equal(entry.wszStorageSystem, storageSystem) || Equal(entry.wszIpAddress, address))
            return;
    }
    CSentPreferredIPTable changed(count + 1, MSG_SET_PREFERRED_IP_FAILED);
    for (DWORD i = 0; i < count; ++i)
        changed.Add(table.Get().pEntries[i].wszStorageSystem, table.Get().pEntries[i].wszIpAddress);
    changed.Add(storageSystem, address);
    CheckServiceCall(service->SetPreferredIPs(changed.Get()), MSG_SET_PREFERRED_IP_FAILED);
}

void PreferredIpDelete(const Operation &operation) {
    const wchar_t *storageSystem = StorageSystem(operation);

    DiskService service(operation, CLSID_VirtualDiskService);
    OwnedPreferredIPTable table;
    CheckServiceCall(service->GetPreferredIPs(table.Out()), MSG_GET_PREFERRED_IPS_FAILED);
    const DWORD count = table->pEntries != nullptr ? table->dwCount : 0;
    DWORD found = count;
    for (DWORD i = 0; i < count && found == count; ++i)
        if (Equal(table.Get().pEntries[i].wszStorageSystem, storageSystem))
            found = i;
    if (found == count)
        throw LocalErrorException(MSG_PREFERRED_IP_NOT_FOUND);
    CSentPreferredIPTable changed(count - 1, MSG_DELETE_PREFERRED_IP_FAILED);
    for (DWORD i = 0; i < count; ++i)
        if (i != found)
            changed.Add(table.Get().pEntries[i].wszStorageSystem, table.Get().pEntries[i].wszIpAddress);
    CheckServiceCall(service->SetPreferredIPs(changed.Get()), MSG_DELETE_PREFERRED_IP_FAILED);
}
