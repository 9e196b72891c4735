"""transport_protocol list, set, delete: output, requests (passwords by digest only), usage faults, failures."""

from harness import password_digest, S_OK, Case, alert, completion
from cases.host_common import LOCAL, no_password, nothing_called, refusals, sent, sink_refused, usage_cases

MSG_USAGE_STORAGE_SYSTEM = 5607
MSG_USAGE_PROTOCOL_TYPE = 5643
MSG_USAGE_INVALID_PROTOCOL_TYPE = 5644
MSG_USAGE_USER_NAME = 5645
MSG_DELETE_FAILED = 6109
MSG_LIST_FAILED = 6110
MSG_SET_FAILED = 6111
DEFAULT = "#!Default#!SSProtocol"
PROMPT = "Type Password for the user:"
SECRET = "S3cr3t pässwörd"
CHECK = "ITransportProtocol.CheckTransportProtocol"
SET_METHOD = "ITransportProtocol.SetTransportProtocols"
DELETE_METHOD = "ITransportProtocol.DeleteTransportProtocol"

SET_USAGE = (
    "cvcli transport_protocol set [-m MachineName] { -f StorageSystem | -default } -type {HTTPS|HTTP|RPC} [-port port]"
    " [-user UserName] [-pwd Password]\n"
    "Sets the protocol by which Corvane talks to a storage system.\n"
    "-default Sets the default for every storage system without a setting of its own.\n"
    "-port The port; 443 for HTTPS and 80 for HTTP when not specified.\n"
    "-user The user name; required for HTTPS and HTTP.\n"
    "-pwd The password; prompted for when not specified.\n" + LOCAL
)
DELETE_USAGE = (
    "cvcli transport_protocol delete [-m MachineName] { -f StorageSystem | -default }\n"
    "Deletes the transport protocol setting of a storage system, or the default one.\n" + LOCAL
)


def label(text, value):
    return "%-30s%s\n" % (text, value)


def protocols(*records):
    return {"methods": {"ITransportProtocol.ListTransportProtocols": {"protocols": list(records)}}}


def entry(name, kind, port=0, user=None, others=None):
    return dict({"wszName": name, "dwProtocolType": kind, "dwPort": port, "wszUserName": user,
                 "wszPassword": "never-shown"}, **({} if others is None else {"pwszOtherAddresses": others}))


def stored(name, kind, port, user=None, password=None):
    """Check (for a named storage system) then Set, each with the one record: the password as its digest only."""
    expected = {"wszName": name, "wszUserName": user, "dwPort": port, "dwProtocolType": kind, "pwszOtherAddresses": None,
                "wszPassword": None if password is None else password_digest(password)}

    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        assert [c["method"] for c in calls] == ([] if name == DEFAULT else [CHECK]) + [SET_METHOD], calls
        if name != DEFAULT:
            assert calls[0]["request"] == {"protocol": expected}, calls[0]["request"]
        assert calls[-1]["request"] == {"action": 1, "flags": 0, "protocols": [expected]}, calls[-1]["request"]
        if len(password or "") >= 8:  # a shorter one may occur in any text
            no_password(password)(result)
    return check


LIST = ["transport_protocol", "list"]
SET = ["transport_protocol", "set"]
SET_F = SET + ["-f", "filer-east"]
DELETE = ["transport_protocol", "delete"]

LIST_CASES = [
    Case("list: the default and two storage systems", LIST,
         label("Default Protocol: ", "HTTPS") + label("User Name: ", "cvadmin") + label("Port: ", 443) + "\n"
         + label("Storage System: ", "filer-east") + label("Other IP Address(s)/Name: ", "10.20.1.11, 10.20.2.11")
         + label("Protocol: ", "HTTP") + label("User Name: ", "root") + label("Port: ", 80) + "\n"
         + label("Storage System: ", "filer-west") + label("Protocol: ", "RPC") + completion(), S_OK,
         scenario=protocols(entry("filer-east", 2, 80, "root", ["10.20.1.11", "10.20.2.11"]),
                            entry("filer-west", 1), entry(DEFAULT, 3, 443, "cvadmin")),
         calls=["ITransportProtocol.ListTransportProtocols"],
         check=sent("ITransportProtocol.ListTransportProtocols", reserved=0)),
] + [
    Case("list: " + what, LIST, expected + completion(), S_OK, scenario=protocols(*records))
    for what, expected, records in [
        ("only the default entry", label("Default Protocol: ", "RPC"), [entry(DEFAULT, 1, 0, "ignored")]),
        ("without a default, no empty line first",
         label("Storage System: ", "filer-dr") + label("Protocol: ", "HTTPS") + label("User Name: ", "dr")
         + label("Port: ", 8443) + "\n" + label("Storage System: ", "odd") + label("Protocol: ", "Unknown"),
         [entry("filer-dr", 3, 8443, "dr"), entry("odd", 9, 7, "x")]),
        ("the default's name is compared case-sensitively",
         label("Storage System: ", DEFAULT.lower()) + label("Protocol: ", "RPC"), [entry(DEFAULT.lower(), 1)]),
        ("no settings", "No transport protocol settings exist\n", []),
    ]
] + refusals("list", LIST, "ITransportProtocol.ListTransportProtocols", MSG_LIST_FAILED)

SET_CASES = [
    Case("set: " + what, argv, before + "\n" + completion(), S_OK, check=stored(*sent))
    for what, argv, before, sent in [
        ("the default, rpc in small letters", SET + ["-default", "-type", "rpc"], "", (DEFAULT, 1, 0)),
        ("-default wins over -f", SET_F + ["-default", "-type", "RPC"], "", (DEFAULT, 1, 0)),
        ("RPC stores no user and no password", SET_F + ["-type", "RPC", "-user", "u", "-pwd", "p"], "",
         ("filer-east", 1, 0)),
        ("HTTPS with user and password", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd", SECRET], "",
         ("filer-east", 3, 443, "root", SECRET)),
        ("HTTP on its own port", SET_F + ["-type", "Http", "-port", "8080", "-user", "root", "-pwd", "pw"], "",
         ("filer-east", 2, 8080, "root", "pw")),
        ("an empty password given", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd", ""], "",
         ("filer-east", 3, 443, "root", "")),
        ("the highest port", SET_F + ["-type", "HTTPS", "-port", "65535", "-user", "r", "-pwd", "p"], "",
         ("filer-east", 3, 65535, "r", "p")),
        ("port 1", SET_F + ["-type", "RPC", "-port", "1"], "", ("filer-east", 1, 1)),
        # Only an absent -pwd prompts; without a console the prompt reads no key and the input ends at once
        ("no -pwd and no console", SET_F + ["-type", "HTTP", "-user", "root"], PROMPT, ("filer-east", 2, 80, "root", "")),
        ("-pwd at the end of the line: an empty password, no prompt",
         SET_F + ["-type", "HTTPS", "-user", "root", "-pwd"], "", ("filer-east", 3, 443, "root", "")),
        ("-pwd before another switch: an empty password, no prompt",
         SET + ["-type", "HTTPS", "-user", "root", "-pwd", "-f", "filer-east"], "", ("filer-east", 3, 443, "root", "")),
        ("-pwd with two values: an empty password, no prompt",
         SET + ["-f", "filer01", "-type", "HTTP", "-user", "admin", "-pwd", "one", "two"], "", ("filer01", 2, 80, "admin", "")),
        ("an empty storage system name and user name are sent as given",
         SET + ["-f", "", "-type", "HTTP", "-user", "", "-pwd", "p"], "", ("", 2, 80, "", "p")),
    ]
] + [
    # A given -port replaces the type's port with the number _wtoi reads: text that is no number is 0
    Case("set: -port %r" % port, SET_F + ["-type", "HTTP", "-port"] + port + ["-user", "root", "-pwd", "p"],
         "\n" + completion(), S_OK, check=stored("filer-east", 2, sent, "root", "p"))
    for port, sent in [(["abc"], 0), (["0"], 0), (["65536"], 65536), (["80a"], 80), (["+80"], 80), ([" 80"], 80),
                       ([""], 0), (["99999999"], 99999999), (["-1"], 0xFFFFFFFF),
                       ([], 0xFFFFFFFF), (["80", "81"], 0xFFFFFFFF)]
] + usage_cases("set", SET, SET_USAGE, [
    ("neither -f nor -default", ["-type", "RPC"], MSG_USAGE_STORAGE_SYSTEM),
    ("no -type", ["-f", "filer-east", "-user", "root"], MSG_USAGE_PROTOCOL_TYPE),
    ("-type twice", ["-f", "filer-east", "-type", "HTTP", "-type", "RPC"], MSG_USAGE_PROTOCOL_TYPE),
    ("an unknown type", ["-f", "filer-east", "-type", "FTP"], MSG_USAGE_INVALID_PROTOCOL_TYPE),
    ("HTTPS without -user, before any prompt", ["-f", "filer-east", "-type", "HTTPS"], MSG_USAGE_USER_NAME),
    ("-user twice", ["-f", "filer-east", "-type", "HTTP", "-user", "a", "-user", "b"], MSG_USAGE_USER_NAME),
], check=nothing_called) + refusals("set: the check", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd", SECRET], CHECK, MSG_SET_FAILED,
             calls=[CHECK], check=no_password(SECRET)) \
  + refusals("set: the write", SET_F + ["-type", "HTTP", "-user", "root", "-pwd", SECRET], SET_METHOD, calls=[
      CHECK, SET_METHOD], check=no_password(SECRET), output=lambda hr, description: "\nProtocol set failed\n" + alert(
          MSG_SET_FAILED, hr, description=description))

DELETE_CASES = [
    Case("delete: " + what, DELETE + argv, completion(), S_OK, calls=[DELETE_METHOD],
         check=sent(DELETE_METHOD, entryName=name))
    for what, argv, name in [("a storage system's setting", ["-f", "filer-west"], "filer-west"),
                             ("the default", ["-default"], DEFAULT)]
] + usage_cases("delete", DELETE, DELETE_USAGE, [
    (what, argv, MSG_USAGE_STORAGE_SYSTEM) for what, argv in [("neither -f nor -default", []), ("-f twice", ["-f", "a", "-f", "b"])]
]) + refusals("delete", DELETE + ["-f", "filer-west"], DELETE_METHOD, MSG_DELETE_FAILED)

# Each operation's own failure line when its progress sink cannot be connected.
SINK_CASES = sink_refused([("list", LIST, "Failed to list tranport protocol."),
                           ("set", SET_F + ["-type", "RPC"], "Failed to set transport protocol."),
                           ("delete", DELETE + ["-default"], "Failed to delete transport protocol.")])

CASES = LIST_CASES + SET_CASES + DELETE_CASES + SINK_CASES
