"""transport_protocol list, set, delete: output, requests (passwords by digest only), usage faults, failures."""

import re

from harness import password_digest, E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, msg

MSG_SERVICE_UNAVAILABLE = 5108
MSG_INVALID_IP_PORT = 5307
MSG_USAGE_STORAGE_SYSTEM = 5607
MSG_USAGE_PROTOCOL_TYPE = 5643
MSG_USAGE_INVALID_PROTOCOL_TYPE = 5644
MSG_USAGE_USER_NAME = 5645
MSG_DELETE_FAILED = 6109
MSG_LIST_FAILED = 6110
MSG_SET_FAILED = 6111
CONNECT_E_NOCONNECTION = 0x80040200
E_ACCESSDENIED = 0x80070005
BAD_CREDENTIALS = 0xC00402B4
DEFAULT = "#!Default#!SSProtocol"
PROMPT = "Type Password for the user:"
SECRET = "S3cr3t pässwörd"

LOCAL = "If the machine name is not specified the command is executed on a local machine.\n"
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
NO_SINK = {"classes": {"VirtualDiskService": {"missingInterfaces": ["_IVirtualDiskEvents"]}}}


def usage(message_id, text):
    return "\n%s ...\n\n" % msg(message_id) + text


def port_refused():
    # A local error text goes through FormatMessageW, which ends its lines with CR LF.
    return msg(MSG_INVALID_IP_PORT).replace("\n", "\r\n") + SET_USAGE


digest = password_digest


def label(text, value):
    return "%-30s%s\n" % (text, value)


def failing(method, hr, description=None):
    response = {"result": hex(hr)}
    if description is not None:
        response["errorDescription"] = description
    return {"methods": {method: response}}


def protocols(*records):
    return {"methods": {"ITransportProtocol.ListTransportProtocols": {"protocols": list(records)}}}


def entry(name, kind, port=0, user=None, others=None):
    record = {"wszName": name, "dwProtocolType": kind, "dwPort": port, "wszUserName": user,
              "wszPassword": "never-shown"}
    if others is not None:
        record["pwszOtherAddresses"] = others
    return record


def nothing_created(result):
    assert result.created() == [], "created %r" % result.created()


def nothing_called(result):
    assert result.calls() == [], "calls %r" % result.calls()


def failure_line(text, hr):
    pattern = re.compile(r"\n%s Error code -?\d+\t hr=0x%xd\n\n" % (re.escape(text), hr) + re.escape(completion()) + r"\Z")

    def check(result):
        out = result.text()
        assert pattern.match(out), "stdout %r" % out
        nothing_called(result)
    return check


def sent(*records, check_first=True, password=None):
    """Check (for a named storage system) then Set, each with the one record; the password never shows."""
    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        expected = (["ITransportProtocol.CheckTransportProtocol"] if check_first else []) + [
            "ITransportProtocol.SetTransportProtocols"]
        assert [c["method"] for c in calls] == expected, calls
        if check_first:
            assert calls[0]["request"] == {"protocol": records[0]}, calls[0]["request"]
        assert calls[-1]["request"] == {"action": 1, "flags": 0, "protocols": list(records)}, calls[-1]["request"]
        if password:
            assert password.encode("utf-8") not in result.stdout, "the password was printed"
            assert password not in str(result.events), "the password reached the call log in clear"
    return check


def listed_with_false_flag(result):
    requests = [e["request"] for e in result.events if e.get("event") == "call"]
    assert requests == [{"reserved": 0}], requests


def password_not_printed(result):
    assert SECRET.encode("utf-8") not in result.stdout, "the password was printed"


def record(name, kind, port, user=None, password=None):
    return {"wszName": name, "wszUserName": user, "dwPort": port,
            "wszPassword": None if password is None else digest(password), "dwProtocolType": kind,
            "pwszOtherAddresses": None}


LIST = ["transport_protocol", "list"]
LIST_CASES = [
    Case("list: the default and two storage systems", LIST,
         label("Default Protocol: ", "HTTPS") + label("User Name: ", "cvadmin") + label("Port: ", 443) + "\n"
         + label("Storage System: ", "filer-east") + label("Other IP Address(s)/Name: ", "10.20.1.11, 10.20.2.11")
         + label("Protocol: ", "HTTP") + label("User Name: ", "root") + label("Port: ", 80) + "\n"
         + label("Storage System: ", "filer-west") + label("Protocol: ", "RPC") + completion(), S_OK,
         scenario=protocols(entry("filer-east", 2, 80, "root", ["10.20.1.11", "10.20.2.11"]),
                            entry("filer-west", 1), entry(DEFAULT, 3, 443, "cvadmin")),
         calls=["ITransportProtocol.ListTransportProtocols"],
         check=listed_with_false_flag),
    Case("list: only the default entry", LIST, label("Default Protocol: ", "RPC") + completion(), S_OK,
         scenario=protocols(entry(DEFAULT, 1, 0, "ignored"))),
    Case("list: without a default, no empty line first", LIST,
         label("Storage System: ", "filer-dr") + label("Protocol: ", "HTTPS") + label("User Name: ", "dr")
         + label("Port: ", 8443) + "\n" + label("Storage System: ", "odd") + label("Protocol: ", "Unknown")
         + completion(), S_OK, scenario=protocols(entry("filer-dr", 3, 8443, "dr"), entry("odd", 9, 7, "x"))),
    Case("list: the default's name is compared case-sensitively", LIST,
         label("Storage System: ", DEFAULT.lower()) + label("Protocol: ", "RPC") + completion(), S_OK,
         scenario=protocols(entry(DEFAULT.lower(), 1))),
    Case("list: no settings", LIST, "No transport protocol settings exist\n" + completion(), S_OK,
         scenario=protocols()),
    Case("list: refused with an explanation", LIST, alert(MSG_LIST_FAILED, E_ACCESSDENIED, description="denied"),
         E_ACCESSDENIED, scenario=failing("ITransportProtocol.ListTransportProtocols", E_ACCESSDENIED, "denied")),
    Case("list: refused without an explanation", LIST, alert(MSG_LIST_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=failing("ITransportProtocol.ListTransportProtocols", E_ACCESSDENIED)),
    Case("list: the progress sink cannot be connected", LIST, None, S_OK, scenario=NO_SINK,
         check=failure_line("Failed to list tranport protocol.", CONNECT_E_NOCONNECTION)),
    Case("list: on another machine", LIST + ["-m", "far-host"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, check=nothing_created),
]

SET = ["transport_protocol", "set"]
SET_F = SET + ["-f", "filer-east"]
SET_CASES = [
    Case("set: the default, rpc in small letters", SET + ["-default", "-type", "rpc"], "\n" + completion(), S_OK,
         check=sent(record(DEFAULT, 1, 0), check_first=False)),
    Case("set: RPC stores no user and no password", SET_F + ["-type", "RPC", "-user", "u", "-pwd", "p"],
         "\n" + completion(), S_OK, check=sent(record("filer-east", 1, 0))),
    Case("set: HTTPS with user and password", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd", SECRET],
         "\n" + completion(), S_OK, check=sent(record("filer-east", 3, 443, "root", SECRET), password=SECRET)),
    Case("set: HTTP on its own port", SET_F + ["-type", "Http", "-port", "8080", "-user", "root", "-pwd", "pw"],
         "\n" + completion(), S_OK, check=sent(record("filer-east", 2, 8080, "root", "pw"))),
    Case("set: the default over HTTP", SET + ["-default", "-type", "HTTP", "-user", "cv", "-pwd", "pw"],
         "\n" + completion(), S_OK, check=sent(record(DEFAULT, 2, 80, "cv", "pw"), check_first=False)),
    Case("set: -default wins over -f", SET_F + ["-default", "-type", "RPC"], "\n" + completion(), S_OK,
         check=sent(record(DEFAULT, 1, 0), check_first=False)),
    Case("set: an empty password given", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd", ""],
         "\n" + completion(), S_OK, check=sent(record("filer-east", 3, 443, "root", ""))),
    Case("set: ports at the ends of the range", SET_F + ["-type", "HTTPS", "-port", "65535", "-user", "r", "-pwd", "p"],
         "\n" + completion(), S_OK, check=sent(record("filer-east", 3, 65535, "r", "p"))),
    Case("set: port 1", SET_F + ["-type", "RPC", "-port", "1"], "\n" + completion(), S_OK,
         check=sent(record("filer-east", 1, 1))),
    # Without a console the prompt reads no key: the input ends at once, never a hang
    Case("set: -pwd without a value and no console", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd"],
         PROMPT + "\n" + completion(), S_OK, check=sent(record("filer-east", 3, 443, "root", ""))),
    Case("set: no -pwd and no console", SET_F + ["-type", "HTTP", "-user", "root"], PROMPT + "\n" + completion(),
         S_OK, check=sent(record("filer-east", 2, 80, "root", ""))),
    Case("set: -pwd with two values", SET_F + ["-type", "HTTP", "-user", "root", "-pwd", "a", "b"], SET_USAGE,
         E_INVALIDARG, check=nothing_called),
    Case("set: neither -f nor -default", SET + ["-type", "RPC"], usage(MSG_USAGE_STORAGE_SYSTEM, SET_USAGE),
         E_INVALIDARG, check=nothing_called),
    Case("set: -f empty", SET + ["-f", "", "-type", "RPC"], usage(MSG_USAGE_STORAGE_SYSTEM, SET_USAGE), E_INVALIDARG,
         check=nothing_called),
    Case("set: no -type", SET_F + ["-user", "root"], usage(MSG_USAGE_PROTOCOL_TYPE, SET_USAGE), E_INVALIDARG,
         check=nothing_called),
    Case("set: -type twice", SET_F + ["-type", "HTTP", "-type", "RPC"], usage(MSG_USAGE_PROTOCOL_TYPE, SET_USAGE),
         E_INVALIDARG, check=nothing_called),
    Case("set: an unknown type", SET_F + ["-type", "FTP"], usage(MSG_USAGE_INVALID_PROTOCOL_TYPE, SET_USAGE),
         E_INVALIDARG, check=nothing_called),
    Case("set: HTTPS without -user, before any prompt", SET_F + ["-type", "HTTPS"],
         usage(MSG_USAGE_USER_NAME, SET_USAGE), E_INVALIDARG, check=nothing_called),
    Case("set: -user empty", SET_F + ["-type", "HTTP", "-user", ""], usage(MSG_USAGE_USER_NAME, SET_USAGE),
         E_INVALIDARG, check=nothing_called),
] + [
    Case("set: port %r" % port, SET_F + ["-type", "HTTP", "-port", port, "-user", "root", "-pwd", "p"], port_refused(),
         E_INVALIDARG, check=nothing_called)
    for port in ["0", "65536", "99999999", "-1", "+80", "80a", "abc", "", " 80"]
] + [
    Case("set: -port without a value", SET_F + ["-type", "HTTP", "-port", "-user", "root", "-pwd", "p"],
         port_refused(), E_INVALIDARG, check=nothing_called),
    Case("set: the check refuses with an explanation", SET_F + ["-type", "HTTPS", "-user", "root", "-pwd", SECRET],
         alert(MSG_SET_FAILED, BAD_CREDENTIALS, description="login failed"), BAD_CREDENTIALS,
         scenario=failing("ITransportProtocol.CheckTransportProtocol", BAD_CREDENTIALS, "login failed"),
         calls=["ITransportProtocol.CheckTransportProtocol"],
         check=password_not_printed),
    Case("set: the check refuses without an explanation", SET_F + ["-type", "HTTP", "-user", "root", "-pwd", "p"],
         alert(MSG_SET_FAILED, E_ACCESSDENIED), E_ACCESSDENIED,
         scenario=failing("ITransportProtocol.CheckTransportProtocol", E_ACCESSDENIED),
         calls=["ITransportProtocol.CheckTransportProtocol"]),
    Case("set: the write fails with an explanation", SET_F + ["-type", "HTTP", "-user", "root", "-pwd", "p"],
         "\nProtocol set failed\n" + alert(MSG_SET_FAILED, E_ACCESSDENIED, description="registry locked"),
         E_ACCESSDENIED, scenario=failing("ITransportProtocol.SetTransportProtocols", E_ACCESSDENIED, "registry locked"),
         calls=["ITransportProtocol.CheckTransportProtocol", "ITransportProtocol.SetTransportProtocols"]),
    Case("set: the write of the default fails", SET + ["-default", "-type", "RPC"],
         "\nProtocol set failed\n" + alert(MSG_SET_FAILED, BAD_CREDENTIALS), BAD_CREDENTIALS,
         scenario=failing("ITransportProtocol.SetTransportProtocols", BAD_CREDENTIALS),
         calls=["ITransportProtocol.SetTransportProtocols"]),
    Case("set: the progress sink cannot be connected", SET_F + ["-type", "RPC"], None, S_OK, scenario=NO_SINK,
         check=failure_line("Failed to set transport protocol.", CONNECT_E_NOCONNECTION)),
    Case("set: the service is not there", SET_F + ["-type", "RPC"], alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
         REGDB_E_CLASSNOTREG, prefix="bare"),
]

DELETE = ["transport_protocol", "delete"]


def deleted(name):
    def check(result):
        calls = [e for e in result.events if e.get("event") == "call"]
        assert [(c["method"], c["request"]) for c in calls] == [
            ("ITransportProtocol.DeleteTransportProtocol", {"entryName": name})], calls
    return check


DELETE_CASES = [
    Case("delete: a storage system's setting", DELETE + ["-f", "filer-west"], completion(), S_OK,
         check=deleted("filer-west")),
    Case("delete: the default", DELETE + ["-default"], completion(), S_OK, check=deleted(DEFAULT)),
    Case("delete: neither -f nor -default", DELETE, usage(MSG_USAGE_STORAGE_SYSTEM, DELETE_USAGE), E_INVALIDARG,
         check=nothing_created),
    Case("delete: -f twice", DELETE + ["-f", "a", "-f", "b"], usage(MSG_USAGE_STORAGE_SYSTEM, DELETE_USAGE),
         E_INVALIDARG, check=nothing_created),
    Case("delete: refused with an explanation", DELETE + ["-f", "filer-west"],
         alert(MSG_DELETE_FAILED, E_ACCESSDENIED, description="in use"), E_ACCESSDENIED,
         scenario=failing("ITransportProtocol.DeleteTransportProtocol", E_ACCESSDENIED, "in use")),
    Case("delete: refused without an explanation", DELETE + ["-default"], alert(MSG_DELETE_FAILED, BAD_CREDENTIALS),
         BAD_CREDENTIALS, scenario=failing("ITransportProtocol.DeleteTransportProtocol", BAD_CREDENTIALS)),
    Case("delete: the progress sink cannot be connected", DELETE + ["-default"], None, S_OK, scenario=NO_SINK,
         check=failure_line("Failed to delete transport protocol.", CONNECT_E_NOCONNECTION)),
]

CASES = LIST_CASES + SET_CASES + DELETE_CASES
