"""A clock that can be set, for the programs that are started with it, while the machine's own stays as it is."""
import os
import pathlib
import struct
import time

from desktop import Skipped


class SteppedClock:
    def __init__(self, desktop):
        library = pathlib.Path(desktop.widgets).with_name("vantel_stepped_clock.so")
        if not library.exists():
            raise Skipped(f"{library.name} is not built")
        self.file = desktop.folder / "clock"
        self.file.write_bytes(bytes(8))
        self.ahead = 0
        # A sanitizer wants to come first among the libraries, but does its work also behind this one.
        self.launcher = ["env", f"LD_PRELOAD={library}", f"VANTEL_STEPPED_CLOCK={self.file}",
                         f"ASAN_OPTIONS={os.environ.get('ASAN_OPTIONS', '')}:verify_asan_link_order=0"]

    def now(self):
        return time.time() + self.ahead

    def put_ahead(self, seconds):
        """By how much it is ahead of the machine's clock. Those who look at it hear of that as of a step."""
        self.ahead = seconds
        with self.file.open("r+b", buffering=0) as file:
            file.write(struct.pack("=q", round(seconds * 1e9)))
