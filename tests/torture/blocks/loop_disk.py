"""Disks that lie in files, mounted through loop devices. They go with their mounts."""

import contextlib
import ctypes
import errno
import fcntl
import os
import struct

LOOP_SET_FD, LOOP_SET_STATUS64, LOOP_CTL_GET_FREE, GONE_WITH_ITS_LAST_USER = 0x4C00, 0x4C04, 0x4C82, 4
FORGET_DEVICE = 0x50009405

libc = ctypes.CDLL(None, use_errno=True)


class Skipped(Exception):
    """What is needed is not there."""


@contextlib.contextmanager
def what_a_machine_may_refuse():
    """Where the rights or the driver are missing, nothing can be tried; any other error is one."""
    try:
        yield
    except OSError as error:
        if error.errno in (errno.EPERM, errno.EACCES, errno.ENODEV):
            raise Skipped(str(error)) from error
        raise


def check(result, what):
    if result != 0:
        number = ctypes.get_errno()
        with what_a_machine_may_refuse():
            raise OSError(number, f"{what}: {os.strerror(number)}")


def mount(source, target, kind, data=""):
    check(libc.mount(source.encode(), target.encode(), kind.encode(), 0, data.encode()), f"mount {kind}")


def unmount(target, lazily=False):
    check(libc.umount2(target.encode(), 2 if lazily else 0), f"umount {target}")


def opened(path):
    with what_a_machine_may_refuse():
        return os.open(path, os.O_RDWR | os.O_CLOEXEC)


def loop_device(path):
    """A device over the file, as an open descriptor and its name. It goes when it is closed and unmounted."""
    for _ in range(20):
        with os.fdopen(opened("/dev/loop-control")) as control, what_a_machine_may_refuse():
            name = f"/dev/loop{fcntl.ioctl(control, LOOP_CTL_GET_FREE)}"
        if not os.path.exists(name):
            raise Skipped(f"there is no {name}")
        device, file = opened(name), os.open(path, os.O_RDWR | os.O_CLOEXEC)
        try:
            fcntl.ioctl(device, LOOP_SET_FD, file)
            fcntl.ioctl(device, LOOP_SET_STATUS64, struct.pack("<5Q4I160x2Q", *[0] * 8, GONE_WITH_ITS_LAST_USER, 0, 0))
            return device, name
        except OSError:  # another took it first
            os.close(device)
        finally:
            os.close(file)
    raise Skipped("no loop device is free")


class Mounted:
    """While it is entered, the file system in a file is mounted on a folder."""

    def __init__(self, path, kind, folder):
        self.path, self.kind, self.folder, self.device = path, kind, folder, ""

    def __enter__(self):
        device, self.device = loop_device(self.path)
        try:
            mount(self.device, self.folder, self.kind)
        finally:
            os.close(device)
        return self.folder

    def __exit__(self, *_):
        unmount(self.folder)
        if self.kind == "btrfs":
            forget_device(self.device)


def forget_device(name):
    """So that btrfs does not take the next disk for a newer state of this one."""
    with open("/dev/btrfs-control", "rb") as control:
        fcntl.ioctl(control, FORGET_DEVICE, bytearray(struct.pack("<q4088s", 0, name.encode())))
