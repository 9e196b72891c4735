"""igroup list, create, rename, delete: output, requests, usage faults, service failures, the failure line."""

from harness import S_OK, Case, completion, msg, system_text
from cases.host_common import LOCAL, refusals, requests, sent, sink_refused, usage_cases

MSG_ERROR_SEPARATOR = 5092
MSG_USAGE_STORAGE_SYSTEM = 5607
MSG_USAGE_INITIATORS = 5638
MSG_USAGE_SAME_NODE = 5639
MSG_USAGE_IGROUP_NAME = 5640
MSG_USAGE_NEW_IGROUP_NAME = 5641

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
LISTING = "\nListing the Initiator groups ...\n"
CREATING = "\nCreating Initiator group ...\n\n"
DELETING = "\nDeleting the Initiator group ...\n"
RENAMING = "\nRenaming the Initiator group ...\n"
OS_WORDS = ["Unrecognized", "Unknown", "Default", "Solaris", "Windows", "HPUX", "AIX", "linux", "Netware", "vmware"]


def failed(heading, line):
    """What a refused call prints: the heading, the handler's line, the separator and the cause (no message)."""
    return lambda hr, description: heading + line.replace("%x", "%x" % hr) + msg(MSG_ERROR_SEPARATOR) + (
        description if description is not None else system_text(hr)) + "\n"


def group(name, node="HOST1", os_type=4, group_type=0, initiators=()):
    return {"wszNodeName": node, "wszGroupName": name, "dwOsType": os_type, "dwGroupType": group_type,
            "pInitiators": [{"wszName": i} for i in initiators]}


def groups(*records, **response):
    return {"methods": {"IIGroup.ListIGroups": dict(response, groups=list(records))}}


def group_text(name, kind="FCP", os_word="os-type:Windows", node="HOST1", initiators=()):
    return "\n\nNode Name: %s\nInitiators Group Name: %s\nInitiators Group Type: %s\n%s" % (node, name, kind, os_word) + (
        "\nInitiators:\n" + "".join("           %s\n" % i for i in initiators) if initiators else "")


def created_group(node, name, initiators):
    def check(result):
        [request] = requests(result, "IIGroup.CreateIGroup")
        # The local computer name, as the host reports it: never empty, never the node's
        assert request["storageSystem"] == "filer-east" and request["localComputerName"], request
        assert request["group"] == {"wszNodeName": node, "wszGroupName": name, "dwOsType": 0, "dwGroupType": 0,
                                    "dwInitiatorCount": len(initiators),
                                    "pInitiators": [{"wszName": i} for i in initiators], "ullReserved344": 0}, request
    return check


WWPNS = ["10:00:00:00:c9:6b:2a:41", "10:00:00:00:c9:6b:2a:42"]
FCP_GROUP = group("host1_fcp", initiators=WWPNS)
FCP_TEXT = group_text("host1_fcp", initiators=WWPNS)
LIST = ["igroup", "list", "-f", "filer-east"]
CREATE = ["igroup", "create", "-f", "filer-east"]
CREATE_OK = CREATE + ["-I", "HOST1", "iqn.a", "-ig", "grp1"]
DELETE = ["igroup", "delete", "-f", "filer-east"]
RENAME = ["igroup", "rename", "-f", "filer-east"]
LIST_FAILED = "\nError occurred while getting the storage system Initiator groups...\n\n"

LIST_CASES = [
    Case("list: one group with its initiators", LIST, LISTING + FCP_TEXT + completion(), S_OK, scenario=groups(FCP_GROUP),
         calls=["IIGroup.ListIGroups"], check=sent("IIGroup.ListIGroups", storageSystem="filer-east")),
    Case("list: no groups", LIST, LISTING + "\n\nNo Initiator groups are found...\n\n" + completion(), S_OK,
         scenario=groups(), calls=["IIGroup.ListIGroups"]),
    Case("list: every os type word, an unknown one prints nothing", LIST,
         LISTING + "".join(group_text("g%d" % n, "ISCSI", "os-type:" + OS_WORDS[n] if n < 10 else "") for n in range(11))
         + completion(), S_OK, scenario=groups(*[group("g%d" % n, os_type=n, group_type=1) for n in range(11)])),
    Case("list: unknown group type, zero initiators, then an os type 10 group with initiators", LIST,
         LISTING + group_text("odd", "Unknown", "os-type:AIX", "HOST2") + group_text("ten", os_word="", initiators=["wwpn-1"])
         + completion(), S_OK, scenario=groups(group("odd", node="HOST2", os_type=6, group_type=7),
                                               group("ten", os_type=10, initiators=["wwpn-1"]))),
    Case("list: names that fill their fields, non-ASCII", ["igroup", "list", "-f", "fïler-東京"],
         LISTING + group_text("ß" * 127, node="Ñ" * 31, initiators=["i" * 127]) + completion(), S_OK,
         scenario=groups(group("ß" * 127, node="Ñ" * 31, initiators=["i" * 127])),
         check=sent("IIGroup.ListIGroups", storageSystem="fïler-東京")),
    Case("list: progress events while listing", LIST, LISTING + "filer-east : %s\n" % msg(5040) + FCP_TEXT + completion(),
         S_OK, scenario=groups(FCP_GROUP, events=[{"event": "ProgressMessage", "subject": "filer-east", "code": 28}])),
    Case("list: S_FALSE is a failure", LIST, failed(LISTING, LIST_FAILED)(1, None), 1,
         scenario=groups(FCP_GROUP, result=1)),
] + refusals("list", LIST, "IIGroup.ListIGroups", output=failed(LISTING, LIST_FAILED), data={"groups": [FCP_GROUP]}) \
  + usage_cases("list", ["igroup", "list"], LIST_USAGE, [
    # The one reader of every required switch of the family: absent, without a value, twice (an empty value is a value).
    ("no -f", [], MSG_USAGE_STORAGE_SYSTEM), ("-f without a value", ["-f"], MSG_USAGE_STORAGE_SYSTEM),
    ("-f twice", ["-f", "a", "-f", "b"], MSG_USAGE_STORAGE_SYSTEM)]) + [
    Case("list: an empty storage system name is sent as given", ["igroup", "list", "-f", ""],
         LISTING + "\n\nNo Initiator groups are found...\n\n" + completion(), S_OK,
         check=sent("IIGroup.ListIGroups", storageSystem="")),
]

CREATE_CASES = [
    Case("create: " + what, argv, CREATING + completion(), S_OK, calls=["IIGroup.CreateIGroup"],
         check=created_group(node, name, initiators))
    for what, argv, node, name, initiators in [
        ("two initiators of one node, names in different case",
         CREATE + ["-I", "HOST1", "iqn.1991-05.com.microsoft:a", "host1", "IQN.1991-05.com.microsoft:A", "-ig", "grp1"],
         "HOST1", "grp1", ["iqn.1991-05.com.microsoft:a", "IQN.1991-05.com.microsoft:A"]),
        ("names that just fit their fields", CREATE + ["-I", "N" * 31, "i" * 127, "-ig", "g" * 127], "N" * 31, "g" * 127,
         ["i" * 127]),
        ("switches in any order, non-ASCII names", ["igroup", "create", "-ig", "grüppe", "-I", "hôst", "iqn.ü", "-f",
                                                    "filer-east"], "hôst", "grüppe", ["iqn.ü"]),
        ("empty names are sent as given", CREATE + ["-I", "", "", "-ig", ""], "", "", [""]),
    ]
] + usage_cases("create", CREATE, CREATE_USAGE, [
    ("pairs of two nodes", ["-I", "HOST1", "iqn.a", "HOST2", "iqn.b", "-ig", "grp1"], MSG_USAGE_SAME_NODE),
    ("a third pair of another node", ["-I", "A", "i1", "a", "i2", "B", "i3", "-ig", "g"], MSG_USAGE_SAME_NODE),
    ("-I without values", ["-I", "-ig", "grp1"], MSG_USAGE_INITIATORS),
    ("-I with an odd number of values", ["-I", "HOST1", "iqn.a", "HOST1", "-ig", "grp1"], MSG_USAGE_INITIATORS,
     "\n<NodeMachineName> <InitiatorName> must be in pairs!\n\n"),
    ("the same initiator twice", ["-I", "HOST1", "iqn.a", "HOST1", "iqn.a", "-ig", "grp1"], MSG_USAGE_INITIATORS,
     "\nError: duplicated initiator - iqn.a !!!\n"),
    ("a node name too long for its field", ["-I", "N" * 32, "iqn.a", "-ig", "grp1"], MSG_USAGE_INITIATORS),
    ("an initiator name too long for its field", ["-I", "HOST1", "i" * 128, "-ig", "grp1"], MSG_USAGE_INITIATORS),
    ("no -ig", ["-I", "HOST1", "iqn.a"], MSG_USAGE_IGROUP_NAME),
    ("a group name too long for its field", ["-I", "HOST1", "iqn.a", "-ig", "g" * 128], MSG_USAGE_IGROUP_NAME),
]) + usage_cases("create", ["igroup", "create"], CREATE_USAGE, [
    ("no -I is checked before no -ig", [], MSG_USAGE_INITIATORS),
    ("no -f, checked after -ig", ["-I", "HOST1", "iqn.a", "-ig", "grp1"], MSG_USAGE_STORAGE_SYSTEM),
]) + refusals("create", CREATE_OK, "IIGroup.CreateIGroup", calls=["IIGroup.CreateIGroup"], output=failed(
    CREATING, "\nError occurred while creating the storage system Initiator group(name:grp1)\n\n"))

CHANGE_CASES = [
    Case("delete: one group", DELETE + ["-ig", "grp1"], DELETING + completion(), S_OK, calls=["IIGroup.DeleteIGroup"],
         check=sent("IIGroup.DeleteIGroup", storageSystem="filer-east", groupName="grp1")),
    Case("rename: one group", RENAME + ["-ig", "grp1", "-igNew", "grp2"], RENAMING + completion(), S_OK,
         calls=["IIGroup.RenameIGroup"],
         check=sent("IIGroup.RenameIGroup", storageSystem="filer-east", groupName="grp1", newGroupName="grp2")),
] + usage_cases("delete", ["igroup", "delete"], DELETE_USAGE, [
    ("no -f is checked first", [], MSG_USAGE_STORAGE_SYSTEM), ("no -ig", ["-f", "filer-east"], MSG_USAGE_IGROUP_NAME)]) \
  + usage_cases("rename", ["igroup", "rename"], RENAME_USAGE, [
    ("no -f is checked first", ["-igNew", "x"], MSG_USAGE_STORAGE_SYSTEM),
    ("no -ig is checked before -igNew", ["-f", "filer-east"], MSG_USAGE_IGROUP_NAME),
    ("no -igNew", ["-f", "filer-east", "-ig", "grp1"], MSG_USAGE_NEW_IGROUP_NAME)]) \
  + refusals("delete", DELETE + ["-ig", "grp1"], "IIGroup.DeleteIGroup", output=failed(
      DELETING, "\nError occurred while deleting the storage system Initiator group...hr=0x%xd\n\n")) \
  + refusals("rename", RENAME + ["-ig", "grp1", "-igNew", "grp2"], "IIGroup.RenameIGroup", output=failed(
      RENAMING, "\nError occurred while renaming the storage system Initiator group...\n\n"))

# Each operation's own failure line when its progress sink cannot be connected.
SINK_CASES = sink_refused([("list", LIST, "Failed to list Initiator groups."),
                           ("create", CREATE_OK, "Failed to create igroup."),
                           ("delete", DELETE + ["-ig", "grp1"], "Failed to delete the Initiator group."),
                           ("rename", RENAME + ["-ig", "grp1", "-igNew", "grp2"], "Failed to rename the Initiator group.")])

CASES = LIST_CASES + CREATE_CASES + CHANGE_CASES + SINK_CASES
