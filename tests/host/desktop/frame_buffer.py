"""What the screen shows, read from the frame buffer itself: a look costs a fraction of a millisecond."""
import mmap
import struct


class FrameBuffer:
    """The one that Xvfb keeps as an X window dump in a folder."""

    def __init__(self, folder):
        with open(folder / "Xvfb_screen0", "rb") as dump:
            self.pixels = mmap.mmap(dump.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">20I", self.pixels[:80])
        self.start, self.stride = header[0] + header[19] * 12, header[12]

    def look(self):
        """The bytes of the whole screen."""
        return self.pixels[self.start:]

    def look_at(self, area, step=1):
        """The bytes of an area, given as left, top, width and height; or of its first row and every so many on."""
        left, top, width, height = area
        begin = self.start + top * self.stride + left * 4
        return b"".join(self.pixels[begin + row * self.stride:begin + row * self.stride + width * 4]
                        for row in range(0, height, step))
