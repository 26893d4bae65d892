"""A small JPEG writer: baseline, three full-size components, tables of its own. Needs nothing but Python, so that
the pictures come out the same everywhere."""
import heapq
import math
import struct
from collections import Counter

# Fine where the eye looks, coarser for the finest detail.
QUANTISER = [[3 + 2 * (u + v) for u in range(8)] for v in range(8)]
ZIGZAG = sorted(((u, v) for u in range(8) for v in range(8)),
                key=lambda at: (sum(at), at[0] if sum(at) % 2 == 0 else at[1]))
WAVES = [[math.cos((2 * x + 1) * u * math.pi / 16) * (math.sqrt(0.125) if u == 0 else 0.5) for x in range(8)]
         for u in range(8)]


def quantised(block):
    """The 64 coefficients of 8 rows of 8 samples, in zigzag order."""
    rows = [[sum(w * s for w, s in zip(wave, row)) for wave in WAVES] for row in block]
    columns = list(zip(*rows))
    found = [[sum(w * s for w, s in zip(wave, column)) for wave in WAVES] for column in columns]  # [u][v]
    return [round(found[u][v] / QUANTISER[v][u]) for u, v in ZIGZAG]


def bits_of(number):
    """A coefficient's category and the bits that follow its code."""
    size = abs(number).bit_length()
    return size, format(number if number > 0 else number + (1 << size) - 1, f"0{size}b") if size else ""


def symbols(coefficients, previous):
    """(table, symbol, extra bits) of a block; table 0 is for the first coefficient, 1 for the others."""
    size, extra = bits_of(coefficients[0] - previous)
    yield 0, size, extra
    run = 0
    last = max((i for i in range(1, 64) if coefficients[i]), default=0)
    for number in coefficients[1:last + 1]:
        if number == 0:
            run += 1
            continue
        while run > 15:
            yield 1, 0xF0, ""
            run -= 16
        size, extra = bits_of(number)
        yield 1, run << 4 | size, extra
        run = 0
    if last < 63:
        yield 1, 0, ""


def code_lengths(counts):
    """Symbols by code length, shortest first, at most 16 bits. The code of ones alone stays unused."""
    while True:
        heap = [(count, [symbol]) for symbol, count in sorted(counts.items())] + [(0, [-1])]
        heapq.heapify(heap)
        lengths = Counter()
        while len(heap) > 1:
            (a, first), (b, second) = heapq.heappop(heap), heapq.heappop(heap)
            lengths.update(first + second)
            heapq.heappush(heap, (a + b, first + second))
        if max(lengths.values()) <= 16:
            break
        counts = Counter({symbol: count // 2 + 1 for symbol, count in counts.items()})
    longest = max(lengths.values())
    lengths[-1] = longest
    return sorted((length, symbol if symbol >= 0 else 256) for symbol, length in lengths.items())


def huffman(counts):
    """The table as it stands in a file, and the code of each symbol."""
    order = code_lengths(counts)
    codes, code, length = {}, 0, 0
    for size, symbol in order:
        code <<= size - length
        length = size
        codes[symbol] = format(code, f"0{size}b")
        code += 1
    real = [(size, symbol) for size, symbol in order if symbol < 256]
    sizes = Counter(size for size, _ in real)
    return bytes(sizes[size] for size in range(1, 17)) + bytes(symbol for _, symbol in real), codes


def components(rows):
    """Brightness and two colour differences of rows of (red, green, blue), around 0."""
    planes = [[], [], []]
    for row in rows:
        planes[0].append([0.299 * r + 0.587 * g + 0.114 * b - 128 for r, g, b in row])
        planes[1].append([-0.168736 * r - 0.331264 * g + 0.5 * b for r, g, b in row])
        planes[2].append([0.5 * r - 0.418688 * g - 0.081312 * b for r, g, b in row])
    return planes


def segment(marker, data):
    return struct.pack(">BBH", 0xFF, marker, len(data) + 2) + data


def encode(rows):
    """The bytes of a JPEG file. rows of (red, green, blue); both sides must be multiples of 8."""
    height, width = len(rows), len(rows[0])
    planes = components(rows)
    known, stream, before = {}, [], [0, 0, 0]
    for top in range(0, height, 8):
        for left in range(0, width, 8):
            for number, plane in enumerate(planes):
                block = tuple(tuple(row[left:left + 8]) for row in plane[top:top + 8])
                if block not in known:
                    known[block] = quantised(block)
                stream += [(number, *item) for item in symbols(known[block], before[number])]
                before[number] = known[block][0]
    tables = {}
    for kind in (0, 1):
        tables[kind] = huffman(Counter(symbol for _, table, symbol, _ in stream if table == kind))
    bits = "".join(tables[table][1][symbol] + extra for _, table, symbol, extra in stream)
    bits += "1" * (-len(bits) % 8)
    data = int(bits, 2).to_bytes(len(bits) // 8, "big").replace(b"\xff", b"\xff\x00")
    quantiser = bytes(QUANTISER[v][u] for u, v in ZIGZAG)
    return b"".join([
        b"\xff\xd8", segment(0xE0, b"JFIF\0\x01\x01\0\0\x01\0\x01\0\0"), segment(0xDB, b"\0" + quantiser),
        segment(0xC0, struct.pack(">BHHB", 8, height, width, 3) + bytes(
            value for number in (1, 2, 3) for value in (number, 0x11, 0))),
        segment(0xC4, b"\x00" + tables[0][0]), segment(0xC4, b"\x10" + tables[1][0]),
        segment(0xDA, b"\x03\x01\x00\x02\x00\x03\x00\x00\x3f\x00"), data, b"\xff\xd9"])
