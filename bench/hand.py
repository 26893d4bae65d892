"""Works in the running program as a person does: with the mouse and keys of a display, at the places that the
plug-in eye.cpp names. Needs Xvfb and libXtst; the plug-in must have been built."""
import ctypes
import os
import pathlib
import subprocess
import sys
import time

from build import BUILD, ROOT
from observe import end


class Mouse:
    """Mouse and keys of a display."""

    def __init__(self, display):
        self.x, self.test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XFlush.argtypes = self.x.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.x.XStringToKeysym.restype = ctypes.c_ulong
        self.x.XKeysymToKeycode.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
        self.x.XKeysymToKeycode.restype = ctypes.c_ubyte
        self.test.XTestFakeMotionEvent.argtypes = [ctypes.c_void_p] + [ctypes.c_int] * 3 + [ctypes.c_ulong]
        self.test.XTestFakeButtonEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
        self.test.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
        self.connection = self.x.XOpenDisplay(display.encode())

    def close(self):
        self.x.XCloseDisplay(self.connection)

    def move(self, x, y):
        self.test.XTestFakeMotionEvent(self.connection, -1, round(x), round(y), 0)
        self.x.XFlush(self.connection)

    def button(self, down, number=1):
        self.test.XTestFakeButtonEvent(self.connection, number, down, 0)
        self.x.XFlush(self.connection)

    def key(self, name):
        """Pressed and let go; the name as in keysymdef.h."""
        code = self.x.XKeysymToKeycode(self.connection, self.x.XStringToKeysym(name.encode()))
        for down in (1, 0):
            self.test.XTestFakeKeyEvent(self.connection, code, down, 0)
        self.x.XFlush(self.connection)


class Program:
    """The program on a display, playing the demo or what stands in its program folder."""
    PAUSE = 0.15  # s that a person needs at least from one press to the next

    def __init__(self, display, home, output="", **environment):
        """output is what stands in its Ausgabe.ini."""
        self.home = pathlib.Path(home)
        self.folder = self.home / "program"
        if not self.folder.exists():
            subprocess.run([ROOT / "assets/demo/place", self.folder], check=True)
            (self.folder / "Ausgabe.ini").write_text(output)
            (self.home / ".config/Quorvane").mkdir(parents=True)
            (self.home / ".config/Quorvane/Quorvane.conf").write_text("[Interface]\nType=3\n")
        surroundings = dict(os.environ, HOME=str(home), DISPLAY=display, XDG_CONFIG_HOME=str(self.home / ".config"),
                            XDG_RUNTIME_DIR=str(home), QT_PLUGIN_PATH=str(BUILD / "eye"),
                            QT_QPA_GENERIC_PLUGINS="eye", **environment)
        surroundings.pop("WAYLAND_DISPLAY", None)
        surroundings.pop("QT_QPA_PLATFORM", None)
        self.process = subprocess.Popen([BUILD / "quorvane", "--program-folder", self.folder], env=surroundings,
                                        text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL)
        self.mouse = Mouse(display)

    def close(self):
        end(self.process)
        self.mouse.close()

    def _ask(self, question):
        self.process.stdin.write(question + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline().strip()
        if not answer:
            sys.exit("the program has ended")
        return None if answer == "none" else [float(number) for number in answer.split()]

    def where(self, window, control=""):
        """[x, y, width, height] on the screen, or None."""
        return self._ask(f"where {window} {control}".rstrip())

    def picture(self, window, file):
        """A picture of a window with its frame."""
        if not self._ask(f"picture {window} {file}"):
            sys.exit(f"{window} is not to be seen")

    def wait(self, window, control="", seconds=5.0):
        """Where it is as soon as it is seen."""
        give_up = time.monotonic() + seconds
        while not (place := self.where(window, control)):
            if time.monotonic() > give_up:
                sys.exit(f"{window} {control} did not come")
            time.sleep(0.02)
        return place

    def click(self, window, control="", at=(0.5, 0.5), number=1):
        """number is the mouse button's."""
        x, y, width, height = self.wait(window, control)
        self.mouse.move(x + width * at[0], y + height * at[1])
        self.mouse.button(1, number)
        time.sleep(0.03)
        self.mouse.button(0, number)
        time.sleep(self.PAUSE)

    def choose(self, *entries):
        """A menu, an entry of it, an entry of that ..."""
        for entry in entries:
            self.click(entry)

    def drag(self, start, finish, seconds, rate=120):
        """With the left button down, evenly, in as many moves a second as a good mouse makes."""
        self.mouse.move(*start)
        time.sleep(0.02)
        self.mouse.button(1)
        began, moves = time.monotonic(), max(1, round(seconds * rate))
        for move in range(1, moves + 1):
            time.sleep(max(0.0, began + move / rate - time.monotonic()))
            part = move / moves
            self.mouse.move(*(a + (b - a) * part for a, b in zip(start, finish)))
        self.mouse.button(0)
        time.sleep(0.02)
