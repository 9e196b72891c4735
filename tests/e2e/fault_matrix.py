#!/usr/bin/env python3
"""Every service call of every operation, made to fail in each way a service
can fail, with nothing typed by hand but the faults themselves.

    python3 tests/e2e/fault_matrix.py [--build-dir build] [-k TEXT] [-v]

The operations are the rows of the operation table that have a handler
(app/Operations*.cpp), each run as its first example in docs/commands.md
against the demo scenario; the calls that reach the simulator are the calls
to break. What is broken and what each run must show: docs/reliability.md
("Tested by tests/e2e/fault_matrix.py" and "Hostile but legal service answers").
"""

import collections
import copy
import json
import re
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "docs")]

import docs_test  # noqa: E402
import harness  # noqa: E402
import run_e2e  # noqa: E402
import wine_process  # noqa: E402
from harness import E_INVALIDARG, S_OK, Case, all_of, completion  # noqa: E402

DEMO = "simulator/scenarios/demo.json"
E_FAIL = 0x80004005
S_FALSE = 0x00000001
RPC_CALL_FAILED = 0x800706BE
DISK_FULL = 0x80070070  # HRESULT_FROM_WIN32(ERROR_DISK_FULL)
DESCRIPTION = "injected service fault"
LATE_EVENT = {"event": "ProgressMessage", "subject": "late", "code": 28}


def dispatched_operations():
    """(command word, operation word, handler) of every row that has a handler."""
    words = (harness.REPO / "front_end" / "Words.h").read_text()
    commands_part, operations_part = words.split("#define CV_OPERATION_WORDS")
    row = r'X\((\w+), \d+, L"([^"]+)"\)'
    commands = dict(re.findall(row, commands_part))
    operations = dict(re.findall(row, operations_part))
    rows = []
    for family in sorted((harness.REPO / "app").glob("Operations*.cpp")):
        rows += re.findall(r"\{cmd::(\w+),\s*op::(\w+),\s*(\w+),", family.read_text())
    return [(commands[c], operations[o], handler) for c, o, handler in rows
            if handler not in ("nullptr", "OperationNotAvailable")]


def documented_examples():
    """(command, operation) -> the argvs of its example runs in docs/commands.md, in order."""
    examples = {}
    for example in docs_test.examples("docs/commands.md")[0]:
        if len(example.argv) >= 2:
            examples.setdefault((example.argv[0].lower(), example.argv[1].lower()), []).append(example.argv)
    return examples


CONTROL_KEYS = {"result", "errorDescription", "events", "lateEvents", "delayMs", "lateDelayMs", "dieDuringCall"}


def array_keys(data):
    """The keys of the arrays in a response's data, wherever they stand, in order."""
    keys = []

    def walk(value):
        if isinstance(value, dict):
            for key, item in value.items():
                if key in CONTROL_KEYS:
                    continue
                # Counted arrays hold records or strings; small fixed arrays (byCid) hold numbers.
                counted = isinstance(item, list) and all(isinstance(x, (dict, str)) for x in item)
                if counted and key not in keys:
                    keys.append(key)
                walk(item)
        elif isinstance(value, list):
            for item in value:
                walk(item)

    walk(data)
    return keys


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


def locations(request, path=""):
    """(path, value) of every storage system name or path in a request, arrays aside."""
    found = []
    if isinstance(request, dict):
        for key, item in request.items():
            if isinstance(item, dict):
                found += locations(item, path + key + ".")
            elif "storagesystem" in key.lower() and not isinstance(item, list):
                found.append((path + key, item))
    return found


def first_requests(events):
    """The request of the first call of each method (a later call's is overwritten by the earlier one)."""
    return {e.get("method"): e.get("request") for e in reversed(events) if e.get("event") == "call"}


def keeps_locations(example):
    """A storage system or path that the example sends is never sent empty
    after a fault: nothing may act on no LUN."""
    sent = {method: {p for p, v in locations(request) if isinstance(v, str) and v}
            for method, request in first_requests(example.events).items()}

    def check(result):
        for event in result.events:
            if event.get("event") != "call":
                continue
            for path, value in locations(event.get("request")):
                if path in sent.get(event.get("method"), ()):
                    assert isinstance(value, str) and value, "%s sent %s=%r" % (event.get("method"), path, value)
    return check


# What the operation prints when a LUN path cannot be used: its own refusal,
# which ends with E_INVALIDARG rather than the service's code.
INCORRECT_PATH = "Incorrect LUN path or UNC path."


def fails_as(hr, cause, seen, key):
    """E_FAIL (with a cause) ends the run with its status, or as the operation's
    own refusal of the path, or (operations that go on) with success; the
    status is kept so that S_FALSE at the same call can be held to it."""
    def check(result):
        seen[key] = result.status
        if result.status == E_INVALIDARG and INCORRECT_PATH in result.text():
            assert not result.text().endswith(completion()), "completion line after a failure"
        else:
            ends_with_failure(hr, cause)(result)
    return check


def fails_like_e_fail(seen, key):
    """S_FALSE is a failure like any other: the run ends as it ends for E_FAIL
    at the same call, with S_FALSE where that gives E_FAIL."""
    def check(result):
        ends = seen.get(key)
        if ends is None:
            ends_with_failure(S_FALSE)(result)
        else:
            expected = S_FALSE if ends == E_FAIL else ends
            assert result.status == expected, "status %s; E_FAIL at this call gives %s" % (
                harness.hresult(result.status), harness.hresult(ends))
            if expected != S_OK:
                assert not result.text().endswith(completion()), "completion line after a failure"
    return check


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
        harness.all_unadvised(result)
    return check


def fault_points(calls, known):
    """(method, occurrence) of the first and the last call of each method not in `known`."""
    seen, counted, points = collections.Counter(calls), collections.Counter(), []
    for method in calls:
        occurrence = counted[method]
        counted[method] += 1
        if method not in known and occurrence in (0, seen[method] - 1) and (method, occurrence) not in points:
            points.append((method, occurrence))
    return points


def point_cases(label, argv, demo, points, seen, example):
    kept = keeps_locations(example)
    cases = []
    for method, occurrence in points:
        at = "%s: %s call %d" % (label, method, occurrence + 1)

        def fault(change, method=method, occurrence=occurrence):
            return with_response(demo, method, occurrence, change)

        cases += [
            Case(at + " fails", argv, scenario=fault(lambda r: dict(r, result=hex(E_FAIL), errorDescription=DESCRIPTION)),
                 check=all_of(fails_as(E_FAIL, DESCRIPTION, seen, at), kept)),
            Case(at + " answers S_FALSE", argv, scenario=fault(lambda r: dict(r, result="S_FALSE")),
                 check=all_of(fails_like_e_fail(seen, at), kept)),
            Case(at + " returns nothing", argv, scenario=fault(lambda r: {}), check=all_of(no_crash, kept)),
            Case(at + " reports after returning", argv, scenario=fault(lambda r: dict(r, lateEvents=[LATE_EVENT])),
                 released=False, check=late_report(example.status)),
        ]
        if occurrence == 0:
            current = demo.get("methods", {}).get(method)
            response = current[0] if isinstance(current, list) else current
            for key in array_keys(response or {}):
                cases += [
                    Case("%s has a count and no array for %s" % (at, key), argv,
                         scenario=fault(lambda r, key=key: dict(r, nullArray=key)), check=all_of(no_crash, kept)),
                    Case("%s has a null element first in %s" % (at, key), argv,
                         scenario=fault(lambda r, key=key: dict(r, nullElement=key)), check=all_of(no_crash, kept)),
                ]
    return cases


def build_cases(session, relaunched):
    problems, cases = [], []
    demo = json.loads((harness.REPO / DEMO).read_text(encoding="utf-8"))
    examples = documented_examples()
    seen = {}
    for command, operation, handler in dispatched_operations():
        argvs = examples.get((command.lower(), operation.lower()))
        label = "%s %s" % (command, operation)
        if argvs is None:
            problems.append("%s (%s): no example run in docs/commands.md" % (label, handler))
            continue
        argv = argvs[0]
        # The discovery run is retried as every case is: under load a run
        # that Wine did not start would otherwise reach "no service call".
        main = run_e2e.run_case(session, Case(label, argv, scenario=demo), label + " (example)", relaunched)
        calls = main.calls()
        if not calls:
            problems.append("%s: the example %r reaches no service call" % (label, " ".join(argv)))
            continue
        cases.append(Case(label + ": the documented example", argv, status=main.status, scenario=demo,
                          check=same_status(main.status)))
        cases += point_cases(label, argv, demo, fault_points(calls, set()), seen, main)
        method, occurrence = fault_points(calls, set())[-1]
        cases.append(Case("%s: the service dies in %s" % (label, method), argv, released=False, timeout=60,
                          scenario=with_response(demo, method, occurrence, lambda r: dict(r, dieDuringCall=True)),
                          check=ends_with_failure(RPC_CALL_FAILED)))
        # Calls that only a later example reaches, broken through that example.
        known = set(calls)
        for later in argvs[1:]:
            other = session.run(Case(label, later, scenario=demo))
            points = fault_points(other.calls(), known)
            if points:
                later_label = "%s (%s)" % (label, " ".join(later[2:]))
                cases += point_cases(later_label, later, demo, points, seen, other)
            known |= set(other.calls())
    # A script that saves a listing must learn that it was not saved.
    cases.append(Case("disk list: the output goes to a full disk", ["disk", "list"], scenario=demo, stdout_file="/dev/full",
                      status=DISK_FULL))
    return problems, cases


def main():
    args = wine_process.command_line(__doc__).parse_args()
    args.repeat = 1
    started = time.monotonic()
    with harness.Session(args.build_dir) as session:
        relaunched = []
        problems, cases = build_cases(session, relaunched)
        for problem in problems:
            print("matrix: " + problem)
        selected = [("fault_matrix", c) for c in cases if not args.pattern or args.pattern.lower() in c.name.lower()]
        print("%d operations, %d runs" % (len({c.name.split(":")[0] for c in cases}), len(selected)), flush=True)
        status = run_e2e.run(session, args, time.monotonic() - started, cases=selected, relaunched=relaunched)
        return 1 if problems else status


if __name__ == "__main__":
    sys.exit(main())
