"""Every dispatched operation on a named machine: its documented example run
with "-m SOMEHOST" through the remote seam (cvcli_remote.exe), beside the same
example run locally through the same seam.

Wine cannot activate on a named machine, so without the seam nothing after
the creation of a remote run is ever reached. Here the remote run must print
and call exactly what the local run does, every activation must be the remote
one the program builds (CLSCTX_REMOTE_SERVER, the name, no authentication
information, reserved fields zero), and every call whose contract carries a
machine must carry SOMEHOST; the local run must activate locally and send no
machine where the contract expects none.
"""

import fault_matrix
from harness import all_of

HOST = "SOMEHOST"
RPC_C_AUTHN_LEVEL_PKT_PRIVACY = 6
# The operations whose calls carry a password, and the calls that carry it:
# these alone ask for packet privacy on their proxy.
SECRET_CALLS = {
    "transport_protocol set": {"ITransportProtocol.CheckTransportProtocol", "ITransportProtocol.SetTransportProtocols"},
    "iscsi_initiator establish_session": {"IIscsi.EstablishSession"},
}
CLSCTX_LOCAL_SERVER = 4
CLSCTX_REMOTE_SERVER = 16
# The host query names the host itself: the local computer when no machine
# is given (never null), so it is left out of the local run's null rule.
NAMES_THE_HOST = {"IInitiator.GetInitiatorCapabilities"}


def creations(result):
    return [e for e in result.events if e.get("event") in ("create", "createRefused")]


def privacy(operation):
    """Packet privacy asked for exactly where a password travels, and, where
    the service's runtime reports the level a call came with, received."""
    carried = SECRET_CALLS.get(operation, set())

    def check(result):
        levels = [b["blanket"] for b in result.blankets]
        sent = carried & set(result.calls())
        assert levels == ([RPC_C_AUTHN_LEVEL_PKT_PRIVACY] if sent else []), "proxy security set: %r" % result.blankets
        for method, level in result.authentication_levels():
            if method in carried and level is not None:
                assert level >= RPC_C_AUTHN_LEVEL_PKT_PRIVACY, "%s arrived with level %r" % (method, level)
    return check


def activated_locally(result):
    assert result.activations, "no activation"
    for a in result.activations:
        assert a["context"] == CLSCTX_LOCAL_SERVER and a["server"] is None, "not a local activation: %r" % a
    for method, machine in result.machine_arguments():
        if method not in NAMES_THE_HOST:
            assert machine is None, "%s got the machine %r where none was given" % (method, machine)


def activated_on_host(result):
    assert result.activations, "no activation"
    for a in result.activations:
        assert a["context"] == CLSCTX_REMOTE_SERVER, "not a remote activation: %r" % a
        assert a["server"] == {"name": HOST, "authInfo": None, "reserved1": 0, "reserved2": 0}, a["server"]
        assert a["count"] == 1, a
    assert len(result.activations) == len(creations(result)), "%d activations, %d objects asked of the service" % (
        len(result.activations), len(creations(result)))
    for method, machine in result.machine_arguments():
        assert machine == HOST, "%s got the machine %r, not %r" % (method, machine, HOST)


def build():
    examples = fault_matrix.documented_examples()
    cases = []
    for command, operation, _handler in fault_matrix.dispatched_operations():
        argvs = examples.get((command.lower(), operation.lower()))
        if argvs is None:
            continue  # the fault matrix fails the run for an operation without an example
        argv = argvs[0]
        label = "%s %s" % (command, operation)
        secret = privacy(label)
        cases += [
            fault_matrix.Case(label + ", locally", argv, scenario=fault_matrix.DEMO, remote=True,
                              check=all_of(activated_locally, secret)),
            fault_matrix.Case(label + ", on " + HOST, argv + ["-m", HOST], scenario=fault_matrix.DEMO, remote=True,
                              same_as=label + ", locally", check=all_of(activated_on_host, secret)),
        ]
    return cases


CASES = build()
