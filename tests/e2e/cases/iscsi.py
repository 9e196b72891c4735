"""iscsi_initiator list, establish_session, terminate_session; iscsi_target list, disconnect."""

import copy

from harness import password_digest, E_INVALIDARG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_MULTI_SESSION_QUERY_FAILED = 5368
MSG_LIST_TARGETS_FAILED = 5378
MSG_LIST_SESSIONS_FAILED = 5380
MSG_ESTABLISH_SESSION_FAILED = 5387
MSG_TERMINATE_SESSION_FAILED = 5388
MSG_DISCONNECT_TARGET_FAILED = 5389
MSG_INVALID_IP_PORT = 5307
MSG_SESSION_EXISTS = 6016
MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED = 6017
E_ACCESSDENIED = 0x80070005
E_NOINTERFACE = 0x80004002
ISCSI_BUSY = 0xC0040330

LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"
LIST_USAGE = (
    "cvcli iscsi_initiator list [-m <MachineName>] -s\n"
    "Lists the iSCSI sessions of the host with their connections, HBAs and portals.\n"
    "-s Selects the session list; it is required.\n" + LOCAL_MACHINE
)
ESTABLISH_USAGE = (
    "cvcli iscsi_initiator establish_session [-m <MachineName>] [-h <HBA_ID>] [-hp <HBA Portal ID>] -t <TargetName> "
    "-np <IPAddress> <IPPort> [-c <CHAPName> <CHAPPassword>]\n"
    "Establishes an iSCSI session with the target <TargetName> through the given target portal.\n"
    "-h The initiator HBA to use; 0 (the default) is the Microsoft iSCSI initiator service.\n"
    "-hp The portal of that HBA to use; 0 when not specified.\n"
    "-np IP address and port of the target portal.\n"
    "-c CHAP name and password with which the host logs in to the target.\n" + LOCAL_MACHINE
)
TERMINATE_USAGE = (
    "cvcli iscsi_initiator terminate_session [-m <MachineName>] -s <Session_ID>\n"
    "Terminates an iSCSI session.\n"
    "-s The session ID as the list operation prints it (0x<number>-0x<number>).\n" + LOCAL_MACHINE
)
TARGET_LIST_USAGE = (
    "cvcli iscsi_target list -f <Storage System>\n"
    "Lists the iSCSI targets of a storage system with their LUN counts and network portals.\n"
)
DISCONNECT_USAGE = (
    "cvcli iscsi_target disconnect [-m <MachineName>] -t <TargetName>\n"
    "Disconnects the host from the iSCSI target <TargetName>.\n" + LOCAL_MACHINE
)


def usage_fault(message_id, usage):
    return "\n%s ...\n\n" % msg(message_id) + usage


def local_error(message_id):
    # FormatMessageW gives the message's line end back as CR LF.
    return msg(message_id).replace("\n", "\r\n")


def nothing_created(result):
    assert result.created() == [], "created %r" % result.created()


def request(result, method, index=0):
    found = [e["request"] for e in result.events if e.get("event") == "call" and e.get("method") == method]
    assert len(found) > index, "%s called %d time(s)" % (method, len(found))
    return found[index]


def sent(method, **expected):
    """The method's request holds these values (nested dicts compared whole)."""
    def check(result):
        got = request(result, method)
        for key, value in expected.items():
            assert got.get(key) == value, "%s.%s: %r, expected %r" % (method, key, got.get(key), value)
    return check


def methods(**scripted):
    return {"methods": {name.replace("__", "."): value for name, value in scripted.items()}}


# ---------------------------------------------------------------------------
# iscsi_initiator list

def portal(number, port=None, mask=15):
    return {"dwMask": mask, "dwPortalId": number, "dwIpAddress": "10.0.0.%d" % number,
            "dwPort": port if port is not None else 3000 + number, "dwGroupTag": 100 + number}


FULL_TARGETS = [
    {"dwMask": 7, "wszTargetName": "iqn.1992-08.com.corvane:sn.1", "dwLunCount": 3, "pSessions": [
        {"dwMask": 13, "ullSessionId1": "0xFFFFE0001A2B3010", "ullSessionId2": "0x400001370000000B", "dwInitiatorType": 1,
         "hba": {"dwMask": 15, "dwHbaId": 2, "wszName": "HBA-A", "wszDescription": "first adapter",
                 "pPortals": [portal(11)]},
         "pConnections": [
             {"dwMask": 15, "ullConnectionId1": "0xABC", "ullConnectionId2": 1, "byCid": [1, 2],
              "initiatorPortal": portal(21), "targetPortal": portal(31)},
             {"dwMask": 1, "ullConnectionId1": "0xABD", "ullConnectionId2": 2}]},
        {"dwMask": 1, "ullSessionId1": 5, "ullSessionId2": 6}]},
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
    "\t\t\t\t1 portals(s):\n"
    "\t\t\t\t\tPortal ID: 11\n"
    "\t\t\t\t\tIP address: 10.0.0.11\n"
    "\t\t\t\t\tIP port: 3011\n"
    "\t\t\t\t\tPortal group tag: 111\n"
    "\t\t\t2 iSCSI connection(s):\n"
    "\t\t\t\tConnection ID: 0xabc-0x1\n"
    "\t\t\t\tCID: 02 01\n"
    "\t\t\t\tInitiator portal:\n"
    "\t\t\t\t\tPortal ID: 21\n"
    "\t\t\t\t\tIP address: 10.0.0.21\n"
    "\t\t\t\t\tIP port: 3021\n"
    "\t\t\t\t\tPortal group tag: 121\n"
    "\t\t\t\tTarget portal:\n"
    "\t\t\t\t\tPortal ID: 31\n"
    "\t\t\t\t\tIP address: 10.0.0.31\n"
    "\t\t\t\t\tIP port: 3031\n"
    "\t\t\t\t\tPortal group tag: 131\n"
    "\t\t\t\tConnection ID: 0xabd-0x2\n"
    "\n"
    "\t\t\tSession ID: 0x5-0x6\n"
    "\n"
    "\t\tTarget name: iqn.1992-08.com.corvane:sn.2\n"
    "\t\tNumber of LUNs: 0\n"
)

# Each presence bit cleared on its own: (what, path to the record, bit, lines that go).
S1 = [0, "pSessions", 0]
HBA = S1 + ["hba"]
CONN = S1 + ["pConnections", 0]
BITS = [
    ("target name", [0], 1, ["\t\tTarget name: iqn.1992-08.com.corvane:sn.1\n"]),
    ("LUN count", [0], 2, ["\t\tNumber of LUNs: 3\n"]),
    ("session list", [0], 4, None),  # everything from the session heading to the next target goes
    ("session id", S1, 1, ["\t\t\tSession ID: 0xffffe0001a2b3010-0x400001370000000b\n"]),
    ("HBA record", S1, 4, None),
    ("connection list", S1, 8, None),
    ("connection id", CONN, 1, ["\t\t\t\tConnection ID: 0xabc-0x1\n"]),
    ("CID", CONN, 2, ["\t\t\t\tCID: 02 01\n"]),
    ("initiator portal", CONN, 4, None),
    ("target portal", CONN, 8, None),
    ("HBA id", HBA, 1, ["\t\t\t\tiSCSI HBA_ID: 2\n"]),
    ("HBA name", HBA, 2, ["\t\t\t\tiSCSI HBA name: HBA-A\n"]),
    ("HBA description", HBA, 4, ["\t\t\t\tiSCSI HBA description: first adapter\n"]),
    ("HBA portal list", HBA, 8, None),
    ("portal id", HBA + ["pPortals", 0], 8, ["\t\t\t\t\tPortal ID: 11\n"]),
    ("portal address", HBA + ["pPortals", 0], 1, ["\t\t\t\t\tIP address: 10.0.0.11\n"]),
    ("portal port", HBA + ["pPortals", 0], 2, ["\t\t\t\t\tIP port: 3011\n"]),
    ("portal group tag", HBA + ["pPortals", 0], 4, ["\t\t\t\t\tPortal group tag: 111\n"]),
]
# Whole blocks that a cleared list or record bit removes.
BLOCKS = {
    "session list": FULL_LIST[FULL_LIST.index("\t\t2 iSCSI session(s):\n"):FULL_LIST.index("\n\t\tTarget name: iqn.1992-08.com.corvane:sn.2")],
    "HBA record": FULL_LIST[FULL_LIST.index("\t\t\tMicrosoft iSCSI service\n"):FULL_LIST.index("\t\t\t2 iSCSI connection(s):\n")],
    "connection list": FULL_LIST[FULL_LIST.index("\t\t\t2 iSCSI connection(s):\n"):FULL_LIST.index("\n\t\t\tSession ID: 0x5-0x6")],
    "initiator portal": FULL_LIST[FULL_LIST.index("\t\t\t\tInitiator portal:\n"):FULL_LIST.index("\t\t\t\tTarget portal:\n")],
    "target portal": FULL_LIST[FULL_LIST.index("\t\t\t\tTarget portal:\n"):FULL_LIST.index("\t\t\t\tConnection ID: 0xabd")],
    "HBA portal list": FULL_LIST[FULL_LIST.index("\t\t\t\t1 portals(s):\n"):FULL_LIST.index("\t\t\t2 iSCSI connection(s):\n")],
}


def without_bit(path, bit):
    targets = copy.deepcopy(FULL_TARGETS)
    record = targets
    for step in path:
        record = record[step]
    assert record["dwMask"] & bit
    record["dwMask"] &= ~bit
    return methods(IIscsi__ListSessions={"targets": targets})


def listing_without(what, lines):
    text = FULL_LIST
    for line in lines if lines is not None else [BLOCKS[what]]:
        assert text.count(line) == 1, line
        text = text.replace(line, "")
    return text


LIST_CASES = [
    Case("list: every field present", ["iscsi_initiator", "list", "-s"], FULL_LIST + completion(), S_OK,
         scenario=methods(IIscsi__ListSessions={"targets": FULL_TARGETS}), calls=["IIscsi.ListSessions"],
         check=sent("IIscsi.ListSessions", machineName=None)),
    Case("list: no sessions", ["iscsi_initiator", "list", "-s"], "\t0 connected iSCSI target(s):\n" + completion(), S_OK,
         calls=["IIscsi.ListSessions"]),
    Case("list: every mask clear", ["iscsi_initiator", "list", "-s"], "\t1 connected iSCSI target(s):\n" + completion(),
         S_OK, scenario=methods(IIscsi__ListSessions={"targets": [dict(FULL_TARGETS[0], dwMask=0)]})),
    Case("list: an HBA of another initiator type is not shown", ["iscsi_initiator", "list", "-s"],
         listing_without("HBA record", None) + completion(), S_OK,
         scenario=methods(IIscsi__ListSessions={"targets": [
             dict(FULL_TARGETS[0], pSessions=[dict(FULL_TARGETS[0]["pSessions"][0], dwInitiatorType=2),
                                              FULL_TARGETS[0]["pSessions"][1]]), FULL_TARGETS[1]]})),
    Case("list: a name the service left out, a non-ASCII name", ["iscsi_initiator", "list", "-s"],
         "\t1 connected iSCSI target(s):\n\t\tTarget name: iqn.2024-01.jp.東京:ü\n\t\t1 iSCSI session(s):\n"
         "\t\t\tMicrosoft iSCSI service\n\t\t\t\tiSCSI HBA name: (null)\n" + completion(), S_OK,
         scenario=methods(IIscsi__ListSessions={"targets": [
             {"dwMask": 5, "wszTargetName": "iqn.2024-01.jp.東京:ü",
              "pSessions": [{"dwMask": 4, "dwInitiatorType": 1, "hba": {"dwMask": 2, "wszName": None}}]}]})),
    Case("list: -s with a value still lists", ["iscsi_initiator", "list", "-s", "all"], same_as="list: no sessions"),
    Case("list: -s missing", ["iscsi_initiator", "list"], usage_fault(5634, LIST_USAGE), E_INVALIDARG,
         check=nothing_created),
    Case("list: -S is another switch", ["iscsi_initiator", "list", "-S"], usage_fault(5634, LIST_USAGE), E_INVALIDARG,
         check=nothing_created),
    Case("list: refused with an explanation", ["iscsi_initiator", "list", "-s"],
         alert(MSG_LIST_SESSIONS_FAILED, ISCSI_BUSY, description="iSCSI service not running"), ISCSI_BUSY,
         scenario=methods(IIscsi__ListSessions={"result": hex(ISCSI_BUSY), "errorDescription": "iSCSI service not running"})),
    Case("list: refused without an explanation", ["iscsi_initiator", "list", "-s"],
         alert(MSG_LIST_SESSIONS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=methods(IIscsi__ListSessions={"result": hex(E_ACCESSDENIED), "targets": FULL_TARGETS})),
    Case("list: the service lacks the iSCSI interface", ["iscsi_initiator", "list", "-s"],
         alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE), E_NOINTERFACE,
         scenario={"classes": {"VirtualDiskService": {"missingInterfaces": ["IIscsi"]}}}),
] + [
    Case("list: %s absent" % what, ["iscsi_initiator", "list", "-s"], listing_without(what, lines) + completion(), S_OK,
         scenario=without_bit(path, bit))
    for what, path, bit, lines in BITS
]

# ---------------------------------------------------------------------------
# iscsi_initiator establish_session

TARGET = "iqn.1992-08.com.corvane:sn.101202334"
ESTABLISH = ["iscsi_initiator", "establish_session", "-t", TARGET, "-np", "10.20.1.11", "3260"]


def session(hba_id=0, portal_id=1, address="10.20.1.11", port=3260, masks=(13, 15, 15, 9, 3)):
    session_mask, hba_mask, connection_mask, initiator_mask, target_mask = masks
    return {"dwMask": session_mask, "ullSessionId1": 1, "ullSessionId2": 2, "dwInitiatorType": 1,
            "hba": {"dwMask": hba_mask, "dwHbaId": hba_id},
            "pConnections": [{"dwMask": connection_mask,
                              "initiatorPortal": {"dwMask": initiator_mask, "dwPortalId": portal_id},
                              "targetPortal": {"dwMask": target_mask, "dwIpAddress": address, "dwPort": port}}]}


def host(sessions, name=TARGET, multiple=1, **extra):
    scripted = {"IIscsi.ListSessions": {"targets": [{"dwMask": 7, "wszTargetName": name, "dwLunCount": 1,
                                                       "pSessions": sessions}]},
                "IInitiator.GetInitiatorCapabilities": {"capabilities": {"dwMultipleSessions": multiple}}}
    scripted.update(extra)
    return {"methods": scripted}


def requested(hba_id=0, portal_id=0, address="10.20.1.11", port=3260):
    return {"dwMask": 12, "ullSessionId1": 0, "ullSessionId2": 0, "ullReserved24": 0, "dwInitiatorType": 1,
            "hba": {"dwMask": 1, "dwHbaId": hba_id, "wszName": None, "wszDescription": None, "pPortals": None},
            "pConnections": [{"dwMask": 12, "ullConnectionId1": 0, "ullConnectionId2": 0, "byCid": [0, 0],
                              "initiatorPortal": {"dwMask": 8, "dwPortalId": portal_id, "dwIpAddress": "0.0.0.0",
                                                  "dwPort": 0, "dwGroupTag": 0},
                              "targetPortal": {"dwMask": 3, "dwPortalId": 0, "dwIpAddress": address, "dwPort": port,
                                               "dwGroupTag": 0}}]}


NO_CHAP = {"dwUseChap": 0, "wszName": None, "wszPassword": None}
ESTABLISHED = ["IIscsi.ListSessions", "IIscsi.EstablishSession"]
ASKED_HOST = ["IIscsi.ListSessions", "IInitiator.GetInitiatorCapabilities"]


def asked_about_this_computer(result):
    name = request(result, "IInitiator.GetInitiatorCapabilities")["machineName"]
    assert name and 0 < len(name) <= 15, "asked about %r" % name


def both(*checks):
    def check(result):
        for c in checks:
            c(result)
    return check


def password_not_shown(result):
    assert b"s3cr\xc3\xa9t" not in result.stdout and b"s3cr" not in result.stderr


ESTABLISH_CASES = [
    Case("establish: a first session", ESTABLISH, completion(), S_OK, calls=ESTABLISHED,
         check=both(sent("IIscsi.ListSessions", machineName=None),
                    sent("IIscsi.EstablishSession", machineName=None, targetName=TARGET, session=requested(),
                         chap=NO_CHAP))),
    Case("establish: HBA, its portal and CHAP", ESTABLISH + ["-h", "2", "-hp", "3", "-c", "host1", "s3crét"],
         completion(), S_OK, calls=ESTABLISHED,
         check=both(password_not_shown,
                    sent("IIscsi.EstablishSession", session=requested(hba_id=2, portal_id=3),
                         chap={"dwUseChap": 1, "wszName": "host1", "wszPassword": password_digest("s3crét")}))),
    Case("establish: an address inet_addr cannot read is sent as it reads it",
         ["iscsi_initiator", "establish_session", "-t", TARGET, "-np", "filer-east", "3260"], completion(), S_OK,
         check=sent("IIscsi.EstablishSession", session=requested(address="255.255.255.255"))),
    Case("establish: inet_addr's short forms", ["iscsi_initiator", "establish_session", "-t", TARGET, "-np", "10.1", "65535"],
         completion(), S_OK, check=sent("IIscsi.EstablishSession", session=requested(address="10.0.0.1", port=65535))),
    # Duplicates
    Case("establish: the same session exists", ESTABLISH + ["-hp", "1"], local_error(MSG_SESSION_EXISTS), E_INVALIDARG,
         scenario=host([session(address="10.20.2.11"), session()]), calls=["IIscsi.ListSessions"]),
    Case("establish: the same session, on a host that allows one", ESTABLISH + ["-hp", "1"],
         local_error(MSG_SESSION_EXISTS), E_INVALIDARG, scenario=host([session()], multiple=0),
         calls=["IIscsi.ListSessions"]),
    Case("establish: another portal, several sessions allowed", ESTABLISH, completion(), S_OK,
         scenario=host([session()]), calls=ASKED_HOST + ["IIscsi.EstablishSession"], check=asked_about_this_computer),
    Case("establish: another portal, one session allowed", ESTABLISH, local_error(MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED),
         E_INVALIDARG, scenario=host([session()], multiple=0), calls=ASKED_HOST),
] + [
    Case("establish: differs in %s" % what, ESTABLISH + ["-hp", "1"], local_error(MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED),
         E_INVALIDARG, scenario=host([record], multiple=0), calls=ASKED_HOST)
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
] + [
    Case("establish: a target name in another case is another target", ESTABLISH + ["-hp", "1"], completion(), S_OK,
         scenario=host([session()], name=TARGET.upper(), multiple=0), calls=ESTABLISHED),
    Case("establish: a target without sessions", ESTABLISH, completion(), S_OK, scenario=host([], multiple=0),
         calls=ESTABLISHED),
    # Usage faults: nothing is created
] + [
    Case("establish: %s" % what, ["iscsi_initiator", "establish_session"] + argv, usage_fault(message_id, ESTABLISH_USAGE),
         E_INVALIDARG, check=nothing_created)
    for what, argv, message_id in [
        ("-t missing", ["-np", "10.20.1.11", "3260"], 5635),
        ("-t without a value", ["-t", "-np", "10.20.1.11", "3260"], 5635),
        ("-t twice", ["-t", "a", "-t", "b", "-np", "10.20.1.11", "3260"], 5635),
        ("-t empty", ["-t", "", "-np", "10.20.1.11", "3260"], 5635),
        ("nothing at all", [], 5635),
        ("-np missing", ["-t", TARGET], 5636),
        ("-np without a port", ["-t", TARGET, "-np", "10.20.1.11"], 5636),
        ("-np with three values", ["-t", TARGET, "-np", "10.20.1.11", "3260", "1"], 5636),
        ("-np twice", ["-t", TARGET, "-np", "10.20.1.11", "3260", "-np", "10.20.1.12", "3260"], 5636),
        ("a negative port reads as a switch", ["-t", TARGET, "-np", "10.20.1.11", "-1"], 5636),
    ]
] + [
    Case("establish: -c without its password", ESTABLISH + ["-c", "host1"], ESTABLISH_USAGE, E_INVALIDARG,
         check=nothing_created),
    Case("establish: -c with three values", ESTABLISH + ["-c", "host1", "pw", "x"], ESTABLISH_USAGE, E_INVALIDARG,
         check=nothing_created),
] + [
    Case("establish: port %r" % port, ["iscsi_initiator", "establish_session", "-t", TARGET, "-np", "10.20.1.11", port],
         local_error(MSG_INVALID_IP_PORT), E_INVALIDARG, check=nothing_created)
    for port in ["0", "65536", "abc", "32a", "", " 80", "+80", "100000", "３２６０"]
] + [
    # Failures
    Case("establish: the session list refused", ESTABLISH,
         alert(MSG_LIST_SESSIONS_FAILED, E_ACCESSDENIED, description="no rights"), E_ACCESSDENIED,
         scenario=methods(IIscsi__ListSessions={"result": hex(E_ACCESSDENIED), "errorDescription": "no rights"}),
         calls=["IIscsi.ListSessions"]),
    Case("establish: the host query refused", ESTABLISH, alert(MSG_MULTI_SESSION_QUERY_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, calls=ASKED_HOST,
         scenario=host([session()], **{"IInitiator.GetInitiatorCapabilities": {"result": hex(E_ACCESSDENIED)}})),
    Case("establish: the host query refused with an explanation", ESTABLISH,
         alert(MSG_MULTI_SESSION_QUERY_FAILED, ISCSI_BUSY, description="initiator busy"), ISCSI_BUSY, calls=ASKED_HOST,
         scenario=host([session()], **{"IInitiator.GetInitiatorCapabilities": {
             "result": hex(ISCSI_BUSY), "errorDescription": "initiator busy"}})),
    Case("establish: the initiator interface is missing", ESTABLISH, alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE),
         E_NOINTERFACE, calls=["IIscsi.ListSessions"],
         scenario=dict(host([session()]), classes={"VirtualDiskService": {"missingInterfaces": ["IInitiator"]}})),
    Case("establish: refused with an explanation", ESTABLISH,
         alert(MSG_ESTABLISH_SESSION_FAILED, ISCSI_BUSY, description="target portal unreachable"), ISCSI_BUSY,
         calls=ESTABLISHED, scenario=methods(IIscsi__EstablishSession={
             "result": hex(ISCSI_BUSY), "errorDescription": "target portal unreachable"})),
    Case("establish: refused without an explanation", ESTABLISH, alert(MSG_ESTABLISH_SESSION_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, calls=ESTABLISHED, scenario=methods(IIscsi__EstablishSession={"result": hex(E_ACCESSDENIED)})),
    Case("establish: S_FALSE is a failure", ESTABLISH, alert(MSG_ESTABLISH_SESSION_FAILED, 1), 1,
         scenario=methods(IIscsi__EstablishSession={"result": 1})),
]

# ---------------------------------------------------------------------------
# iscsi_initiator terminate_session

TERMINATE = ["iscsi_initiator", "terminate_session", "-s", "0xFFFFE0001A2B3010-0x400001370000000B"]
TERMINATED = {"dwMask": 1, "ullSessionId1": 0xFFFFE0001A2B3010, "ullSessionId2": 0x400001370000000B, "ullReserved24": 0,
              "dwInitiatorType": 1,
              "hba": {"dwMask": 0, "dwHbaId": 0, "wszName": None, "wszDescription": None, "pPortals": None},
              "pConnections": None}

TERMINATE_CASES = [
    Case("terminate: a session", TERMINATE, completion(), S_OK, calls=["IIscsi.TerminateSession"],
         check=sent("IIscsi.TerminateSession", machineName=None, session=TERMINATED)),
    Case("terminate: the id as list prints it", ["iscsi_initiator", "terminate_session", "-s",
                                                 "0xffffe0001a2b3010-0x400001370000000b"],
         same_as="terminate: a session"),
    Case("terminate: refused with an explanation", TERMINATE,
         alert(MSG_TERMINATE_SESSION_FAILED, ISCSI_BUSY, description="session in use"), ISCSI_BUSY,
         scenario=methods(IIscsi__TerminateSession={"result": hex(ISCSI_BUSY), "errorDescription": "session in use"})),
    Case("terminate: refused without an explanation", TERMINATE, alert(MSG_TERMINATE_SESSION_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario=methods(IIscsi__TerminateSession={"result": hex(E_ACCESSDENIED)})),
] + [
    Case("terminate: session id %s" % what, ["iscsi_initiator", "terminate_session"] + argv,
         usage_fault(5637, TERMINATE_USAGE), E_INVALIDARG, check=nothing_created)
    for what, argv in [
        ("missing", []),
        ("without a value", ["-s"]),
        ("given twice", ["-s", "0x1-0x2", "-s", "0x1-0x2"]),
        ("without the first prefix", ["-s", "1-0x2"]),
        ("without the second prefix", ["-s", "0x1-2"]),
        ("with only its first half", ["-s", "0x1"]),
        ("with an empty second half", ["-s", "0x1-"]),
        ("not hexadecimal", ["-s", "0xzz-0x1"]),
        ("empty", ["-s", ""]),
    ]
]

# ---------------------------------------------------------------------------
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
         scenario=methods(IIscsi__ListTargets={"targets": STORAGE_TARGETS}), calls=["IIscsi.ListTargets"],
         check=sent("IIscsi.ListTargets", storageSystem="filer-east")),
    Case("target list: none", TARGET_LIST, "0 iSCSI target(s)\n\n" + completion(), S_OK),
    Case("target list: refused with an explanation", TARGET_LIST,
         alert(MSG_LIST_TARGETS_FAILED, ISCSI_BUSY, description="filer-east does not answer"), ISCSI_BUSY,
         scenario=methods(IIscsi__ListTargets={"result": hex(ISCSI_BUSY), "errorDescription": "filer-east does not answer"})),
    Case("target list: refused without an explanation", TARGET_LIST, alert(MSG_LIST_TARGETS_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario=methods(IIscsi__ListTargets={"result": hex(E_ACCESSDENIED), "targets": STORAGE_TARGETS})),
] + [
    Case("target list: -f %s" % what, ["iscsi_target", "list"] + argv, usage_fault(5607, TARGET_LIST_USAGE), E_INVALIDARG,
         check=nothing_created)
    for what, argv in [("missing", []), ("without a value", ["-f"]), ("twice", ["-f", "a", "-f", "b"]), ("empty", ["-f", ""])]
] + [
    Case("disconnect: a target", DISCONNECT, completion(), S_OK, calls=["IIscsi.DisconnectTarget"],
         check=sent("IIscsi.DisconnectTarget", machineName=None, targetName=TARGET)),
    Case("disconnect: refused with an explanation", DISCONNECT,
         alert(MSG_DISCONNECT_TARGET_FAILED, ISCSI_BUSY, description="LUNs of the target are in use"), ISCSI_BUSY,
         scenario=methods(IIscsi__DisconnectTarget={"result": hex(ISCSI_BUSY),
                                                    "errorDescription": "LUNs of the target are in use"})),
    Case("disconnect: refused without an explanation", DISCONNECT, alert(MSG_DISCONNECT_TARGET_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario=methods(IIscsi__DisconnectTarget={"result": hex(E_ACCESSDENIED)})),
] + [
    Case("disconnect: -t %s" % what, ["iscsi_target", "disconnect"] + argv, usage_fault(5635, DISCONNECT_USAGE),
         E_INVALIDARG, check=nothing_created)
    for what, argv in [("missing", []), ("without a value", ["-t"]), ("twice", ["-t", "a", "-t", "b"]), ("empty", ["-t", ""])]
]

CASES = LIST_CASES + ESTABLISH_CASES + TERMINATE_CASES + TARGET_CASES
