#!/usr/bin/env python3
"""Runs every example of the user documents and compares it with the document.

    python3 tests/docs/docs_test.py [--build-dir build] [-k TEXT] [--list] [--update] [DOCUMENT ...]

What an example is ("$ cvcli ..." in a code block, its output, "[exit status
0x........]", "..." for any lines) and how it runs: docs/testing.md, "docs".
The documents: docs/commands.md and docs/user-guide.md unless others are named.
Exit status 0 when every example matches.
"""

import re
import sys
from dataclasses import dataclass
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "e2e"))
sys.dont_write_bytecode = True

import harness  # noqa: E402
from wine_process import REPO, command_line  # noqa: E402

DOCUMENTS = ["docs/commands.md", "docs/user-guide.md"]
DEMO = "simulator/scenarios/demo.json"
PROMPT = "$ cvcli"
STATUS = re.compile(r"^\[exit status (0x[0-9A-F]{8})\]$")
ELISION = "..."


@dataclass
class Example:
    document: str
    line: int  # of the command, 1-based
    argv: list
    expected: list  # lines
    status: int


def arguments(command):
    """The words of a command line as cmd passes them: blanks separate, double quotes group."""
    return [word[1:-1] if len(word) > 1 and word.startswith('"') and word.endswith('"') else word
            for word in re.findall(r'"[^"]*"|\S+', command)]


def fenced_blocks(lines):
    """(first line number, [lines]) of every fenced code block."""
    block, start = None, 0
    for number, line in enumerate(lines, 1):
        if line.startswith("```"):
            if block is None:
                block, start = [], number + 1
            else:
                yield start, block
                block = None
        elif block is not None:
            block.append(line)
    if block is not None:
        raise SystemExit("unclosed code block from line %d" % (start - 1))


def examples(document):
    """Every example of a document; a fault in the document's own form stops the run."""
    found, faults = [], []
    lines = (REPO / document).read_text(encoding="utf-8").split("\n")
    for start, block in fenced_blocks(lines):
        current = None
        for offset, line in enumerate(block):
            number = start + offset
            if line == PROMPT or line.startswith(PROMPT + " "):
                if current is not None:
                    faults.append("%s:%d: the example shows no exit status line" % (document, current.line))
                current = Example(document, number, arguments(line[len(PROMPT):]), [], 0)
            elif current is None:
                if line.strip() and any(l.startswith(PROMPT) for l in block):
                    faults.append("%s:%d: a line before the first command of an example" % (document, number))
            elif STATUS.match(line):
                current.status = int(STATUS.match(line).group(1), 16)
                found.append(current)
                current = None
            else:
                current.expected.append(line)
        if current is not None:
            faults.append("%s:%d: the example shows no exit status line" % (document, current.line))
    return found, faults


def matches(expected, actual):
    """True when the actual lines are the expected ones, each "..." standing for any number of lines."""
    if not expected:
        return not actual
    if expected[0] == ELISION:
        return any(matches(expected[1:], actual[i:]) for i in range(len(actual) + 1))
    return bool(actual) and actual[0] == expected[0] and matches(expected[1:], actual[1:])


def update(example, actual, status):
    """Replaces the example's output and status in its document (by hand, to review with git diff)."""
    path = REPO / example.document
    lines = path.read_text(encoding="utf-8").split("\n")
    end = example.line + len(example.expected)  # index of the status line (0-based)
    lines[example.line:end + 1] = actual + ["[exit status %s]" % harness.hresult(status)]
    path.write_text("\n".join(lines), encoding="utf-8")
    return len(actual) - len(example.expected)


def run(example, session, updating=False):
    case = harness.Case(
        name="%s:%d" % (example.document, example.line),
        argv=example.argv,
        scenario=DEMO,
        # The demo's times are shown as a machine in UTC prints them.
        env={"TZ": "UTC"},
    )
    result = session.run(case)
    actual = result.text().split("\n")
    if actual and actual[-1] == "":
        actual.pop()
    faults = []
    if result.timed_out or result.status is None:
        return ["%s: cvcli did not finish" % case.name]
    if updating and ELISION not in example.expected and (actual != example.expected or result.status != example.status):
        return [("update", update(example, actual, result.status))]
    if not matches(example.expected, actual):
        faults.append("%s: the output differs\n--- document\n%s\n--- cvcli\n%s" %
                      (case.name, "\n".join(example.expected), "\n".join(actual)))
    if result.status != example.status:
        faults.append("%s: exit status %s, the document shows %s" %
                      (case.name, harness.hresult(result.status), harness.hresult(example.status)))
    return faults


def main():
    parser = command_line(__doc__, verbose=False)
    parser.add_argument("--update", action="store_true",
                        help="write cvcli's output and status into the documents where an example without \"...\" differs")
    parser.add_argument("documents", nargs="*", default=DOCUMENTS)
    args = parser.parse_args()

    found, faults = [], []
    for document in args.documents:
        some, wrong = examples(document)
        found += some
        faults += wrong
    if args.pattern:
        found = [e for e in found if args.pattern in " ".join(e.argv)]
    if args.list:
        for example in found:
            print("%s:%d: cvcli %s" % (example.document, example.line, " ".join(example.argv)))
        return 0
    if not found and not faults:
        print("docs: no example found")
        return 1

    failed = 0
    shift = {}
    with harness.Session(args.build_dir) as session:
        for example in found:
            example.line += shift.get(example.document, 0)
            wrong = run(example, session, args.update)
            if wrong and wrong[0][0] == "update":
                shift[example.document] = shift.get(example.document, 0) + wrong[0][1]
                print("updated %s:%d" % (example.document, example.line))
                continue
            faults += wrong
            failed += bool(wrong)
    for fault in faults:
        print(fault + "\n")
    print("docs: %d passed, %d failed" % (len(found) - failed, len(faults)))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
