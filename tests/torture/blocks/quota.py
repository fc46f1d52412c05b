"""quota.py PROGRAMS: fills a folder that has a quota, on a btrfs of its own, and goes on when the quota is larger."""

import os
import shutil
import subprocess
import sys
import tempfile

from loop_disk import Mounted, Skipped

SKIPPED = 77
SIZE = 120 * 1024 * 1024


def run(*words):
    subprocess.run(words, stdout=subprocess.DEVNULL, check=True)


def fill(programs, folder):
    image, mounted = os.path.join(folder, "image"), os.path.join(folder, "mounted")
    os.mkdir(mounted)
    with open(image, "wb") as file:
        file.truncate(SIZE)
    run("mkfs.btrfs", "-q", image)
    with Mounted(image, "btrfs", mounted):
        home = os.path.join(mounted, "home")
        run("btrfs", "subvolume", "create", home)
        run("btrfs", "quota", "enable", mounted)
        run("btrfs", "qgroup", "limit", "512k", home)
        full = subprocess.Popen([os.path.join(programs, "vantel_torture"), "quota"], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, text=True, env={**os.environ, "XDG_DATA_HOME": home})
        print(full.stdout.readline(), end="")
        run("btrfs", "qgroup", "limit", "none", home)
        print(full.communicate("\n")[0], end="")
        return full.returncode


def main(programs):
    if not shutil.which("mkfs.btrfs"):
        print("a quota: skipped, there is no mkfs.btrfs")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        try:
            return fill(programs, folder)
        except (Skipped, subprocess.CalledProcessError) as reason:
            print(f"a quota: skipped, {reason}")
            return SKIPPED


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
