#!/usr/bin/env python3
"""Every service call of every operation, made to fail in each way a service
can fail, with nothing typed by hand but the faults themselves.

    python3 tests/e2e/fault_matrix.py [--build-dir build] [-k TEXT] [-v]

The operations are the rows of the dispatch table that have a handler
(front_end/Dispatch.cpp); each runs as its first documented example in
docs/commands.md against the demo scenario, and the calls that reach the
simulator are the calls to break. An operation without an example fails the
run, so the matrix grows with the handlers. For each call (the first and the
last time a method is called in the run) the simulator:

- fails it with E_FAIL and a description, or with S_FALSE: the run ends with
  that status and prints the cause last, or (for the operations that report a
  failure and go on) succeeds; never the completion line after a failure;
- answers S_OK with no data at all (empty arrays, a zero count with no
  pointer, null strings): any documented status, never a crash;
- fires a progress event after the call has returned: the example's status;

and for the last call of each operation it dies in the middle of the call:
the status is the RPC failure, or success for operations that go on. Every
run also passes the harness's general checks: CR LF line ends, nothing left
in the simulator (but where it died), no COM task-allocator block left.
"""

import argparse
import copy
import json
import re
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

import harness  # noqa: E402
import run_e2e  # noqa: E402
from harness import E_INVALIDARG, S_OK, Case, completion  # noqa: E402

DEMO = "simulator/scenarios/demo.json"
E_FAIL = 0x80004005
S_FALSE = 0x00000001
RPC_CALL_FAILED = 0x800706BE
DESCRIPTION = "injected service fault"
LATE_EVENT = {"event": "ProgressMessage", "subject": "late", "code": 28}


def dispatched_operations():
    """(command word, operation word, handler) of every row that has a handler."""
    words = (harness.REPO / "front_end" / "Words.cpp").read_text()
    commands = {ident: word for word, ident in re.findall(r'\{L"([^"]+)", cmd::(\w+)\}', words)}
    operations = {ident: word for word, ident in re.findall(r'\{L"([^"]+)", op::(\w+)\}', words)}
    table = (harness.REPO / "front_end" / "Dispatch.cpp").read_text()
    rows = re.findall(r"\{cmd::(\w+), op::(\w+), (\w+)\}", table)
    return [(commands[c], operations[o], handler) for c, o, handler in rows if handler != "NotAvailable"]


def documented_examples():
    """(command, operation) -> the argv of its first example run in docs/commands.md."""
    examples = {}
    for line in (harness.REPO / "docs" / "commands.md").read_text(encoding="utf-8").splitlines():
        match = re.match(r"^[$>] cvcli (\S+ \S+.*)$", line)
        if match:
            argv = match.group(1).split()
            examples.setdefault((argv[0].lower(), argv[1].lower()), argv)
    return examples


def with_response(scenario, method, occurrence, change):
    """The scenario with the method's response at that call replaced by change(response)."""
    scenario = copy.deepcopy(scenario)
    methods = scenario.setdefault("methods", {})
    current = methods.get(method)
    responses = current if isinstance(current, list) else [current if current is not None else {}]
    while len(responses) <= occurrence:  # the last response repeats: spell the repeats out
        responses.append(copy.deepcopy(responses[-1]))
    responses[occurrence] = change(copy.deepcopy(responses[occurrence]))
    methods[method] = responses
    return scenario


def crashed(status):
    # NT status codes of a process that died on its own (access violation,
    # stack or heap corruption, illegal instruction...); no service code here.
    return status is not None and (status & 0xF0000000) == 0xC0000000 and (status >> 16) & 0x0FFF == 0


def ends_with_failure(hr, cause=None):
    def check(result):
        text = result.text()
        assert result.status in (hr, S_OK), "status %s" % harness.hresult(result.status)
        if result.status == hr:
            assert not text.endswith(completion()), "completion line after a failure"
            if cause is not None:
                assert text.rstrip("\n").endswith(cause), "the cause is not the last thing printed: %r" % text[-200:]
    return check


def no_crash(result):
    assert not crashed(result.status), "crashed with %s" % harness.hresult(result.status)
    assert result.status in (S_OK, E_INVALIDARG) or result.status & 0x80000000, harness.hresult(result.status)


def same_status(status):
    def check(result):
        assert result.status == status, "status %s, the example gives %s" % (harness.hresult(result.status),
                                                                             harness.hresult(status))
    return check


def late_report(status):
    # The late event may find the sink still advised while cvcli is on its way
    # out; the simulator's thread then waits on the vanished client and keeps
    # its own object a while. What cvcli owes is its status and every advise
    # given back.
    def check(result):
        same_status(status)(result)
        advised = sum(1 for e in result.events if e.get("event") == "advise")
        unadvised = sum(1 for e in result.events if e.get("event") == "unadvise")
        assert advised == unadvised, "%d advises, %d unadvises" % (advised, unadvised)
    return check


def build_cases(session, relaunched):
    problems, cases = [], []
    demo = json.loads((harness.REPO / DEMO).read_text(encoding="utf-8"))
    examples = documented_examples()
    for command, operation, handler in dispatched_operations():
        argv = examples.get((command.lower(), operation.lower()))
        label = "%s %s" % (command, operation)
        if argv is None:
            problems.append("%s (%s): no example run in docs/commands.md" % (label, handler))
            continue
        # The discovery run is retried as every case is: under load a run
        # that Wine did not start would otherwise reach "no service call".
        main = run_e2e.run_case(session, Case(label, argv, scenario=demo), label + " (example)", relaunched)
        calls = main.calls()
        if not calls:
            problems.append("%s: the example %r reaches no service call" % (label, " ".join(argv)))
            continue
        cases.append(Case(label + ": the documented example", argv, status=main.status, scenario=demo,
                          check=same_status(main.status)))
        seen = {}
        points = []
        for method in calls:
            seen[method] = seen.get(method, 0) + 1
        counted = {}
        for method in calls:
            occurrence = counted.get(method, 0)
            counted[method] = occurrence + 1
            if occurrence in (0, seen[method] - 1) and (method, occurrence) not in points:
                points.append((method, occurrence))
        for method, occurrence in points:
            at = "%s: %s call %d" % (label, method, occurrence + 1)

            def fault(change):
                return with_response(demo, method, occurrence, change)

            cases += [
                Case(at + " fails", argv, scenario=fault(lambda r: dict(r, result=hex(E_FAIL), errorDescription=DESCRIPTION)),
                     check=ends_with_failure(E_FAIL, DESCRIPTION)),
                Case(at + " answers S_FALSE", argv, scenario=fault(lambda r: dict(r, result="S_FALSE")),
                     check=ends_with_failure(S_FALSE)),
                Case(at + " returns nothing", argv, scenario=fault(lambda r: {}), check=no_crash),
                Case(at + " reports after returning", argv, scenario=fault(lambda r: dict(r, lateEvents=[LATE_EVENT])),
                     released=False, check=late_report(main.status)),
            ]
        method, occurrence = points[-1]
        cases.append(Case("%s: the service dies in %s" % (label, method), argv, released=False, timeout=60,
                          scenario=with_response(demo, method, occurrence, lambda r: dict(r, dieDuringCall=True)),
                          check=ends_with_failure(RPC_CALL_FAILED)))
    return problems, cases


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build-dir", default=str(harness.REPO / "build"))
    parser.add_argument("-k", dest="pattern", help="run only cases whose name contains this text")
    parser.add_argument("-v", "--verbose", action="store_true")
    parser.add_argument("--list", action="store_true")
    args = parser.parse_args()
    args.repeat = 1
    session = harness.Session(args.build_dir)
    started = time.monotonic()
    session.start()
    try:
        relaunched = []
        problems, cases = build_cases(session, relaunched)
        for problem in problems:
            print("matrix: " + problem)
        selected = [("fault_matrix", c) for c in cases if not args.pattern or args.pattern.lower() in c.name.lower()]
        print("%d operations, %d runs" % (len({c.name.split(":")[0] for c in cases}), len(selected)), flush=True)
        status = run_e2e.run(session, args, time.monotonic() - started, cases=selected, relaunched=relaunched)
        return 1 if problems else status
    finally:
        session.prefix_script("--stop")


if __name__ == "__main__":
    sys.exit(main())
