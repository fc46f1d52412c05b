"""power_cuts.py PROGRAMS [--minutes N]: uses a container on a real file system, records what reaches the disk, and looks
at what is left where the power goes: all that was flushed, and any part of what was not."""

import collections
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from block_log import BlockLog, records_of
from loop_disk import Mounted, Skipped

MEGABYTE = 1024 * 1024
# How each is made on a file, and how large it is; xfs and btrfs take no less.
KINDS = {
    "ext4": (48, ["mkfs.ext4", "-q", "-F", "-m", "0", "-E", "lazy_itable_init=0,lazy_journal_init=0,nodiscard"]),
    "xfs": (304, ["mkfs.xfs", "-q", "-f", "-K"]),
    "btrfs": (120, ["mkfs.btrfs", "-q", "-f", "-K"]),
}
SECTOR = 512
PASS = 100
SKIPPED = 77


def copy_sparsely(source, target):
    with open(source, "rb") as old, open(target, "wb") as new:
        size, at = os.fstat(old.fileno()).st_size, 0
        new.truncate(size)
        while at < size:
            try:
                at = os.lseek(old.fileno(), at, os.SEEK_DATA)
            except OSError:
                break
            end = os.lseek(old.fileno(), at, os.SEEK_HOLE)
            while at < end:
                block = os.pread(old.fileno(), min(end - at, MEGABYTE), at)
                if block.count(0) != len(block):
                    os.pwrite(new.fileno(), block, at)
                at += len(block)


class Recording:
    """A container in use, and all that its disk was told."""

    def __init__(self, programs, kind, scratch, rounds):
        self.kind = kind
        size, make = KINDS[kind]
        image, self.base = os.path.join(scratch, "image"), os.path.join(scratch, "base")
        with open(image, "wb") as file:
            file.truncate(size * MEGABYTE)
        subprocess.run([*make, image], stdout=subprocess.DEVNULL, check=True)
        copy_sparsely(image, self.base)
        log, positions = os.path.join(scratch, "log"), os.path.join(scratch, "positions")
        with open(positions, "wb") as file:
            file.write(bytes(8))
        self.notes = self.use(programs, image, log, positions, scratch, rounds)
        self.records = records_of(log)

    def use(self, programs, image, log, positions, scratch, rounds):
        folders = [os.path.join(scratch, name) for name in ("served", "used")]
        for folder in folders:
            os.mkdir(folder)
        disk = BlockLog(image, folders[0], log, positions)
        try:
            with Mounted(disk.path(), self.kind, folders[1]) as home:
                said = subprocess.run([os.path.join(programs, "vantel_torture"), "use", positions, str(rounds)],
                                      env={**os.environ, "XDG_DATA_HOME": home}, stdout=subprocess.PIPE, check=True)
        finally:
            disk.end()
        return [(what, int(number), int(position)) for what, number, position in
                (line.split() for line in said.stdout.decode().splitlines())]


class Expected:
    """What was begun and acknowledged when the power went after so many records."""

    def __init__(self, notes, position):
        self.begun, self.acknowledged, self.handled, self.stamped = set(), set(), set(), set()
        self.last_begun = self.last_written = 0
        for what, number, at in notes:
            if at <= position:
                self.note(what, number)

    def note(self, what, number):
        if what == "append":
            self.begun.add(number)
        elif what == "appended":
            self.acknowledged.add(number)
        elif what == "handled":
            self.handled.add(number)
        elif what == "write":
            self.last_begun = number
        elif what == "written":
            self.last_written, self.stamped = number, set()
        elif what == "stamped":
            self.stamped.add(number)

    def faults(self, found):
        of = {what: {number for said, number in found if said == what} for what in ("entry", "stamped", "snapshot")}
        wrong = [f"{what} {number}" for what, number in found if what in ("torn", "left", "unreadable", "ended")]
        wrong += [f"{what} {number} twice" for (what, number), count in collections.Counter(found).items() if count > 1]
        wrong += [f"lost entry {number}" for number in self.acknowledged - self.handled - of["entry"]]
        wrong += [f"entry {number} of nobody" for number in of["entry"] - self.begun]
        generation = max(of["snapshot"], default=0)
        if not self.last_written <= generation <= self.last_begun:
            wrong.append(f"snapshot {generation} and not {self.last_written} to {self.last_begun}")
        if generation == self.last_written:
            wrong += [f"lost stamp {number}" for number in self.stamped - of["stamped"]]
        return wrong


class Cuts:
    """Disks on which the power went, each made of the one before."""

    def __init__(self, recording, scratch, seed, is_lying=False):
        self.recording, self.random, self.is_lying = recording, random.Random(seed), is_lying
        self.flushed = os.path.join(scratch, "flushed")
        self.state, self.folder = os.path.join(scratch, "state"), os.path.join(scratch, "mounted")
        os.makedirs(self.folder, exist_ok=True)
        copy_sparsely(recording.base, self.flushed)
        self.applied = 0

    def positions(self, count):
        last = max(at for _, _, at in self.recording.notes)
        return sorted(self.random.randint(1, last) for _ in range(count))

    def make(self, position):
        records = self.recording.records
        flush = max((i for i in range(self.applied, position) if records[i] is None), default=self.applied)
        with open(self.flushed, "r+b") as file:
            while not self.is_lying and self.applied < flush:
                self.put(file, records[self.applied])
                self.applied += 1
        copy_sparsely(self.flushed, self.state)
        with open(self.state, "r+b") as file:
            for record in self.survivors([record for record in records[self.applied:position] if record]):
                self.put(file, record)

    @staticmethod
    def put(file, record):
        if record:
            os.pwrite(file.fileno(), record[1], record[0])

    def survivors(self, pending):
        """None of what was not flushed, the first of it, any of it, all of it; and one in three has a torn write."""
        how = self.random.randrange(4)
        if how == 0 or not pending:
            return []
        if how == 1:
            pending = pending[:self.random.randint(1, len(pending))]
        elif how == 2:
            pending = [record for record in pending if self.random.random() < 0.5]
        if pending and self.random.randrange(3) == 0:
            index = self.random.randrange(len(pending))
            pending[index:index + 1] = self.torn(*pending[index])
        return pending

    def torn(self, offset, data):
        if self.recording.kind == "btrfs" and offset in SUPERBLOCKS:
            return [(offset, data)]
        sectors = [(offset + at, data[at:at + SECTOR]) for at in range(0, len(data), SECTOR)]
        if self.random.random() < 0.5:
            return sectors[:self.random.randint(0, len(sectors))]
        return [sector for sector in sectors if self.random.random() < 0.5]

    def found(self, programs):
        with Mounted(self.state, self.recording.kind, self.folder) as home:
            said = subprocess.run([os.path.join(programs, "vantel_torture"), "look"],
                                  env={**os.environ, "XDG_DATA_HOME": home}, stdout=subprocess.PIPE, timeout=60)
        words = [line.split() for line in said.stdout.decode().splitlines()]
        found = [(word[0], int(word[1]) if word[1:] and word[1].isdigit() else " ".join(word[1:])) for word in words]
        return found + ([("ended", said.returncode)] if said.returncode else [])


# btrfs needs its superblock whole, 4 KiB of it, and finds no other by itself.
SUPERBLOCKS = (64 * 1024, 64 * MEGABYTE)


def look_at_cuts(programs, recording, scratch, count, until, is_lying=False):
    """How many were looked at, and what was wrong with which. Each pass goes through the whole recording."""
    looked, wrong = 0, []
    for first in range(0, count, PASS):
        cuts = Cuts(recording, scratch, first, is_lying)
        for position in cuts.positions(min(PASS, count - first)):
            if time.monotonic() > until:
                return looked, wrong
            if faults := faults_of(programs, cuts, position):
                wrong.append((position, faults))
            looked += 1
    return looked, wrong


def faults_of(programs, cuts, position):
    cuts.make(position)
    try:
        return Expected(cuts.recording.notes, position).faults(cuts.found(programs))
    except (OSError, Skipped) as error:  # the disk was mounted before its power went
        return [str(error)]


def try_kind(programs, kind, count, rounds, until):
    """Whether nothing was wrong."""
    with tempfile.TemporaryDirectory() as scratch:
        began = time.monotonic()
        recording = Recording(programs, kind, scratch, rounds)
        looked, wrong = look_at_cuts(programs, recording, scratch, count, until)
        flushes = recording.records.count(None)
        print(f"{kind}: {looked} power cuts in {len(recording.records) - flushes} writes and {flushes} flushes, "
              f"{len(wrong)} wrong, {time.monotonic() - began:.0f} s", flush=True)
        for position, faults in wrong[:5]:
            print(f"WRONG: {kind}, after {position} records: {', '.join(faults[:5])}")
        if kind == "ext4" and not look_at_cuts(programs, recording, scratch, 12, until + 60, True)[1]:
            print("WRONG: a disk that lies about its flushes has lost nothing")
            return False
        return looked > 0 and not wrong


def outcome(programs, kind, count, rounds, until):
    """Whether nothing was wrong; None where it cannot be tried."""
    try:
        return try_kind(programs, kind, count, rounds, until)
    except Skipped as reason:
        print(f"{kind}: skipped, {reason}")
        return None


def is_loaded(kind):
    return shutil.which("modprobe") and subprocess.run(["modprobe", "-q", kind], check=False).returncode == 0


def kinds_here():
    with open("/proc/filesystems", encoding="utf-8") as file:
        known = file.read().split()
    for kind, (_, make) in KINDS.items():
        if kind not in known and not is_loaded(kind):
            print(f"{kind}: skipped, the kernel does not know it")
        elif not shutil.which(make[0]):
            print(f"{kind}: skipped, there is no {make[0]}")
        else:
            yield kind


def main(programs, minutes=None):
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    count, rounds = (20, 25) if minutes is None else (1000, 250)
    began, seconds = time.monotonic(), 180 if minutes is None else float(minutes) * 60
    kinds = list(kinds_here())
    outcomes = [outcome(programs, kind, count, rounds, began + seconds * (index + 1) / len(kinds))
                for index, kind in enumerate(kinds)]
    tried = [good for good in outcomes if good is not None]
    return SKIPPED if not tried else 0 if all(tried) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[3] if sys.argv[2:3] == ["--minutes"] else None))
