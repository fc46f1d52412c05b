#!/usr/bin/env python3
"""Runs clang-tidy over one source, unless it passed before exactly as it is.

    tidy-source.py CLANG_TIDY BUILD FILE

A clean source is remembered by all that the check reads: the source after its includes with macros and comments, its
command, the configuration and the program. So a fresh clone on a machine that has seen the sources checks only what is
new.
"""
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys


def command_of(build, file):
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if entry["file"] == str(file):
            return entry
    sys.exit(f"{file} is not compiled")


def words_of(entry):
    """The command without the compiler cache, and without headers that another compiler has precompiled."""
    words = [word for word in shlex.split(entry["command"]) if not word.endswith("/ccache") and word != "-Winvalid-pch"]
    while "-include" in words:
        at = words.index("-include")
        del words[at:at + 2]
    return words


def preprocessed(entry):
    words = words_of(entry)
    words = words[:words.index("-o")] + words[words.index("-c"):]
    words[words.index("-c"):words.index("-c") + 1] = ["-E", "-C", "-dD", "-P"]
    skipped = {"-MD"}
    return subprocess.run([word for word in without_dependencies(words) if word not in skipped],
                          cwd=entry["directory"], check=True, capture_output=True).stdout


def without_dependencies(words):
    takes_next = False
    for word in words:
        if not takes_next and word not in ("-MT", "-MF"):
            yield word
        takes_next = word in ("-MT", "-MF")


def key_of(program, build, file):
    digest = hashlib.sha256()
    root = str(build.parent.parent)
    entry = command_of(build, file)
    configurations = [each / ".clang-tidy" for each in file.parents if (each / ".clang-tidy").is_file()]
    parts = [subprocess.run([program, "--version"], capture_output=True, check=True).stdout,
             entry["command"].replace(root, "").encode(), str(file).replace(root, "").encode(),
             *(each.read_bytes() for each in configurations), preprocessed(entry).replace(root.encode(), b"")]
    for part in parts:
        digest.update(len(part).to_bytes(8, "little") + part)
    return digest.hexdigest()


def main():
    program, build, file = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    cache = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "vantel-widgets" / "tidy"
    known = cache / key_of(program, build, file)
    if known.exists():
        return
    entry = command_of(build, file)
    command = [program, "--quiet", str(file), "--", *without_dependencies(words_of(entry)[1:])]
    if subprocess.run(command, cwd=entry["directory"]).returncode != 0:
        sys.exit(1)
    cache.mkdir(parents=True, exist_ok=True)
    known.touch()


main()
