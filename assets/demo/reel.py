"""The chapters of the demo reel. Each gives a list of (picture, hold, blend); a step stands for hold ticks and
then fades into the next one over blend ticks, 20 ticks a second.
"""
import math

from canvas import (BLACK, CENTRE, SIZE, add, chance, clamp, hue, mix, noise, picture, ramp, scale, smooth)

NIGHT = (0.01, 0.0, 0.10, 0.0)
WHITE = (0.0, 0.0, 0.0, 1.0)
WARM = (1.0, 0.62, 0.18, 0.25)

FONT = {
    "Q": [".##.", "#..#", "#..#", "#..#", "#..#", "#.##", ".###"],
    "U": ["#..#", "#..#", "#..#", "#..#", "#..#", "#..#", ".##."],
    "O": [".##.", "#..#", "#..#", "#..#", "#..#", "#..#", ".##."],
    "R": ["###.", "#..#", "#..#", "###.", "#.#.", "#..#", "#..#"],
    "V": ["#...#", "#...#", "#...#", "#...#", ".#.#.", ".#.#.", "..#.."],
    "A": [".##.", "#..#", "#..#", "####", "#..#", "#..#", "#..#"],
    "N": ["#...#", "##..#", "##..#", "#.#.#", "#..##", "#..##", "#...#"],
    "E": ["####", "#...", "#...", "###.", "#...", "#...", "####"],
}

HEART = ["...........",
         "..##...##..",
         ".####.####.",
         "###########",
         "###########",
         "###########",
         ".#########.",
         "..#######..",
         "...#####...",
         "....###....",
         ".....#....."]


def from_centre(x, y):
    return math.hypot(x - CENTRE, y - CENTRE), math.atan2(y - CENTRE, x - CENTRE) / (2 * math.pi)


def stars(x, y, twinkle):
    if chance(x, y, 7) < 0.86:
        return BLACK
    return (0.0, 0.0, 0.12, 0.15 + 0.5 * chance(x, y, twinkle))


def sunrise():
    """Night, the first light on the horizon, the disc, and full day."""
    night = [(picture(lambda x, y: add(NIGHT, stars(x, y, t))), 4, 14) for t in (1, 2, 3)]

    def sky(day):
        zenith = ramp([(0, NIGHT), (0.45, (0.16, 0.05, 0.38, 0)), (1, (0.05, 0.38, 1.0, 0.12))], day)
        glow = ramp([(0, NIGHT), (0.25, (0.75, 0.10, 0.10, 0)), (0.55, (1.0, 0.42, 0.05, 0)),
                     (1, (0.35, 0.62, 0.95, 0.25))], day)
        height = 12.5 - 10.5 * day

        def colour(x, y):
            air = mix(zenith, glow, smooth(0, 1, y / 10 - 0.25 + 0.35 * day * (1 - day)))
            away = math.hypot(x - CENTRE, y - height)
            air = add(air, scale((1.0, 0.45, 0.08, 0.0), 0.75 * math.exp(-(away / 3.2) ** 2) * (1.1 - 0.5 * day)))
            disc = mix((1.0, 0.35, 0.0, 0.0), (1.0, 0.85, 0.25, 1.0), day)
            air = mix(air, disc, smooth(2.6, 1.5, away))
            faded = scale(stars(x, y, 3), clamp(1 - 3 * day))
            return add(air, faded)
        return picture(colour)

    return night + [(sky(t / 9), 1, 17) for t in range(1, 10)] + [(sky(1.0), 10, 20)]


def sea():
    """Swell that runs from the left, foam on its crests, and turns from turquoise to deep blue."""
    def water(t):
        def colour(x, y):
            crest = math.sin(x * 0.62 + 0.9 * math.sin(y * 0.35 + t * 0.22) - t * 0.78 + y * 0.28)
            deep = mix((0.0, 0.30, 0.42, 0.0), (0.0, 0.03, 0.45, 0.0), y / 10)
            body = mix(scale(deep, 0.35), (0.0, 0.85, 0.80, 0.0), smooth(-0.6, 1.0, crest) * (1 - 0.05 * y))
            return add(body, scale(WHITE, 0.55 * smooth(0.80, 1.0, crest)))
        return picture(colour)
    return [(water(t), 1, 7) for t in range(20)]


def spiral():
    """Two coloured arms that wind around the middle, first slowly, then fast."""
    def arms(turn, wind):
        def colour(x, y):
            away, angle = from_centre(x, y)
            arm = 0.5 + 0.5 * math.cos(2 * math.pi * (2 * angle - wind * away + turn))
            return hue(away / 9 - turn * 0.35 + 0.55, 0.06 + 0.94 * arm ** 2.2, 0.5 * smooth(1.0, 0.2, away))
        return picture(colour)
    return [(arms(t * 0.17, 0.10 + 0.003 * t), 1, 9 if t < 6 else 5) for t in range(28)]


def rings():
    """Rings of light that run outwards from where a drop has fallen."""
    drops = [(2, 3, 0, 0.52), (8, 7, 4, 0.83), (5, 5, 8, 0.12), (8, 2, 11, 0.33)]

    def water(t):
        def colour(x, y):
            light = (0.0, 0.01, 0.06, 0.0)
            for left, top, begin, tone in drops:
                age = t - begin
                if age < 0:
                    continue
                width = math.hypot(x - left, y - top) - 1.25 * age
                light = add(light, hue(tone, math.exp(-(width / 1.15) ** 2) * clamp(1.15 - age / 11)))
            return light
        return picture(colour)
    return [(water(t), 1, 6) for t in range(20)]


def heart():
    """A heart that fades in, beats three times and glows out."""
    def beat(size, light, white):
        def colour(x, y):
            column = round(CENTRE + (x - CENTRE) / size)
            row = round(CENTRE + (y - CENTRE) / size)
            inside = 0 <= column < SIZE and 0 <= row < SIZE and HEART[row][column] == "#"
            away, _ = from_centre(x, y - 0.5)
            if inside:
                return (light, 0.02, 0.05 * light, white * smooth(4.5, 0.5, away))
            return scale((0.22, 0.0, 0.10, 0.0), light * 0.55)
        return picture(colour)
    small, large = (beat(0.80, 0.62, 0.0), 2, 5), (beat(1.0, 1.0, 0.35), 1, 5)
    pulse = [large, (beat(0.9, 0.8, 0.1), 1, 5), large, (beat(0.80, 0.62, 0.0), 5, 6)]
    return [(beat(0.6, 0.18, 0.0), 2, 16), small] + pulse * 3 + [(beat(1.0, 1.0, 0.6), 8, 18)]


def rain():
    """Drops with tails in every column, gathering until lightning tears the sky."""
    def drops(t, dusk):
        def colour(x, y):
            light = scale((0.03, 0.05, 0.14, 0.0), 1.2 - dusk)
            for drop in (0, 1):
                head = (t * (1.15 + 0.5 * chance(x, drop, 3)) + 17 * chance(x, drop, 11)) % 17 - 2
                behind = head - y
                tail = clamp(1 - behind / 4.5) if behind >= 0 else clamp(1 + behind / 0.9)
                light = add(light, scale((0.02, 0.30, 0.80, 0.0), tail ** 1.4))
                light = add(light, scale(WHITE, 0.35 * clamp(1 - abs(behind) / 0.9)))
            return light
        return picture(colour)

    def lightning(seed, light):
        column, path = 3 + 5 * chance(seed, 1), []
        for row in range(SIZE):
            column = clamp(column + 2.4 * (chance(seed, row, 5) - 0.5), 0, SIZE - 1)
            path.append(column)

        def colour(x, y):
            bolt = math.exp(-((x - path[y]) / 0.75) ** 2)
            return add((0.10 * light, 0.10 * light, 0.30 * light, 0.10 * light),
                       scale((0.35, 0.35, 1.0, 1.0), bolt * light))
        return picture(colour)

    shower = [(drops(t, t / 26), 1, 5) for t in range(18)]
    storm = [(lightning(2, 1.0), 2, 5), (drops(18, 1.0), 1, 5), (lightning(5, 1.0), 1, 5),
             (lightning(5, 0.35), 1, 5), (lightning(5, 1.0), 3, 9)]
    return shower + storm + [(drops(t, 1.0), 1, 5) for t in range(19, 24)]


def fire():
    """Flames that lick upwards and catch new fuel at the bottom."""
    heat = [(0, BLACK), (0.20, (0.18, 0.0, 0.0, 0)), (0.45, (0.85, 0.08, 0.0, 0)), (0.68, (1.0, 0.36, 0.0, 0)),
            (0.86, (1.0, 0.72, 0.08, 0.0)), (1.0, (1.0, 0.90, 0.35, 0.75))]

    def flames(t, strength):
        def colour(x, y):
            flicker = (0.62 * noise(x / 2.1, y / 3.0 + t * 0.55, 3) +
                       0.38 * noise(x / 1.1 + 40, y / 1.8 + t * 0.95, 9))
            hill = 1 - abs(x - CENTRE) / 13
            return ramp(heat, strength * hill * (0.30 + 0.085 * y) * (0.35 + 1.25 * flicker))
        return picture(colour)
    return [(flames(t, smooth(-3, 4, t) * smooth(31, 25, t)), 1, 5) for t in range(30)]


def plasma():
    """Slow clouds of colour without a beginning or an end."""
    def clouds(t):
        def colour(x, y):
            field = (math.sin(x * 0.55 + t * 0.31) + math.sin(y * 0.48 - t * 0.23) +
                     math.sin((x + y) * 0.36 + t * 0.19) + math.sin(math.hypot(x - 3, y - 8) * 0.62 - t * 0.27))
            return hue(field / 6 + t * 0.022, 0.55 + 0.45 * math.sin(field * 1.7) ** 2)
        return picture(colour)
    return [(clouds(t), 1, 12) for t in range(18)]


def letters():
    """The program's name runs through in white on colours that move against it."""
    columns = [""] * SIZE
    for letter in "QUORVANE":
        rows = FONT[letter]
        columns += ["".join(row[k] for row in rows) for k in range(len(rows[0]))] + [""]
    columns += [""] * SIZE

    def window(t):
        def colour(x, y):
            column = columns[t + x] if t + x < len(columns) else ""
            if 2 <= y < 9 and column and column[y - 2] == "#":
                return (0.10, 0.10, 0.10, 1.0)
            edge = 1.0 if y in (0, 10) else 0.30 if y in (1, 9) else 0.10
            return hue(x / 22 + t * 0.02 + (0.5 if y > 5 else 0.0), edge)
        return picture(colour)
    return [(window(t), 1, 5) for t in range(1, len(columns) - SIZE)]


def fireworks():
    """Three rockets burst, each in its own colour, and sink away into the night of the first step."""
    shells = [(3, 3, 0, 0.97), (7, 4, 5, 0.40), (5, 2, 10, 0.13)]

    def sky(t):
        def colour(x, y):
            light = add(NIGHT, scale(stars(x, y, 1), 0.7))
            for left, top, begin, tone in shells:
                age = t - begin
                if -3 <= age < 0:
                    away = math.hypot(x - left, (y - top + age * 2.4) / 1.4)
                    light = add(light, scale(WARM, math.exp(-(away / 0.7) ** 2)))
                elif 0 <= age < 8:
                    sunk = y - top - 0.06 * age * age
                    away, angle = math.hypot(x - left, sunk), math.atan2(sunk, x - left)
                    ray = 0.55 + 0.45 * math.cos(angle * 8)
                    burst = math.exp(-((away - 0.95 * age) / 1.1) ** 2) * ray * clamp(1.2 - age / 7)
                    light = add(light, hue(tone, burst, 0.9 * burst * smooth(2.5, 0, age)))
            return light
        return picture(colour)
    return [(sky(t), 1, 6) for t in range(-3, 19)] + [(sky(25), 4, 20)]


def reel():
    """All chapters in their order. The last fades into the first, since a sequence plays for ever."""
    chapters = (sunrise, sea, spiral, rings, heart, rain, fire, plasma, letters, fireworks)
    return [step for chapter in chapters for step in chapter()]
