#include "MessageIds.h"
#include "commands/Handlers.h"
#include "commands/common/FailureLine.h"
#include "commands/connectivity/IGroupRecords.h"
#include "commands/connectivity/LocalComputer.h"
#include "front_end/Console.h"
#include "front_end/Holders.h"
#include "front_end/ListArgs.h"
#include "front_end/Switches.h"
#include "service/ServiceSession.h"

#include <cwchar>
#include <new>
#include <vector>

namespace {

// Room in the group record's fixed fields, terminator excluded.
constexpr size_t kNodeNameChars = sizeof(IGroupInfo::wszNodeName) / sizeof(wchar_t) - 1;
constexpr size_t kGroupNameChars = sizeof(IGroupInfo::wszGroupName) / sizeof(wchar_t) - 1;
constexpr size_t kInitiatorNameChars = sizeof(InitiatorNameField::wszName) / sizeof(wchar_t) - 1;

// The -I pairs: at least one, every name fits its field (an empty name is a
// name), all of one node.
std::vector<InitiatorPair> InitiatorPairs(const Operation &operation) {
    std::vector<InitiatorPair> pairs;
    operation.InitiatorPairs(pairs);
    if (pairs.empty())
        operation.Usage(sw::I);
    for (const InitiatorPair &pair : pairs)
        if (pair.NodeMachineName.size() > kNodeNameChars || pair.InitiatorName.size() > kInitiatorNameChars)
            operation.Usage(sw::I);
    for (size_t i = 1; i < pairs.size(); ++i)
        if (_wcsicmp(pairs[i].NodeMachineName.c_str(), pairs[i - 1].NodeMachineName.c_str()) != 0)
            operation.UsageFault(MSG_USAGE_SAME_NODE);
    return pairs;
}

// The initiator block that the group record points to. Memory running out is
// not a service failure: the failure line reports it.
CoTaskPtr<InitiatorNameField> InitiatorBlock(const std::vector<InitiatorPair> &pairs) {
    const size_t bytes = pairs.size() * sizeof(InitiatorNameField);
    CoTaskPtr<InitiatorNameField> names(static_cast<InitiatorNameField *>(CoTaskMemAlloc(bytes)));
    if (!names)
        throw std::bad_alloc();
    ZeroMemory(names.Get(), bytes);
    for (size_t i = 0; i < pairs.size(); ++i)
        wcsncpy(names.Get()[i].wszName, pairs[i].InitiatorName.c_str(), kInitiatorNameChars);
    return names;
}

void CreateGroup(const Operation &operation, HRESULT &hr) {
    const std::vector<InitiatorPair> pairs = InitiatorPairs(operation);
    const wchar_t *groupName = operation.Required(sw::ig);
    if (wcslen(groupName) > kGroupNameChars)
        operation.Usage(sw::ig);
    const wchar_t *storageSystem = operation.Required(sw::f);

    ServiceSession<IIGroup, CVirtualDiskEvents> igroup(operation, CLSID_VirtualDiskService, hr);

    // Os type and group type stay 0: the storage system picks them.
    IGroupInfo group = {};
    wcsncpy(group.wszNodeName, pairs.front().NodeMachineName.c_str(), kNodeNameChars);
    wcsncpy(group.wszGroupName, groupName, kGroupNameChars);
    const CoTaskPtr<InitiatorNameField> initiators = InitiatorBlock(pairs);
    group.dwInitiatorCount = static_cast<DWORD>(pairs.size());
    group.pInitiators = initiators.Get();

    std::wstring computerName;
    if (!LocalComputerName(computerName))
        throw AlertUserException(MSG_COMPUTER_NAME_FAILED, HRESULT_FROM_WIN32(GetLastError()));
    Print(L"\nCreating Initiator group ...\n\n");
    IGroupInfo sent = group;
    hr = igroup->CreateIGroup(storageSystem, &sent, computerName.c_str());
    if (hr != S_OK) {
        Print(L"\nError occurred while creating the storage system Initiator group(name:%ls)\n\n", groupName);
        throw AlertUserException(0, hr);
    }
}

} // namespace

void CreateInitiatorGroup(const Operation &operation) {
    RunWithFailureLine(FailureOutput::Narrow, "\nFailed to create igroup. Error code %d\t hr=0x%lxd\n\n",
                       [&](HRESULT &hr) { CreateGroup(operation, hr); });
}
