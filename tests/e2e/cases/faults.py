"""A service that misbehaves in ways a scenario's result code cannot express:
it dies in the middle of a call, reports after the call has returned, answers
with success codes other than S_OK, or returns nothing at all."""

from harness import S_OK, Case, alert, all_unadvised, completion, msg

RPC_CALL_FAILED = 0x800706BE
LISTING = "IVirtualDisk2.EnumerateDisksEx"
NO_LUNS = "Either no LUNs exist or Corvane could not detect any LUNs\n"


def listing(**response):
    return {"methods": {LISTING: response}}


def late_line_or_nothing(result):
    # A late event reaches cvcli only while its sink is still advised: either
    # way the listing and the completion line stand, and nothing else, and
    # every advise is given back.
    all_unadvised(result)
    lines = result.stdout.decode("utf-8").split("\r\n")
    kept = [line for line in lines if not line.startswith("filer-east : ")]
    expected = (NO_LUNS + completion()).split("\n")
    assert kept == expected and len(lines) - len(kept) <= 1, lines


def cut_on_a_character(units):
    """The alert's text holds this many UTF-16 units, and no surrogate pair was cut in two."""
    def check(result):
        assert "\ufffd" not in result.text(), "a surrogate pair was cut: %r" % result.text()[-20:]
        assert result.text().endswith("\U0001F600\n"), result.text()[-20:]
        held = len(result.text()[:-1].encode("utf-16-le")) // 2
        assert held == units, "the alert holds %d UTF-16 units, expected %d" % (held, units)
    return check


def long_description(cut):
    """A description of pairs only, long enough that the alert's 2047 characters end inside one (cut) or after one."""
    room = 2047 - len(msg(5362)[:2047]) - len(msg(5092)[:19])
    return ("x" if (room % 2 == 0) == cut else "") + "\U0001F600" * 1100


def died(result):
    assert any(e.get("event") == "died" for e in result.events), "the simulator did not die in the call"


CASES = [
    Case("the service dies in the middle of the listing", ["disk", "list"], alert(5362, RPC_CALL_FAILED), RPC_CALL_FAILED,
         scenario=listing(dieDuringCall=True), released=False, timeout=60,
         check=died),
    Case("after the death a new simulator serves the next run", ["disk", "list"], NO_LUNS + completion(), S_OK,
         scenario=listing()),
    Case("S_FALSE is a failure", ["disk", "list"], alert(5362, 1), 1, scenario=listing(result="S_FALSE")),
    Case("another success code is a failure", ["disk", "list"], alert(5362, 0x00040003), 0x00040003,
         scenario=listing(result="0x00040003")),
    Case("a description with LF and CR LF line ends", ["disk", "list"],
         alert(5362, 0x80004005, description="first line\nsecond line\r\nthird line"), 0x80004005,
         scenario=listing(result="E_FAIL", errorDescription="first line\nsecond line\r\nthird line")),
    # An error object with an empty description: the message and the separator, nothing after them.
    Case("an empty description", ["disk", "list"], alert(5362, 0x80004005, description=""), 0x80004005,
         scenario=listing(result=0x80004005, errorDescription="")),  # a result as an unsigned number
    # Each run of CRs before a line end gives way to the one CR LF; a CR that no LF follows stays, each one of a run.
    # (The result as a signed number, as the service's runtime has it.)
    Case("a description with runs of CRs before its line ends and CRs of its own", ["disk", "list"],
         alert(5362, 0x80004005, description="first line\nsecond\rline x\r\ry"), 0x80004005,
         scenario=listing(result=-0x7FFFBFFB, errorDescription="first line\r\r\nsecond\rline x\r\ry\r\r\r")),
] + [
    Case("a description longer than the alert's text, " + what, ["disk", "list"], status=0x80004005,
         scenario=listing(result="E_FAIL", errorDescription=long_description(cut)), check=cut_on_a_character(units))
    for what, cut, units in [("a pair left over", True, 2046), ("filled to the last character", False, 2047)]
] + [
    Case("a zero count with no array", ["disk", "list"], NO_LUNS + completion(), S_OK, scenario=listing()),
    Case("a count with no array", ["disk", "list"], NO_LUNS + completion(), S_OK,
         scenario=listing(nullArray="disks", disks=[{"pDisk": {"dwType": 1}}])),
    Case("events after the call has returned", ["disk", "list"], status=S_OK,
         scenario=listing(lateEvents=[{"event": "ProgressMessage", "subject": "filer-east", "code": 28}]),
         check=late_line_or_nothing),
    Case("events long after the call has returned", ["disk", "list"], NO_LUNS + completion(), S_OK,
         scenario=listing(lateDelayMs=300, lateEvents=[{"event": "ProgressMessage", "subject": "filer-east", "code": 28}])),
]
