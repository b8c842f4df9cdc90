#!/usr/bin/env python3
"""Counts the pixels of each colour of an 8-bit RGB or RGBA PNG (not interlaced), as JSON keyed
by hex colour. Only the standard library: zlib and the five PNG row filters."""
import json
import struct
import sys
import zlib


def paeth(a, b, c):
    p = a + b - c
    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
    if pa <= pb and pa <= pc:
        return a
    return b if pb <= pc else c


def pixels(path):
    data = open(path, "rb").read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", "not a PNG"
    at, chunks, header = 8, [], None
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            chunks.append(body)
        at += 12 + length
    width, height, depth, colour, _, _, interlace = header
    assert depth == 8 and colour in (2, 6) and interlace == 0, "unsupported PNG"
    size = 4 if colour == 6 else 3
    raw = zlib.decompress(b"".join(chunks))
    stride = width * size
    previous = bytearray(stride)
    for row in range(height):
        start = row * (stride + 1)
        kind, line = raw[start], bytearray(raw[start + 1:start + 1 + stride])
        for i in range(stride):
            left = line[i - size] if i >= size else 0
            up = previous[i]
            corner = previous[i - size] if i >= size else 0
            add = (0, left, up, (left + up) // 2, paeth(left, up, corner))[kind]
            line[i] = (line[i] + add) & 0xFF
        for i in range(0, stride, size):
            alpha = line[i + 3] if size == 4 else 255
            # Composite over white, as a viewer shows it.
            yield tuple((line[i + c] * alpha + 255 * (255 - alpha)) // 255 for c in range(3))
        previous = line


counts = {}
for r, g, b in pixels(sys.argv[1]):
    key = "%02x%02x%02x" % (r, g, b)
    counts[key] = counts.get(key, 0) + 1
print(json.dumps(dict(sorted(counts.items(), key=lambda item: -item[1]))))
