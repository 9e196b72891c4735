"""igroup list, create, rename, delete: output, requests, usage faults, service failures, the failure line."""

import re

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg, system_text

MSG_SERVICE_UNAVAILABLE = 5108
MSG_ERROR_SEPARATOR = 5092
MSG_USAGE_STORAGE_SYSTEM = 5607
MSG_USAGE_INITIATORS = 5638
MSG_USAGE_SAME_NODE = 5639
MSG_USAGE_IGROUP_NAME = 5640
MSG_USAGE_NEW_IGROUP_NAME = 5641
CONNECT_E_NOCONNECTION = 0x80040200
E_ACCESSDENIED = 0x80070005
IGROUP_EXISTS = 0xC00402A1

LOCAL = "If the machine name is not specified the command is executed on a local machine.\n"
LIST_USAGE = "cvcli igroup list [-m MachineName] -f StorageSystem\nLists the initiator groups of a storage system.\n" + LOCAL
CREATE_USAGE = (
    "cvcli igroup create [-m MachineName] -f StorageSystem [-I (NodeMachineName InitiatorName)+] -ig igroupName\n"
    "Creates an initiator group on a storage system.\n"
    "-I The initiators of the group, as pairs of node name and initiator name; all of one node.\n" + LOCAL
)
RENAME_USAGE = (
    "cvcli igroup rename [-m MachineName] -f StorageSystem -ig igroupName -igNew igroupNewName\n"
    "Renames an initiator group of a storage system.\n" + LOCAL
)
DELETE_USAGE = (
    "cvcli igroup delete [-m MachineName] -f StorageSystem -ig igroupName\n"
    "Deletes an initiator group of a storage system.\n" + LOCAL
)
USAGES = {"list": LIST_USAGE, "create": CREATE_USAGE, "rename": RENAME_USAGE, "delete": DELETE_USAGE}

NO_SINK = {"classes": {"VirtualDiskService": {"missingInterfaces": ["_IVirtualDiskEvents"]}}}
LISTING = "\nListing the Initiator groups ...\n"
CREATING = "\nCreating Initiator group ...\n\n"
DELETING = "\nDeleting the Initiator group ...\n"
RENAMING = "\nRenaming the Initiator group ...\n"
OS_WORDS = ["Unrecognized", "Unknown", "Default", "Solaris", "Windows", "HPUX", "AIX", "linux", "Netware", "vmware"]


def usage(message_id, operation):
    return "\n%s ...\n\n" % msg(message_id) + USAGES[operation]


def service_text(hr, description=None):
    """An alert without a message of its own: the separator, then the HRESULT's own text."""
    return msg(MSG_ERROR_SEPARATOR) + (description if description is not None else system_text(hr)) + "\n"


def nothing_created(result):
    assert result.created() == [], "created %r" % result.created()


def failure_line(text, hr):
    """The handler's own failure line (the system error varies), then success; no service method called."""
    pattern = re.compile(r"\n%s Error code -?\d+\t hr=0x%xd\n\n" % (re.escape(text), hr) + re.escape(completion()) + r"\Z")

    def check(result):
        out = result.text()
        assert pattern.match(out), "stdout %r" % out
        assert result.calls() == [], "calls %r" % result.calls()
    return check


def request(method, **expected):
    """The one call of `method` carried these request fields."""
    def check(result):
        calls = [e for e in result.events if e.get("event") == "call" and e.get("method") == method]
        assert len(calls) == 1, "calls of %s: %r" % (method, calls)
        sent = calls[0]["request"]
        for key, value in expected.items():
            assert sent.get(key) == value, "%s: sent %r, expected %r" % (key, sent.get(key), value)
    return check


def group(name, node="HOST1", os_type=4, group_type=0, initiators=()):
    return {"wszNodeName": node, "wszGroupName": name, "dwOsType": os_type, "dwGroupType": group_type,
            "pInitiators": [{"wszName": i} for i in initiators]}


def groups(*records, **response):
    response["groups"] = list(records)
    return {"methods": {"IIGroup.ListIGroups": response}}


def failing(method, hr, description=None):
    response = {"result": hex(hr)}
    if description is not None:
        response["errorDescription"] = description
    return {"methods": {method: response}}


def sent_group(result):
    calls = [e for e in result.events if e.get("event") == "call" and e.get("method") == "IIGroup.CreateIGroup"]
    assert len(calls) == 1, calls
    return calls[0]["request"]


def created_group(node, name, initiators):
    def check(result):
        sent = sent_group(result)
        assert sent["storageSystem"] == "filer-east", sent
        # The local computer name, as the host reports it: never empty, never the node's
        assert sent["localComputerName"], sent
        assert sent["group"] == {"wszNodeName": node, "wszGroupName": name, "dwOsType": 0, "dwGroupType": 0,
                                 "dwInitiatorCount": len(initiators),
                                 "pInitiators": [{"wszName": i} for i in initiators], "ullReserved344": 0}, sent
    return check


FCP_GROUP = group("host1_fcp", initiators=["10:00:00:00:c9:6b:2a:41", "10:00:00:00:c9:6b:2a:42"])
FCP_TEXT = ("\n\nNode Name: HOST1\nInitiators Group Name: host1_fcp\nInitiators Group Type: FCP\nos-type:Windows"
            "\nInitiators:\n           10:00:00:00:c9:6b:2a:41\n           10:00:00:00:c9:6b:2a:42\n")
LONG_NAME = "g" * 127
NODE_31 = "N" * 31

LIST_CASES = [
    Case("list: one group with its initiators", ["igroup", "list", "-f", "filer-east"],
         LISTING + FCP_TEXT + completion(), S_OK, scenario=groups(FCP_GROUP), calls=["IIGroup.ListIGroups"],
         check=request("IIGroup.ListIGroups", storageSystem="filer-east")),
    Case("list: no groups", ["igroup", "list", "-f", "filer-west"],
         LISTING + "\n\nNo Initiator groups are found...\n\n" + completion(), S_OK, scenario=groups(),
         calls=["IIGroup.ListIGroups"]),
    Case("list: every os type word, an unknown one prints nothing",
         ["igroup", "list", "-f", "filer-east"],
         LISTING + "".join("\n\nNode Name: HOST1\nInitiators Group Name: g%d\nInitiators Group Type: ISCSI\n%s"
                           % (n, "os-type:" + OS_WORDS[n] if n < 10 else "") for n in range(11))
         + completion(), S_OK,
         scenario=groups(*[group("g%d" % n, os_type=n, group_type=1) for n in range(11)])),
    Case("list: unknown group type, zero initiators, then an os type 10 group with initiators",
         ["igroup", "list", "-f", "filer-east"],
         LISTING + "\n\nNode Name: HOST2\nInitiators Group Name: odd\nInitiators Group Type: Unknown\nos-type:AIX"
         + "\n\nNode Name: HOST1\nInitiators Group Name: ten\nInitiators Group Type: FCP\n"
         + "\nInitiators:\n           wwpn-1\n" + completion(), S_OK,
         scenario=groups(group("odd", node="HOST2", os_type=6, group_type=7),
                         group("ten", os_type=10, initiators=["wwpn-1"]))),
    Case("list: names that fill their fields, non-ASCII", ["igroup", "list", "-f", "fïler-東京"],
         LISTING + "\n\nNode Name: %s\nInitiators Group Name: %s\nInitiators Group Type: FCP\nos-type:Windows"
         "\nInitiators:\n           %s\n" % ("Ñ" * 31, "ß" * 127, "i" * 127) + completion(), S_OK,
         scenario=groups(group("ß" * 127, node="Ñ" * 31, initiators=["i" * 127])),
         check=request("IIGroup.ListIGroups", storageSystem="fïler-東京")),
    Case("list: no -f", ["igroup", "list"], usage(MSG_USAGE_STORAGE_SYSTEM, "list"), E_INVALIDARG,
         check=nothing_created),
    Case("list: -f without a value", ["igroup", "list", "-f"], usage(MSG_USAGE_STORAGE_SYSTEM, "list"), E_INVALIDARG,
         check=nothing_created),
    Case("list: -f twice", ["igroup", "list", "-f", "a", "-f", "b"], usage(MSG_USAGE_STORAGE_SYSTEM, "list"),
         E_INVALIDARG, check=nothing_created),
    Case("list: -f empty", ["igroup", "list", "-f", ""], usage(MSG_USAGE_STORAGE_SYSTEM, "list"), E_INVALIDARG,
         check=nothing_created),
    Case("list: refused with an explanation", ["igroup", "list", "-f", "filer-east"],
         LISTING + "\nError occurred while getting the storage system Initiator groups...\n\n"
         + service_text(E_ACCESSDENIED, "no such storage system"), E_ACCESSDENIED,
         scenario=failing("IIGroup.ListIGroups", E_ACCESSDENIED, "no such storage system")),
    Case("list: refused without an explanation", ["igroup", "list", "-f", "filer-east"],
         LISTING + "\nError occurred while getting the storage system Initiator groups...\n\n"
         + service_text(IGROUP_EXISTS), IGROUP_EXISTS, scenario=failing("IIGroup.ListIGroups", IGROUP_EXISTS)),
    Case("list: S_FALSE is a failure", ["igroup", "list", "-f", "filer-east"],
         LISTING + "\nError occurred while getting the storage system Initiator groups...\n\n" + service_text(1), 1,
         scenario={"methods": {"IIGroup.ListIGroups": {"result": 1, "groups": [FCP_GROUP]}}}),
    Case("list: the progress sink cannot be connected", ["igroup", "list", "-f", "filer-east"], None, S_OK,
         scenario=NO_SINK, check=failure_line("Failed to list Initiator groups.", CONNECT_E_NOCONNECTION)),
    Case("list: on another machine", ["igroup", "list", "-m", "far-host", "-f", "filer-east"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, check=nothing_created),
    Case("list: progress events while listing", ["igroup", "list", "-f", "filer-east"],
         LISTING + "filer-east : %s\n" % msg(5040) + FCP_TEXT + completion(), S_OK,
         scenario=groups(FCP_GROUP, events=[{"event": "ProgressMessage", "subject": "filer-east", "code": 28}])),
]

CREATE = ["igroup", "create", "-f", "filer-east"]
CREATE_CASES = [
    Case("create: two initiators of one node, names in different case", CREATE + [
        "-I", "HOST1", "iqn.1991-05.com.microsoft:a", "host1", "iqn.1991-05.com.microsoft:b", "-ig", "grp1"],
        CREATING + completion(), S_OK, calls=["IIGroup.CreateIGroup"],
        check=created_group("HOST1", "grp1", ["iqn.1991-05.com.microsoft:a", "iqn.1991-05.com.microsoft:b"])),
    Case("create: names that just fit their fields", CREATE + ["-I", NODE_31, "i" * 127, "-ig", LONG_NAME],
         CREATING + completion(), S_OK, check=created_group(NODE_31, LONG_NAME, ["i" * 127])),
    Case("create: switches in any order, non-ASCII names",
         ["igroup", "create", "-ig", "grüppe", "-I", "hôst", "iqn.ü", "-f", "filer-east"],
         CREATING + completion(), S_OK, check=created_group("hôst", "grüppe", ["iqn.ü"])),
    Case("create: pairs of two nodes", CREATE + ["-I", "HOST1", "iqn.a", "HOST2", "iqn.b", "-ig", "grp1"],
         usage(MSG_USAGE_SAME_NODE, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: a third pair of another node", CREATE + ["-I", "A", "i1", "a", "i2", "B", "i3", "-ig", "g"],
         usage(MSG_USAGE_SAME_NODE, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: no -I", CREATE + ["-ig", "grp1"], usage(MSG_USAGE_INITIATORS, "create"), E_INVALIDARG,
         check=nothing_created),
    Case("create: no -I is checked before no -ig", ["igroup", "create"], usage(MSG_USAGE_INITIATORS, "create"),
         E_INVALIDARG, check=nothing_created),
    Case("create: -I without values", CREATE + ["-I", "-ig", "grp1"], usage(MSG_USAGE_INITIATORS, "create"),
         E_INVALIDARG, check=nothing_created),
    Case("create: -I with an odd number of values", CREATE + ["-I", "HOST1", "iqn.a", "HOST1", "-ig", "grp1"],
         "\n<NodeMachineName> <InitiatorName> must be in pairs!\n\n" + usage(MSG_USAGE_INITIATORS, "create"),
         E_INVALIDARG, check=nothing_created),
    Case("create: the same initiator twice", CREATE + ["-I", "HOST1", "iqn.a", "HOST1", "iqn.a", "-ig", "grp1"],
         "\nError: duplicated initiator - iqn.a !!!\n" + usage(MSG_USAGE_INITIATORS, "create"), E_INVALIDARG,
         check=nothing_created),
    Case("create: the same initiator for two nodes", CREATE + ["-I", "nodeA", "iqn.a", "nodeB", "iqn.a", "-ig", "g"],
         "\nError: duplicated initiator - iqn.a !!!\n" + usage(MSG_USAGE_INITIATORS, "create"), E_INVALIDARG,
         check=nothing_created),
    Case("create: a node name too long for its field", CREATE + ["-I", "N" * 32, "iqn.a", "-ig", "grp1"],
         usage(MSG_USAGE_INITIATORS, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: an initiator name too long for its field", CREATE + ["-I", "HOST1", "i" * 128, "-ig", "grp1"],
         usage(MSG_USAGE_INITIATORS, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: an empty initiator name", CREATE + ["-I", "HOST1", "", "-ig", "grp1"],
         usage(MSG_USAGE_INITIATORS, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: no -ig", CREATE + ["-I", "HOST1", "iqn.a"], usage(MSG_USAGE_IGROUP_NAME, "create"), E_INVALIDARG,
         check=nothing_created),
    Case("create: -ig twice", CREATE + ["-I", "HOST1", "iqn.a", "-ig", "a", "-ig", "b"],
         usage(MSG_USAGE_IGROUP_NAME, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: -ig empty", CREATE + ["-I", "HOST1", "iqn.a", "-ig", ""], usage(MSG_USAGE_IGROUP_NAME, "create"),
         E_INVALIDARG, check=nothing_created),
    Case("create: a group name too long for its field", CREATE + ["-I", "HOST1", "iqn.a", "-ig", "g" * 128],
         usage(MSG_USAGE_IGROUP_NAME, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: no -f, checked after -ig", ["igroup", "create", "-I", "HOST1", "iqn.a", "-ig", "grp1"],
         usage(MSG_USAGE_STORAGE_SYSTEM, "create"), E_INVALIDARG, check=nothing_created),
    Case("create: refused with an explanation", CREATE + ["-I", "HOST1", "iqn.a", "-ig", "grp1"],
         CREATING + "\nError occurred while creating the storage system Initiator group(name:grp1)\n\n"
         + service_text(IGROUP_EXISTS, "igroup exists"), IGROUP_EXISTS,
         scenario=failing("IIGroup.CreateIGroup", IGROUP_EXISTS, "igroup exists"), calls=["IIGroup.CreateIGroup"]),
    Case("create: refused without an explanation", CREATE + ["-I", "HOST1", "iqn.a", "-ig", "grp1"],
         CREATING + "\nError occurred while creating the storage system Initiator group(name:grp1)\n\n"
         + service_text(E_ACCESSDENIED), E_ACCESSDENIED, scenario=failing("IIGroup.CreateIGroup", E_ACCESSDENIED)),
    Case("create: the progress sink cannot be connected", CREATE + ["-I", "HOST1", "iqn.a", "-ig", "grp1"], None, S_OK,
         scenario=NO_SINK, check=failure_line("Failed to create igroup.", CONNECT_E_NOCONNECTION)),
    Case("create: the service is not there", CREATE + ["-I", "HOST1", "iqn.a", "-ig", "grp1"],
         alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG), REGDB_E_CLASSNOTREG, prefix="bare"),
]

DELETE = ["igroup", "delete", "-f", "filer-east"]
RENAME = ["igroup", "rename", "-f", "filer-east"]
CHANGE_CASES = [
    Case("delete: one group", DELETE + ["-ig", "grp1"], DELETING + completion(), S_OK, calls=["IIGroup.DeleteIGroup"],
         check=request("IIGroup.DeleteIGroup", storageSystem="filer-east", groupName="grp1")),
    Case("delete: no -f is checked first", ["igroup", "delete"], usage(MSG_USAGE_STORAGE_SYSTEM, "delete"),
         E_INVALIDARG, check=nothing_created),
    Case("delete: no -ig", DELETE, usage(MSG_USAGE_IGROUP_NAME, "delete"), E_INVALIDARG, check=nothing_created),
    Case("delete: -ig twice", DELETE + ["-ig", "a", "b"], usage(MSG_USAGE_IGROUP_NAME, "delete"), E_INVALIDARG,
         check=nothing_created),
    Case("delete: refused with an explanation", DELETE + ["-ig", "grp1"],
         DELETING + "\nError occurred while deleting the storage system Initiator group...hr=0xc00402a1d\n\n"
         + service_text(IGROUP_EXISTS, "igroup is mapped"), IGROUP_EXISTS,
         scenario=failing("IIGroup.DeleteIGroup", IGROUP_EXISTS, "igroup is mapped")),
    Case("delete: refused without an explanation", DELETE + ["-ig", "grp1"],
         DELETING + "\nError occurred while deleting the storage system Initiator group...hr=0x80070005d\n\n"
         + service_text(E_ACCESSDENIED), E_ACCESSDENIED, scenario=failing("IIGroup.DeleteIGroup", E_ACCESSDENIED)),
    Case("delete: the progress sink cannot be connected", DELETE + ["-ig", "grp1"], None, S_OK, scenario=NO_SINK,
         check=failure_line("Failed to delete the Initiator group.", CONNECT_E_NOCONNECTION)),
    Case("rename: one group", RENAME + ["-ig", "grp1", "-igNew", "grp2"], RENAMING + completion(), S_OK,
         calls=["IIGroup.RenameIGroup"],
         check=request("IIGroup.RenameIGroup", storageSystem="filer-east", groupName="grp1", newGroupName="grp2")),
    Case("rename: no -f is checked first", ["igroup", "rename", "-igNew", "x"],
         usage(MSG_USAGE_STORAGE_SYSTEM, "rename"), E_INVALIDARG, check=nothing_created),
    Case("rename: no -ig is checked before -igNew", RENAME, usage(MSG_USAGE_IGROUP_NAME, "rename"), E_INVALIDARG,
         check=nothing_created),
    Case("rename: no -igNew", RENAME + ["-ig", "grp1"], usage(MSG_USAGE_NEW_IGROUP_NAME, "rename"), E_INVALIDARG,
         check=nothing_created),
    Case("rename: -igNew empty", RENAME + ["-ig", "grp1", "-igNew", ""], usage(MSG_USAGE_NEW_IGROUP_NAME, "rename"),
         E_INVALIDARG, check=nothing_created),
    Case("rename: refused with an explanation", RENAME + ["-ig", "grp1", "-igNew", "grp2"],
         RENAMING + "\nError occurred while renaming the storage system Initiator group...\n\n"
         + service_text(IGROUP_EXISTS, "name taken"), IGROUP_EXISTS,
         scenario=failing("IIGroup.RenameIGroup", IGROUP_EXISTS, "name taken")),
    Case("rename: refused without an explanation", RENAME + ["-ig", "grp1", "-igNew", "grp2"],
         RENAMING + "\nError occurred while renaming the storage system Initiator group...\n\n"
         + service_text(E_ACCESSDENIED), E_ACCESSDENIED, scenario=failing("IIGroup.RenameIGroup", E_ACCESSDENIED)),
    Case("rename: the progress sink cannot be connected", RENAME + ["-ig", "grp1", "-igNew", "grp2"], None, S_OK,
         scenario=NO_SINK, check=failure_line("Failed to rename the Initiator group.", CONNECT_E_NOCONNECTION)),
]

CASES = LIST_CASES + CREATE_CASES + CHANGE_CASES
