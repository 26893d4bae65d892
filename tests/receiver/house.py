"""A lighting network of its own for a test: a network namespace that leads nowhere, an OLA daemon listening in it,
and a record of the packets that a program under test sends. Needs no privilege where users may make namespaces."""

import http.client
import json
import os
import pathlib
import re
import shutil
import socket
import struct
import subprocess
import sys
import threading
import time

ARTNET_PORT = 6454
SACN_PORT = 5568
OLA_PORT = 9090
SECOND_ADDRESS = "127.0.2.1"  # OLA takes no sACN on an interface that is marked as loopback
INSIDE = "RECEIVER_TEST_INSIDE"

OTHER_PLUGINS = """dummy espnet ftdidmx gpio karate kinet milinst opendmx openpixelcontrol osc pathport renard
sandnet shownet spi stageprofi uartdmx usbdmx usbserial""".split()


def need(*programs):
    missing = [program for program in programs if not shutil.which(program)]
    if missing:
        sys.exit("missing programs: " + " ".join(missing) + " (packages ola, tshark, iproute2, util-linux)")


def move_inside():
    """Goes on in a network namespace of our own, as its root."""
    if os.environ.get(INSIDE):
        return
    own = ["unshare", "-n"] if os.geteuid() == 0 else ["unshare", "-r", "-n"]
    os.environ[INSIDE] = "root" if os.geteuid() == 0 else "user"
    os.execvp("unshare", [*own, "--", sys.executable, *sys.argv])


def ip(*words):
    subprocess.run(["ip", *words], check=True)


def make_network():
    ip("link", "set", "lo", "up", "multicast", "on")
    ip("route", "add", "224.0.0.0/4", "dev", "lo")
    ip("link", "add", "second0", "type", "veth", "peer", "name", "second1")
    ip("addr", "add", f"{SECOND_ADDRESS}/32", "dev", "second0")
    ip("link", "set", "second0", "up")
    ip("link", "set", "second1", "up")


def as_ordinary_user():
    """How to start a program that refuses to run as root."""
    if os.environ[INSIDE] == "root":
        return ["setpriv", "--reuid", "65534", "--regid", "65534", "--clear-groups"]
    return ["unshare", "--user", "--map-user=1000", "--map-group=1000", "--"]


class Ola:
    """OLA's daemon with nothing but its Art-Net and sACN plug-ins: Art-Net universe 0 is its universe 0, sACN
    universe 1 its universe 1."""

    def __init__(self, folder):
        folder = pathlib.Path(folder)
        folder.mkdir()
        self.configure(folder)
        self.log = open(folder / "olad.log", "w+")
        self.process = subprocess.Popen(
            [*as_ordinary_user(), "env", f"HOME={folder}", "olad", "-c", str(folder), "-l", "3", "-i", "127.0.0.1",
             "-p", str(OLA_PORT), "-r", "9010", "--no-register-with-dns-sd"],
            stdout=self.log, stderr=subprocess.STDOUT)
        self.connection = http.client.HTTPConnection("127.0.0.1", OLA_PORT, timeout=5)
        self.wait_until_ready()
        self.patch("ArtNet", 0)
        self.patch("E1.31", 1)

    def configure(self, folder):
        for plugin in OTHER_PLUGINS:
            (folder / f"ola-{plugin}.conf").write_text("enabled = false\n")
        (folder / "ola-artnet.conf").write_text(
            "enabled = true\nip = 127.0.0.1\nuse_loopback = true\nalways_broadcast = true\noutput_ports = 1\n")
        (folder / "ola-e131.conf").write_text(
            f"enabled = true\nip = {SECOND_ADDRESS}\ninput_ports = 4\noutput_ports = 4\n")
        folder.chmod(0o755)
        if os.environ[INSIDE] == "root":
            for path in [folder, *folder.iterdir()]:
                os.chown(path, 65534, 65534)

    def wait_until_ready(self):
        end = time.monotonic() + 20
        while time.monotonic() < end and self.process.poll() is None:
            try:
                self.levels(0)
                return
            except OSError:
                self.connection.close()
                time.sleep(0.1)
        self.log.seek(0)
        sys.exit("olad did not start:\n" + self.log.read())

    def patch(self, plugin, universe):
        devices = subprocess.run(["ola_dev_info"], capture_output=True, text=True, check=True).stdout
        device = re.search(rf"^Device (\d+): {re.escape(plugin)}", devices, re.M)
        if not device:
            sys.exit(f"olad has no {plugin} device:\n{devices}")
        subprocess.run(["ola_patch", "-i", "-d", device[1], "-p", "0", "-u", str(universe)], check=True,
                       stdout=subprocess.DEVNULL)

    def levels(self, universe):
        """The 512 levels that OLA has now; an empty text when nothing has arrived yet."""
        self.connection.request("GET", f"/get_dmx?u={universe}")
        return bytes(json.loads(self.connection.getresponse().read())["dmx"])

    def close(self):
        self.process.terminate()
        self.process.wait()
        self.log.close()


class Recorder:
    """Records what programs other than OLA send to the two ports, as a capture file for tshark."""

    def __init__(self, path):
        self.path = path
        self.payloads = []  # (time, destination address, port, bytes)
        self.packets = []
        self.socket = socket.socket(socket.AF_PACKET, socket.SOCK_RAW, socket.htons(3))
        self.socket.settimeout(0.1)
        self.running = True
        self.thread = threading.Thread(target=self.record, daemon=True)
        self.thread.start()

    def record(self):
        while True:
            try:
                packet, (_, _, kind, *_) = self.socket.recvfrom(65536)
            except TimeoutError:
                if self.running:
                    continue
                return  # what was sent last has been read too
            if kind == socket.PACKET_OUTGOING and packet[12:14] == b"\x08\x00" and packet[23] == 17:
                self.keep(packet)

    def keep(self, packet):
        udp = 14 + (packet[14] & 15) * 4
        source, destination = struct.unpack(">HH", packet[udp:udp + 4])
        if destination in (ARTNET_PORT, SACN_PORT) and source not in (ARTNET_PORT, SACN_PORT):
            now = time.time()
            self.packets.append((now, packet))
            self.payloads.append((now, socket.inet_ntoa(packet[30:34]), destination, packet[udp + 8:]))

    def close(self):
        self.running = False
        self.thread.join()
        self.socket.close()
        with open(self.path, "wb") as capture:
            capture.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, 1))
            for when, packet in self.packets:
                second, fraction = divmod(when, 1)
                capture.write(struct.pack("<IIII", int(second), int(fraction * 1e6), len(packet), len(packet)) + packet)


def dissect(capture, shown, *names):
    """What tshark makes of a capture: one list of fields for each packet that the filter shows."""
    command = ["tshark", "-n", "-r", str(capture), "--enable-heuristic", "acn", "-o", "acn.dmx_enable:TRUE",
               "-Y", shown, "-T", "fields", *[word for name in names for word in ("-e", name)]]
    result = subprocess.run(command, capture_output=True, text=True, check=True)
    return [line.split("\t") for line in result.stdout.splitlines()]
