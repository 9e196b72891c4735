"""fcp_initiator list: the host's FCP initiators; a failed query is a line of its own and still a success."""

import re

from harness import S_OK, Case, alert, completion

MSG_SERVICE_UNAVAILABLE = 5108
E_ACCESSDENIED = 0x80070005
E_NOINTERFACE = 0x80004002
HBA_OFFLINE = 0xC0040412

HEADING = "\nFCP initiators on this system are: \n\n"


def listed(*initiators):
    return {"methods": {"IFcp.ListFcpInitiators": {"initiators": list(initiators)}}}


def refused(hr, **extra):
    return {"methods": {"IFcp.ListFcpInitiators": dict({"result": hex(hr)}, **extra)}}


def asked_for_this_computer(result):
    asked = [e["request"]["computerName"] for e in result.events if e.get("method") == "IFcp.ListFcpInitiators"]
    assert len(asked) == 1 and asked[0] and len(asked[0]) <= 15, "asked %r" % asked


def error_line(hr):
    """The error line (with whatever GetLastError held), then the completion line: nothing else."""
    pattern = re.compile(r"Error -?\d+ obtaining FCP initiators on machine \. Status 0x%x\.\n" % hr)

    def check(result):
        text = result.text()
        line, _, rest = text.partition("\n")
        assert pattern.fullmatch(line + "\n"), "line %r" % line
        assert rest == completion(), "after the line %r" % rest
    return check


WWPN1 = {"dwKind": 0, "wszName": "10:00:00:00:c9:6b:2a:41"}
WWPN2 = {"dwKind": 0, "wszName": "10:00:00:00:c9:6b:2a:42"}

CASES = [
    Case("two initiators", ["fcp_initiator", "list"],
         HEADING + "FCP initiator WWPN:\t10:00:00:00:c9:6b:2a:41\nFCP initiator WWPN:\t10:00:00:00:c9:6b:2a:42\n\n"
         + completion(), S_OK, scenario=listed(WWPN1, WWPN2), calls=["IFcp.ListFcpInitiators"],
         check=asked_for_this_computer),
    Case("no initiators", ["fcp_initiator", "list"], HEADING + "\n" + completion(), S_OK, calls=["IFcp.ListFcpInitiators"]),
    Case("other kinds of initiator", ["fcp_initiator", "list"],
         HEADING + "iSCSI initiator:\tiqn.1991-05.com.microsoft:host1\n" + "FCP initiator WWPN:\t(null)\n\n" + completion(),
         S_OK, scenario=listed({"dwKind": 1, "wszName": "iqn.1991-05.com.microsoft:host1"},
                               {"dwKind": 7, "wszName": "not shown"}, {"dwKind": 0, "wszName": None})),
    Case("-m without a value asks the local service", ["fcp_initiator", "list", "-m"], same_as="no initiators"),
    Case("LIST in capitals", ["FCP_INITIATOR", "LIST"], same_as="no initiators"),
    Case("refused: an error line and success", ["fcp_initiator", "list"], status=S_OK, scenario=refused(E_ACCESSDENIED),
         calls=["IFcp.ListFcpInitiators"], check=error_line(E_ACCESSDENIED)),
    Case("refused with an explanation: the line alone", ["fcp_initiator", "list"], status=S_OK,
         scenario=refused(HBA_OFFLINE, errorDescription="HBA offline", initiators=[WWPN1]), check=error_line(HBA_OFFLINE)),
    Case("S_FALSE is a failure too", ["fcp_initiator", "list"], status=S_OK, scenario=refused(1), check=error_line(1)),
    # Creating the service object is not the query: it fails as every operation does.
    Case("the service lacks the FCP interface", ["fcp_initiator", "list"], alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE),
         E_NOINTERFACE, scenario={"classes": {"VirtualDiskService": {"missingInterfaces": ["IFcp"]}}}),
    Case("the service refuses the creation", ["fcp_initiator", "list"], alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED),
         E_ACCESSDENIED, scenario={"classes": {"VirtualDiskService": {"createResult": hex(E_ACCESSDENIED)}}}),
]
