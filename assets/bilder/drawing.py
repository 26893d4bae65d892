"""A canvas with smooth edges: polygons, boxes with round corners, discs, lines and plain letters."""
import math

STEPS = 4  # lines that are looked at in each row of pixels

LETTERS = {
    "0": "01110 10001 10011 10101 11001 10001 01110", "1": "00100 01100 00100 00100 00100 00100 01110",
    "2": "01110 10001 00001 00110 01000 10000 11111", "3": "11110 00001 00001 01110 00001 00001 11110",
    "7": "11111 00001 00010 00100 01000 01000 01000", "8": "01110 10001 10001 01110 10001 10001 01110",
    "A": "01110 10001 10001 11111 10001 10001 10001", "B": "11110 10001 10001 11110 10001 10001 11110",
    "C": "01111 10000 10000 10000 10000 10000 01111", "D": "11110 10001 10001 10001 10001 10001 11110",
    "I": "01110 00100 00100 00100 00100 00100 01110", "K": "10001 10010 10100 11000 10100 10010 10001",
    "L": "10000 10000 10000 10000 10000 10000 11111", "M": "10001 11011 10101 10101 10001 10001 10001",
    "N": "10001 11001 10101 10011 10001 10001 10001", "P": "11110 10001 10001 11110 10000 10000 10000",
    "S": "01111 10000 10000 01110 00001 00001 11110", "U": "10001 10001 10001 10001 10001 10001 01110",
    "X": "10001 10001 01010 00100 01010 10001 10001",
}


class Canvas:
    def __init__(self, width, height, colour):
        self.width, self.height = width, height
        self.rows = [[colour] * width for _ in range(height)]

    def blend(self, y, left, coverage, colour):
        row = self.rows[y]
        for x, part in enumerate(coverage, left):
            if part >= 0.999:
                row[x] = colour
            elif part > 0.001:
                row[x] = tuple(round(old + (new - old) * part) for old, new in zip(row[x], colour))

    def polygon(self, points, colour):
        """Even-odd, so that a list that crosses itself leaves a hole."""
        edges = [(a, b) if a[1] < b[1] else (b, a) for a, b in zip(points, points[1:] + points[:1]) if a[1] != b[1]]
        left = max(0, math.floor(min(x for x, _ in points)))
        right = min(self.width, math.ceil(max(x for x, _ in points)) + 1)
        top = max(0, math.floor(min(y for _, y in points)))
        bottom = min(self.height, math.ceil(max(y for _, y in points)))
        for y in range(top, bottom):
            coverage = [0.0] * (right - left + 1)
            for step in range(STEPS):
                at = y + (step + 0.5) / STEPS
                crossed = sorted(a[0] + (at - a[1]) * (b[0] - a[0]) / (b[1] - a[1])
                                 for a, b in edges if a[1] <= at < b[1])
                for start, end in zip(crossed[::2], crossed[1::2]):
                    start, end = max(start, left), min(end, right)
                    x = start
                    while x < end:
                        border = min(math.floor(x) + 1, end)
                        coverage[math.floor(x) - left] += (border - x) / STEPS
                        x = border
            self.blend(y, left, coverage[:right - left], colour)

    def box(self, x, y, width, height, colour, corner=0.0):
        if corner == 0:
            self.polygon([(x, y), (x + width, y), (x + width, y + height), (x, y + height)], colour)
            return
        points = []
        for quarter, (cx, cy) in enumerate([(x + width - corner, y + height - corner), (x + corner, y + height - corner),
                                            (x + corner, y + corner), (x + width - corner, y + corner)]):
            points += [(cx + corner * math.cos(math.radians(a)), cy + corner * math.sin(math.radians(a)))
                       for a in range(90 * quarter, 90 * quarter + 91, 9)]
        self.polygon(points, colour)

    def disc(self, x, y, radius, colour):
        self.polygon([(x + radius * math.cos(math.radians(a)), y + radius * math.sin(math.radians(a)))
                      for a in range(0, 360, 6)], colour)

    def line(self, points, thickness, colour):
        """Round at its ends and bends."""
        for (ax, ay), (bx, by) in zip(points, points[1:]):
            length = math.hypot(bx - ax, by - ay)
            if length > 0:
                nx, ny = (by - ay) / length * thickness / 2, (ax - bx) / length * thickness / 2
                self.polygon([(ax + nx, ay + ny), (bx + nx, by + ny), (bx - nx, by - ny), (ax - nx, ay - ny)], colour)
        for x, y in points:
            self.disc(x, y, thickness / 2, colour)

    def text(self, x, y, text, dot, colour):
        """Letters of 5 x 7 dots, the first at x, y; on whole pixels, so that the dots join."""
        x, y = round(x), round(y)
        for number, letter in enumerate(text):
            for row, dots in enumerate(LETTERS[letter].split() if letter != " " else []):
                start = 0
                while start < 5:
                    end = start
                    while end < 5 and dots[end] == "1":
                        end += 1
                    if end > start:
                        self.box(x + (6 * number + start) * dot, y + row * dot, (end - start) * dot, dot, colour)
                    start = end + 1


def text_width(text, dot):
    return (6 * len(text) - 1) * dot
