"""The wall as a canvas: 11 x 11 lamps of red, green, blue and white, painted with small colour arithmetic.

Colours are four numbers 0..1 and only become levels when a picture is finished. Random-looking patterns come
from a hash, so that every run makes the same reel.
"""
import math

SIZE = 11
CENTRE = (SIZE - 1) / 2
BLACK = (0.0, 0.0, 0.0, 0.0)


def clamp(value, low=0.0, high=1.0):
    return max(low, min(high, value))


def smooth(low, high, value):
    """0 below low, 1 above high, with a soft bend in between."""
    t = clamp((value - low) / (high - low))
    return t * t * (3 - 2 * t)


def mix(one, other, share):
    share = clamp(share)
    return tuple(a + (b - a) * share for a, b in zip(one, other))


def scale(colour, factor):
    return tuple(c * factor for c in colour)


def add(one, other):
    return tuple(clamp(a + b) for a, b in zip(one, other))


def hue(angle, value=1.0, white=0.0):
    """The full colour circle; angle in turns."""
    def primary(shift):
        return clamp(abs((angle + shift) % 1.0 * 6 - 3) - 1) * value
    return (primary(0.0), primary(2 / 3), primary(1 / 3), white)


def ramp(stops, place):
    """The colour at place 0..1 on a row of (place, colour) stops."""
    place = clamp(place)
    for (p0, c0), (p1, c1) in zip(stops, stops[1:]):
        if place <= p1:
            return mix(c0, c1, (place - p0) / (p1 - p0))
    return stops[-1][1]


def chance(*numbers):
    """A number 0..1 that depends on the given whole numbers only."""
    state = 2166136261
    for number in numbers:
        for shift in (0, 8, 16, 24):
            state = ((state ^ (number >> shift & 255)) * 16777619) & 0xFFFFFFFF
    state ^= state >> 15
    state = (state * 2246822519) & 0xFFFFFFFF
    return ((state ^ state >> 13) & 0xFFFF) / 65535


def noise(x, y, seed=0):
    """Smooth random hills, one per unit."""
    left, top = math.floor(x), math.floor(y)
    fx, fy = smooth(0, 1, x - left), smooth(0, 1, y - top)
    corners = [chance(left + i, top + j, seed) for j in (0, 1) for i in (0, 1)]
    upper = corners[0] + (corners[1] - corners[0]) * fx
    lower = corners[2] + (corners[3] - corners[2]) * fx
    return upper + (lower - upper) * fy


def picture(colour):
    """Calls colour(x, y) for every lamp, row by row from the top left, x and y counted from 0."""
    return [colour(x, y) for y in range(SIZE) for x in range(SIZE)]


def levels(colours):
    """The 121 x 4 levels of a picture. A gentle curve makes dark colours look as dark as they are meant."""
    return [[round(255 * clamp(c) ** 1.25) for c in colour] for colour in colours]
