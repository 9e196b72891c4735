"""iscsi_initiator list, establish_session, terminate_session; iscsi_target list, disconnect."""

import copy

from harness import password_digest, E_INVALIDARG, S_OK, Case, alert, completion
from cases.host_common import (E_ACCESSDENIED, E_NOINTERFACE, LOCAL, MSG_SERVICE_UNAVAILABLE, failing, local_error,
                               names_this_computer, no_password, nothing_created, refusals, sent, usage_cases)

MSG_MULTI_SESSION_QUERY_FAILED = 5368
MSG_LIST_TARGETS_FAILED, MSG_LIST_SESSIONS_FAILED = 5378, 5380
MSG_ESTABLISH_SESSION_FAILED, MSG_TERMINATE_SESSION_FAILED, MSG_DISCONNECT_TARGET_FAILED = 5387, 5388, 5389
MSG_SESSION_EXISTS, MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED = 6016, 6017

LIST_USAGE = (
    "cvcli iscsi_initiator list [-m <MachineName>] -s\n"
    "Lists the iSCSI sessions of the host with their connections, HBAs and portals.\n"
    "-s Selects the session list; it is required.\n" + LOCAL
)
ESTABLISH_USAGE = (
    "cvcli iscsi_initiator establish_session [-m <MachineName>] [-h <HBA_ID>] [-hp <HBA Portal ID>] -t <TargetName> "
    "-np <IPAddress> <IPPort> [-c <CHAPName> <CHAPPassword>]\n"
    "Establishes an iSCSI session with the target <TargetName> through the given target portal.\n"
    "-h The initiator HBA to use; 0 (the default) is the Microsoft iSCSI initiator service.\n"
    "-hp The portal of that HBA to use; 0 when not specified.\n"
    "-np IP address and port of the target portal.\n"
    "-c CHAP name and password with which the host logs in to the target.\n" + LOCAL
)
TERMINATE_USAGE = (
    "cvcli iscsi_initiator terminate_session [-m <MachineName>] -s <Session_ID>\n"
    "Terminates an iSCSI session.\n"
    "-s The session ID as the list operation prints it (0x<number>-0x<number>).\n" + LOCAL
)
TARGET_LIST_USAGE = (
    "cvcli iscsi_target list -f <Storage System>\n"
    "Lists the iSCSI targets of a storage system with their LUN counts and network portals.\n"
)
DISCONNECT_USAGE = (
    "cvcli iscsi_target disconnect [-m <MachineName>] -t <TargetName>\n"
    "Disconnects the host from the iSCSI target <TargetName>.\n" + LOCAL
)


def listed(targets, method="IIscsi.ListSessions"):
    return {"methods": {method: {"targets": targets}}}


# iscsi_initiator list
def portal(number):
    return {"dwMask": 15, "dwPortalId": number, "dwIpAddress": "10.0.0.%d" % number, "dwPort": 3000 + number,
            "dwGroupTag": 100 + number}


def portal_text(number, tabs=5):
    return "".join("\t" * tabs + line + "\n" for line in [
        "Portal ID: %d" % number, "IP address: 10.0.0.%d" % number, "IP port: %d" % (3000 + number),
        "Portal group tag: %d" % (100 + number)])


SESSION1 = {"dwMask": 13, "ullSessionId1": "0xFFFFE0001A2B3010", "ullSessionId2": "0x400001370000000B",
            "dwInitiatorType": 1,
            "hba": {"dwMask": 15, "dwHbaId": 2, "wszName": "HBA-A", "wszDescription": "first adapter",
                    "pPortals": [portal(11)]},
            "pConnections": [{"dwMask": 15, "ullConnectionId1": "0xABC", "ullConnectionId2": 1, "byCid": [1, 2],
                              "initiatorPortal": portal(21), "targetPortal": portal(31)},
                             {"dwMask": 1, "ullConnectionId1": "0xABD", "ullConnectionId2": 2}]}
FULL_TARGETS = [
    {"dwMask": 7, "wszTargetName": "iqn.1992-08.com.corvane:sn.1", "dwLunCount": 3,
     "pSessions": [SESSION1, {"dwMask": 1, "ullSessionId1": 5, "ullSessionId2": 6}]},
    {"dwMask": 3, "wszTargetName": "iqn.1992-08.com.corvane:sn.2", "dwLunCount": 0},
]
FULL_LIST = (
    "\t2 connected iSCSI target(s):\n"
    "\t\tTarget name: iqn.1992-08.com.corvane:sn.1\n"
    "\t\tNumber of LUNs: 3\n"
    "\t\t2 iSCSI session(s):\n"
    "\t\t\tSession ID: 0xffffe0001a2b3010-0x400001370000000b\n"
    "\t\t\tMicrosoft iSCSI service\n"
    "\t\t\t\tiSCSI HBA_ID: 2\n"
    "\t\t\t\tiSCSI HBA name: HBA-A\n"
    "\t\t\t\tiSCSI HBA description: first adapter\n"
    "\t\t\t\t1 portals(s):\n" + portal_text(11)
    + "\t\t\t2 iSCSI connection(s):\n"
    "\t\t\t\tConnection ID: 0xabc-0x1\n"
    "\t\t\t\tCID: 02 01\n"
    "\t\t\t\tInitiator portal:\n" + portal_text(21)
    + "\t\t\t\tTarget portal:\n" + portal_text(31)
    + "\t\t\t\tConnection ID: 0xabd-0x2\n"
    "\n"
    "\t\t\tSession ID: 0x5-0x6\n"
    "\n"
    "\t\tTarget name: iqn.1992-08.com.corvane:sn.2\n"
    "\t\tNumber of LUNs: 0\n"
)

# Each presence bit cleared on its own: (what, path to the record, bit, what goes: the one line that holds
# this text, or the block from the first text up to the second).
S1 = [0, "pSessions", 0]
HBA = S1 + ["hba"]
CONN = S1 + ["pConnections", 0]
PORTAL = HBA + ["pPortals", 0]
BITS = [
    ("target name", [0], 1, "Target name: iqn.1992-08.com.corvane:sn.1"),
    ("LUN count", [0], 2, "Number of LUNs: 3"),
    ("session list", [0], 4, ("\t\t2 iSCSI session(s)", "\n\t\tTarget name: iqn.1992-08.com.corvane:sn.2")),
    ("session id", S1, 1, "Session ID: 0xffffe0001a2b3010"),
    ("HBA record", S1, 4, ("\t\t\tMicrosoft iSCSI service", "\t\t\t2 iSCSI connection(s)")),
    ("connection list", S1, 8, ("\t\t\t2 iSCSI connection(s)", "\n\t\t\tSession ID: 0x5-0x6")),
    ("connection id", CONN, 1, "Connection ID: 0xabc-0x1"),
    ("CID", CONN, 2, "CID: 02 01"),
    ("initiator portal", CONN, 4, ("\t\t\t\tInitiator portal:", "\t\t\t\tTarget portal:")),
    ("target portal", CONN, 8, ("\t\t\t\tTarget portal:", "\t\t\t\tConnection ID: 0xabd")),
    ("HBA id", HBA, 1, "iSCSI HBA_ID: 2"),
    ("HBA name", HBA, 2, "iSCSI HBA name: HBA-A"),
    ("HBA description", HBA, 4, "iSCSI HBA description: first adapter"),
    ("HBA portal list", HBA, 8, ("\t\t\t\t1 portals(s)", "\t\t\t2 iSCSI connection(s)")),
    ("portal id", PORTAL, 8, "Portal ID: 11"),
    ("portal address", PORTAL, 1, "IP address: 10.0.0.11"),
    ("portal port", PORTAL, 2, "IP port: 3011"),
    ("portal group tag", PORTAL, 4, "Portal group tag: 111"),
]


def without_bit(path, bit):
    targets = copy.deepcopy(FULL_TARGETS)
    record = targets
    for step in path:
        record = record[step]
    assert record["dwMask"] & bit
    record["dwMask"] &= ~bit
    return listed(targets)


def listing_without(gone):
    if isinstance(gone, tuple):
        start = FULL_LIST.index(gone[0])
        return FULL_LIST[:start] + FULL_LIST[FULL_LIST.index(gone[1], start):]
    lines = FULL_LIST.splitlines(keepends=True)
    hit = [line for line in lines if gone in line]
    assert len(hit) == 1, gone
    return "".join(line for line in lines if line not in hit)


LIST = ["iscsi_initiator", "list", "-s"]
LIST_CASES = [
    Case("list: every field present", LIST, FULL_LIST + completion(), S_OK,
         scenario=listed(FULL_TARGETS), calls=["IIscsi.ListSessions"],
         check=sent("IIscsi.ListSessions", machineName=None)),
    Case("list: no sessions", LIST, "\t0 connected iSCSI target(s):\n" + completion(), S_OK, calls=["IIscsi.ListSessions"]),
    Case("list: -s with a value still lists", LIST + ["all"], same_as="list: no sessions"),
    Case("list: an empty machine name is this one", LIST + ["-m", ""], same_as="list: no sessions"),
    Case("list: an HBA of another initiator type is not shown", LIST, listing_without(BITS[4][3]) + completion(), S_OK,
         scenario=listed([dict(FULL_TARGETS[0], pSessions=[dict(SESSION1, dwInitiatorType=2),
                                                           FULL_TARGETS[0]["pSessions"][1]]), FULL_TARGETS[1]])),
    Case("list: a name the service left out, a non-ASCII name", LIST,
         "\t1 connected iSCSI target(s):\n\t\tTarget name: iqn.2024-01.jp.東京:ü\n\t\t1 iSCSI session(s):\n"
         "\t\t\tMicrosoft iSCSI service\n\t\t\t\tiSCSI HBA name: (null)\n" + completion(), S_OK,
         scenario=listed([{"dwMask": 5, "wszTargetName": "iqn.2024-01.jp.東京:ü", "pSessions": [
             {"dwMask": 4, "dwInitiatorType": 1, "hba": {"dwMask": 2, "wszName": None}}]}])),
    Case("list: the service lacks the iSCSI interface", LIST, alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE), E_NOINTERFACE,
         scenario={"classes": {"VirtualDiskService": {"missingInterfaces": ["IIscsi"]}}}),
] + refusals("list", LIST, "IIscsi.ListSessions", MSG_LIST_SESSIONS_FAILED, data={"targets": FULL_TARGETS}) \
  + usage_cases("list", ["iscsi_initiator", "list"], LIST_USAGE, [
    ("-s missing", [], 5634), ("-S is another switch", ["-S"], 5634)]) + [
    Case("list: %s absent" % what, LIST, listing_without(gone) + completion(), S_OK, scenario=without_bit(path, bit))
    for what, path, bit, gone in BITS
]

# iscsi_initiator establish_session

TARGET = "iqn.1992-08.com.corvane:sn.101202334"


def establish(address, port, target=TARGET):
    return ["iscsi_initiator", "establish_session", "-t", target, "-np", address, port]


ESTABLISH = establish("10.20.1.11", "3260")


def session(hba_id=0, portal_id=1, address="10.20.1.11", port=3260, masks=(13, 15, 15, 9, 3)):
    session_mask, hba_mask, connection_mask, initiator_mask, target_mask = masks
    return {"dwMask": session_mask, "ullSessionId1": 1, "ullSessionId2": 2, "dwInitiatorType": 1,
            "hba": {"dwMask": hba_mask, "dwHbaId": hba_id},
            "pConnections": [{"dwMask": connection_mask,
                              "initiatorPortal": {"dwMask": initiator_mask, "dwPortalId": portal_id},
                              "targetPortal": {"dwMask": target_mask, "dwIpAddress": address, "dwPort": port}}]}


def host(sessions, name=TARGET, multiple=1):
    return {"IIscsi.ListSessions": {"targets": [{"dwMask": 7, "wszTargetName": name, "dwLunCount": 1,
                                                 "pSessions": sessions}]},
            "IInitiator.GetInitiatorCapabilities": {"capabilities": {"dwMultipleSessions": multiple}}}


def requested(hba_id=0, portal_id=0, address="10.20.1.11", port=3260):
    return {"dwMask": 12, "ullSessionId1": 0, "ullSessionId2": 0, "ullReserved24": 0, "dwInitiatorType": 1,
            "hba": {"dwMask": 1, "dwHbaId": hba_id, "wszName": None, "wszDescription": None, "pPortals": None},
            "pConnections": [{"dwMask": 12, "ullConnectionId1": 0, "ullConnectionId2": 0, "byCid": [0, 0],
                              "initiatorPortal": {"dwMask": 8, "dwPortalId": portal_id, "dwIpAddress": "0.0.0.0",
                                                  "dwPort": 0, "dwGroupTag": 0},
                              "targetPortal": {"dwMask": 3, "dwPortalId": 0, "dwIpAddress": address, "dwPort": port,
                                               "dwGroupTag": 0}}]}


ESTABLISHED = ["IIscsi.ListSessions", "IIscsi.EstablishSession"]
ASKED_HOST = ["IIscsi.ListSessions", "IInitiator.GetInitiatorCapabilities"]
# What an existing session on the target leads to: refused as the same session, refused as a second one, made.
SAME = (local_error(MSG_SESSION_EXISTS), E_INVALIDARG, ["IIscsi.ListSessions"])
SECOND = (local_error(MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED), E_INVALIDARG, ASKED_HOST)
MADE = (completion(), S_OK, ESTABLISHED)

ESTABLISH_CASES = [
    Case("establish: a first session", ESTABLISH, completion(), S_OK, calls=ESTABLISHED,
         check=sent("IIscsi.EstablishSession", sent("IIscsi.ListSessions", machineName=None), machineName=None,
                    targetName=TARGET, session=requested(), chap={"dwUseChap": 0, "wszName": None, "wszPassword": None})),
    Case("establish: HBA, its portal and CHAP", ESTABLISH + ["-h", "2", "-hp", "3", "-c", "host1", "s3crét"],
         completion(), S_OK, calls=ESTABLISHED,
         check=sent("IIscsi.EstablishSession", no_password("s3crét"), session=requested(hba_id=2, portal_id=3),
                    chap={"dwUseChap": 1, "wszName": "host1", "wszPassword": password_digest("s3crét")})),
    Case("establish: another portal, several sessions allowed", ESTABLISH, completion(), S_OK,
         scenario={"methods": host([session()])}, calls=ASKED_HOST + ["IIscsi.EstablishSession"],
         check=names_this_computer("IInitiator.GetInitiatorCapabilities", "machineName")),
] + [
    Case("establish: " + what, establish(address, port), completion(), S_OK,
         check=sent("IIscsi.EstablishSession", session=requested(address=sent_address, port=int(port))))
    for what, address, port, sent_address in [
        ("an address inet_addr cannot read is sent as it reads it", "filer-east", "3260", "255.255.255.255"),
        ("inet_addr's short forms", "10.1", "65535", "10.0.0.1")]
] + [
    # Nor is the port checked: atol's number goes to the service, which decides
    Case("establish: port %r is sent as atol reads it" % port, establish("10.20.1.11", port), completion(), S_OK,
         check=sent("IIscsi.EstablishSession", session=requested(port=sent_port)))
    for port, sent_port in [("0", 0), ("65536", 65536), ("abc", 0), ("32a", 32), ("", 0), (" 80", 80), ("+80", 80),
                            ("100000", 100000)]
] + [
    Case("establish: an empty target name is sent as given", establish("10.20.1.11", "3260", ""), completion(), S_OK,
         check=sent("IIscsi.EstablishSession", targetName="")),
] + [
    Case("establish: " + what, ESTABLISH + extra, outcome[0], outcome[1], calls=outcome[2],
         scenario={"methods": host(sessions, name, multiple)})
    for what, extra, sessions, name, multiple, outcome in [
        ("the same session exists", ["-hp", "1"], [session(address="10.20.2.11"), session()], TARGET, 1, SAME),
        ("the same session, on a host that allows one", ["-hp", "1"], [session()], TARGET, 0, SAME),
        ("another portal, one session allowed", [], [session()], TARGET, 0, SECOND),
        ("a target name in another case is another target", ["-hp", "1"], [session()], TARGET.upper(), 0, MADE),
        ("a target without sessions", [], [], TARGET, 0, MADE),
    ]
] + [
    Case("establish: differs in %s" % what, ESTABLISH + ["-hp", "1"], *SECOND[:2], calls=ASKED_HOST,
         scenario={"methods": host([record], multiple=0)})
    for what, record in [
        ("HBA id", session(hba_id=1)),
        ("initiator portal id", session(portal_id=2)),
        ("target address", session(address="10.20.1.12")),
        ("target port", session(port=3261)),
        ("HBA id not reported", session(masks=(13, 14, 15, 9, 3))),
        ("HBA not reported", session(masks=(9, 15, 15, 9, 3))),
        ("connections not reported", session(masks=(5, 15, 15, 9, 3))),
        ("initiator portal not reported", session(masks=(13, 15, 11, 9, 3))),
        ("initiator portal id not reported", session(masks=(13, 15, 15, 1, 3))),
        ("target portal not reported", session(masks=(13, 15, 7, 9, 3))),
        ("target address not reported", session(masks=(13, 15, 15, 9, 2))),
        ("target port not reported", session(masks=(13, 15, 15, 9, 1))),
    ]
] + usage_cases("establish", ["iscsi_initiator", "establish_session"], ESTABLISH_USAGE, [
    ("-t missing", ["-np", "10.20.1.11", "3260"], 5635),
    ("-t twice", ["-t", "a", "-t", "b", "-np", "10.20.1.11", "3260"], 5635),
    ("-np missing", ["-t", TARGET], 5636),
    ("-np without a port", ["-t", TARGET, "-np", "10.20.1.11"], 5636),
    ("-np twice", ["-t", TARGET, "-np", "10.20.1.11", "3260", "-np", "10.20.1.12", "3260"], 5636),
    ("a negative port reads as a switch", ["-t", TARGET, "-np", "10.20.1.11", "-1"], 5636),
]) + [
    # -c takes the name and the password, or the name alone; anything else is the usage alone
    Case("establish: -c with %s" % what, ESTABLISH + ["-c"] + values, ESTABLISH_USAGE, E_INVALIDARG,
         check=nothing_created)
    for what, values in [("no value", []), ("three values", ["host1", "pw", "x"])]
] + [
    # With the name alone the password is asked for without echo, as transport_protocol set does;
    # without a console the input ends at once and the password is empty.
    Case("establish: -c with the name alone asks for the password", ESTABLISH + ["-c", "host1"],
         "Type Password for the user:" + completion(), S_OK, calls=ESTABLISHED,
         check=sent("IIscsi.EstablishSession", chap={"dwUseChap": 1, "wszName": "host1", "wszPassword": password_digest("")})),
] + [
    Case("establish: the session list refused", ESTABLISH,
         alert(MSG_LIST_SESSIONS_FAILED, E_ACCESSDENIED, description="no rights"), E_ACCESSDENIED,
         scenario=failing("IIscsi.ListSessions", E_ACCESSDENIED, "no rights"), calls=["IIscsi.ListSessions"]),
    Case("establish: the initiator interface is missing", ESTABLISH, alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE),
         E_NOINTERFACE, calls=["IIscsi.ListSessions"], scenario={
             "methods": host([session()]), "classes": {"VirtualDiskService": {"missingInterfaces": ["IInitiator"]}}}),
] + refusals("establish: the host query", ESTABLISH, "IInitiator.GetInitiatorCapabilities",
             MSG_MULTI_SESSION_QUERY_FAILED, others=host([session()]), calls=ASKED_HOST) \
  + refusals("establish", ESTABLISH, "IIscsi.EstablishSession", MSG_ESTABLISH_SESSION_FAILED, calls=ESTABLISHED)

# iscsi_initiator terminate_session

TERMINATE = ["iscsi_initiator", "terminate_session", "-s", "0xFFFFE0001A2B3010-0x400001370000000B"]
TERMINATED = {"dwMask": 1, "ullSessionId1": 0xFFFFE0001A2B3010, "ullSessionId2": 0x400001370000000B, "ullReserved24": 0,
              "dwInitiatorType": 1,
              "hba": {"dwMask": 0, "dwHbaId": 0, "wszName": None, "wszDescription": None, "pPortals": None},
              "pConnections": None}

TERMINATE_CASES = [
    Case("terminate: a session", TERMINATE, completion(), S_OK, calls=["IIscsi.TerminateSession"],
         check=sent("IIscsi.TerminateSession", machineName=None, session=TERMINATED)),
    Case("terminate: the id as list prints it", TERMINATE[:3] + [TERMINATE[3].lower()], same_as="terminate: a session"),
] + refusals("terminate", TERMINATE, "IIscsi.TerminateSession", MSG_TERMINATE_SESSION_FAILED) \
  + usage_cases("terminate: session id", ["iscsi_initiator", "terminate_session"], TERMINATE_USAGE, [
    (what, argv, 5637) for what, argv in [
        ("missing", []), ("without a value", ["-s"]), ("given twice", ["-s", "0x1-0x2", "-s", "0x1-0x2"]),
        ("with an empty second half", ["-s", "0x1-"]), ("not hexadecimal", ["-s", "0xzz-0x1"]), ("empty", ["-s", ""]),
        ("without 0x before the first half", ["-s", "1-0x2"]), ("without 0x before the second", ["-s", "0x1-2"]),
        ("without a second half", ["-s", "0x1"])]]) + [
    Case("terminate: text after the id is left unread", TERMINATE[:3] + ["0x1-0x2trailing"], completion(), S_OK,
         check=sent("IIscsi.TerminateSession", session=dict(TERMINATED, ullSessionId1=1, ullSessionId2=2)))]

# iscsi_target list and disconnect

STORAGE_TARGETS = [
    {"dwMask": 25, "wszTargetName": "iqn.1992-08.com.corvane:sn.101202334", "dwLunCount": 3,
     "pPortals": [{"dwMask": 7, "dwIpAddress": "10.20.1.11", "dwPort": 3260, "dwGroupTag": 1000},
                  {"dwMask": 0, "dwIpAddress": "10.20.2.11", "dwPort": 3260, "dwGroupTag": 1001}]},
    {"dwMask": 30, "wszTargetName": "hidden", "dwLunCount": 0, "pPortals": []},
    {"dwMask": 1, "wszTargetName": "iqn.1992-08.com.corvane:sn.3", "dwLunCount": 9,
     "pPortals": [{"dwMask": 7, "dwIpAddress": "10.40.0.31", "dwPort": 3260}]},
]
STORAGE_LIST = (
    "3 iSCSI target(s)\n\n"
    "target name: iqn.1992-08.com.corvane:sn.101202334\nLUN count: 3\n\t2 network portal(s)\n\n"
    "\tIP address:\t\t10.20.1.11\n\tIP port:\t\t3260\n\tportal group tag:\t1000\n\n"
    "\tIP address:\t\tUnknown\n\tIP port:\t\tUnknown\n\n"
    "target name: Unknown\nLUN count: 0\n\t0 network portal(s)\n\n"
    "target name: iqn.1992-08.com.corvane:sn.3\n"
)
TARGET_LIST = ["iscsi_target", "list", "-f", "filer-east"]
DISCONNECT = ["iscsi_target", "disconnect", "-t", TARGET]

TARGET_CASES = [
    Case("target list: targets and portals", TARGET_LIST, STORAGE_LIST + completion(), S_OK,
         scenario=listed(STORAGE_TARGETS, "IIscsi.ListTargets"), calls=["IIscsi.ListTargets"],
         check=sent("IIscsi.ListTargets", storageSystem="filer-east")),
    Case("target list: none", TARGET_LIST, "0 iSCSI target(s)\n\n" + completion(), S_OK),
    Case("disconnect: a target", DISCONNECT, completion(), S_OK, calls=["IIscsi.DisconnectTarget"],
         check=sent("IIscsi.DisconnectTarget", machineName=None, targetName=TARGET)),
    # An empty value is a value: the service judges it
    Case("target list: an empty storage system name is sent as given", ["iscsi_target", "list", "-f", ""],
         "0 iSCSI target(s)\n\n" + completion(), S_OK, check=sent("IIscsi.ListTargets", storageSystem="")),
    Case("disconnect: an empty target name is sent as given", ["iscsi_target", "disconnect", "-t", ""], completion(),
         S_OK, check=sent("IIscsi.DisconnectTarget", targetName="")),
] + refusals("target list", TARGET_LIST, "IIscsi.ListTargets", MSG_LIST_TARGETS_FAILED,
             data={"targets": STORAGE_TARGETS}) \
  + refusals("disconnect", DISCONNECT, "IIscsi.DisconnectTarget", MSG_DISCONNECT_TARGET_FAILED) \
  + usage_cases("target list: -f", ["iscsi_target", "list"], TARGET_LIST_USAGE, [
    (what, argv, 5607) for what, argv in [
        ("missing", []), ("twice", ["-f", "a", "-f", "b"])]]) \
  + usage_cases("disconnect: -t", ["iscsi_target", "disconnect"], DISCONNECT_USAGE, [("missing", [], 5635)])

CASES = LIST_CASES + ESTABLISH_CASES + TERMINATE_CASES + TARGET_CASES
