// VirtualDiskService's host connectivity interfaces: initiators, initiator
// groups, FCP initiators, transport protocols and space reclamation.
#include "simulator/Contract.h"
#include "simulator/Secret.h"
#include "simulator/contract/Answer.h"
#include "simulator/contract/Parts.h"

namespace sim {

namespace {

void CapabilitiesData(Reader &r, InitiatorCapabilities *&capabilities) {
    r.Pointer("capabilities", capabilities,
              [](Reader &c, InitiatorCapabilities &out) { c.Field("dwMultipleSessions", out.dwMultipleSessions); });
}

void ReadIGroup(Reader &r, IGroupInfo &group) {
    r.Field("wszNodeName", group.wszNodeName);
    r.Field("wszGroupName", group.wszGroupName);
    r.Field("dwOsType", group.dwOsType);
    r.Field("dwGroupType", group.dwGroupType);
    r.Array("pInitiators", group.dwInitiatorCount, group.pInitiators,
            [](Reader &i, InitiatorNameField &name) { i.Field("wszName", name.wszName); });
}

void GroupsData(Reader &r, IGroupList &list) {
    r.Array("groups", list.dwCount, list.pGroups, ReadIGroup);
}

void FcpData(Reader &r, InitiatorList &list) {
    r.Array("initiators", list.dwCount, list.pInitiators, ReadInitiatorInfo);
}

void ReadProtocol(Reader &r, TransportProtocolInfo &protocol) {
    r.Field("wszName", protocol.wszName);
    r.Field("wszUserName", protocol.wszUserName);
    r.Field("dwPort", protocol.dwPort);
    r.Field("wszPassword", protocol.wszPassword);
    r.Field("dwProtocolType", protocol.dwProtocolType);
    r.StringArray("pwszOtherAddresses", protocol.dwOtherAddressCount, protocol.pwszOtherAddresses);
}

void ProtocolsData(Reader &r, TransportProtocolList &list) {
    r.Array("protocols", list.dwCount, list.pProtocols, ReadProtocol);
}

Json LogIGroup(const IGroupInfo *group) {
    if (group == nullptr)
        return nullptr;
    return {{"wszNodeName", LogFixed(group->wszNodeName)},
            {"wszGroupName", LogFixed(group->wszGroupName)},
            {"dwOsType", group->dwOsType},
            {"dwGroupType", group->dwGroupType},
            {"dwInitiatorCount", group->dwInitiatorCount},
            {"pInitiators", LogArray(group->dwInitiatorCount, group->pInitiators,
                                     [](const InitiatorNameField &name) {
                                         return Json{{"wszName", LogFixed(name.wszName)}};
                                     })},
            {"ullReserved344", group->ullReserved344}};
}

// The password is logged as a digest only: tests compare it with what they typed, and the log never holds it.
Json LogProtocol(const TransportProtocolInfo &protocol) {
    return {{"wszName", LogText(protocol.wszName)},
            {"wszUserName", LogText(protocol.wszUserName)},
            {"dwPort", protocol.dwPort},
            {"wszPassword", LogSecret(protocol.wszPassword)},
            {"dwProtocolType", protocol.dwProtocolType},
            {"pwszOtherAddresses", LogStrings(protocol.dwOtherAddressCount, protocol.pwszOtherAddresses)}};
}

Json LogProtocols(const TransportProtocolList *list) {
    if (list == nullptr)
        return nullptr;
    return LogArray(list->dwCount, list->pProtocols, LogProtocol);
}

class CInitiator final : public TPart<IInitiator> {
public:
    using TPart::TPart;
    HRESULT STDMETHODCALLTYPE GetInitiatorCapabilities(const wchar_t *machineName,
                                                       InitiatorCapabilities **capabilities) override {
        return Answer(owner_, "IInitiator.GetInitiatorCapabilities", IID_IInitiator, {{"machineName", LogText(machineName)}},
                      &CapabilitiesData, capabilities);
    }
};

class CIGroup final : public TPart<IIGroup> {
public:
    using TPart::TPart;
    SIM_RESERVED(IIGroup, 3)

    HRESULT STDMETHODCALLTYPE ListIGroups(const wchar_t *storageSystem, IGroupList *groups) override {
        return Answer(owner_, "IIGroup.ListIGroups", IID_IIGroup, {{"storageSystem", LogText(storageSystem)}}, &GroupsData,
                      groups);
    }

    HRESULT STDMETHODCALLTYPE CreateIGroup(const wchar_t *storageSystem, IGroupInfo *group,
                                           const wchar_t *localComputerName) override {
        return Answer(owner_, "IIGroup.CreateIGroup", IID_IIGroup,
                      {{"storageSystem", LogText(storageSystem)},
                       {"group", LogIGroup(group)},
                       {"localComputerName", LogText(localComputerName)}});
    }

    SIM_RESERVED(IIGroup, 6)

    HRESULT STDMETHODCALLTYPE DeleteIGroup(const wchar_t *storageSystem, const wchar_t *groupName) override {
        return Answer(owner_, "IIGroup.DeleteIGroup", IID_IIGroup,
                      {{"storageSystem", LogText(storageSystem)}, {"groupName", LogText(groupName)}});
    }

    SIM_RESERVED(IIGroup, 8)

    HRESULT STDMETHODCALLTYPE RenameIGroup(const wchar_t *storageSystem, const wchar_t *groupName,
                                           const wchar_t *newGroupName) override {
        return Answer(owner_, "IIGroup.RenameIGroup", IID_IIGroup,
                      {{"storageSystem", LogText(storageSystem)},
                       {"groupName", LogText(groupName)},
                       {"newGroupName", LogText(newGroupName)}});
    }
};

class CFcp final : public TPart<IFcp> {
public:
    using TPart::TPart;
    HRESULT STDMETHODCALLTYPE ListFcpInitiators(const wchar_t *computerName, InitiatorList *initiators) override {
        return Answer(owner_, "IFcp.ListFcpInitiators", IID_IFcp, {{"computerName", LogText(computerName)}}, &FcpData,
                      initiators);
    }
};

class CSpaceReclaimer final : public TPart<ISpaceReclaimer> {
public:
    using TPart::TPart;
    SIM_RESERVED(ISpaceReclaimer, 3)
};

class CTransportProtocol final : public TPart<ITransportProtocol> {
public:
    using TPart::TPart;

    HRESULT STDMETHODCALLTYPE SetTransportProtocols(DWORD action, DWORD flags, TransportProtocolList *protocols) override {
        return Answer(owner_, "ITransportProtocol.SetTransportProtocols", IID_ITransportProtocol,
                      {{"action", action}, {"flags", flags}, {"protocols", LogProtocols(protocols)}});
    }

    HRESULT STDMETHODCALLTYPE DeleteTransportProtocol(const wchar_t *entryName) override {
        return Answer(owner_, "ITransportProtocol.DeleteTransportProtocol", IID_ITransportProtocol,
                      {{"entryName", LogText(entryName)}});
    }

    HRESULT STDMETHODCALLTYPE ListTransportProtocols(TransportProtocolList *protocols, BOOL reserved) override {
        return Answer(owner_, "ITransportProtocol.ListTransportProtocols", IID_ITransportProtocol, {{"reserved", reserved}},
                      &ProtocolsData, protocols);
    }

    HRESULT STDMETHODCALLTYPE CheckTransportProtocol(TransportProtocolInfo *protocol) override {
        return Answer(owner_, "ITransportProtocol.CheckTransportProtocol", IID_ITransportProtocol,
                      {{"protocol", protocol == nullptr ? Json(nullptr) : LogProtocol(*protocol)}});
    }
};

} // namespace

std::unique_ptr<PartBase> MakeInitiatorPart(CServiceObject &owner) {
    return std::make_unique<CInitiator>(owner);
}
std::unique_ptr<PartBase> MakeIGroupPart(CServiceObject &owner) {
    return std::make_unique<CIGroup>(owner);
}
std::unique_ptr<PartBase> MakeFcpPart(CServiceObject &owner) {
    return std::make_unique<CFcp>(owner);
}
std::unique_ptr<PartBase> MakeSpaceReclaimerPart(CServiceObject &owner) {
    return std::make_unique<CSpaceReclaimer>(owner);
}
std::unique_ptr<PartBase> MakeTransportProtocolPart(CServiceObject &owner) {
    return std::make_unique<CTransportProtocol>(owner);
}

std::vector<MethodEntry> HostMethods() {
    return {{"IInitiator.GetInitiatorCapabilities", CheckOf(&CapabilitiesData)},
            {"IIGroup.ListIGroups", CheckOf(&GroupsData)},
            {"IIGroup.CreateIGroup", CheckOf(&NoData)},
            {"IIGroup.DeleteIGroup", CheckOf(&NoData)},
            {"IIGroup.RenameIGroup", CheckOf(&NoData)},
            {"IFcp.ListFcpInitiators", CheckOf(&FcpData)},
            {"ITransportProtocol.SetTransportProtocols", CheckOf(&NoData)},
            {"ITransportProtocol.DeleteTransportProtocol", CheckOf(&NoData)},
            {"ITransportProtocol.ListTransportProtocols", CheckOf(&ProtocolsData)},
            {"ITransportProtocol.CheckTransportProtocol", CheckOf(&NoData)}};
}

} // namespace sim
