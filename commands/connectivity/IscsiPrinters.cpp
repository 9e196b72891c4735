// winsock2.h must come before anything that pulls in windows.h.
#include <winsock2.h>

#include "commands/connectivity/IscsiPrinters.h"

#include "commands/connectivity/IscsiRecords.h"
#include "front_end/Console.h"
#include "front_end/SystemLibraries.h"

namespace {

// The address lines are narrow text; their prefix (tabs) goes with them.
std::string Narrow(const std::wstring &text) {
    if (text.empty())
        return std::string();
    int bytes = WideCharToMultiByte(CP_ACP, 0, text.c_str(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
    if (bytes <= 0)
        return std::string();
    std::string narrow(static_cast<size_t>(bytes), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), static_cast<int>(text.size()), &narrow[0], bytes, nullptr, nullptr);
    return narrow;
}

void PrintPortal(const std::wstring &prefix, const IscsiPortal &portal) {
    const wchar_t *p = prefix.c_str();
    if (HasField(portal.dwMask, 8))
        Print(L"%lsPortal ID: %d\n", p, static_cast<int>(portal.dwPortalId));
    if (HasField(portal.dwMask, 1))
        PrintNarrow("%hsIP address: %hs\n", Narrow(prefix).c_str(), Ipv4Text(portal.dwIpAddress).c_str());
    if (HasField(portal.dwMask, 2))
        Print(L"%lsIP port: %d\n", p, static_cast<int>(portal.dwPort));
    if (HasField(portal.dwMask, 4))
        Print(L"%lsPortal group tag: %d\n", p, static_cast<int>(portal.dwGroupTag));
}

void PrintPortalList(const std::wstring &prefix, DWORD count, const IscsiPortal *portals) {
    // "portals(s)" is how the heading has always read; scripts match it.
    count = CountOf(portals, count);
    Print(L"%ls%d portals(s):\n", prefix.c_str(), static_cast<int>(count));
    for (DWORD i = 0; i < count; ++i)
        PrintPortal(prefix + L"\t", portals[i]);
}

void PrintHba(const std::wstring &prefix, const IscsiHba &hba) {
    const wchar_t *p = prefix.c_str();
    if (HasField(hba.dwMask, 1))
        Print(L"%lsiSCSI HBA_ID: %d\n", p, static_cast<int>(hba.dwHbaId));
    if (HasField(hba.dwMask, 2))
        Print(L"%lsiSCSI HBA name: %ls\n", p, OrNull(hba.wszName));
    if (HasField(hba.dwMask, 4))
        Print(L"%lsiSCSI HBA description: %ls\n", p, OrNull(hba.wszDescription));
    if (HasField(hba.dwMask, 8))
        PrintPortalList(prefix, hba.dwPortalCount, hba.pPortals);
}

void PrintConnection(const std::wstring &prefix, const IscsiConnection &connection) {
    const wchar_t *p = prefix.c_str();
    if (HasField(connection.dwMask, 1))
        Print(L"%lsConnection ID: 0x%I64x-0x%I64x\n", p, connection.ullConnectionId1, connection.ullConnectionId2);
    if (HasField(connection.dwMask, 2))
        Print(L"%lsCID: %02x %02x\n", p, connection.byCid[1], connection.byCid[0]);
    if (HasField(connection.dwMask, 4)) {
        Print(L"%lsInitiator portal:\n", p);
        PrintPortal(prefix + L"\t", connection.initiatorPortal);
    }
    if (HasField(connection.dwMask, 8)) {
        Print(L"%lsTarget portal:\n", p);
        PrintPortal(prefix + L"\t", connection.targetPortal);
    }
}

void PrintConnectionList(const std::wstring &prefix, DWORD count, const IscsiConnection *connections) {
    count = CountOf(connections, count);
    Print(L"%ls%d iSCSI connection(s):\n", prefix.c_str(), static_cast<int>(count));
    for (DWORD i = 0; i < count; ++i)
        PrintConnection(prefix + L"\t", connections[i]);
}

void PrintSession(const std::wstring &prefix, const IscsiSession &session) {
    const wchar_t *p = prefix.c_str();
    if (HasField(session.dwMask, 1))
        Print(L"%lsSession ID: 0x%I64x-0x%I64x\n", p, session.ullSessionId1, session.ullSessionId2);
    if (HasField(session.dwMask, 4) && session.dwInitiatorType == 1) {
        Print(L"%lsMicrosoft iSCSI service\n", p);
        PrintHba(prefix + L"\t", session.hba);
    }
    if (HasField(session.dwMask, 8))
        PrintConnectionList(prefix, session.dwConnectionCount, session.pConnections);
}

void PrintSessionList(const std::wstring &prefix, DWORD count, const IscsiSession *sessions) {
    count = CountOf(sessions, count);
    Print(L"%ls%d iSCSI session(s):\n", prefix.c_str(), static_cast<int>(count));
    for (DWORD i = 0; i < count; ++i) {
        if (i > 0)
            Print(L"\n");
        PrintSession(prefix + L"\t", sessions[i]);
    }
}

void PrintConnectedTarget(const std::wstring &prefix, const IscsiConnectedTarget &target) {
    const wchar_t *p = prefix.c_str();
    if (HasField(target.dwMask, 1))
        Print(L"%lsTarget name: %ls\n", p, OrNull(target.wszTargetName));
    if (HasField(target.dwMask, 2))
        Print(L"%lsNumber of LUNs: %d\n", p, static_cast<int>(target.dwLunCount));
    if (HasField(target.dwMask, 4))
        PrintSessionList(prefix, target.dwSessionCount, target.pSessions);
}

void PrintNetworkPortal(const IscsiPortal &portal) {
    PrintNarrow("\tIP address:\t\t%hs\n", HasField(portal.dwMask, 1) ? Ipv4Text(portal.dwIpAddress).c_str() : "Unknown");
    if (HasField(portal.dwMask, 2))
        Print(L"\tIP port:\t\t%d\n", static_cast<int>(portal.dwPort));
    else
        Print(L"\tIP port:\t\tUnknown\n");
    if (HasField(portal.dwMask, 4))
        Print(L"\tportal group tag:\t%d\n", static_cast<int>(portal.dwGroupTag));
    Print(L"\n");
}

} // namespace

std::string Ipv4Text(DWORD address) {
    in_addr in;
    in.s_addr = address;
    const char *text = Ipv4TextOf(in);
    return text != nullptr ? text : "";
}

void PrintConnectedTargetList(const std::wstring &prefix, const IscsiConnectedTargetList &list) {
    const DWORD count = CountOf(list.pTargets, list.dwCount);
    Print(L"%ls%d connected iSCSI target(s):\n", prefix.c_str(), static_cast<int>(count));
    for (DWORD i = 0; i < count; ++i) {
        if (i > 0)
            Print(L"\n");
        PrintConnectedTarget(prefix + L"\t", list.pTargets[i]);
    }
}

void PrintStorageTargetList(const IscsiStorageTargetList &list) {
    const DWORD count = CountOf(list.pTargets, list.dwCount);
    Print(L"%d iSCSI target(s)\n", static_cast<int>(count));
    Print(L"\n");
    for (DWORD i = 0; i < count; ++i) {
        const IscsiStorageTarget &target = list.pTargets[i];
        Print(L"target name: %ls\n", HasField(target.dwMask, 1) ? OrNull(target.wszTargetName) : L"Unknown");
        if (HasField(target.dwMask, 8))
            Print(L"LUN count: %d\n", static_cast<int>(target.dwLunCount));
        if (!HasField(target.dwMask, 16))
            continue;
        Print(L"\t%d network portal(s)\n", static_cast<int>(CountOf(target.pPortals, target.dwPortalCount)));
        Print(L"\n");
        for (DWORD j = 0; target.pPortals != nullptr && j < target.dwPortalCount; ++j)
            PrintNetworkPortal(target.pPortals[j]);
    }
}
