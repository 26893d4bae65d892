"""What can be seen of a DMX program from outside: its frames at a receiver, its windows, its use of the machine."""
import ctypes
import math
import os
import select
import socket
import struct
import subprocess
import time

ART_NET, SACN = 6454, 5568
SO_TIMESTAMPNS = 35


def percentile(values, per_cent):
    """The smallest value that so many per cent do not exceed."""
    ordered = sorted(values)
    return ordered[max(0, math.ceil(per_cent / 100 * len(ordered)) - 1)]


class Receiver:
    """Takes Art-Net and sACN on 127.0.0.1. Times are those of the kernel, in ns of the real-time clock: on loopback
    a packet is stamped within the sender's own call, so a receiver that comes late falsifies nothing."""

    def __init__(self):
        self.sockets = []
        for port in (ART_NET, SACN):
            handle = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
            handle.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
            handle.setsockopt(socket.SOL_SOCKET, SO_TIMESTAMPNS, 1)
            handle.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1 << 20)
            handle.setblocking(False)
            handle.bind(("127.0.0.1", port))
            self.sockets.append(handle)
        self.frames = []  # (time, anything above 0)

    def close(self):
        for handle in self.sockets:
            handle.close()

    def look(self, seconds):
        """Receives what comes within that time, then returns."""
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            for handle in select.select(self.sockets, [], [], left)[0]:
                self._take(handle)

    def _take(self, handle):
        packet, notes, _, _ = handle.recvmsg(2048, 256)
        if packet[:10] == b"Art-Net\0\0\x50":
            levels = packet[18:]
        elif packet[4:13] == b"ASC-E1.17" and packet[18:22] == b"\0\0\0\x04":
            levels = packet[126:]
        else:
            return
        for level, kind, value in notes:
            if level == socket.SOL_SOCKET and kind == SO_TIMESTAMPNS:
                seconds, nanoseconds = struct.unpack("qq", value[:16])
                self.frames.append((seconds * 10**9 + nanoseconds, any(levels)))


def jitter(frames, period_ms):
    """How far each interval is from the period, in ms."""
    times = [at for at, _ in frames]
    return [abs((after - before) / 1e6 - period_ms) for before, after in zip(times, times[1:])]


def lost_ticks(frames, period_ms):
    """Periods that passed without a frame and were not made up for by the end."""
    times = [at for at, _ in frames]
    return round((times[-1] - times[0]) / 1e6 / period_ms) + 1 - len(times)


class Usage:
    """Processor time and memory of one process from now on."""

    def __init__(self, pid):
        self.pid = pid
        self.start = self._now()

    def _now(self):
        tasks = f"/proc/{self.pid}/task"
        used = 0
        for task in os.listdir(tasks):
            with open(f"{tasks}/{task}/schedstat") as file:
                used += int(file.read().split()[0])
        with open("/proc/stat") as file:
            ticks = [int(field) for field in file.readline().split()[1:9]]
        stolen = ticks[7] / os.sysconf("SC_CLK_TCK")
        machine = (sum(ticks) - ticks[3] - ticks[4]) / os.sysconf("SC_CLK_TCK") - stolen
        return time.monotonic(), used / 1e9, machine, stolen

    def per_cent_of_a_core(self):
        at, used, _, _ = self._now()
        return 100 * (used - self.start[1]) / (at - self.start[0])

    def other_cores(self):
        """How many cores the rest of the machine kept busy meanwhile."""
        at, used, machine, _ = self._now()
        return max(0.0, machine - self.start[2] - (used - self.start[1])) / (at - self.start[0])

    def taken_by_host(self):
        """How many cores of a virtual machine its host gave to others meanwhile."""
        at, _, _, stolen = self._now()
        return (stolen - self.start[3]) / (at - self.start[0])

    def memory_mib(self):
        with open(f"/proc/{self.pid}/status") as file:
            return next(int(line.split()[1]) for line in file if line.startswith("VmRSS")) / 1024


class Display:
    """A virtual screen of its own, without a window manager."""

    def __init__(self, size="1600x1000x24"):
        self.size = size

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", self.size, "-nolisten", "tcp"],
            pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as file:
            self.name = ":" + file.readline().strip()
        return self

    def __exit__(self, *_):
        end(self.server)


class _Mapped(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("root", ctypes.c_ulong), ("window", ctypes.c_ulong),
                ("override", ctypes.c_int), ("rest", ctypes.c_long * 24)]


class WindowWatch:
    """Tells when the first window of a fair size appears."""
    SUBSTRUCTURE_NOTIFY, MAP_NOTIFY = 1 << 19, 19

    def __init__(self, display):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x.XDefaultRootWindow.argtypes = self.x.XPending.argtypes = [ctypes.c_void_p]
        self.x.XConnectionNumber.argtypes = self.x.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.x.XSelectInput.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_long]
        self.x.XNextEvent.argtypes = [ctypes.c_void_p, ctypes.c_void_p]
        self.x.XGetGeometry.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + [ctypes.c_void_p] * 7
        # A window may be gone before its size is asked for; that is no reason to end.
        self.ignore = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        self.x.XSetErrorHandler(self.ignore)
        self.connection = self.x.XOpenDisplay(display.encode())
        self.x.XSelectInput(self.connection, self.x.XDefaultRootWindow(self.connection), self.SUBSTRUCTURE_NOTIFY)
        self.x.XPending(self.connection)

    def close(self):
        self.x.XCloseDisplay(self.connection)

    def wait(self, seconds):
        """The monotonic time of the first window of at least 200 x 100, or None."""
        give_up, event = time.monotonic() + seconds, _Mapped()
        while (left := give_up - time.monotonic()) > 0:
            if not self.x.XPending(self.connection):
                select.select([self.x.XConnectionNumber(self.connection)], [], [], left)
                continue
            self.x.XNextEvent(self.connection, ctypes.byref(event))
            at = time.monotonic()
            if event.type == self.MAP_NOTIFY and not event.override and self._fair_size(event.window):
                return at
        return None

    def _fair_size(self, window):
        numbers = [ctypes.c_ulong()] + [ctypes.c_int() for _ in range(6)]
        self.x.XGetGeometry(self.connection, window, *(ctypes.byref(number) for number in numbers))
        return numbers[3].value >= 200 and numbers[4].value >= 100


def busy_process(seconds):
    """An endless loop of ordinary priority that ends by itself."""
    code = f"import signal\nsignal.alarm({math.ceil(seconds)})\nwhile True: pass"
    return subprocess.Popen(["python3", "-c", code])


class BareTimer:
    """A process that does nothing but wake up once a period: how late the machine itself is meanwhile."""
    CODE = """
import ctypes, sys, time
class Time(ctypes.Structure):
    _fields_ = [("seconds", ctypes.c_long), ("nanoseconds", ctypes.c_long)]
sleep, monotonic, absolute = ctypes.CDLL(None).clock_nanosleep, 1, 1
period, count = int(sys.argv[1]), int(sys.argv[2])
due, woke = time.monotonic_ns(), []
for _ in range(count):
    due += period
    sleep(monotonic, absolute, ctypes.byref(Time(*divmod(due, 10**9))), None)
    woke.append(time.monotonic_ns())
print(*woke)
"""

    def __init__(self, seconds, period_ms):
        arguments = [str(round(period_ms * 1e6)), str(int(seconds * 1e3 / period_ms))]
        self.process = subprocess.Popen(["python3", "-c", self.CODE, *arguments], stdout=subprocess.PIPE, text=True)

    def jitter(self, period_ms):
        """To be asked when the seconds are over."""
        woke = [int(at) for at in self.process.communicate()[0].split()]
        return [abs((after - before) / 1e6 - period_ms) for before, after in zip(woke, woke[1:])]


def taken_by_machine(seconds, gap_ms=0.1):
    """Per cent of that time that goes in gaps to a process that never rests: no program's doing, and whatever is due in
    a gap is late."""
    last = time.monotonic_ns()
    finish, taken = last + seconds * 1e9, 0
    while last < finish:
        now = time.monotonic_ns()
        if now - last > gap_ms * 1e6:
            taken += now - last
        last = now
    return taken / seconds / 1e7


def end(process):
    process.terminate()
    try:
        process.wait(6)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
