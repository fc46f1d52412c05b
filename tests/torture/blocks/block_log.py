"""A disk of one file whose writes and flushes are recorded in their order.

It speaks the protocol of /dev/fuse: a folder with one file, on which a loop device is set up. The records lie one after
the other in a log file; how many there are stands in a file of eight bytes, which others may map.
"""

import errno
import mmap
import os
import signal
import stat
import struct

from loop_disk import mount, opened, unmount

LOOKUP, FORGET, GETATTR, SETATTR, OPEN, READ, WRITE, STATFS = 1, 2, 3, 4, 14, 15, 16, 17
RELEASE, FSYNC, FLUSH, INIT, INTERRUPT, BATCH_FORGET = 18, 20, 25, 26, 36, 42
ROOT, DISK = 1, 2
LARGEST_WRITE = 128 * 1024
BIG_WRITES = 1 << 5

RECORD = struct.Struct("<QQ")  # offset and length; a flush has the length 0

class BlockLog:
    """The process that serves the disk. What `image` holds is what the disk holds; it is changed."""

    def __init__(self, image, folder, log, positions):
        self.folder = folder
        self.channel = opened("/dev/fuse")
        mount("disk", folder, "fuse", f"fd={self.channel},rootmode=40000,user_id=0,group_id=0")
        self.image, self.log, self.positions = image, log, positions
        self.process = os.fork()
        if self.process == 0:
            self.serve()
        os.close(self.channel)

    def path(self):
        return os.path.join(self.folder, "disk")

    def end(self):
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)
        unmount(self.folder, lazily=True)

    def serve(self):
        status = 1
        try:
            Server(self.channel, self.image, self.log, self.positions).run()
            status = 0
        except KeyboardInterrupt:
            pass
        finally:
            os._exit(status)


class Server:
    def __init__(self, channel, image, log, positions):
        self.channel = channel
        self.image = os.open(image, os.O_RDWR)
        self.size = os.fstat(self.image).st_size
        self.log = open(log, "wb", buffering=0)
        with open(positions, "r+b") as file:
            self.position = mmap.mmap(file.fileno(), 8)
        self.count = 0
        self.answers = {LOOKUP: self.lookup, GETATTR: self.attributes, SETATTR: self.attributes, OPEN: self.open,
                        READ: self.read, WRITE: self.write, FSYNC: self.flush, FLUSH: self.nothing,
                        RELEASE: self.nothing, INIT: self.begin, STATFS: self.space}

    def run(self):
        while True:
            try:
                request = os.read(self.channel, LARGEST_WRITE + 4096)
            except OSError as error:
                if error.errno in (errno.EINTR, errno.ENOENT, errno.EAGAIN):
                    continue
                return  # unmounted
            self.answer(request)

    def answer(self, request):
        _, operation, unique, node = struct.unpack_from("<IIQQ", request)
        if operation in (FORGET, BATCH_FORGET, INTERRUPT):
            return
        number, payload = 0, b""
        try:
            handle = self.answers.get(operation)
            if not handle:
                raise OSError(errno.ENOSYS, "")
            payload = handle(node, request[40:])
        except OSError as error:
            number = error.errno
        os.write(self.channel, struct.pack("<IiQ", 16 + len(payload), -number, unique) + payload)

    def record(self, offset, data):
        self.log.write(RECORD.pack(offset, len(data)) + data)
        self.count += 1
        struct.pack_into("<Q", self.position, 0, self.count)

    def begin(self, _node, body):
        major, minor, ahead, flags = struct.unpack_from("<IIII", body)
        return struct.pack("<IIIIHHIIHHI28x", 7, min(minor, 31), ahead, flags & BIG_WRITES, 16, 12, LARGEST_WRITE, 1, 0,
                           0, 0)

    def attribute(self, node):
        mode = stat.S_IFDIR | 0o700 if node == ROOT else stat.S_IFREG | 0o600
        size = 0 if node == ROOT else self.size
        return struct.pack("<6Q3I7I", node, size, size // 512, 0, 0, 0, 0, 0, 0, mode, 1, 0, 0, 0, 4096, 0)

    def attributes(self, node, _body):
        return struct.pack("<QII", 3600, 0, 0) + self.attribute(node)

    def lookup(self, _node, body):
        if body.rstrip(b"\0") != b"disk":
            raise OSError(errno.ENOENT, "")
        return struct.pack("<QQQQII", DISK, 0, 3600, 3600, 0, 0) + self.attribute(DISK)

    def open(self, _node, _body):
        return struct.pack("<QII", 0, 0, 0)

    def read(self, _node, body):
        _, offset, size = struct.unpack_from("<QQI", body)
        return os.pread(self.image, size, offset)

    def write(self, _node, body):
        _, offset, size = struct.unpack_from("<QQI", body)
        data = body[40:40 + size]
        os.pwrite(self.image, data, offset)
        self.record(offset, data)
        return struct.pack("<II", size, 0)

    def flush(self, _node, _body):
        self.record(0, b"")
        return b""

    def space(self, _node, _body):
        return struct.pack("<QQQQQIII", self.size // 4096, 0, 0, 2, 0, 4096, 255, 4096) + bytes(28)

    def nothing(self, _node, _body):
        return b""


def records_of(log):
    """Each record as its offset and its bytes; None for a flush."""
    result = []
    with open(log, "rb") as file:
        while head := file.read(RECORD.size):
            offset, length = RECORD.unpack(head)
            result.append((offset, file.read(length)) if length else None)
    return result
