"""What a show calls for, worked out from its files alone: the 512 DMX levels of every tick of one round of the
sequence. Shares nothing with the program, so that a mistake in one shows up against the other."""

import re
import struct

CHANNELS = 512


def fields(path):
    """The fields of a show file: texts between commas and line ends, without blanks at their ends."""
    raw = path.read_bytes()
    try:
        text = raw.decode("utf-8")
    except UnicodeDecodeError:
        text = raw.decode("cp1252")
    return [field.strip() for field in re.split(r"[,\r\n]+", text)]


def section(all_fields, name):
    """The fields behind a section's name, in whatever case it is written."""
    return all_fields[[field.upper() for field in all_fields].index(f"[{name}]") + 1:]


def key_value(field):
    """The number of a key line stands in its last three characters."""
    return int(re.sub(r"^.*=", "", field[-3:]))


def per_channel(values):
    """A flat list of numbers, four to an element."""
    return [values[at:at + 4] for at in range(0, len(values), 4)]


class Show:
    """Patch and correction of each element, levels and (hold, blend) of each step."""

    def __init__(self, patch, correction, steps, times):
        self.patch, self.correction, self.steps, self.times = patch, correction, steps, times
        self.step_count = len(steps)

    def frame(self, levels):
        """The levels on the line: correction subtracted, each channel where it is patched to."""
        out = bytearray(CHANNELS + 1)  # channel 513 may be patched but is not sent
        for index, level in enumerate(levels):
            element, channel = divmod(index, 4)
            out[self.patch[element][channel] - 1] = max(0, level - self.correction[element][channel])
        return bytes(out[:CHANNELS])

    def round(self):
        """(frame, step) for every tick of one round; step is None while a blend runs."""
        ticks = []
        levels = self.steps[0]
        for number, (hold, blend) in enumerate(self.times):
            ticks += [(self.frame(levels), number + 1)] * (1 + hold)  # the tick that starts a step holds too
            target = self.steps[(number + 1) % self.step_count]
            for blended in blends(levels, target, blend):
                ticks.append((self.frame(blended), None))
                levels = blended
        assert levels == self.steps[0], "a blend missed its target"
        return ticks


def read_show(config, sequence):
    """The show of a configuration and a sequence made on the same wall."""
    wall = fields(config)
    elements = key_value(section(wall, "CONFIG")[0])
    count = elements * 4
    patch = [int(field) for field in section(wall, "PATCHING")[:count]]
    correction = [int(field) for field in section(wall, "FARBKORREKTUR")[:count]]

    played = fields(sequence)
    head = section(played, "CONFIG")
    assert key_value(head[0]) == elements, "the sequence was made on another wall"
    step_count = key_value(head[1])
    levels = [int(field) for field in section(played, "SEQUENCE")[:step_count * count]]
    steps = [levels[at:at + count] for at in range(0, len(levels), count)]
    times = [int(field) for field in section(played, "HOLDBLEND")[:step_count * 2]]
    return Show(per_channel(patch), per_channel(correction), steps, list(zip(times[::2], times[1::2])))


def single(number):
    """Rounded to single precision, in which blends are computed."""
    return struct.unpack("f", struct.pack("f", number))[0]


def blends(levels, target, count):
    """The levels after each tick of a blend, rounded halves to even."""
    increments = [single((end - begin) / count) for begin, end in zip(levels, target)]
    exact = [float(level) for level in levels]
    for _ in range(count):
        exact = [single(value + increment) for value, increment in zip(exact, increments)]
        yield [round(value) for value in exact]


class Follower:
    """Holds what a receiver sees against a round of playback. Every frame must be one of its moments, later
    than the one before and not far behind; the levels that a step holds must be seen for each step."""

    FURTHEST = 20  # ticks that the onlooker may have missed

    def __init__(self, ticks):
        self.ticks = ticks
        self.at = None
        self.passed = 0
        self.seen = []  # steps whose hold was seen, in order

    def frame(self, index):
        return self.ticks[index % len(self.ticks)][0]

    def look(self, frame):
        """One look at the receiver. Gives a text when the frame is none that may come now."""
        if self.at is None:
            if not any(frame):
                return None  # the output starts dark
            if frame != self.frame(0):
                return "the first levels are not those of step 1\n" + difference(self.frame(0), frame)
            self.advance(0)
        if frame == self.frame(self.at):
            return None
        for index in range(self.at + 1, self.at + 1 + self.FURTHEST):
            if frame == self.frame(index):
                self.passed += index - self.at - 1
                self.advance(index)
                return None
        return (f"levels that no tick after number {self.at} calls for\n" +
                difference(self.frame(self.at + 1), frame))

    def advance(self, index):
        """To the end of the run of equal frames that begins at index: they cannot be told apart."""
        frame = self.frame(index)
        while self.frame(index) == frame and index < 2 * len(self.ticks):
            step = self.ticks[index % len(self.ticks)][1]
            if step and (not self.seen or self.seen[-1] != step):
                self.seen.append(step)
            self.at = index
            index += 1


def difference(expected, found):
    """The first channels in which two frames differ."""
    channels = [f"channel {index + 1}: {want} called for, {have} received"
                for index, (want, have) in enumerate(zip(expected, found)) if want != have]
    return "\n".join(channels[:8])
