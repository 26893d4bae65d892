#!/usr/bin/env python3
"""The demo on the air: the program plays it, OLA receives it, and what OLA holds is compared with what the files
call for. Then tshark, which knows both protocols too, is asked about the packets.

    receiver_test.py --program QUORVANE --demo FOLDER [sacn] [artnet]
    receiver_test.py --player NETWORK_PLAYER

The second form looks at the output alone, with frames worked out here: what arrives, the end of a stream,
multicast and broadcast, a network that goes away."""

import argparse
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True  # the source folder stays clean
import house
import playback

PROTOCOLS = {"sacn": ("sACN", 1), "artnet": ("Art-Net", 0)}


def fail(text):
    print("FAILED: " + text, flush=True)
    sys.exit(1)


def check(condition, text):
    if not condition:
        fail(text)


def write_settings(folder, **values):
    lines = [f"{key} = {value}\r\n" for key, value in values.items()]
    (folder / "Ausgabe.ini").write_text("[Ausgabe]\r\n" + "".join(lines))


# ---- the demo in the whole program

def only(folder, ending):
    found = [path for path in folder.rglob("*") if path.suffix.upper() == ending]
    check(len(found) == 1, f"{len(found)} {ending} files below {folder}")
    return found[0]


def shorten_times(sequence):
    """The demo takes minutes; its steps are what counts here. Hold and blend differ from step to step."""
    raw = sequence.read_bytes()
    begin = raw.upper().index(b"[HOLDBLEND]") + len(b"[HOLDBLEND]")
    end = raw.upper().index(b"[SELECTIONS]")
    count = len(raw[begin:end].split(b",")) // 2
    times = b",".join(b" %d, %d" % (1 + step % 2, 5 + step % 3) for step in range(count))
    sequence.write_bytes(raw[:begin] + b"\r\n" + times + b"\r\n" + raw[end:])


def prepare_folder(demo, folder, protocol, universe):
    """A copy of the demo that starts playing by itself, and its show."""
    shutil.copytree(demo, folder)
    config, sequence, colours = (only(folder, ending) for ending in (".CFG", ".QSQ", ".QCT"))
    shorten_times(sequence)
    playing, reload_files, wall_window = 0x100, 0x20000, 0x100000
    for old in folder.glob("[Qq]*.[Ii][Nn][Ii]"):
        old.unlink()
    lines = ["ini-Datei von QUORVANE 98", "[DMXINI]", ",".join([" 0"] * 16), "[OPTIONS]",
             f" {playing | reload_files | wall_window}", " 80", "[FILES]", str(config), "", str(sequence),
             str(colours), "[WINDOWSPOS]", ",".join([" 0"] * 50), ""]
    (folder / "QUORVANE.ini").write_bytes("\r\n".join(lines).encode("cp1252"))
    write_settings(folder, Protokoll=protocol, Universum=universe, Adresse="127.0.0.1")
    return playback.read_show(config, sequence)


def start_program(program, work, folder):
    settings = work / "config" / "Quorvane"
    settings.mkdir(parents=True)
    (settings / "Quorvane.conf").write_text("[Interface]\nType=3\n")
    (work / "run").mkdir(mode=0o700)
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": str(work),
                   "XDG_CONFIG_HOME": str(work / "config"), "XDG_RUNTIME_DIR": str(work / "run")}
    return subprocess.Popen([program, "--program-folder", str(folder)], env=environment)


def follow(ola, universe, ticks, process, steps):
    """Looks at the receiver until it has shown that many steps."""
    follower = playback.Follower(ticks)
    end = time.monotonic() + 30 + len(ticks) * 0.05 * 2
    while len(follower.seen) < steps:
        check(process.poll() is None, f"the program ended by itself ({process.poll()})")
        check(time.monotonic() < end, f"{steps} steps take too long; seen: {follower.seen}")
        levels = ola.levels(universe)
        if levels:
            complaint = follower.look(levels)
            check(complaint is None, f"OLA universe {universe}: {complaint}")
        time.sleep(0.004)
    return follower


def compare(ola, start, packets, name, show, longest=None):
    """Follows a round of a show that a process plays, or its first steps, and looks at the packets; gives their
    record."""
    protocol, universe = PROTOCOLS[name]
    ticks = show.round()
    recorder = house.Recorder(packets)
    process = start()
    try:
        expected = [*range(1, show.step_count + 1), 1][:longest]
        follower = follow(ola, universe, ticks, process, len(expected))
    finally:
        process.terminate()
        process.wait()
        recorder.close()
    check(follower.seen[:len(expected)] == expected, f"steps are missing or out of order: {follower.seen}")
    check({address for _, address, _, _ in recorder.payloads} == {"127.0.0.1"}, "something goes elsewhere")
    check_packets(name, recorder, universe, "Quorvane")
    print(f"{protocol}: {len(expected)} steps followed of a sequence of {show.step_count}, {follower.passed} ticks between two "
          f"looks, {len(recorder.packets)} packets well formed", flush=True)
    return recorder


def play_demo(program, demo, ola, work, name):
    work.mkdir()
    show = prepare_folder(demo, work / "folder", *PROTOCOLS[name])
    longest = None if name == "sacn" else 40  # one whole round is enough: both take their levels from one place
    recorder = compare(ola, lambda: start_program(program, work, work / "folder"), work / "packets.pcap", name, show,
                       longest)
    if name == "sacn":
        check_end(recorder, len(recorder.payloads) - 3)


# ---- what tshark says

def check_packets(name, recorder, universe, source):
    check(recorder.packets, "no packet was recorded")
    malformed = house.dissect(recorder.path, "_ws.malformed", "frame.number")
    check(malformed == [], f"tshark calls packets malformed: {malformed[:5]}")
    if name == "sacn":
        rows = house.dissect(recorder.path, "acn", "acn.dmx.seq_number", "acn.dmx.universe", "acn.dmx.priority",
                             "acn.dmx.source_name", "acn.dmx.start_code2", "acn.dmx.count", "acn.cid")
        sequence = [int(row[0]) for row in rows]
        following = [(number + 1) % 256 for number in sequence]
        constant = {tuple(row[1:6]) for row in rows}
        check(len(constant) == 1, f"head fields change: {constant}")
        found = [value.strip("\0 ") for value in next(iter(constant))]
        check([int(found[0]), int(found[1]), found[2]] == [universe, 100, source], f"head fields {found}")
        check([int(found[3], 0), int(found[4], 0)] == [0, 513], f"start code and count {found[3:]}")
        check(len({row[6] for row in rows}) == 1, "the CID changes")
    else:
        rows = house.dissect(recorder.path, "artnet", "artnet.output.sequence", "artnet.header.opcode",
                             "artnet.output.universe", "artnet.output.length")
        sequence = [int(row[0], 0) for row in rows]
        following = [number % 255 + 1 for number in sequence]
        constant = {tuple(int(value, 0) for value in row[1:]) for row in rows}
        check(constant == {(0x5000, universe, 512)}, f"head fields {constant}")
    check(len(rows) == len(recorder.packets), f"tshark knows {len(rows)} of {len(recorder.packets)} packets")
    check(sequence[1:] == following[:-1], "the sequence numbers do not count on")


def check_end(recorder, frames):
    """Receivers of sACN are told three times that the stream ends, and not before."""
    options = [payload[112] for _, _, _, payload in recorder.payloads]
    check(options == [0] * frames + [0x40] * 3,
          f"options of {frames} frames and the end: {set(options[:-3])}, {options[-3:]} in {len(options)} packets")


# ---- the output alone

def play_at_receiver(player, ola, work, name):
    """A small show, its frames worked out here and played by the output: the way to the receiver is right."""
    work.mkdir()
    numbers = random.Random(7)
    elements = 128
    channels = numbers.sample(range(1, 513), elements * 4)
    show = playback.Show(playback.per_channel(channels),
                         playback.per_channel([numbers.randrange(30) for _ in channels]),
                         [[numbers.randrange(256) for _ in channels] for _ in range(8)],
                         [(2 + step % 3, 5 + step % 4) for step in range(8)])
    protocol, universe = PROTOCOLS[name]
    write_settings(work, Protokoll=protocol, Universum=universe)
    (work / "frames").write_bytes(b"".join(frame for frame, _ in show.round()) * 3)
    compare(ola, lambda: subprocess.Popen([player, work, work / "frames"]), work / "packets.pcap", name, show)


def play_frames(player, work, frames, **settings):
    """Plays frames to their end; gives the record of the packets."""
    work.mkdir()
    write_settings(work, **settings)
    (work / "frames").write_bytes(frames)
    recorder = house.Recorder(work / "packets.pcap")
    result = subprocess.run([player, work, work / "frames"], capture_output=True, text=True, timeout=60, check=True)
    check(result.stdout == "", f"unexpected report: {result.stdout}")
    recorder.close()
    return recorder


def check_stream_end(player, work):
    recorder = play_frames(player, work / "end", bytes(range(256)) * 2 * 10, Vorrang=120, Name="Bühne")
    check_end(recorder, 10)
    rows = house.dissect(recorder.path, "acn", "acn.dmx.priority", "acn.dmx.source_name")
    check({(int(row[0]), row[1].strip("\0 ")) for row in rows} == {(120, "Bühne")}, f"dissected: {rows[:3]}")

    recorder = play_frames(player, work / "artnet-end", bytes(512) * 10, Protokoll="Art-Net", Universum=291)
    check(len(recorder.payloads) == 10, f"{len(recorder.payloads)} ArtDmx packets for 10 frames")
    check_packets("artnet", recorder, 291, "")
    print("streams end as they should", flush=True)


def plug_in(card, address, *more):
    house.ip("link", "add", card, "type", "veth", "peer", "name", f"{card}-far")
    house.ip("addr", "add", address, *more, "dev", card)
    house.ip("link", "set", card, "up")
    house.ip("link", "set", f"{card}-far", "up")


def check_destinations(player, work):
    frames = bytes(512) * 30  # the sender is announced within the first second
    plug_in("stage0", "10.9.8.7/24", "broadcast", "10.9.8.255")
    recorder = play_frames(player, work / "multicast", frames, Universum=258, Adresse="Multicast",
                           Netzwerkkarte="stage0")
    check({(address, port) for _, address, port, _ in recorder.payloads} ==
          {("239.255.1.2", house.SACN_PORT), ("239.255.250.214", house.SACN_PORT)}, "multicast goes elsewhere")
    check(house.dissect(recorder.path, "_ws.malformed", "frame.number") == [], "malformed multicast packets")
    announced = [len(payload) for _, address, _, payload in recorder.payloads if address == "239.255.250.214"]
    check(announced == [122], f"lengths of the announcements: {announced}")
    recorder = play_frames(player, work / "broadcast", frames, Protokoll="Art-Net", Adresse="Broadcast",
                           Netzwerkkarte="stage0")
    check({(address, port) for _, address, port, _ in recorder.payloads} == {("10.9.8.255", house.ARTNET_PORT)},
          "broadcast goes elsewhere")
    print("multicast and broadcast leave through the chosen card", flush=True)


def wait_for(condition, text, seconds=10):
    end = time.monotonic() + seconds
    while not condition():
        check(time.monotonic() < end, text)
        time.sleep(0.05)


def check_lost_network(player, work):
    """The chosen card loses its cable, gets it back, is pulled out and put in again, while frames go on."""
    folder = work / "lost"
    folder.mkdir()
    write_settings(folder, Adresse="Multicast", Netzwerkkarte="lamp0")
    reports = folder / "reports"
    recorder = house.Recorder(folder / "packets.pcap")
    with open(reports, "w") as output:
        process = subprocess.Popen([player, folder, "-"], stdout=output)

    def told(count, word):
        lines = reports.read_text().splitlines()
        return len(lines) == count and word in lines[-1]

    def arriving():
        before = len(recorder.payloads)
        time.sleep(0.3)
        return len(recorder.payloads) > before

    try:
        wait_for(lambda: told(1, "nicht erreichbar"), "a missing card was not reported")
        plug_in("lamp0", "10.1.2.2/24")
        wait_for(lambda: told(2, "wieder da") and arriving(), "the card was not picked up")
        house.ip("link", "set", "lamp0-far", "down")
        wait_for(lambda: told(3, "nicht erreichbar"), "a pulled cable was not reported")
        house.ip("link", "set", "lamp0-far", "up")
        wait_for(lambda: told(4, "wieder da") and arriving(), "the cable put in again was not noticed")
        house.ip("link", "del", "lamp0")
        wait_for(lambda: told(5, "nicht erreichbar"), "a card that was pulled out was not reported")
        time.sleep(1)
        check(told(5, "nicht erreichbar"), "a lost card was reported more than once")
        plug_in("lamp0", "10.1.2.2/24")
        wait_for(lambda: told(6, "wieder da") and arriving(), "the card put in again was not picked up")
    finally:
        process.terminate()
        process.wait()
        recorder.close()
    print("a lost network is reported once and picked up again", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program")
    parser.add_argument("--demo", type=pathlib.Path)
    parser.add_argument("--player")
    parser.add_argument("protocols", nargs="*", choices=[[], *PROTOCOLS], default=[])
    chosen = parser.parse_args()
    house.need("olad", "ola_patch", "ola_dev_info", "tshark", "ip", "unshare", "setpriv")
    house.move_inside()
    house.make_network()
    with tempfile.TemporaryDirectory(prefix="receiver-") as name:
        work = pathlib.Path(name)
        work.chmod(0o755)
        if chosen.player:
            check_stream_end(chosen.player, work)
            check_destinations(chosen.player, work)
            check_lost_network(chosen.player, work)
        ola = house.Ola(work / "olad")
        try:
            for protocol in chosen.protocols or PROTOCOLS:
                if chosen.player:
                    play_at_receiver(chosen.player, ola, work / protocol, protocol)
                if chosen.program:
                    play_demo(chosen.program, chosen.demo, ola, work / f"demo-{protocol}", protocol)
        finally:
            ola.close()


if __name__ == "__main__":
    main()
