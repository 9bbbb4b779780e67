"""Turns cubic outlines into TrueType's quadratic ones, and writes them."""

import math
import struct

# Bits of a point's flags.
ON_CURVE, SHORT_X, SHORT_Y, SAME_OR_POSITIVE_X, SAME_OR_POSITIVE_Y = 1, 2, 4, 16, 32

# No curve of a font takes this many pieces; one that does is damaged.
MOST_PIECES = 100


def split(curve):
    """Both halves of a cubic curve."""
    a, b, c, d = curve
    ab, bc, cd = (a + b) / 2, (b + c) / 2, (c + d) / 2
    abc, bcd = (ab + bc) / 2, (bc + cd) / 2
    middle = (abc + bcd) / 2
    return (a, ab, abc, middle), (middle, bcd, cd, d)


def part(curve, start, end):
    """The part of a cubic curve between two of its parameters."""
    a, b, c, d = curve
    cubic, square, linear = d - a + 3 * (b - c), 3 * (a - 2 * b + c), 3 * (b - a)

    def point(t):
        return ((cubic * t + square) * t + linear) * t + a

    def tangent(t):
        return ((3 * cubic * t + 2 * square) * t + linear) * (end - start) / 3

    first, last = point(start), point(end)
    return first, first + tangent(start), last - tangent(end), last


def stays_within(curve, distance):
    """Whether a cubic curve that begins and ends no farther than this from the origin stays so."""
    a, b, c, d = curve
    if abs(b) <= distance and abs(c) <= distance:
        return True
    if abs(a + 3 * (b + c) + d) / 8 > distance:
        return False
    # A curve this close to the distance is cut until its parts are clearly on one side of it.
    return all(stays_within(half, distance) for half in split(curve))


def crossing(curve):
    """Where the tangents at both ends of a cubic curve cross; None where they are parallel."""
    a, b, c, d = curve
    along, towards = b - a, d - c
    turn = (along.conjugate() * towards).imag
    if turn == 0:
        return None
    return a + along * (((d - a).conjugate() * towards).imag / turn)


def quadratic_controls(curve, error):
    """The control points of as few quadratic curves as follow a cubic one; they meet half-way between the controls."""
    for count in range(1, MOST_PIECES):
        pieces = [part(curve, i / count, (i + 1) / count) for i in range(count)]
        if count == 1:
            controls = [crossing(curve)]
            if controls[0] is None:
                continue
        else:
            # Of the two estimates that a piece's ends give, the first piece takes the one that keeps its tangent at
            # the start, the last the one at the end, and those between change from one to the other.
            controls = []
            for i, (a, b, c, d) in enumerate(pieces):
                early, late = a + (b - a) * 1.5, d + (c - d) * 1.5
                controls.append(early + (late - early) * i / (count - 1))
        meetings = [curve[0], *((p + q) / 2 for p, q in zip(controls, controls[1:])), curve[3]]
        if all(abs(piece[0] - meeting) <= error for piece, meeting in zip(pieces, meetings)) and all(
                stays_within((start - a, start + (control - start) * 2 / 3 - b, end + (control - end) * 2 / 3 - c,
                              end - d), error)
                for (a, b, c, d), control, start, end in zip(pieces, controls, meetings, meetings[1:])):
            return controls
    raise ValueError("a curve cannot be followed")


def quadratic_contour(contour, error):
    """A contour's points (x, y, whether on the curve), in TrueType's direction, which is the other one."""
    start, *pieces = contour
    points, here = [(start, True)], start
    for *controls, end in pieces:
        if controls:
            points += [(control, False) for control in quadratic_controls((here, *controls, end), error)]
        points.append((end, True))
        here = end
    if len(points) > 1 and points[-1] == points[0]:
        points.pop()
    points[1:] = points[:0:-1]
    return [(math.floor(point.real + 0.5), math.floor(point.imag + 0.5), on) for point, on in points]


def coordinates(values, short, same_or_positive):
    """One axis of a glyph's points, as the flags of each point and the bytes."""
    flags, content, before = [], bytearray(), 0
    for value in values:
        step, before = value - before, value
        if step == 0:
            flags.append(same_or_positive)
        elif -256 < step < 256:
            flags.append(short | (same_or_positive if step > 0 else 0))
            content.append(abs(step))
        else:
            flags.append(0)
            content += struct.pack(">h", step)
    return flags, content


def bounds(points):
    xs, ys = [x for x, _, _ in points], [y for _, y, _ in points]
    return min(xs), min(ys), max(xs), max(ys)


def write_glyph(contours):
    """A glyph of the table "glyf"; one without contours is empty."""
    points = [point for contour in contours for point in contour]
    if not points:
        return b""
    ends, count = [], 0
    for contour in contours:
        count += len(contour)
        ends.append(count - 1)
    x_flags, xs = coordinates([x for x, _, _ in points], SHORT_X, SAME_OR_POSITIVE_X)
    y_flags, ys = coordinates([y for _, y, _ in points], SHORT_Y, SAME_OR_POSITIVE_Y)
    flags = bytes((ON_CURVE if on else 0) | x | y for (_, _, on), x, y in zip(points, x_flags, y_flags))
    glyph = struct.pack(">hhhhh", len(contours), *bounds(points))
    glyph += struct.pack(f">{len(ends)}HH", *ends, 0) + flags + xs + ys
    return glyph + bytes(-len(glyph) % 4)


def use_outlines(tables, outlines):
    """Puts outlines (per glyph, contours of quadratic points) into a font's tables and mends what describes them."""
    glyphs = [write_glyph(contours) for contours in outlines]
    offsets = [0]
    for glyph in glyphs:
        offsets.append(offsets[-1] + len(glyph))
    tables["glyf"] = b"".join(glyphs)
    tables["loca"] = struct.pack(f">{len(offsets)}I", *offsets)

    drawn = [contours for contours in outlines if contours]
    boxes = [bounds([point for contour in contours for point in contour]) for contours in drawn]
    head = bytearray(tables["head"])
    struct.pack_into(">hhhh", head, 36, min(box[0] for box in boxes), min(box[1] for box in boxes),
                     max(box[2] for box in boxes), max(box[3] for box in boxes))
    struct.pack_into(">h", head, 50, 1)  # offsets of four bytes
    tables["head"] = bytes(head)

    most_points = max(sum(map(len, contours)) for contours in drawn)
    most_contours = max(map(len, drawn))
    tables["maxp"] = struct.pack(">IHHHHHHHHHHHHHH", 0x00010000, len(outlines), most_points, most_contours,
                                 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0)

    # The space before a glyph is where its outline begins, which the conversion may have moved by a unit.
    (count,) = struct.unpack_from(">H", tables["hhea"], 34)
    metrics, spaces = bytearray(tables["hmtx"]), []
    for index, contours in enumerate(outlines):
        left, _, right, _ = bounds([point for contour in contours for point in contour] or [(0, 0, True)])
        struct.pack_into(">h", metrics, index * 4 + 2 if index < count else count * 4 + (index - count) * 2, left)
        if contours:
            (advance,) = struct.unpack_from(">H", metrics, min(index, count - 1) * 4)
            spaces.append((advance, left, advance - right, right))
    tables["hmtx"] = bytes(metrics)
    advances, lefts, rights, extents = zip(*spaces)
    header = bytearray(tables["hhea"])
    struct.pack_into(">Hhhh", header, 10, max(advances), min(lefts), min(rights), max(extents))
    tables["hhea"] = bytes(header)
