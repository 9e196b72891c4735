"""Builders shared by the host case files (fcp, hyperv, igroup, iscsi, preferred_ip, transport_protocol); no CASES."""

from harness import S_OK, Case, alert, completion
from cases.lun_common import E_ACCESSDENIED, E_NOINTERFACE, MSG_SERVICE_UNAVAILABLE, usage  # noqa: F401 (re-exported)
from cases.lun_common import usage_faults
from cases.lun_common import LOCAL_MACHINE as LOCAL, created_nothing as nothing_created, local as local_error  # noqa: F401

CONNECT_E_NOCONNECTION = 0x80040200
BUSY = 0xC0040330  # a service-specific failure code, sent with a description
NO_SINK = {"classes": {"VirtualDiskService": {"missingInterfaces": ["_IVirtualDiskEvents"]}}}


def nothing_called(result):
    assert result.calls() == [], "calls %r" % result.calls()


def failing(method, hr, description=None, **data):
    """`method` fails with hr (and a description), answering `data` all the same."""
    response = dict(data, result=hex(hr), **({} if description is None else {"errorDescription": description}))
    return {"methods": {method: response}}


def requests(result, method):
    return [e["request"] for e in result.events if e.get("event") == "call" and e.get("method") == method]


def sent(method, *checks, **expected):
    """`method` was called once with these request fields (records compared whole); then the other checks."""
    def check(result):
        found = requests(result, method)
        assert len(found) == 1, "calls of %s: %r" % (method, found)
        for key, value in expected.items():
            assert found[0].get(key) == value, "%s.%s: %r, expected %r" % (method, key, found[0].get(key), value)
        for other in checks:
            other(result)
    return check


def names_this_computer(method, field):
    """The one call of `method` names this computer in `field`: never empty, at most 15 characters."""
    def check(result):
        asked = [request[field] for request in requests(result, method)]
        assert len(asked) == 1 and asked[0] and len(asked[0]) <= 15, "%s asked about %r" % (method, asked)
    return check


def no_password(password):
    """The password is in neither stream nor, in clear, in the call log (which holds its digest)."""
    def check(result):
        assert password.encode("utf-8") not in result.stdout + result.stderr, "the password was printed"
        assert password not in str(result.events), "the password reached the call log in clear"
    return check


def sink_refused(rows):
    """One case per (operation, argv, its failure line): when the progress sink cannot be connected the
    operation prints its own failure line, then the completion line, and calls no method. The system error
    in the line is the one the thread had where the failure was raised: under Wine a refused connection
    point leaves 0 there."""
    def printed(line):
        expected = "\n%s Error code 0\t hr=0x%xd\n\n" % (line, CONNECT_E_NOCONNECTION) + completion()

        def check(result):
            assert result.text() == expected, "stdout %r, expected %r" % (result.text(), expected)
            nothing_called(result)
        return check
    return [Case("%s: the progress sink cannot be connected" % op, argv, None, S_OK, scenario=NO_SINK, check=printed(line))
            for op, argv, line in rows]


def usage_cases(label, argv, text, rows, check=nothing_created):
    """One case per (what, extra arguments, message id[, what comes before]): the usage fault, nothing created."""
    return usage_faults(label, argv, text, rows, check=check)


def refusals(label, argv, method, message_id=None, output=None, data=None, others=None, **kw):
    """`method` refused with a description and without: output(hr, description), by default the alert, and hr.

    It answers `data` all the same (none of it may show); `others` answers the other methods."""
    output = output or (lambda hr, description: alert(message_id, hr, description=description))
    return [Case("%s: refused %s" % (label, what), argv, output(hr, description), hr, **kw, scenario={
        "methods": dict(others or {}, **failing(method, hr, description, **(data or {}))["methods"])})
        for what, hr, description in [("with an explanation", BUSY, "busy: try later"),
                                      ("without an explanation", E_ACCESSDENIED, None)]]
