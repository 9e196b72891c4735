"""What every test program that runs Windows programs under Wine shares: the
repository, the build's prefixes and their environment, the command line of
the test programs, and the JSON-lines files the simulator and the seams write.
"""

import argparse
import json
import os
import re
import subprocess
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
WINE = os.environ.get("WINE") or ("/usr/lib/wine/wine64" if os.path.exists("/usr/lib/wine/wine64") else "wine64")


def winpath(path):
    """The Windows path of a Linux path (Wine maps the root to drive Z:)."""
    return "Z:" + str(Path(path).resolve()).replace("/", "\\")


def prefixes(build):
    """The build's two prefixes: "service" (the simulator is registered) and "bare" (nothing is)."""
    return {"service": Path(build) / "wineprefix", "bare": Path(build) / "wineprefix-bare"}


def wine_env(prefix, **extra):
    """The environment of a Wine program in that prefix: no display, no Wine chatter, UTF-8."""
    env = dict(os.environ)
    for name in ("DISPLAY", "WAYLAND_DISPLAY"):
        env.pop(name, None)
    env.update(WINEPREFIX=str(prefix), WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree,mshtml=", LC_ALL="C.UTF-8")
    env.update(extra)
    return env


def prefix_script(build, action):
    """scripts/wine-prefix.sh: --start prepares the prefixes and starts warm Wine servers, --stop ends them."""
    subprocess.run(["bash", str(REPO / "scripts" / "wine-prefix.sh"), action, str(build)], stdin=subprocess.DEVNULL,
                   check=True)


def simulator_running(prefix):
    """True when a simulator runs in that prefix (it may serve another client's files)."""
    for proc in Path("/proc").iterdir():
        if not proc.name.isdigit():
            continue
        try:
            if b"corvane-sim" not in (proc / "cmdline").read_bytes():
                continue
            entries = (proc / "environ").read_bytes().decode("utf-8", "replace").split("\0")
        except OSError:
            continue
        environ = dict(item.split("=", 1) for item in entries if "=" in item)
        if environ.get("WINEPREFIX") == str(prefix):
            return True
    return False


def json_lines(path):
    """The records of a JSON-lines file (none when it is absent); a torn line is kept as "unreadable"."""
    records = []
    if Path(path).exists():
        for line in Path(path).read_text(encoding="utf-8", errors="replace").splitlines():
            if line.strip():
                try:
                    records.append(json.loads(line))
                except ValueError:
                    records.append({"event": "unreadable", "line": line})
    return records


WINE_DEBUG_LINE = re.compile(rb"^(?:[0-9a-f]{4}:)?(?:[0-9a-f]{4}:)?(?:trace|warn|err|fixme):|^wine: ")


def split_wine_log(stderr):
    """(the program's own stderr, Wine's debug lines) of a run traced with
    CVCLI_E2E_WINEDEBUG: the cases still see only what the program wrote."""
    own, wine = [], []
    for line in stderr.splitlines(keepends=True):
        (wine if WINE_DEBUG_LINE.match(line) else own).append(line)
    return b"".join(own), b"".join(wine)


def command_line(doc, selection=True, verbose=True):
    """The options of the test programs: --build-dir and, for those that run a selection, -k, --list and -v."""
    parser = argparse.ArgumentParser(description=doc, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build-dir", default=str(REPO / "build"))
    if selection:
        parser.add_argument("-k", dest="pattern", help="run only those whose name contains this text")
        parser.add_argument("--list", action="store_true", help="list them and stop")
    if selection and verbose:
        parser.add_argument("-v", "--verbose", action="store_true", help="print each with its time")
    return parser
