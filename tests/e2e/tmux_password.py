#!/usr/bin/env python3
"""The password prompt of `transport_protocol set` in a real terminal: cvcli under
Wine in the pane of a private tmux server, keys typed and the screen read back
(docs/testing.md, "password_prompt_tmux"). The service must receive exactly the
keys typed, Backspace included (the call log holds a digest, never the text).

Exit 0 on success, 1 on failure, 77 (skipped) only when tmux is not installed.
"""

import os
import shlex
import shutil
import subprocess
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

import harness  # noqa: E402
import wine_process  # noqa: E402
from harness import password_digest as digest  # noqa: E402

SKIPPED = 77
PROMPT = "Type Password for the user:"
# Typed as: Q, x, Backspace, é, W. The prompt keeps Backspace as a key of its own.
TYPED = "Qx\béW"


class Pane:
    """One pane of a tmux server of our own (its own socket), killed at the end."""

    panes = 0

    def __init__(self, command, env):
        # A server of its own for each pane: kill-server returns before the
        # old server has gone, and a new session on the same socket could
        # reach the dying one (on a loaded machine it did: status 1).
        Pane.panes += 1
        self.socket = "cvcli-password-%d-%d" % (os.getpid(), Pane.panes)
        self.env = env
        self.tmux("new-session", "-d", "-s", "pw", "-x", "160", "-y", "20", command)

    def tmux(self, *args):
        done = subprocess.run(["tmux", "-L", self.socket, "-f", "/dev/null"] + list(args), env=self.env,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True)
        if done.returncode != 0:
            raise AssertionError("tmux %s ended with status %d: %s" % (args[0], done.returncode, done.stderr.strip()))
        return done.stdout

    def keys(self, *keys, literal=False):
        self.tmux("send-keys", "-t", "pw", *(["-l"] if literal else []), *keys)

    def screen(self):
        return self.tmux("capture-pane", "-p", "-t", "pw")

    def wait_for(self, predicate, seconds, what, session=None):
        deadline = time.monotonic() + seconds
        while True:
            text = self.screen()
            if predicate(text):
                return text
            if time.monotonic() > deadline:
                where = ""
                if session is not None:
                    # Slow or stuck: where cvcli and its console wait tells which.
                    session.save_backtraces("service")
                    where = "\nwhere each thread waited: %s" % session.last_backtraces
                raise AssertionError("%s did not happen within %d s; the screen:\n%s%s" % (what, seconds, text, where))
            time.sleep(0.1)

    def close(self):
        subprocess.run(["tmux", "-L", self.socket, "kill-server"], env=self.env, stdin=subprocess.DEVNULL,
                       capture_output=True)


def lines(text):
    return [line.rstrip() for line in text.rstrip("\n").split("\n")]


def run(session, piped):
    """piped: cvcli's output goes through a pipe (`| cat`), as when a script
    keeps a log; the prompt must still be on the screen before the first key."""
    session.write_scenario({})
    env = dict(session.simulator_env(), LANG="C.UTF-8", TERM="xterm-256color")
    script = session.work / "run.sh"
    # Only an absent -pwd prompts.
    argv = [session.wine, str(session.cvcli), "transport_protocol", "set", "-f", "filer-east", "-type", "HTTPS",
            "-user", "root"]
    # The pane stays a while after cvcli so that its last screen can be read.
    command = " ".join(shlex.quote(a) for a in argv)
    if piped:
        command += " | cat; (exit ${PIPESTATUS[0]})"
    script.write_text("%s\necho \"EXIT=$?\"\nsleep 60\n" % command)
    pane = Pane("bash " + shlex.quote(str(script)), env)
    try:
        pane.wait_for(lambda s: PROMPT in s, 60, "the prompt%s" % (" through a pipe" if piped else ""), session)
        pane.keys("Qx", literal=True)
        pane.keys("BSpace")
        pane.keys("éW", literal=True)
        typing = pane.wait_for(lambda s: "*****" in s, 10, "five stars", session)
        time.sleep(0.3)  # anything echoed late would show now
        typing = pane.screen()
        assert [l for l in lines(typing) if l] == [PROMPT + "*****"], "while typing:\n%s" % typing
        pane.keys("Enter")
        done = pane.wait_for(lambda s: "EXIT=" in s, 30, "the end of cvcli", session)
        expected = [PROMPT + "*****", "", "The operation completed successfully.", "EXIT=0"]
        assert lines(done) == expected, "after Enter:\n%r\nexpected\n%r" % (lines(done), expected)
    finally:
        pane.close()

    log = session.log_file.read_text(encoding="utf-8")
    for clear in ("Qx", "éW", "\\u00e9W"):
        assert clear not in log, "the call log holds the password in clear: %r" % clear
    calls = [c for c in wine_process.json_lines(session.log_file) if c.get("event") == "call"]
    methods = [c["method"] for c in calls]
    assert methods == ["ITransportProtocol.CheckTransportProtocol", "ITransportProtocol.SetTransportProtocols"], methods
    received = [calls[0]["request"]["protocol"]["wszPassword"], calls[1]["request"]["protocols"][0]["wszPassword"]]
    assert received == [digest(TYPED)] * 2, "received %r, typed %r (%s)" % (received, TYPED, digest(TYPED))


def main():
    args = wine_process.command_line(__doc__, selection=False).parse_args()
    if shutil.which("tmux") is None:
        print("SKIPPED: tmux is not installed (scripts/bootstrap.sh installs it); the password prompt was not tested")
        return SKIPPED
    started = time.monotonic()
    # A work directory of its own: the end-to-end run keeps its files in e2e-work.
    with harness.Session(args.build_dir, work="tmux-work") as session:
        try:
            for piped in (False, True):
                run(session, piped)
        except AssertionError as error:
            print("FAILED: password prompt in a terminal: %s" % error)
            print("0 passed, 1 failed")
            return 1
    print("password prompt in a terminal: ok (%.1f s)" % (time.monotonic() - started))
    print("2 passed (console and piped output), 0 failed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
