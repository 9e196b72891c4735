"""Builders shared by the disk and snap case files. No CASES: the loader skips this module."""

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, Case, alert, all_of, msg  # noqa: F401 (all_of re-exported)

MSG_SERVICE_UNAVAILABLE = 5108
E_ACCESSDENIED = 0x80070005
E_NOINTERFACE = 0x80004002
BUSY = 0xC0040410
LOCAL_MACHINE = "If the machine name is not specified the command is executed on a local machine.\n"


def local(message_id):
    """A local error as printed: the text passed through FormatMessageW, which ends lines with CR LF."""
    return msg(message_id).replace("\n", "\r\n")


WAIT = local(5120)


def usage(message_id, text):
    return "\n%s ...\n\n" % msg(message_id) + text


def answer(method, **response):
    return {"methods": {method: response}}


def failing(hr, description=None):
    response = {"result": "0X%08X" % hr}  # the host cases write "0x"
    if description is not None:
        response["errorDescription"] = description
    return response


def progress(subject, *codes):
    return [{"event": "ProgressMessage", "subject": subject, "code": code} for code in codes]


def sent(method, exact=True, **expected):
    """The one call of `method` carried these request fields (exact: and no others)."""
    def check(result):
        requests = [e.get("request", {}) for e in result.events if e.get("event") == "call" and e.get("method") == method]
        assert len(requests) == 1, "%s called %d times" % (method, len(requests))
        got = requests[0] if exact else {k: requests[0].get(k) for k in expected}
        assert got == expected, "%s request %r, expected %r" % (method, requests[0], expected)
    return check


def only(method, request, sinks=()):
    """The only call is `method` with exactly `request`; the event interfaces advised are given back."""
    def check(result):
        assert result.calls() == [method], "calls %r" % result.calls()
        sent(method, **request)(result)
        advised = sorted(e["interface"] for e in result.events if e.get("event") == "advise")
        unadvised = sorted(e["interface"] for e in result.events if e.get("event") == "unadvise")
        assert advised == sorted(sinks) and unadvised == advised, "advised %r unadvised %r" % (advised, unadvised)
    return check


def not_called(cls, sinks=None):
    """The service object was created (and its sinks connected) before the switches were read; nothing was asked."""
    def check(result):
        assert result.created() == [cls], "created %r" % result.created()
        assert result.calls() == [], "calls %r" % result.calls()
        advised = [e["interface"] for e in result.events if e.get("event") == "advise"]
        assert sinks is None or advised == sinks, "advised %r" % advised
    return check


def created_nothing(result):
    """A remote creation never falls back to the local service."""
    assert result.created() == [], "created %r" % result.created()


def usage_faults(label, argv, text, faults, **fields):
    """One usage case per (name, extra arguments, message id[, what is printed before])."""
    return [Case("%s: %s" % (label, row[0]), argv + row[1], "".join(row[3:]) + usage(row[2], text), E_INVALIDARG, **fields)
            for row in faults]


def refusals(label, argv, message, make, before="", code=BUSY, description="refused", calls=None):
    """One call refused with the service's explanation, and without one; what was printed before (a text, or a
    function of the code) stays."""
    ahead = before if callable(before) else lambda hr: before
    return [Case(label + " refused with an explanation", argv, ahead(code) + alert(message, code, description=description),
                 code, scenario=make(failing(code, description)), calls=calls),
            Case(label + " refused without an explanation", argv, ahead(E_ACCESSDENIED) + alert(message, E_ACCESSDENIED),
                 E_ACCESSDENIED, scenario=make(failing(E_ACCESSDENIED)), calls=calls)]


def unreachable(label, cls, argv, remote_argv):
    """The service refused before the switches are read, and a remote machine (never the local service)."""
    return [Case(label + ": service refused before the switches are read", argv,
                 alert(MSG_SERVICE_UNAVAILABLE, E_ACCESSDENIED), E_ACCESSDENIED,
                 scenario={"classes": {cls: {"createResult": hex(E_ACCESSDENIED)}}}),
            Case(label + ": another machine", remote_argv, alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG),
                 REGDB_E_CLASSNOTREG, check=created_nothing)]


def lacking(label, argv, cls, interface):
    return Case("%s: the class lacks %s" % (label, interface), argv, alert(MSG_SERVICE_UNAVAILABLE, E_NOINTERFACE),
                E_NOINTERFACE, scenario={"classes": {cls: {"missingInterfaces": [interface]}}})
