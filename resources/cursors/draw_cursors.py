#!/usr/bin/env python3
"""Draws the edit gadgets' cursor pictures (32 x 32 RGBA PNGs).

Each picture is a list of shapes given as signed-distance functions, filled
black with a white outline so that it reads on any map, and 4 x 4
supersampled. Run from this folder to rewrite the PNGs.
"""
import math
import struct
import zlib

SIZE = 32
SAMPLES = 4


def seg(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - ax - t * dx, py - ay - t * dy)


def tri(px, py, a, b, c):
    # Distance to a filled triangle: 0 inside.
    def side(p, q):
        return (q[0] - p[0]) * (py - p[1]) - (q[1] - p[1]) * (px - p[0])
    s = [side(a, b), side(b, c), side(c, a)]
    if all(v >= 0 for v in s) or all(v <= 0 for v in s):
        return 0.0
    return min(seg(px, py, *a, *b), seg(px, py, *b, *c), seg(px, py, *c, *a))


def arrow_heads(cx, cy, r, tip):
    heads = []
    for ang in (0, 90, 180, 270):
        a = math.radians(ang)
        ux, uy = math.cos(a), math.sin(a)
        vx, vy = -uy, ux
        t = (cx + ux * tip, cy + uy * tip)
        b1 = (cx + ux * (tip - 5) + vx * 4, cy + uy * (tip - 5) + vy * 4)
        b2 = (cx + ux * (tip - 5) - vx * 4, cy + uy * (tip - 5) - vy * 4)
        heads.append((t, b1, b2))
    return heads


def move_point(x, y):
    c = 15.5
    d = min(seg(x, y, c - 11, c, c + 11, c), seg(x, y, c, c - 11, c, c + 11)) - 1.2
    for h in arrow_heads(c, c, 0, 14):
        d = min(d, tri(x, y, *h))
    return min(d, math.hypot(x - c, y - c) - 3.5)


def drag_point(x, y):
    c = 15.5
    ring = abs(math.hypot(x - c, y - c) - 8.0) - 1.4
    dot = math.hypot(x - c, y - c) - 4.0
    cross = min(seg(x, y, c - 14, c, c - 10, c), seg(x, y, c + 10, c, c + 14, c),
                seg(x, y, c, c - 14, c, c - 10), seg(x, y, c, c + 10, c, c + 14)) - 1.2
    return min(ring, dot, cross)


def rotate(x, y):
    c = 15.5
    r = 9.5
    ang = math.degrees(math.atan2(y - c, x - c)) % 360
    arc = abs(math.hypot(x - c, y - c) - r) - 1.6
    if 300 < ang or ang < 20:  # a gap to the right, where the head sits
        arc = 99
    head_tip = (c + r * math.cos(math.radians(20)) + 1, c + r * math.sin(math.radians(20)) + 6)
    head = tri(x, y, (c + r - 6, c + 1), (c + r + 5, c + 1), head_tip)
    return min(arc, head, math.hypot(x - c, y - c) - 2.5)


def insert_point(x, y):
    c = 15.5
    plus = min(seg(x, y, c - 9, c, c + 9, c), seg(x, y, c, c - 9, c, c + 9)) - 1.6
    ring = abs(math.hypot(x - c - 8, y - c - 8) - 4.0) - 1.2
    return min(plus, ring)


def render(shape):
    rows = []
    for j in range(SIZE):
        row = bytearray([0])
        for i in range(SIZE):
            ink = edge = 0
            for sj in range(SAMPLES):
                for si in range(SAMPLES):
                    d = shape(i + (si + 0.5) / SAMPLES, j + (sj + 0.5) / SAMPLES)
                    if d <= 0:
                        ink += 1
                    elif d <= 1.3:
                        edge += 1
            n = SAMPLES * SAMPLES
            alpha = (ink + edge) / n
            grey = 0 if ink + edge == 0 else round(255 * edge / (ink + edge))
            row += bytes([grey, grey, grey, round(255 * alpha)])
        rows.append(bytes(row))
    raw = b"".join(rows)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


if __name__ == "__main__":
    for name, shape in (("cursor_move_point.png", move_point), ("dragPoint.png", drag_point),
                        ("rotate.png", rotate), ("cursor2.png", insert_point)):
        with open(name, "wb") as out:
            out.write(render(shape))
