#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/connectivity/IGroupRecords.h"
#include "front_end/Console.h"
#include "front_end/Switches.h"
#include "service/ServiceSession.h"

void FreeIGroupList(IGroupList &list) {
    FreeEach(list.pGroups, list.dwCount, [](IGroupInfo &group) { FreeAndClear(group.pInitiators); });
}

namespace {

const wchar_t *GroupTypeWord(DWORD type) {
    switch (type) {
    case 0:
        return L"FCP";
    case 1:
        return L"ISCSI";
    default:
        return L"Unknown";
    }
}

// Printed with no line end: the next group or the initiators begin with one.
const wchar_t *OsTypeWord(DWORD type) {
    static const wchar_t *const kWords[] = {L"os-type:Unrecognized", L"os-type:Unknown", L"os-type:Default", L"os-type:Solaris",
                                            L"os-type:Windows",      L"os-type:HPUX",    L"os-type:AIX",     L"os-type:linux",
                                            L"os-type:Netware",      L"os-type:vmware"};
    return type < sizeof(kWords) / sizeof(kWords[0]) ? kWords[type] : L"";
}

void PrintGroup(const IGroupInfo &group) {
    Print(L"\n\nNode Name: %ls\n", FixedText(group.wszNodeName).c_str());
    Print(L"Initiators Group Name: %ls\n", FixedText(group.wszGroupName).c_str());
    Print(L"Initiators Group Type: %ls\n", GroupTypeWord(group.dwGroupType));
    Print(L"%ls", OsTypeWord(group.dwOsType));
    for (DWORD i = 0; i < group.dwInitiatorCount && group.pInitiators != nullptr; ++i) {
        if (i == 0)
            Print(L"\nInitiators:\n");
        Print(L"           %ls\n", FixedText(group.pInitiators[i].wszName).c_str());
    }
}

void ListGroups(const Operation &operation, HRESULT &hr) {
    const wchar_t *storageSystem = operation.Required(sw::f);
    ServiceSession<IIGroup, CVirtualDiskEvents> igroup(operation, CLSID_VirtualDiskService, hr);
    Print(L"\nListing the Initiator groups ...\n");
    OwnedIGroupList groups;
    hr = igroup->ListIGroups(storageSystem, groups.Out());
    if (hr != S_OK) {
        Print(L"\nError occurred while getting the storage system Initiator groups...\n\n");
        throw AlertUserException(0, hr);
    }
    if (groups->dwCount == 0 || groups->pGroups == nullptr)
        Print(L"\n\nNo Initiator groups are found...\n\n");
    for (DWORD i = 0; i < groups->dwCount && groups->pGroups != nullptr; ++i)
        PrintGroup(groups->pGroups[i]);
}

} // namespace

void ListInitiatorGroups(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Wide, "\nFailed to list Initiator groups. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { ListGroups(operation, hr); });
}
