"""End-to-end harness: runs the real cvcli.exe under Wine against the simulator
and checks what comes out (docs/testing.md, "The end-to-end harness"). One
Session serves a whole run, with one simulator whose scenario file and call
log sit at fixed paths, rewritten for every case."""

import hashlib
import json
import os
import shutil
import signal
import subprocess
import threading
import time
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any, Callable, Optional

import messages
from wine_process import REPO, WINE, json_lines, prefix_script, prefixes, simulator_running, split_wine_log, wine_env, winpath

S_OK = 0
E_INVALIDARG = 0x80070057
REGDB_E_CLASSNOTREG = 0x80040154

# Message ids whose role the harness itself knows.
MSG_ERROR_SEPARATOR = 5092
MSG_SERVICE_UNAVAILABLE = 5108
MSG_UNKNOWN_ERROR = 5112
MSG_OPERATION_COMPLETED = 5375


@dataclass
class Case:
    """One run of cvcli and what it must produce; every field is described in docs/testing.md."""

    name: str
    argv: list
    stdout: Any = None
    status: Optional[int] = None
    stderr: Any = ""
    scenario: Any = None
    calls: Optional[list] = None
    prefix: str = "service"
    program: Optional[str] = None
    resources: bool = True
    same_as: Optional[str] = None
    check: Optional[Callable] = None
    released: bool = True
    allocations: bool = True
    remote: bool = False
    secret: Optional[str] = None
    decoy: bool = False
    env: dict = field(default_factory=dict)
    timeout: float = 30.0
    stdout_file: Optional[str] = None


@dataclass
class Result:
    stdout: bytes
    stderr: bytes
    status: Optional[int]  # None when the program did not finish
    events: list  # the simulator's call log, one dict per line
    seconds: float
    timed_out: bool = False
    allocations: Optional[str] = None  # cvcli's report: "outstanding <blocks> <bytes>"
    activations: list = field(default_factory=list)  # remote cases: each COSERVERINFO as built
    unwiped: Optional[int] = None  # freed blocks that still held the case's secret (None: not watched)
    blankets: list = field(default_factory=list)  # remote cases: each proxy security level asked for, and the answer
    wine_log: bytes = b""  # Wine's own debug lines, when CVCLI_E2E_WINEDEBUG asked for them
    shutdown_cut_short: bool = False  # cvcli's watchdog ended it when COM's shutdown hung

    def authentication_levels(self):
        """(method, level) of every call, as the simulator's runtime reported the level (None: it did not)."""
        return [(e.get("method"), e.get("authnLevel")) for e in self.events if e.get("event") == "call"]

    def machine_arguments(self):
        """(method, value) of every machine name that a call carried to the service."""
        return [(e.get("method"), e["request"]["machineName"]) for e in self.events
                if e.get("event") == "call" and "machineName" in (e.get("request") or {})]

    def text(self):
        """stdout as text with LF line ends, as the cases write expectations."""
        return self.stdout.decode("utf-8").replace("\r\n", "\n")

    def calls(self):
        """The methods called on the simulator, in order."""
        return [e.get("method") for e in self.events if e.get("event") == "call"]

    def created(self):
        """The classes of which an object was created, in order."""
        return [e.get("class") for e in self.events if e.get("event") == "create"]


def all_of(*checks):
    """One check made of several, run in order."""
    def check(result):
        for one in checks:
            one(result)
    return check


def all_unadvised(result):
    """Every event sink that cvcli advised was unadvised."""
    advised = sum(1 for e in result.events if e.get("event") == "advise")
    unadvised = sum(1 for e in result.events if e.get("event") == "unadvise")
    assert advised == unadvised, "%d advises, %d unadvises" % (advised, unadvised)


def password_digest(password):
    """How the simulator logs a password field: never the text, its SHA-256 over UTF-16LE."""
    return "sha256:" + hashlib.sha256(password.encode("utf-16-le")).hexdigest()


def watched_secret(case):
    """The password whose freed copies a case looks for: its own, else the
    value of -pwd or the CHAP password of -c (short ones would match any text)."""
    if case.secret is not None:
        return case.secret
    argv = list(case.argv)
    for switch, position in (("-pwd", 1), ("-c", 2)):
        if switch in argv:
            at = argv.index(switch) + position
            if at < len(argv) and not argv[at].startswith("-") and len(argv[at]) >= 4:
                return argv[at]
    return None


def hresult(value):
    return "0x%08X" % (value & 0xFFFFFFFF)


def radix(value, base):
    """What _itow prints for a code in a radix other than 10: the unsigned value."""
    value &= 0xFFFFFFFF
    digits = "0123456789abcdefghijklmnopqrstuvwxyz"
    text = ""
    while True:
        value, rest = divmod(value, base)
        text = digits[rest] + text
        if value == 0:
            return text


_texts = None


def msg(message_id):
    """The text of a message id, from the message library that cvcli loads."""
    global _texts
    if _texts is None:
        _texts = messages.strings_in_dll(session().resources)
    if message_id not in _texts:
        raise KeyError("message %d is not in CorvaneRes.dll" % message_id)
    return _texts[message_id]


_session = None


def session():
    if _session is None:
        raise RuntimeError("no harness session: run the cases through run_e2e.py")
    return _session


def system_text(hr):
    """The cause that cvcli appends for an HRESULT when no error object is set."""
    return session().system_text(hr)


def alert(message_id, hr, description=None):
    """What cvcli prints for an AlertUserException (message id, HRESULT)."""
    if hr == 0:
        return ""
    cause = description if description is not None else system_text(hr)
    return msg(message_id)[:2047] + msg(MSG_ERROR_SEPARATOR)[:19] + cause + "\n"


# CreateProcessW takes at most 32,767 characters, the terminating zero included.
COMMAND_LINE_LIMIT = 32767


def longest_argument(before):
    """The length of the longest plain argument that can follow `before`.

    The limit applies to runexit's own command line, which holds cvcli's: its
    quoted program path, a blank, cvcli's path and the arguments.
    """
    s = session()
    used = len(winpath(s.runexit)) + 2 + 1 + len(winpath(s.cvcli)) + sum(len(a) + 1 for a in before) + 1
    return COMMAND_LINE_LIMIT - 1 - used


def completion():
    """The line that ends every successful operation."""
    return msg(MSG_OPERATION_COMPLETED)


class Session:
    """Used as `with Session(build_dir) as session:` it prepares the prefixes
    and starts their warm Wine servers, and stops them (and the run's
    simulator, which would otherwise serve its files to the next client) at
    the end. `work` is the directory of its fixed files."""

    def __init__(self, build_dir, work="e2e-work"):
        self.build = Path(build_dir).resolve()
        self.cvcli = self.build / "cvcli.exe"
        self.resources = self.build / "CorvaneRes.dll"
        seams = self.build / "tests" / "e2e"
        self.runexit, self.systext, self.remote_seam = (seams / n for n in ("runexit.exe", "systext.exe", "cvcli_remote.exe"))
        self.work = self.build / work
        self.scenario_file = self.work / "scenario.json"
        self.log_file = self.work / "calls.jsonl"
        self.status_file = self.work / "status.txt"
        self.allocation_file = self.work / "allocations.txt"
        self.activation_file = self.work / "activations.jsonl"
        self.prefixes = prefixes(self.build)
        self.wine = WINE
        self._system_texts = {}
        self._programs = {}
        self.last_backtraces = None  # the backtraces taken of the last stalled run

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *exception):
        self.prefix_script("--stop")

    def base_env(self, prefix="service"):
        return wine_env(self.prefixes[prefix])

    def simulator_env(self, prefix="service"):
        """base_env, and the simulator (started by the program under test) reads the session's scenario and logs its calls."""
        return wine_env(self.prefixes[prefix], CORVANE_SIM_SCENARIO=winpath(self.scenario_file),
                        CORVANE_SIM_LOG=winpath(self.log_file))

    def start(self):
        """Prepares the prefixes and starts their warm Wine servers."""
        for path in (self.cvcli, self.resources, self.runexit, self.systext, self.remote_seam):
            if not path.is_file():
                raise RuntimeError("%s is missing: build first" % path)
        shutil.rmtree(self.work, ignore_errors=True)
        self.work.mkdir(parents=True)
        self.prefix_script("--start")
        # A simulator already up may serve another client's files (it keeps
        # the environment of the client that started it), or be about to exit
        # at the end of its linger time while the first case asks it for an
        # object: the run starts with a simulator of its own.
        if simulator_running(self.prefixes["service"]):
            self.restart_wine()
        global _session
        _session = self

    def prefix_script(self, action):
        prefix_script(self.build, action)

    def restart_wine(self):
        """Stops every Wine process of the build and starts warm servers again.

        Killing a simulator alone would leave its class objects registered
        with COM, and the next creation would wait for a dead process.
        """
        self.prefix_script("--stop")
        self.prefix_script("--start")

    def program(self, name, resources, remote=False):
        """A copy of cvcli.exe (or of the remote seam, as cvcli.exe) under
        another file name or without its library."""
        if name is None and resources and not remote:
            return self.cvcli
        key = (name or "cvcli.exe", resources, remote)
        if key not in self._programs:
            directory = self.work / "programs" / str(len(self._programs))
            directory.mkdir(parents=True)
            shutil.copy2(self.remote_seam if remote else self.cvcli, directory / key[0])
            if resources:
                shutil.copy2(self.resources, directory / "CorvaneRes.dll")
            self._programs[key] = directory / key[0]
        return self._programs[key]

    def write_scenario(self, scenario):
        """Writes the scenario and clears the call log of the last run."""
        if scenario is None:
            data = {}
        elif isinstance(scenario, (str, Path)):
            data = json.loads((REPO / scenario).read_text(encoding="utf-8"))
        else:
            data = json.loads(json.dumps(scenario))
        # The harness reads the log at its own fixed path, whatever the scenario says.
        data["callLog"] = winpath(self.log_file)
        # And the run's simulator stays for the whole run, whatever the
        # scenario says: one that ends between two cases (the demo scenario
        # lingers 5 s, a gap a loaded machine easily makes) can be revoking its
        # classes while the next case asks for an object, and that creation
        # fails (0x80040154) or waits for a server that is going.
        data.pop("lingerSeconds", None)
        self.scenario_file.write_text(json.dumps(data, indent=1), encoding="utf-8")
        if self.log_file.exists():
            self.log_file.unlink()

    def run_env(self, case):
        env = self.simulator_env(case.prefix)
        env.update(
            RUNEXIT_STATUS_FILE=winpath(self.status_file),
            CVCLI_ALLOCATION_REPORT=winpath(self.allocation_file),
            # The BSTR cache keeps freed strings as live allocator blocks.
            OANOCACHE="1",
            # One simulator serves the whole run, however long the stretches
            # of cases that need no service; the fixture's stop ends it.
            CORVANE_SIM_LINGER="600",
            CVCLI_ACTIVATION_LOG=winpath(self.activation_file),
        )
        secret = watched_secret(case)
        if secret is not None:
            env["CVCLI_ALLOCATION_SECRET"] = secret
        env.update(case.env)
        if os.environ.get("CVCLI_E2E_WINEDEBUG"):
            env["WINEDEBUG"] = os.environ["CVCLI_E2E_WINEDEBUG"]
        return env

    def run(self, case):
        self.write_scenario(case.scenario)
        out_path, err_path = self.work / "stdout", self.work / "stderr"
        # New files each time: a simulator that an earlier case started still
        # writes to that case's streams (under a debug log, a lot), and must
        # not write into this case's.
        for path in (self.status_file, self.allocation_file, self.activation_file, out_path, err_path):
            if path.exists():
                path.unlink()
        program = self.program(case.program, case.resources, case.remote)
        command = [self.wine, str(self.runexit), winpath(program)] + list(case.argv)
        decoy = self.work / "CorvaneRes.dll"
        if case.decoy:
            shutil.copy2(self.resources, decoy)
        started = time.monotonic()
        # Files, not pipes: a process that cvcli starts (the simulator) inherits
        # its streams and outlives it, and a pipe would stay open with it.
        with open(case.stdout_file or out_path, "wb") as out, open(err_path, "wb") as err:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=out, stderr=err, env=self.run_env(case),
                                       cwd=self.work, start_new_session=True)
            # A blocking wait with a watchdog: Popen.wait(timeout) polls, and
            # its sleeps would add up to 50 ms to every case.
            hung = threading.Event()

            def kill():
                hung.set()
                self.save_backtraces(case.prefix)
                os.killpg(process.pid, signal.SIGKILL)

            watchdog = threading.Timer(case.timeout, kill)
            watchdog.start()
            process.wait()
            watchdog.cancel()
            timed_out = hung.is_set()
        seconds = time.monotonic() - started
        if decoy.exists():
            decoy.unlink()
        if timed_out:
            # The kill may have taken the simulator along: start afresh so
            # that one hang does not turn every later case into one.
            self.restart_wine()
        status = None
        if not timed_out and self.status_file.exists():
            text = self.status_file.read_text().strip()
            status = int(text, 16) if text else None
        events = self.settled_log(timed_out)
        allocations = unwiped = None
        cut_short = False
        if self.allocation_file.exists():
            report = self.allocation_file.read_text().splitlines()
            allocations = report[0].strip() if report else ""
            for line in report[1:]:
                if line.startswith("unwiped "):
                    unwiped = int(line.split()[1])
            cut_short = "shutdown cut short" in report[1:]
        seam = json_lines(self.activation_file)
        stdout = out_path.read_bytes() if out_path.exists() else b""
        stderr, wine_log = err_path.read_bytes(), b""
        if os.environ.get("CVCLI_E2E_WINEDEBUG"):
            stderr, wine_log = split_wine_log(stderr)
        return Result(stdout, stderr, status, events, seconds, timed_out, allocations,
                      [line for line in seam if "context" in line], unwiped, [line for line in seam if "blanket" in line],
                      wine_log, cut_short)

    def settled_log(self, timed_out):
        """The call log once the simulator has logged the release of the last
        object, which it does as it handles it: a line on its way gets a moment."""
        events = json_lines(self.log_file)
        deadline = time.monotonic() + 2.0
        while not timed_out and self.objects_pending(events) and time.monotonic() < deadline:
            time.sleep(0.02)
            events = json_lines(self.log_file)
        if not timed_out and self.objects_pending(events) and not any(e.get("event") == "died" for e in events):
            # An object the simulator could not give up (under Wine, a call to
            # a client that is on its way out can leave one behind) would make
            # every later case wait for an idle line that never comes.
            self.restart_wine()
        return events

    def save_backtraces(self, prefix):
        """Where every thread of the prefix's processes waits, written to
        BUILD_DIR/e2e-diagnostics/ before a stalled run is killed: what a hang
        needs for its diagnosis, and what no later run can show."""
        path = self.diagnostics_file("stall")
        try:
            with open(path, "wb") as out:
                subprocess.run([self.wine, "winedbg", "--command", "bt all"], stdin=subprocess.DEVNULL, stdout=out,
                               stderr=subprocess.STDOUT, env=self.base_env(prefix), timeout=120)
            self.last_backtraces = path
        except (OSError, subprocess.SubprocessError):
            self.last_backtraces = None

    def diagnostics_file(self, kind):
        """A new file in BUILD_DIR/e2e-diagnostics/, which outlives the work
        directory (each suite starts its own) so that a whole CI run's stay."""
        folder = self.build / "e2e-diagnostics"
        folder.mkdir(exist_ok=True)
        return folder / ("%s-%s-%d.txt" % (time.strftime("%H%M%S"), kind, len(list(folder.iterdir()))))

    @staticmethod
    def objects_pending(events):
        """True when an object was created and the log does not end idle yet."""
        live = [e for e in events if e.get("event") in ("create", "destroy", "idle")]
        return bool(live) and live[-1].get("event") != "idle"

    def system_text(self, hr):
        """AppendSystemErrorText: the system's text for an HRESULT, else the unknown-error text."""
        hr &= 0xFFFFFFFF
        facility = (hr >> 16) & 0x1FFF
        if facility == 4:
            module, code = winpath(self.resources), hr
        elif facility == 7:
            module, code = "Kernel32.DLL", hr & 0xFFFF
        elif facility == 0x1000:
            module, code = "NTDLL.DLL", hr & ~0x10000000
        else:
            module, code = "-", hr
        key = (module, code)
        if key not in self._system_texts:
            self._system_texts[key] = self._lookup(module, code)
        text = self._system_texts[key]
        if text is None:
            return msg(MSG_UNKNOWN_ERROR)[:255] + radix(code, 17)
        return text

    def _lookup(self, module, code):
        out = subprocess.run([self.wine, str(self.systext), module, "%X" % code], stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=self.base_env("bare"), timeout=60,
                             check=True).stdout
        head, _, rest = out.partition(b"\n")
        if not head.startswith(b"ok "):
            return None
        return rest[: int(head[3:])].decode("utf-8")
