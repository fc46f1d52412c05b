"""mutate.py BUILD COUNT [SEED]: makes COUNT small mistakes in the sources that keep what the user did, one at a time, and
shows how many of them the tests notice.

A mistake flips a condition or drops a call. The mistaken source is compiled on its own and linked into the test program
before the library that has the right one, so that nothing in the tree or the build changes.
"""

import json
import os
import random
import re
import shlex
import subprocess
import sys
import tempfile

ENOUGH = 0.9
LONGEST_TEST = 300  # seconds; a mistake that makes a test wait for ever is noticed too

SLOW = "*PowerCut*:*Concurrency*:*Property*:*ZoneSweep*:*ThePowerMayGo*"

# Which sources, and the programs that test them, the quicker one first.
SOURCES = {
    ("vantel_core_tests",): ["core/WidgetJournal", "core/JournalRewrite", "core/RedoCopy", "core/JournalLines",
                             "core/WidgetSnapshotStore", "core/WidgetBuckets"],
    ("vantel_platform_tests", "vantel_core_tests"): ["platform/DataFile", "platform/LockedFile",
                                                     "platform/FileHandle"],
    ("vantel_widgets_tests",): ["widgets/SnapshotProvider", "widgets/TimelinePlan", "widgets/Staleness",
                                "widgets/CompleteTodoIntent"],
}

# Each pattern takes one place in a line; the replacement is what stands there instead.
FLIPS = [
    (r"(?<=; )!(?=\w+\))", ""),
    (r"(?<=; )(?=\w+\)$|\w+\) )", "!"),
    (r"(?<=if \()!", ""),
    (r"(?<=if \()(?=[\w*][\w.*>-]*(?:\([^ ]*\))?\))", "!"),
    (r"(?<=return )!", ""),
    (r" == ", " != "),
    (r" != ", " == "),
    (r" && ", " || "),
    (r" \|\| ", " && "),
    (r" < ", " >= "),
    (r" > ", " <= "),
    (r" <= ", " < "),
    (r" >= ", " > "),
    (r" \+ ", " - "),
    (r" - 1\b", ""),
    (r"\btrue\b", "false"),
    (r"\bfalse\b", "true"),
]
CALL = re.compile(r"(?:\w+(?:\.|->))+(?:truncate|seek|write|writeUnlocked|synchronizeData|synchronize|sync|remove|"
                  r"rename|close|changeMode|unlock|lock|createDirectories)\(|(?<=ignore = )syncDirectory\(|"
                  r"(?<=named = )syncDirectory\(|(?<=return )syncDirectory\(|RedoCopy::(?:make|remove)\(|"
                  r"(?<=done \? )RedoCopy::remove\(")
SWEEP = re.compile(r"^ +sweepTemporaries\(.*\);$")


def call_end(text, opening):
    depth = 0
    for at in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[at], 0)
        if depth == 0:
            return at + 1
    return None


def is_code(line):
    words = line.strip()
    return words and not words.startswith(("//", "#", "template", "using", "namespace"))


def mistakes_in(text):
    """Each as the place, its end and what stands there instead."""
    at = 0
    for line in text.splitlines(keepends=True):
        if is_code(line):
            bare = re.sub(r'"[^"]*"', lambda found: '"' + "_" * (len(found[0]) - 2) + '"', line)
            for pattern, instead in FLIPS:
                for found in re.finditer(pattern, bare.rstrip("\n")):
                    yield at + found.start(), at + found.end(), instead
            for found in CALL.finditer(bare):
                if end := call_end(text, at + found.end() - 1):
                    yield at + found.start(), end, "Result<void>()"
            if SWEEP.match(bare.rstrip("\n")):
                yield at, at + len(line.rstrip("\n")), ""
        at += len(line)


def commands(build):
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        return {entry["file"]: entry for entry in json.load(file)}


def link_command(build, program):
    said = subprocess.run(["ninja", "-C", build, "-t", "commands", f"bin/{program}"], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    line = said.strip().splitlines()[-1]
    return shlex.split(re.sub(r"^: && | && .*$", "", line))


class Mutation:
    def __init__(self, build, folder):
        self.build, self.folder, self.commands = build, folder, commands(build)

    def compiled(self, name, text):
        """The object of a mistaken source; absent where the compiler refuses it."""
        path = os.path.abspath(name + ".cpp")
        source = os.path.join(self.folder, os.path.basename(path))
        with open(source, "w", encoding="utf-8") as file:
            file.write(text)
        words = [word for word in shlex.split(self.commands[path]["command"]) if not word.endswith("ccache")]
        words[words.index("-c") + 1] = source
        target = os.path.join(self.folder, "mutant.o")
        words[words.index("-o") + 1] = target
        done = subprocess.run([*words, "-w"], cwd=self.build, stderr=subprocess.DEVNULL, check=False)
        return target if done.returncode == 0 else None

    def linked(self, program, mutant):
        words = link_command(self.build, program)
        words[words.index("-o") + 1] = target = os.path.join(self.folder, program)
        words.insert(next(i for i, word in enumerate(words) if word.endswith(".o")), mutant)
        subprocess.run(words, cwd=self.build, check=True)
        return target

    def is_noticed(self, program):
        """By the quick tests, else by the slow ones."""
        return any(self.fails(program, f"--gtest_filter={filtered}") for filtered in ("-" + SLOW, SLOW))

    def fails(self, program, filtered):
        try:
            done = subprocess.run([program, "--gtest_fail_fast", filtered], cwd=self.folder, check=False,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=LONGEST_TEST)
        except subprocess.TimeoutExpired:
            return True
        return done.returncode != 0

    def outcome(self, name, text, programs):
        mutant = self.compiled(name, text)
        if not mutant:
            return "refused"
        return "noticed" if any(self.is_noticed(self.linked(program, mutant)) for program in programs) else "MISSED"


def all_mistakes():
    for programs, names in SOURCES.items():
        for name in names:
            with open(name + ".cpp", encoding="utf-8") as file:
                text = file.read()
            for start, end, instead in mistakes_in(text):
                yield programs, name, text, start, end, instead


def describe(name, text, start, end, instead):
    number = text.count("\n", 0, start) + 1
    line_start, line_end = text.rfind("\n", 0, start) + 1, text.find("\n", end)
    after = text[line_start:start] + instead + text[end:line_end]
    return f"{name}.cpp:{number}: {' '.join(after.split()) or '(nothing)'}"


def main(build, count, seed):
    every = list(all_mistakes())
    random.Random(seed).shuffle(every)
    counts = {"noticed": 0, "MISSED": 0}
    with tempfile.TemporaryDirectory() as folder:
        mutation = Mutation(os.path.abspath(build), folder)
        for program in {program for programs in SOURCES for program in programs}:
            if mutation.is_noticed(os.path.join(mutation.build, "bin", program)):
                print(f"{program} fails without any mistake")
                return 1
        for programs, name, text, start, end, instead in every:
            if sum(counts.values()) >= count:
                break
            outcome = mutation.outcome(name, text[:start] + instead + text[end:], programs)
            if outcome in counts:
                counts[outcome] += 1
                print(f"{outcome}: {describe(name, text, start, end, instead)}", flush=True)
    tried = sum(counts.values())
    print(f"{counts['noticed']} of {tried} mistakes noticed, of {len(every)} that could be made (seed {seed})")
    return 0 if tried and counts["noticed"] >= ENOUGH * tried else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 1))
