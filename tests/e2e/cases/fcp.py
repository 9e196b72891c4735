"""fcp_initiator list: the host's FCP initiators; a failed query is a line of its own and still a success."""

import re

from harness import S_OK, Case, alert, completion
from cases.host_common import E_ACCESSDENIED, E_NOINTERFACE, MSG_SERVICE_UNAVAILABLE, names_this_computer

LIST = ["fcp_initiator", "list"]
HEADING = "\nFCP initiators on this system are: \n\n"
WWPN1 = {"dwKind": 0, "wszName": "10:00:00:00:c9:6b:2a:41"}
WWPN2 = {"dwKind": 0, "wszName": "10:00:00:00:c9:6b:2a:42"}


def listed(*initiators, **response):
    return {"methods": {"IFcp.ListFcpInitiators": dict(response, initiators=list(initiators))}}


def error_line(hr):
    """The error line (with whatever GetLastError held), then the completion line: nothing else."""
    pattern = re.compile(r"Error -?\d+ obtaining FCP initiators on machine \. Status 0x%x\.\n" % hr)

    def check(result):
        line, _, rest = result.text().partition("\n")
        assert pattern.fullmatch(line + "\n") and rest == completion(), "stdout %r" % result.text()
    return check


CASES = [
    Case("two initiators", LIST,
         HEADING + "FCP initiator WWPN:\t10:00:00:00:c9:6b:2a:41\nFCP initiator WWPN:\t10:00:00:00:c9:6b:2a:42\n\n"
         + completion(), S_OK, scenario=listed(WWPN1, WWPN2), calls=["IFcp.ListFcpInitiators"],
         check=names_this_computer("IFcp.ListFcpInitiators", "computerName")),
    Case("no initiators", LIST, HEADING + "\n" + completion(), S_OK, calls=["IFcp.ListFcpInitiators"]),
    Case("other kinds of initiator", LIST,
         HEADING + "iSCSI initiator:\tiqn.1991-05.com.microsoft:host1\n" + "FCP initiator WWPN:\t(null)\n\n" + completion(),
         S_OK, scenario=listed({"dwKind": 1, "wszName": "iqn.1991-05.com.microsoft:host1"},
                               {"dwKind": 7, "wszName": "not shown"}, {"dwKind": 0, "wszName": None})),
    Case("-m without a value asks the local service", LIST + ["-m"], same_as="no initiators"),
    # Creating the service object is not the query: it fails as every operation does.
    Case("the service lacks the FCP interface", LIST, alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE), E_NOINTERFACE,
         scenario={"classes": {"VirtualDiskService": {"missingInterfaces": ["IFcp"]}}}),
] + [
    # A refused query prints its own line (no description, no initiators) and the operation succeeds.
    Case("refused: %s" % what, LIST, status=S_OK, scenario=scenario, calls=["IFcp.ListFcpInitiators"],
         check=error_line(hr))
    for what, hr, scenario in [
        ("an error line and success", E_ACCESSDENIED, listed(result=hex(E_ACCESSDENIED))),
        ("with an explanation and data, the line alone", 0xC0040412,
         listed(WWPN1, result=hex(0xC0040412), errorDescription="HBA offline")),
        ("S_FALSE is a failure too", 1, listed(result=1)),
    ]
]
