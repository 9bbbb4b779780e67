"""Reads the outlines of an OpenType font's table "CFF ", which holds them as small programs ("charstrings").

The formats are Adobe's Technical Notes 5176 (the table) and 5177 (the charstrings). Points are complex numbers, in
units of the font.
"""

import struct

# Operators of a font's dictionary.
CHARSTRINGS, PRIVATE, SUBROUTINES, REGISTRY = (17,), (18,), (19,), (12, 30)

# A program may call others ten deep.
DEEPEST_CALL = 10


def read_index(table, offset):
    """The items of the index at the offset, and the offset behind it."""
    (count,) = struct.unpack_from(">H", table, offset)
    if count == 0:
        return [], offset + 2
    size = table[offset + 2]
    first = offset + 3
    starts = [int.from_bytes(table[first + i * size:first + (i + 1) * size], "big") for i in range(count + 1)]
    content = first + (count + 1) * size - 1
    items = [table[content + start:content + end] for start, end in zip(starts, starts[1:])]
    return items, content + starts[-1]


def read_dictionary(content):
    """The whole numbers that stand before each operator; fractions, which nothing here uses, are left out."""
    result, operands, position = {}, [], 0
    while position < len(content):
        byte = content[position]
        position += 1
        if byte == 30:
            while content[position] & 0x0F != 0x0F and content[position] >> 4 != 0x0F:
                position += 1
            position += 1
        elif byte == 29:
            operands += struct.unpack_from(">i", content, position)
            position += 4
        elif byte == 28:
            operands += struct.unpack_from(">h", content, position)
            position += 2
        elif byte >= 247:
            sign, base = (1, 247) if byte < 251 else (-1, 251)
            operands.append(sign * ((byte - base) * 256 + content[position] + 108))
            position += 1
        elif byte >= 32:
            operands.append(byte - 139)
        else:
            operator = (byte,)
            if byte == 12:
                operator = (byte, content[position])
                position += 1
            result[operator] = operands
            operands = []
    return result


def bias(subroutines):
    """What is added to a subroutine's number, which lets the frequent ones have short numbers."""
    return 107 if len(subroutines) < 1240 else 1131 if len(subroutines) < 33900 else 32768


class Charstring:
    """Runs one glyph's program. `contours` are closed: lists of a start point and, per piece, (end,) for a line and
    (control, control, end) for a cubic curve."""

    def __init__(self, program, subroutines, global_subroutines):
        self.contours = []
        self._subroutines = subroutines
        self._global_subroutines = global_subroutines
        self._stack = []
        self._point = 0j
        self._hints = 0
        self._run(program, 0)

    def _take(self):
        """The operands, of which nothing is left behind."""
        operands, self._stack = self._stack, []
        return operands

    def _move(self, by):
        self._point += by
        self.contours.append([self._point])

    def _line(self, by):
        self._point += by
        self.contours[-1].append((self._point,))

    def _curve(self, first, second, third):
        first += self._point
        second += first
        self._point = second + third
        self.contours[-1].append((first, second, self._point))

    def _curves(self, numbers):
        for a, b, c, d, e, f in zip(*[iter(numbers)] * 6):
            self._curve(complex(a, b), complex(c, d), complex(e, f))

    def _lines(self, numbers):
        for x, y in zip(*[iter(numbers)] * 2):
            self._line(complex(x, y))

    def _count_hints(self):
        # A number too many is the glyph's width, which stands in another table as well.
        self._hints += len(self._take()) // 2

    def _alternating_lines(self, horizontal):
        for length in self._take():
            self._line(complex(length, 0) if horizontal else complex(0, length))
            horizontal = not horizontal

    def _alternating_curves(self, horizontal):
        numbers = self._take()
        # The last curve may end in any direction, for which it has a fifth number.
        while len(numbers) >= 4:
            start, x, y, end, *numbers = numbers
            last = numbers.pop() if len(numbers) == 1 else 0
            if horizontal:
                self._curve(complex(start, 0), complex(x, y), complex(last, end))
            else:
                self._curve(complex(0, start), complex(x, y), complex(end, last))
            horizontal = not horizontal

    def _parallel_curves(self, horizontal):
        numbers = self._take()
        across = numbers.pop(0) if len(numbers) % 4 else 0
        for start, x, y, end in zip(*[iter(numbers)] * 4):
            if horizontal:
                self._curve(complex(start, across), complex(x, y), complex(end, 0))
            else:
                self._curve(complex(across, start), complex(x, y), complex(0, end))
            across = 0

    def _flex(self, operator):
        numbers = self._take()
        if operator == 34:  # hflex
            a, b, c, d, e, f, g = numbers
            numbers = [a, 0, b, c, d, 0, e, 0, f, -c, g, 0]
        elif operator == 36:  # hflex1
            a, b, c, d, e, f, g, h, i = numbers
            numbers = [a, b, c, d, e, 0, f, 0, g, h, i, -(b + d + h)]
        elif operator == 37:  # flex1: the last number goes the way in which the whole goes farther
            *numbers, last = numbers
            x, y = sum(numbers[0::2]), sum(numbers[1::2])
            numbers += [last, -y] if abs(x) > abs(y) else [-x, last]
        else:  # flex
            numbers = numbers[:12]
        self._curves(numbers)

    def _run(self, program, depth):
        """Whether the glyph ended within this program."""
        if depth > DEEPEST_CALL:
            raise ValueError("a charstring calls too deep")
        position = 0
        while position < len(program):
            byte = program[position]
            position += 1
            if byte == 28:
                self._stack += struct.unpack_from(">h", program, position)
                position += 2
            elif byte == 255:
                self._stack.append(struct.unpack_from(">i", program, position)[0] / 65536)
                position += 4
            elif byte >= 247:
                sign, base = (1, 247) if byte < 251 else (-1, 251)
                self._stack.append(sign * ((byte - base) * 256 + program[position] + 108))
                position += 1
            elif byte >= 32:
                self._stack.append(byte - 139)
            elif byte in (10, 29):  # callsubr, callgsubr
                called = self._subroutines if byte == 10 else self._global_subroutines
                if self._run(called[int(self._stack.pop()) + bias(called)], depth + 1):
                    return True
            elif byte == 11:  # return
                return False
            elif byte == 14:  # endchar
                return True
            elif byte in (19, 20):  # hintmask, cntrmask: a bit for each hint
                self._count_hints()
                position += (self._hints + 7) // 8
            elif byte == 12:
                if program[position] not in (34, 35, 36, 37):
                    raise ValueError(f"unknown charstring operator 12 {program[position]}")
                self._flex(program[position])
                position += 1
            else:
                self._draw(byte)
        return False

    def _draw(self, operator):
        if operator in (1, 3, 18, 23):  # hstem, vstem, hstemhm, vstemhm
            self._count_hints()
        elif operator == 21:  # rmoveto
            self._move(complex(*self._take()[-2:]))
        elif operator == 22:  # hmoveto
            self._move(complex(self._take()[-1], 0))
        elif operator == 4:  # vmoveto
            self._move(complex(0, self._take()[-1]))
        elif operator == 5:  # rlineto
            self._lines(self._take())
        elif operator in (6, 7):  # hlineto, vlineto
            self._alternating_lines(operator == 6)
        elif operator == 8:  # rrcurveto
            self._curves(self._take())
        elif operator == 24:  # rcurveline
            *curves, x, y = self._take()
            self._curves(curves)
            self._line(complex(x, y))
        elif operator == 25:  # rlinecurve
            numbers = self._take()
            self._lines(numbers[:-6])
            self._curves(numbers[-6:])
        elif operator in (26, 27):  # vvcurveto, hhcurveto
            self._parallel_curves(operator == 27)
        elif operator in (30, 31):  # vhcurveto, hvcurveto
            self._alternating_curves(operator == 31)
        else:
            raise ValueError(f"unknown charstring operator {operator}")


def read_outlines(table):
    """The contours of every glyph, in the order of the font."""
    _, position = read_index(table, table[2])
    dictionaries, position = read_index(table, position)
    _, position = read_index(table, position)
    global_subroutines, _ = read_index(table, position)
    dictionary = read_dictionary(dictionaries[0])
    if REGISTRY in dictionary:
        raise ValueError("fonts whose glyphs have numbers in place of names are not read")

    programs, _ = read_index(table, dictionary[CHARSTRINGS][0])
    length, start = dictionary[PRIVATE]
    private = read_dictionary(table[start:start + length])
    subroutines = []
    if SUBROUTINES in private:
        subroutines, _ = read_index(table, start + private[SUBROUTINES][0])
    return [Charstring(program, subroutines, global_subroutines).contours for program in programs]
