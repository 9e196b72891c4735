// VirtualDiskService's iSCSI interface: storage targets, the host's sessions,
// and establishing and ending sessions. Every record opens with the presence
// mask that the scenario sets like any other field.
#include "simulator/Contract.h"
#include "simulator/Secret.h"
#include "simulator/contract/Answer.h"
#include "simulator/contract/Parts.h"

namespace sim {

namespace {

void ReadPortal(Reader &r, IscsiPortal &portal) {
    r.Field("dwMask", portal.dwMask);
    r.Field("dwPortalId", portal.dwPortalId);
    r.Ipv4("dwIpAddress", portal.dwIpAddress);
    r.Field("dwPort", portal.dwPort);
    r.Field("dwGroupTag", portal.dwGroupTag);
}

void ReadHba(Reader &r, IscsiHba &hba) {
    r.Field("dwMask", hba.dwMask);
    r.Field("dwHbaId", hba.dwHbaId);
    r.Field("wszName", hba.wszName);
    r.Field("wszDescription", hba.wszDescription);
    r.Array("pPortals", hba.dwPortalCount, hba.pPortals, ReadPortal);
}

void ReadConnection(Reader &r, IscsiConnection &connection) {
    r.Field("dwMask", connection.dwMask);
    r.Field("ullConnectionId1", connection.ullConnectionId1);
    r.Field("ullConnectionId2", connection.ullConnectionId2);
    r.Integers("byCid", connection.byCid);
    r.Nested("initiatorPortal", [&](Reader &p) { ReadPortal(p, connection.initiatorPortal); });
    r.Nested("targetPortal", [&](Reader &p) { ReadPortal(p, connection.targetPortal); });
}

void ReadSession(Reader &r, IscsiSession &session) {
    r.Field("dwMask", session.dwMask);
    r.Field("ullSessionId1", session.ullSessionId1);
    r.Field("ullSessionId2", session.ullSessionId2);
    r.Field("dwInitiatorType", session.dwInitiatorType);
    r.Nested("hba", [&](Reader &h) { ReadHba(h, session.hba); });
    r.Array("pConnections", session.dwConnectionCount, session.pConnections, ReadConnection);
}

void ReadConnectedTarget(Reader &r, IscsiConnectedTarget &target) {
    r.Field("dwMask", target.dwMask);
    r.Field("wszTargetName", target.wszTargetName);
    r.Field("dwLunCount", target.dwLunCount);
    r.Array("pSessions", target.dwSessionCount, target.pSessions, ReadSession);
}

void ReadStorageTarget(Reader &r, IscsiStorageTarget &target) {
    r.Field("dwMask", target.dwMask);
    r.Field("wszTargetName", target.wszTargetName);
    r.Field("dwLunCount", target.dwLunCount);
    r.Array("pPortals", target.dwPortalCount, target.pPortals, ReadPortal);
}

void StorageTargetsData(Reader &r, IscsiStorageTargetList &list) {
    r.Array("targets", list.dwCount, list.pTargets, ReadStorageTarget);
}

void ConnectedTargetsData(Reader &r, IscsiConnectedTargetList &list) {
    r.Array("targets", list.dwCount, list.pTargets, ReadConnectedTarget);
}

Json LogPortal(const IscsiPortal &portal) {
    return {{"dwMask", portal.dwMask},
            {"dwPortalId", portal.dwPortalId},
            {"dwIpAddress", Ipv4Text(portal.dwIpAddress)},
            {"dwPort", portal.dwPort},
            {"dwGroupTag", portal.dwGroupTag}};
}

Json LogConnection(const IscsiConnection &connection) {
    return {{"dwMask", connection.dwMask},
            {"ullConnectionId1", connection.ullConnectionId1},
            {"ullConnectionId2", connection.ullConnectionId2},
            {"byCid", {connection.byCid[0], connection.byCid[1]}},
            {"initiatorPortal", LogPortal(connection.initiatorPortal)},
            {"targetPortal", LogPortal(connection.targetPortal)}};
}

// The session a client hands back to end it, or the one it asks for.
Json LogSession(const IscsiSession *session) {
    if (session == nullptr)
        return nullptr;
    const IscsiHba &hba = session->hba;
    return {{"dwMask", session->dwMask},
            {"ullSessionId1", session->ullSessionId1},
            {"ullSessionId2", session->ullSessionId2},
            {"ullReserved24", session->ullReserved24},
            {"dwInitiatorType", session->dwInitiatorType},
            {"hba",
             {{"dwMask", hba.dwMask},
              {"dwHbaId", hba.dwHbaId},
              {"wszName", LogText(hba.wszName)},
              {"wszDescription", LogText(hba.wszDescription)},
              {"pPortals", LogArray(hba.dwPortalCount, hba.pPortals, LogPortal)}}},
            {"pConnections", LogArray(session->dwConnectionCount, session->pConnections, LogConnection)}};
}

Json LogChap(const IscsiChap *chap) {
    if (chap == nullptr)
        return nullptr;
    return {{"dwUseChap", chap->dwUseChap}, {"wszName", LogText(chap->wszName)}, {"wszPassword", LogSecret(chap->wszPassword)}};
}

class CIscsi final : public TPart<IIscsi> {
public:
    using TPart::TPart;
    SIM_RESERVED(IIscsi, 3)

    HRESULT STDMETHODCALLTYPE ListTargets(const wchar_t *storageSystem, IscsiStorageTargetList *targets) override {
        return Answer(owner_, "IIscsi.ListTargets", IID_IIscsi, {{"storageSystem", LogText(storageSystem)}}, &StorageTargetsData,
                      targets);
    }

    HRESULT STDMETHODCALLTYPE ListSessions(const wchar_t *machineName, IscsiConnectedTargetList *targets) override {
        return Answer(owner_, "IIscsi.ListSessions", IID_IIscsi, {{"machineName", LogText(machineName)}}, &ConnectedTargetsData,
                      targets);
    }

    HRESULT STDMETHODCALLTYPE EstablishSession(const wchar_t *machineName, const wchar_t *targetName, IscsiSession *session,
                                               IscsiChap *chap) override {
        return Answer(owner_, "IIscsi.EstablishSession", IID_IIscsi,
                      {{"machineName", LogText(machineName)},
                       {"targetName", LogText(targetName)},
                       {"session", LogSession(session)},
                       {"chap", LogChap(chap)}});
    }

    HRESULT STDMETHODCALLTYPE TerminateSession(const wchar_t *machineName, IscsiSession *session) override {
        return Answer(owner_, "IIscsi.TerminateSession", IID_IIscsi,
                      {{"machineName", LogText(machineName)}, {"session", LogSession(session)}});
    }

    HRESULT STDMETHODCALLTYPE DisconnectTarget(const wchar_t *machineName, const wchar_t *targetName) override {
        return Answer(owner_, "IIscsi.DisconnectTarget", IID_IIscsi,
                      {{"machineName", LogText(machineName)}, {"targetName", LogText(targetName)}});
    }
};

} // namespace

std::unique_ptr<PartBase> MakeIscsiPart(CServiceObject &owner) {
    return std::make_unique<CIscsi>(owner);
}

std::vector<MethodEntry> IscsiMethods() {
    return {{"IIscsi.ListTargets", CheckOf(&StorageTargetsData)},
            {"IIscsi.ListSessions", CheckOf(&ConnectedTargetsData)},
            {"IIscsi.EstablishSession", CheckOf(&NoData)},
            {"IIscsi.TerminateSession", CheckOf(&NoData)},
            {"IIscsi.DisconnectTarget", CheckOf(&NoData)}};
}

} // namespace sim
