"""preferredIP list, set and delete: the whole table is read, changed and written back."""

from harness import E_INVALIDARG, S_OK, Case, alert, completion
from cases.host_common import (E_ACCESSDENIED, LOCAL, failing, local_error, nothing_created, refusals, requests,
                               usage_cases)

MSG_INVALID_IP_ADDRESS = 5306
MSG_GET_PREFERRED_IPS_FAILED = 5393
MSG_SET_PREFERRED_IP_FAILED = 5394
MSG_DELETE_PREFERRED_IP_FAILED = 5395
MSG_USAGE_PREFERRED_IP = 5627
MSG_USAGE_VALID_STORAGE_SYSTEM = 5632
MSG_PREFERRED_IP_NOT_FOUND = 6018

SET_USAGE = (
    "cvcli preferredIP set [-m MachineName] -f StorageSystem -IP PreferredIPAddress\n"
    "Sets the IP address through which Corvane reaches a storage system.\n"
    "An existing preferred IP address is kept; delete it first to change it.\n" + LOCAL
)
DELETE_USAGE = "cvcli preferredIP delete [-m MachineName] -f StorageSystem\n" \
    "Deletes the preferred IP address of a storage system.\n" + LOCAL

GET = "IVirtualDisk.GetPreferredIPs"
SET = "IVirtualDisk.SetPreferredIPs"
LIST = ["preferredIP", "list"]


def entry(system, address):
    return {"wszStorageSystem": system, "wszIpAddress": address}


EAST, WEST, DR = entry("filer-east", "10.20.1.11"), entry("filer-west", "10.30.0.21"), entry("filer-dr", "10.40.0.31")


def table(*entries, **more):
    return {"methods": dict(more, **{GET: {"table": list(entries)}})}


def sink_connected(result):
    kinds = [e.get("event") for e in result.events if e.get("event") in ("advise", "unadvise", "call")]
    assert kinds[0] == "advise" and kinds[-1] == "unadvise" and kinds.count("advise") == 1, "order %r" % kinds


def written(*entries):
    """SetPreferredIPs received exactly this table, and the sink was connected for the operation."""
    def check(result):
        # An empty table crosses as a count of 0 and no array.
        sets = [request["table"] or [] for request in requests(result, SET)]
        assert sets == [list(entries)], "written %r" % sets
        sink_connected(result)
    return check


def set_ip(system, address):
    return ["preferredIP", "set", "-f", system, "-IP", address]


SET_DR = set_ip("filer-dr", "10.40.0.31")
DELETE_WEST = ["preferredIP", "delete", "-f", "filer-west"]

LIST_CASES = [
    Case("list: two entries", LIST, "\tStorage System Name: filer-east\tPreferred IP: 10.20.1.11\n"
         "\tStorage System Name: filer-west\tPreferred IP: 10.30.0.21\n" + completion(), S_OK,
         scenario=table(EAST, WEST), calls=[GET], check=sink_connected),
    Case("list: an empty table", LIST, "No preferred IP addresses exist.\n" + completion(), S_OK, calls=[GET],
         check=sink_connected),
    Case("list: the demo host", LIST, same_as="list: two entries", scenario="simulator/scenarios/demo.json"),
] + refusals("list", LIST, GET, MSG_GET_PREFERRED_IPS_FAILED, data={"table": [EAST]})

# Success: what the table held, and what is written back (None: nothing is, the entry is kept).
CHANGE_CASES = [
    Case("%s: %s" % (argv[1], what), argv, completion(), S_OK, scenario=table(*before),
         calls=[GET] if after is None else [GET, SET], check=None if after is None else written(*after))
    for what, argv, before, after in [
        ("appended after the others", SET_DR, [EAST, WEST], [EAST, WEST, DR]),
        ("the first entry", SET_DR, [], [DR]),
        ("the lowest address", set_ip("filer-dr", "0.0.0.0"), [], [entry("filer-dr", "0.0.0.0")]),
        ("the highest address", set_ip("filer-dr", "255.255.255.255"), [], [entry("filer-dr", "255.255.255.255")]),
        ("the system has an entry: kept", set_ip("filer-west", "10.30.0.99"), [EAST, WEST], None),
        ("another system has the address: kept", set_ip("filer-dr", "10.30.0.21"), [EAST, WEST], None),
        ("a name in another case is another system", set_ip("FILER-WEST", "10.30.0.99"), [EAST, WEST],
         [EAST, WEST, entry("FILER-WEST", "10.30.0.99")]),
        ("an empty name holds no refused character", set_ip("", "10.40.0.31"), [EAST], [EAST, entry("", "10.40.0.31")]),
        ("an entry in the middle", DELETE_WEST, [EAST, WEST, DR], [EAST, DR]),
        ("the last entry leaves an empty table", DELETE_WEST, [WEST], []),
    ]
] + [
    Case("delete: %s" % what, ["preferredIP", "delete", "-f", system], local_error(MSG_PREFERRED_IP_NOT_FOUND),
         E_INVALIDARG, scenario=table(*before), calls=[GET])
    for what, system, before in [("a name that differs in case", "Filer-West", [EAST, WEST]),
                                 ("no entry for the system", "filer-dr", [EAST, WEST]),
                                 ("an empty table", "filer-west", [])]
]

FAILURE_CASES = [
    Case("set: reading refused", SET_DR, alert(MSG_GET_PREFERRED_IPS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=failing(GET, E_ACCESSDENIED), calls=[GET]),
] + refusals("set: writing", SET_DR, SET, MSG_SET_PREFERRED_IP_FAILED, others=table(EAST, WEST)["methods"],
              calls=[GET, SET]) \
  + refusals("delete: writing", DELETE_WEST, SET, MSG_DELETE_PREFERRED_IP_FAILED, others=table(EAST, WEST)["methods"],
             calls=[GET, SET])

USAGE_CASES = usage_cases("set", ["preferredIP", "set"], SET_USAGE, [
    (what, argv, MSG_USAGE_VALID_STORAGE_SYSTEM) for what, argv in [
        ("nothing given", []), ("-f missing", ["-IP", "10.40.0.31"]),
        ("-f twice", ["-f", "a", "-f", "b", "-IP", "10.40.0.31"]),
        ("-f with a blank", ["-f", "filer dr", "-IP", "10.40.0.31"])]
] + [
    ("-f with %r" % name, ["-f", name, "-IP", "10.40.0.31"], MSG_USAGE_VALID_STORAGE_SYSTEM)
    for name in ["a/b", "a\\b", "a*", "a:b", "a?", "a\"", "a<", "a>", "a|b"]
] + [
    (what, ["-f", "filer-dr"] + argv, MSG_USAGE_PREFERRED_IP) for what, argv in [
        ("-IP missing", []), ("-IP twice", ["-IP", "10.40.0.31", "-IP", "10.40.0.32"]),
        ("-ip is another switch", ["-ip", "10.40.0.31"])]
]) + usage_cases("delete", ["preferredIP", "delete"], DELETE_USAGE, [
    ("-f missing", [], MSG_USAGE_VALID_STORAGE_SYSTEM)
]) + [
    Case("set: address %r" % address, set_ip("filer-dr", address), local_error(MSG_INVALID_IP_ADDRESS), E_INVALIDARG,
         check=nothing_created)
    # Parts missing, empty, past 255 or written another way than plain decimal; blanks, signs, other separators
    for address in ["10.40.0", "10.40.0.256", "filer-dr", "", "1.2.3.4.5", "10.20.1.", ".10.20.1.11", "10..1.11",
                    "256.1.1.1", "1.1.1.1000", "10.20.1.1a", "0x0a.1.1.1", "010.1.1.1", "1.1.1.00", "+1.1.1.1",
                    " 1.1.1.1", "1.1.1.1 ", "1,1,1,1", "\uFF11.1.1.1", "167772161", "::1"]
]

CASES = LIST_CASES + CHANGE_CASES + FAILURE_CASES + USAGE_CASES
