"""preferredIP list, set and delete: the whole table is read, changed and written back."""

from harness import E_INVALIDARG, S_OK, Case, alert, completion, msg

MSG_INVALID_IP_ADDRESS = 5306
MSG_GET_PREFERRED_IPS_FAILED = 5393
MSG_SET_PREFERRED_IP_FAILED = 5394
MSG_DELETE_PREFERRED_IP_FAILED = 5395
MSG_PREFERRED_IP_NOT_FOUND = 6018
E_ACCESSDENIED = 0x80070005
TABLE_LOCKED = 0xC0040520

LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"
SET_USAGE = (
    "cvcli preferredIP set [-m MachineName] -f StorageSystem -IP PreferredIPAddress\n"
    "Sets the IP address through which Corvane reaches a storage system.\n"
    "An existing preferred IP address is kept; delete it first to change it.\n" + LOCAL_MACHINE
)
DELETE_USAGE = "cvcli preferredIP delete [-m MachineName] -f StorageSystem\n" \
    "Deletes the preferred IP address of a storage system.\n" + LOCAL_MACHINE

GET = "IVirtualDisk.GetPreferredIPs"
SET = "IVirtualDisk.SetPreferredIPs"
EAST = {"wszStorageSystem": "filer-east", "wszIpAddress": "10.20.1.11"}
WEST = {"wszStorageSystem": "filer-west", "wszIpAddress": "10.30.0.21"}
DR = {"wszStorageSystem": "filer-dr", "wszIpAddress": "10.40.0.31"}


def usage_fault(message_id, usage):
    return "\n%s ...\n\n" % msg(message_id) + usage


def local_error(message_id):
    # FormatMessageW gives the message's line end back as CR LF.
    return msg(message_id).replace("\n", "\r\n")


def table(*entries, **more):
    methods = {GET: {"table": list(entries)}}
    methods.update(more)
    return {"methods": methods}


def written(*entries):
    """SetPreferredIPs received exactly this table, and the sink was connected for the operation."""
    def check(result):
        # An empty table crosses as a count of 0 and no array.
        sets = [e["request"]["table"] or [] for e in result.events if e.get("event") == "call" and e.get("method") == SET]
        assert sets == [list(entries)], "written %r" % sets
        sink_connected(result)
    return check


def sink_connected(result):
    kinds = [e.get("event") for e in result.events if e.get("event") in ("advise", "unadvise", "call")]
    assert kinds[0] == "advise" and kinds[-1] == "unadvise" and kinds.count("advise") == 1, "order %r" % kinds


def nothing_created(result):
    assert result.created() == [], "created %r" % result.created()


SET_EAST = ["preferredIP", "set", "-f", "filer-dr", "-IP", "10.40.0.31"]
DELETE_WEST = ["preferredIP", "delete", "-f", "filer-west"]

LIST_CASES = [
    Case("list: two entries", ["preferredIP", "list"],
         "\tStorage System Name: filer-east\tPreferred IP: 10.20.1.11\n"
         "\tStorage System Name: filer-west\tPreferred IP: 10.30.0.21\n" + completion(), S_OK,
         scenario=table(EAST, WEST), calls=[GET], check=sink_connected),
    Case("list: an empty table", ["preferredIP", "list"], "No preferred IP addresses exist.\n" + completion(), S_OK,
         calls=[GET], check=sink_connected),
    Case("list: the demo host", ["preferredIP", "list"], same_as="list: two entries",
         scenario="simulator/scenarios/demo.json"),
    Case("list: refused with an explanation", ["preferredIP", "list"],
         alert(MSG_GET_PREFERRED_IPS_FAILED, TABLE_LOCKED, description="table locked"), TABLE_LOCKED,
         scenario={"methods": {GET: {"result": hex(TABLE_LOCKED), "errorDescription": "table locked"}}}),
    Case("list: refused without an explanation", ["preferredIP", "list"],
         alert(MSG_GET_PREFERRED_IPS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario={"methods": {GET: {"result": hex(E_ACCESSDENIED), "table": [EAST]}}}),
]

SET_CASES = [
    Case("set: appended after the others", SET_EAST, completion(), S_OK, scenario=table(EAST, WEST), calls=[GET, SET],
         check=written(EAST, WEST, DR)),
    Case("set: the first entry", SET_EAST, completion(), S_OK, calls=[GET, SET], check=written(DR)),
    Case("set: the lowest address", ["preferredIP", "set", "-f", "filer-dr", "-IP", "0.0.0.0"], completion(), S_OK,
         check=written({"wszStorageSystem": "filer-dr", "wszIpAddress": "0.0.0.0"})),
    Case("set: the highest address", ["preferredIP", "set", "-f", "filer-dr", "-IP", "255.255.255.255"], completion(), S_OK,
         check=written({"wszStorageSystem": "filer-dr", "wszIpAddress": "255.255.255.255"})),
    Case("set: the system has an entry: kept", ["preferredIP", "set", "-f", "filer-west", "-IP", "10.30.0.99"],
         completion(), S_OK, scenario=table(EAST, WEST), calls=[GET]),
    Case("set: another system has the address: kept", ["preferredIP", "set", "-f", "filer-dr", "-IP", "10.30.0.21"],
         completion(), S_OK, scenario=table(EAST, WEST), calls=[GET]),
    Case("set: a name in another case is another system", ["preferredIP", "set", "-f", "FILER-WEST", "-IP", "10.30.0.99"],
         completion(), S_OK, scenario=table(EAST, WEST), calls=[GET, SET],
         check=written(EAST, WEST, {"wszStorageSystem": "FILER-WEST", "wszIpAddress": "10.30.0.99"})),
    Case("set: reading refused", SET_EAST, alert(MSG_GET_PREFERRED_IPS_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario={"methods": {GET: {"result": hex(E_ACCESSDENIED)}}}, calls=[GET]),
    Case("set: writing refused with an explanation", SET_EAST,
         alert(MSG_SET_PREFERRED_IP_FAILED, TABLE_LOCKED, description="table locked"), TABLE_LOCKED,
         scenario=table(EAST, **{SET: {"result": hex(TABLE_LOCKED), "errorDescription": "table locked"}}), calls=[GET, SET]),
    Case("set: writing refused without an explanation", SET_EAST, alert(MSG_SET_PREFERRED_IP_FAILED, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario=table(EAST, **{SET: {"result": hex(E_ACCESSDENIED)}})),
] + [
    Case("set: %s" % what, ["preferredIP", "set"] + argv, usage_fault(message_id, SET_USAGE), E_INVALIDARG,
         check=nothing_created)
    for what, argv, message_id in [
        ("nothing given", [], 5632),
        ("-f missing", ["-IP", "10.40.0.31"], 5632),
        ("-f without a value", ["-f", "-IP", "10.40.0.31"], 5632),
        ("-f twice", ["-f", "a", "-f", "b", "-IP", "10.40.0.31"], 5632),
        ("-f empty", ["-f", "", "-IP", "10.40.0.31"], 5632),
        ("-f with a blank", ["-f", "filer dr", "-IP", "10.40.0.31"], 5632),
        ("-f with a colon", ["-f", "filer:dr", "-IP", "10.40.0.31"], 5632),
        ("-f with a backslash", ["-f", "\\\\filer-dr", "-IP", "10.40.0.31"], 5632),
        ("-IP missing", ["-f", "filer-dr"], 5627),
        ("-IP without a value", ["-f", "filer-dr", "-IP"], 5627),
        ("-IP twice", ["-f", "filer-dr", "-IP", "10.40.0.31", "-IP", "10.40.0.32"], 5627),
        ("-ip is another switch", ["-f", "filer-dr", "-ip", "10.40.0.31"], 5627),
    ]
] + [
    Case("set: address %r" % address, ["preferredIP", "set", "-f", "filer-dr", "-IP", address],
         local_error(MSG_INVALID_IP_ADDRESS), E_INVALIDARG, check=nothing_created)
    for address in ["10.40.0", "10.40.0.31.1", "10.40.0.256", "300.1.1.1", "filer-dr", "10.40.0.3l", "", "10.40..31",
                    "010.40.0.31", "10.40.0.31 "]
]

DELETE_CASES = [
    Case("delete: an entry in the middle", DELETE_WEST, completion(), S_OK, scenario=table(EAST, WEST, DR),
         calls=[GET, SET], check=written(EAST, DR)),
    Case("delete: the last entry leaves an empty table", DELETE_WEST, completion(), S_OK, scenario=table(WEST),
         check=written()),
    Case("delete: a name that differs in case", ["preferredIP", "delete", "-f", "Filer-West"],
         local_error(MSG_PREFERRED_IP_NOT_FOUND), E_INVALIDARG, scenario=table(EAST, WEST), calls=[GET]),
    Case("delete: no entry for the system", ["preferredIP", "delete", "-f", "filer-dr"],
         local_error(MSG_PREFERRED_IP_NOT_FOUND), E_INVALIDARG, scenario=table(EAST, WEST), calls=[GET]),
    Case("delete: an empty table", DELETE_WEST, local_error(MSG_PREFERRED_IP_NOT_FOUND), E_INVALIDARG, calls=[GET]),
    Case("delete: reading refused", DELETE_WEST, alert(MSG_GET_PREFERRED_IPS_FAILED, TABLE_LOCKED, description="locked"),
         TABLE_LOCKED, scenario={"methods": {GET: {"result": hex(TABLE_LOCKED), "errorDescription": "locked"}}},
         calls=[GET]),
    Case("delete: writing refused with an explanation", DELETE_WEST,
         alert(MSG_DELETE_PREFERRED_IP_FAILED, TABLE_LOCKED, description="table locked"), TABLE_LOCKED,
         scenario=table(WEST, **{SET: {"result": hex(TABLE_LOCKED), "errorDescription": "table locked"}}), calls=[GET, SET]),
    Case("delete: writing refused without an explanation", DELETE_WEST,
         alert(MSG_DELETE_PREFERRED_IP_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=table(EAST, WEST, **{SET: {"result": hex(E_ACCESSDENIED)}})),
] + [
    Case("delete: %s" % what, ["preferredIP", "delete"] + argv, usage_fault(5632, DELETE_USAGE), E_INVALIDARG,
         check=nothing_created)
    for what, argv in [("-f missing", []), ("-f without a value", ["-f"]), ("-f twice", ["-f", "a", "-f", "b"]),
                       ("-f empty", ["-f", ""]), ("-f with a wildcard", ["-f", "filer*"])]
]

CASES = LIST_CASES + SET_CASES + DELETE_CASES
