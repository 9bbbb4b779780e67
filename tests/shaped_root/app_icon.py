"""Draws the icon of an application: a rounded tile of one colour with a white sign on it, as a PNG, SVG or .icns file.

The signs are those of the program's own icon set, in signs.txt: a name, a space, and the path data of the SVG in a
256-point coordinate system. Their licence is assets/licences/Phosphor-MIT.txt. A file is at most one disk block.
"""

import functools
import itertools
import math
import pathlib
import re
import struct
import zlib

WIDTH = 128                # of the image
GROUND = 256               # of a sign's coordinate system
SIGN = 0.59                # relative to the tile
CORNER = 0.22              # corner radius, relative to the tile
SHADES = 16                # of the palette: from the tile's colour to the sign's, and from transparent to the tile's
STEPS = 8                  # line segments per curve


@functools.cache
def signs():
    lines = pathlib.Path(__file__).with_name("signs.txt").read_text(encoding="ascii").splitlines()
    return dict(line.split(" ", 1) for line in lines)


def numbers(text):
    """The arguments of one command. SVG allows the flags of an arc without separators; none occurs here."""
    return [float(number) for number in re.findall(r"-?(?:\d*\.\d+|\d+)", text)]


def curve(start, one, two, end):
    for step in range(1, STEPS + 1):
        t = step / STEPS
        weights = (1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t * t * (1 - t), t ** 3
        yield tuple(sum(weight * point[axis] for weight, point in zip(weights, (start, one, two, end)))
                    for axis in (0, 1))


def toward(end, corner):
    """The control point of a cubic curve that replaces the one of a quadratic curve."""
    return end[0] + (corner[0] - end[0]) * 2 / 3, end[1] + (corner[1] - end[1]) * 2 / 3


def arc(start, radii, turn, is_large, is_clockwise, end):
    """An elliptical arc from point to point, as SVG defines it."""
    (x1, y1), (x2, y2), (rx, ry) = start, end, radii
    if not rx or not ry or start == end:
        yield end
        return
    cos, sin = math.cos(math.radians(turn)), math.sin(math.radians(turn))
    dx, dy = (x1 - x2) / 2, (y1 - y2) / 2
    ux, uy = cos * dx + sin * dy, cos * dy - sin * dx
    stretch = (ux / rx) ** 2 + (uy / ry) ** 2
    if stretch > 1:
        rx, ry = rx * math.sqrt(stretch), ry * math.sqrt(stretch)
    across = (rx * uy) ** 2 + (ry * ux) ** 2
    factor = math.sqrt(max(0, (rx * ry) ** 2 / across - 1)) * (-1 if is_large == is_clockwise else 1)
    vx, vy = factor * rx * uy / ry, -factor * ry * ux / rx
    middle = cos * vx - sin * vy + (x1 + x2) / 2, sin * vx + cos * vy + (y1 + y2) / 2
    first = math.atan2((uy - vy) / ry, (ux - vx) / rx)
    sweep = math.atan2((-uy - vy) / ry, (-ux - vx) / rx) - first
    if is_clockwise and sweep < 0:
        sweep += 2 * math.pi
    elif not is_clockwise and sweep > 0:
        sweep -= 2 * math.pi
    pieces = max(2, math.ceil(abs(sweep) / math.pi * 2 * STEPS))
    for piece in range(1, pieces):
        angle = first + sweep * piece / pieces
        x, y = rx * math.cos(angle), ry * math.sin(angle)
        yield middle[0] + cos * x - sin * y, middle[1] + sin * x + cos * y
    yield end


LENGTHS = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "S": 4, "Q": 4, "A": 7, "Z": 0}  # number of arguments per command


def outlines(path):
    """The closed polylines of an SVG path, each a list of points."""
    found, at, control = [], (0.0, 0.0), None
    for letter, text in re.findall(r"([MLHVCSQAZmlhvcsqaz])([^MLHVCSQAZmlhvcsqaz]*)", path):
        kind, is_relative = letter.upper(), letter.islower()
        values = numbers(text)
        if kind == "Z":
            at = found[-1][0]
        for index in range(0, len(values), LENGTHS[kind] or 1):
            some = values[index:index + LENGTHS[kind]]
            base = at if is_relative else (0.0, 0.0)
            points = [(base[0] + x, base[1] + y) for x, y in zip(some[::2], some[1::2])] if kind != "A" else []
            start, before, control = at, control, None
            if kind == "M" and index == 0:
                at = points[-1]
                found.append([at])
                continue
            if kind in "ML":
                line = points
            elif kind == "H":
                line = [(base[0] + some[0], at[1])]
            elif kind == "V":
                line = [(at[0], base[1] + some[0])]
            elif kind == "A":
                end = base[0] + some[5], base[1] + some[6]
                line = list(arc(start, some[:2], some[2], some[3] != 0, some[4] != 0, end))
            else:
                if kind == "S":
                    first = (2 * start[0] - before[0], 2 * start[1] - before[1]) if before else start
                    points = [first, *points]
                elif kind == "Q":
                    corner, end = points
                    points = [toward(start, corner), toward(end, corner), end]
                line, control = list(curve(start, *points)), points[1]
            at = line[-1]
            found[-1] += line
    return found


def coverage(lines):
    """The fraction of each pixel, 0 to 1, that the polylines enclose; rows from the top."""
    # Accumulates each line's signed area in the pixels that it crosses; the running sum along a row is the coverage.
    rows = [[0.0] * (WIDTH + 2) for _ in range(WIDTH)]
    for line in lines:
        for (x1, y1), (x2, y2) in zip(line, line[1:] + line[:1]):
            if y1 == y2:
                continue
            sign = 1.0 if y1 < y2 else -1.0
            if y1 > y2:
                x1, y1, x2, y2 = x2, y2, x1, y1
            slope = (x2 - x1) / (y2 - y1)
            for row in range(max(0, int(y1)), min(WIDTH, math.ceil(y2))):
                top, bottom = max(y1, row), min(y2, row + 1)
                left, right = sorted((x1 + slope * (top - y1), x1 + slope * (bottom - y1)))
                span = right - left
                for column in range(int(left), int(right) + 1):
                    share = 1.0 if span == 0 else (min(right, column + 1) - max(left, column)) / span
                    middle = (left + right) / 2 if span == 0 else (max(left, column) + min(right, column + 1)) / 2
                    area = sign * (bottom - top) * share
                    rows[row][column] += area * (column + 1 - middle)
                    rows[row][column + 1] += area * (middle - column)
    return [[min(1.0, abs(value)) for value in itertools.accumulate(row)][:WIDTH] for row in rows]


@functools.cache
def tile():
    """The coverage of the rounded square."""
    edge, radius = float(WIDTH), CORNER * WIDTH
    path = (f"M{radius} 0H{edge - radius}A{radius} {radius} 0 0 1 {edge} {radius}V{edge - radius}"
            f"A{radius} {radius} 0 0 1 {edge - radius} {edge}H{radius}A{radius} {radius} 0 0 1 0 {edge - radius}"
            f"V{radius}A{radius} {radius} 0 0 1 {radius} 0Z")
    return coverage(outlines(path))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


@functools.cache
def png(sign, color):
    """A PNG of a tile in a colour such as "2F6BE0" with that sign."""
    scale = SIGN * WIDTH / GROUND
    margin = (WIDTH - SIGN * WIDTH) / 2
    marks = coverage([[(margin + x * scale, margin + y * scale) for x, y in line] for line in outlines(signs()[sign])])

    # The palette: the tile's edge, then the gradient from the tile's colour to white.
    ground = bytes.fromhex(color)
    palette = ground * SHADES
    opacity = bytes(round(255 * step / SHADES) for step in range(SHADES))
    for step in range(SHADES + 1):
        palette += bytes(round(part + (255 - part) * step / SHADES) for part in ground)

    rows = bytearray()
    for edges, shades in zip(tile(), marks):
        rows.append(0)
        for edge, shade in zip(edges, shades):
            step = round(edge * SHADES)
            rows.append(step if step < SHADES else SHADES + round(shade * SHADES))
    header = struct.pack(">IIBBBBB", WIDTH, WIDTH, 8, 3, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"PLTE", palette) + chunk(b"tRNS", opacity) +
            chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b""))


def icns(sign, color):
    """The same image as a Mac icon file."""
    picture = png(sign, color)
    entry = b"ic07" + struct.pack(">I", len(picture) + 8) + picture
    return b"icns" + struct.pack(">I", len(entry) + 8) + entry


def svg(sign, color):
    """The same image as an SVG."""
    margin = (1 - SIGN) / 2 * GROUND
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {GROUND} {GROUND}">'
            f'<rect width="{GROUND}" height="{GROUND}" rx="{CORNER * GROUND:g}" fill="#{color}"/>'
            f'<path transform="translate({margin:g} {margin:g}) scale({SIGN})" fill="#fff" d="{signs()[sign]}"/>'
            "</svg>\n").encode()
