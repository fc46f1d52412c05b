"""What processes use, as the kernel counts it."""
import pathlib
import time


def kilobytes(process):
    """The proportional set size: shared pages count in parts."""
    for line in pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1])
    raise ValueError("the kernel tells no proportional set size")


def processor_seconds(process):
    """The time of all its threads, also of those that have ended, to the nanosecond."""
    scheduled = 2
    return time.clock_gettime_ns(~process.pid << 3 | scheduled) / 1e9


def switches(process):
    """How often each of its threads was switched to or away from."""
    counts = {}
    for thread in pathlib.Path(f"/proc/{process.pid}/task").iterdir():
        try:
            lines = (thread / "status").read_text().splitlines()
        except (FileNotFoundError, ProcessLookupError):
            continue
        counts[thread.name] = sum(int(line.split()[1]) for line in lines if "ctxt_switches" in line)
    return counts


def wake_ups(process, seconds):
    """The moments in which it was awake, and its context switches, while nobody asks for anything."""
    moments, switched, last, end = 0, 0, switches(process), time.monotonic() + seconds
    while time.monotonic() < end:
        time.sleep(0.2)
        now = switches(process)
        moments += now != last
        switched += sum(max(0, count - last.get(thread, 0)) for thread, count in now.items())
        last = now
    return moments, switched
