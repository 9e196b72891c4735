#!/usr/bin/env python3
"""Runs the end-to-end cases: every tests/e2e/cases/*.py that defines CASES.

    python3 tests/e2e/run_e2e.py [--build-dir build] [-k TEXT] [--list] [-v]

Exit status 0 when every case passes. See docs/testing.md.
"""

import difflib
import importlib.util
import re
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))
sys.dont_write_bytecode = True  # keep the source tree clean

import harness  # noqa: E402
import wine_process  # noqa: E402


def load_cases(pattern):
    """[(file stem, Case)] of every case file, in file order, filtered by pattern."""
    found = []
    for path in sorted((HERE / "cases").glob("*.py")):
        spec = importlib.util.spec_from_file_location("cases_" + path.stem, path)
        module = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(module)
        cases = getattr(module, "CASES", None)
        if cases is None:
            continue
        names = [c.name for c in cases]
        duplicates = sorted({n for n in names if names.count(n) > 1})
        if duplicates:
            raise SystemExit("%s: duplicate case names: %s" % (path.name, ", ".join(duplicates)))
        for case in cases:
            if not pattern or pattern.lower() in ("%s::%s" % (path.stem, case.name)).lower():
                found.append((path.stem, case))
    return found


def diff(label, expected, actual):
    lines = [[repr(line) + "\n" for line in data.decode("utf-8", errors="backslashreplace").splitlines(keepends=True)]
             for data in (expected, actual)]
    text = "".join(difflib.unified_diff(*lines, "expected " + label, "actual " + label, lineterm="\n"))
    return text if text else "%s differs (expected %r, actual %r)\n" % (label, expected[:200], actual[:200])


def as_bytes(value):
    """Expected output as cvcli writes it to a pipe: a text's line ends,
    written as LF or CR LF, become CR LF; bytes stand as they are."""
    value = value() if callable(value) else value
    if isinstance(value, str):
        return value.replace("\r\n", "\n").replace("\n", "\r\n").encode("utf-8")
    return value


def line_end_faults(output):
    """Where output to a pipe breaks the CR LF rule: a lone LF or CR CR LF."""
    found = [(m.start(), "lone LF") for m in re.finditer(rb"(?<!\r)\n", output)]
    found += [(m.start(), "CR CR LF") for m in re.finditer(rb"\r\r\n", output)]
    return ["%s at byte %d" % (kind, at) for at, kind in sorted(found)]


STATUS_DLL_INIT_FAILED = 0xC0000142


def launch_failed(result):
    """The process never ran cvcli's code: Wine could not start it."""
    if result.timed_out:
        return False
    return result.status in (None, STATUS_DLL_INIT_FAILED) or b"runexit: cannot start" in result.stderr


def verify(case, result, earlier):
    """The list of problems of one case (empty when it passed)."""
    problems = []
    if result.timed_out:
        return ["no exit within %.0f s (hang)" % case.timeout]
    if result.status is None:
        problems.append("no exit status reported (runexit failed?)")
    for event in result.events:
        if event.get("event") == "scenarioError":
            problems.append("the simulator refused the scenario: %s" % event.get("problem"))
    reference = None
    if case.same_as is not None:
        reference = earlier.get(case.same_as)
        if reference is None:
            problems.append("same_as names no earlier case: %r" % case.same_as)
    if case.stdout is not None or reference is not None:
        expected = reference.stdout if reference is not None else as_bytes(case.stdout)
        if result.stdout != expected:
            problems.append(diff("stdout", expected, result.stdout))
    faults = line_end_faults(result.stdout)
    if faults:
        problems.append("stdout line ends: %s" % ", ".join(faults[:5]))
    if case.stderr is not None:
        expected = as_bytes(case.stderr)
        if result.stderr != expected:
            problems.append(diff("stderr", expected, result.stderr))
    expected_status = reference.status if reference is not None else case.status
    if (case.status is not None or reference is not None) and result.status != expected_status:
        problems.append(
            "exit status %s, expected %s"
            % (harness.hresult(result.status) if result.status is not None else "none", harness.hresult(expected_status))
        )
    if reference is not None and result.calls() != reference.calls():
        problems.append("calls %r, expected those of %r: %r" % (result.calls(), case.same_as, reference.calls()))
    if case.calls is not None and result.calls() != list(case.calls):
        problems.append("calls %r, expected %r" % (result.calls(), list(case.calls)))
    if case.released:
        live = [e for e in result.events if e.get("event") in ("create", "destroy", "idle")]
        if live and (live[-1].get("event") != "idle" or live[-1].get("leakedAdvises", 0) != 0):
            problems.append("service objects or sinks left behind: %s" % live[-1])
    if case.allocations and case.resources and not result.shutdown_cut_short:
        if result.allocations is None:
            problems.append("no allocation report (CVCLI_ALLOCATION_REPORT)")
        elif result.allocations != "outstanding 0 0":
            problems.append("COM task-allocator blocks left at exit: %s" % result.allocations)
        secret = harness.watched_secret(case)
        if secret is not None and result.unwiped is None:
            problems.append("the allocation report does not say whether the password %r was wiped" % secret)
        elif secret is not None and result.unwiped != 0:
            problems.append("%d COM task-allocator block(s) given back still held the password %r" % (result.unwiped, secret))
    if case.check is not None:
        try:
            case.check(result)
        except AssertionError as error:
            problems.append("check: %s" % (error or "failed"))
    return problems


def run_case(session, case, label, relaunched):
    """One run of a case. Under a loaded Wine a process now and then fails to
    start at all (STATUS_DLL_INIT_FAILED, or no status), and about once in a
    thousand runs one stalls until the watchdog ends it (the harness then
    restarts Wine). Such a run is made again, at most twice, and named in
    `relaunched`; a case that stalls again fails."""
    result = session.run(case)
    for _ in range(2):
        if not launch_failed(result) and not result.timed_out:
            break
        relaunched.append("%s%s" % (label, " (stalled)" if result.timed_out else ""))
        keep_wine_log(session, label, result)
        result = session.run(case)
    return result


def keep_wine_log(session, label, result):
    """Saves what Wine said about a run it failed (CVCLI_E2E_WINEDEBUG) and
    names the file, and the backtraces of a stalled one."""
    if result.timed_out and session.last_backtraces is not None:
        print("%s stalled; where each thread waited: %s" % (label, session.last_backtraces), flush=True)
    if not result.wine_log:
        return
    path = session.diagnostics_file("wine-log")
    path.write_bytes(label.encode("utf-8") + b"\n" + result.wine_log)
    print("Wine's log of that run: %s" % path, flush=True)


def main():
    parser = wine_process.command_line(__doc__)
    parser.add_argument("--repeat", type=int, default=1, help="run every case this many times (timing)")
    args = parser.parse_args()
    started = time.monotonic()
    # Case files may look up system texts while they load: start first.
    with harness.Session(args.build_dir) as session:
        return run(session, args, time.monotonic() - started)


def run(session, args, prepared, cases=None, relaunched=None):
    """Runs the cases (by default those of the case files) and prints the
    summary; `relaunched` may already name runs made again before."""
    if cases is None:
        cases = load_cases(args.pattern)
    if args.list:
        for stem, case in cases:
            print("%s::%s" % (stem, case.name))
        return 0

    failures = []
    earlier = {}
    run_started = time.monotonic()
    count = 0
    relaunched = [] if relaunched is None else relaunched
    cut_short = []
    simulator_starts = 0
    for stem, case in cases:
        for _ in range(args.repeat):
            result = run_case(session, case, "%s::%s" % (stem, case.name), relaunched)
            count += 1
            simulator_starts += sum(1 for e in result.events if e.get("event") == "start")
            if result.shutdown_cut_short:
                cut_short.append("%s::%s" % (stem, case.name))
            problems = verify(case, result, earlier.get(stem, {}))
            earlier.setdefault(stem, {})[case.name] = result
            label = "%s::%s" % (stem, case.name)
            if problems:
                failures.append((label, problems))
            if args.verbose or problems:
                print("%-4s %6.2fs  %s" % ("FAIL" if problems else "ok", result.seconds, label), flush=True)
    elapsed = time.monotonic() - run_started
    for label, problems in failures:
        print("\n=== FAIL %s" % label)
        for problem in problems:
            print(problem.rstrip("\n"))
    if relaunched:
        print("\nrun again after Wine failed to start or stalled the process: %s" % ", ".join(relaunched))
    # One simulator serves the run; it starts again only after a case in
    # which it died, or after Wine was restarted.
    # cvcli's watchdog ended these after its work, when COM's shutdown hung (its
    # blocks are not counted then: COM had not given them back yet).
    if cut_short:
        print("\nCOM shutdown cut short by cvcli's watchdog: %s" % ", ".join(cut_short))
    print("\nretries: %d; simulator starts: %d; shutdowns cut short: %d" % (len(relaunched), simulator_starts, len(cut_short)))
    print(
        "\n%d case runs, %d failed; %.1f s (%.2f s a case), prefix start %.1f s"
        % (count, len(failures), elapsed, elapsed / count if count else 0, prepared)
    )
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
