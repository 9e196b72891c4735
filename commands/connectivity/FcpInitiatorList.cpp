// fcp_initiator list: the host's Fibre Channel initiators. A failed query is
// reported on a line of its own and the command still ends successfully.
#include "commands/Handlers.h"
#include "commands/common/DiskPrinters.h"
#include "commands/common/DiskRecords.h"
#include "commands/connectivity/LocalComputer.h"
#include "front_end/Console.h"
#include "service/ServiceAccess.h"
#include "service/ServiceSession.h"

#include <windows.h>

#include <string>

namespace {

void FreeInitiatorList(InitiatorList &list) {
    FreeEach(list.pInitiators, list.dwCount, FreeInitiatorInfo);
}
using OwnedInitiatorList = OwnedRecord<InitiatorList, FreeInitiatorList>;

} // namespace

void FcpInitiatorList(const Operation &operation) {
    ServiceSession<IFcp> fcp(operation, CLSID_VirtualDiskService);
    // The host whose initiators are asked for: this computer, whichever machine
    // runs the service (-m only chooses where the service object is created).
    // Without a name the service is asked about an empty one.
    std::wstring computer;
    LocalComputerName(computer);
    OwnedInitiatorList initiators;
    const HRESULT hr = fcp->ListFcpInitiators(computer.c_str(), initiators.Out());
    const DWORD lastError = GetLastError();
    if (hr != S_OK) {
        const wchar_t *machine = operation.Machine();
        Print(L"Error %d obtaining FCP initiators on machine %ls. Status 0x%x.\n", static_cast<int>(lastError),
              machine != nullptr ? machine : L"", static_cast<unsigned>(hr));
        return;
    }
    Print(L"\nFCP initiators on this system are: \n\n");
    for (DWORD i = 0; initiators->pInitiators != nullptr && i < initiators->dwCount; ++i)
        PrintInitiatorInfo(L"", initiators.Get().pInitiators[i]);
    Print(L"\n");
}
