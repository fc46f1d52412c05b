"""A screen that is watched for what changes on it, and a mouse."""
import ctypes
import time

PAUSE = 0.0005  # between two looks
GLANCE = 4  # rows: every text is as high, and whoever looks at every row takes a processor from what is measured


class Screen:
    """Watches a frame buffer."""

    def __init__(self, frame_buffer):
        self.look_at = frame_buffer.look_at

    def look(self, areas):
        """The bytes of some areas, each given as left, top, width and height."""
        return b"".join(self.look_at(area) for area in areas)

    def glance(self, areas):
        """The bytes of some rows of each area."""
        return [self.look_at(area, GLANCE) for area in areas]

    def changes(self, areas, quiet, limit=20.0):
        """Watches until the areas have changed and then stood still for a time. When they changed, first to last."""
        times, before, end = [], self.look(areas), time.monotonic() + limit
        while not times or time.monotonic() - times[-1] < quiet:
            time.sleep(PAUSE)
            now = self.look(areas)
            if now != before:
                times.append(time.monotonic())
                before = now
            elif time.monotonic() > end:
                raise TimeoutError("nothing changed on the screen" if not times else "the screen never stands still")
        return times

    def first_picture(self, areas, bare, quiet=0.8, limit=20.0):
        """When every one of the areas was drawn and none changed any more."""
        last, before, end = None, None, time.monotonic() + limit
        while last is None or time.monotonic() - last < quiet:
            time.sleep(PAUSE)
            now = self.glance(areas)
            if now != before and all(each != empty for each, empty in zip(now, bare)):
                last = time.monotonic()
            before = now
            if time.monotonic() > end:
                raise TimeoutError("not everything was drawn")
        return last


class Pointer:
    """The mouse, without the time that a program for it would need to start."""

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.test = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))

    def move(self, x, y):
        self.test.XTestFakeMotionEvent(self.display, -1, x, y, ctypes.c_ulong(0))
        self.x11.XSync(self.display, 0)

    def click(self):
        """When the button was let go."""
        self.test.XTestFakeButtonEvent(self.display, 1, 1, ctypes.c_ulong(0))
        self.x11.XSync(self.display, 0)
        released = time.monotonic()
        self.test.XTestFakeButtonEvent(self.display, 1, 0, ctypes.c_ulong(0))
        self.x11.XFlush(self.display)
        return released
