#!/usr/bin/env python3
"""Draws the program's icons from their vector sources.

  make_icons.py                writes every .ico of the list below again
  make_icons.py a.svg 32 a.png one picture, to look at

The sources are plain SVG: rect, circle, ellipse, polygon, polyline, line and path (M L H V C Q Z in
both cases), with fill, stroke, stroke-width and opacity; strokes have round ends and joins. The
pictures are drawn here, so that they come out the same on every machine.
"""

import math
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree
import zlib
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SAMPLES = 8  # per pixel and direction
CURVE_STEPS = 24

TOOLBAR = ROOT / 'app/win32/icons/toolbar'
ICONS = {
    'app/win32/wrendeck.ico': ('app/win32/icons/wrendeck.svg', (16, 20, 24, 32, 48, 256)),
    # The sizes of a toolbar at 100, 125, 150, 200 and 300 %.
    **{str(source.relative_to(ROOT).with_suffix('.ico')): (source, (16, 20, 24, 32, 48))
       for source in sorted(TOOLBAR.glob('*.svg'))},
}


# Shapes: each is a list of closed outlines, an outline a list of points.


def circle(x, y, rx, ry):
    steps = 64
    return [[(x + rx * math.cos(2 * math.pi * i / steps), y + ry * math.sin(2 * math.pi * i / steps))
             for i in range(steps)]]


def rounded_rect(x, y, width, height, radius):
    radius = min(radius, width / 2, height / 2)
    if radius == 0:
        return [[(x, y), (x + width, y), (x + width, y + height), (x, y + height)]]
    outline = []
    corners = ((x + width - radius, y + radius, -90), (x + width - radius, y + height - radius, 0),
               (x + radius, y + height - radius, 90), (x + radius, y + radius, 180))
    for cx, cy, start in corners:
        for i in range(17):
            angle = math.radians(start + 90 * i / 16)
            outline.append((cx + radius * math.cos(angle), cy + radius * math.sin(angle)))
    return [outline]


def bezier(points):
    """Points on the curve after its first one."""
    result = []
    for i in range(1, CURVE_STEPS + 1):
        t = i / CURVE_STEPS
        left = list(points)
        while len(left) > 1:
            left = [((1 - t) * a[0] + t * b[0], (1 - t) * a[1] + t * b[1])
                    for a, b in zip(left, left[1:])]
        result.append(left[0])
    return result


def path(data):
    """The outlines of a path and, for each, whether it is closed."""
    tokens = re.findall(r'[A-Za-z]|-?(?:\d+\.?\d*|\.\d+)', data)
    outlines, closed = [], []
    position = start = (0.0, 0.0)
    command = ''
    index = 0

    def number():
        nonlocal index
        index += 1
        return float(tokens[index - 1])

    def point():
        x, y = number(), number()
        return (x + position[0], y + position[1]) if command.islower() else (x, y)

    while index < len(tokens):
        if tokens[index].isalpha():
            command = tokens[index]
            index += 1
        kind = command.upper()
        if kind == 'Z':
            closed[-1] = True
            position = start
            continue
        if kind == 'M':
            position = start = point()
            outlines.append([position])
            closed.append(False)
            command = 'l' if command == 'm' else 'L'
            continue
        if kind == 'L':
            added = [point()]
        elif kind == 'H':
            x = number()
            added = [(x + position[0] if command == 'h' else x, position[1])]
        elif kind == 'V':
            y = number()
            added = [(position[0], y + position[1] if command == 'v' else y)]
        elif kind in 'CQ':
            added = bezier([position] + [point() for _ in range(3 if kind == 'C' else 2)])
        else:
            raise ValueError(f'path command {command}')
        outlines[-1].extend(added)
        position = added[-1]
    return outlines, closed


def stroke(outline, closed, width):
    """Outlines whose union is the line with round ends and joins."""
    half = width / 2
    points = outline + outline[:1] if closed else outline
    parts = [circle(x, y, half, half)[0] for x, y in points]
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        length = math.hypot(x1 - x0, y1 - y0)
        if length == 0:
            continue
        dx, dy = (y1 - y0) / length * half, -(x1 - x0) / length * half
        parts.append([(x0 + dx, y0 + dy), (x1 + dx, y1 + dy), (x1 - dx, y1 - dy), (x0 - dx, y0 - dy)])
    # With every part turning the same way, overlaps add up and never cancel out.
    return [part if area(part) > 0 else part[::-1] for part in parts]


def area(outline):
    return sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in zip(outline, outline[1:] + outline[:1]))


def shapes(element):
    """(outlines, closed) of one SVG element."""
    kind = element.tag.rpartition('}')[2]

    def value(name):
        return float(element.get(name, 0))

    if kind == 'rect':
        outlines = rounded_rect(value('x'), value('y'), value('width'), value('height'), value('rx'))
    elif kind == 'circle':
        outlines = circle(value('cx'), value('cy'), value('r'), value('r'))
    elif kind == 'ellipse':
        outlines = circle(value('cx'), value('cy'), value('rx'), value('ry'))
    elif kind == 'line':
        return [[(value('x1'), value('y1')), (value('x2'), value('y2'))]], [False]
    elif kind in ('polygon', 'polyline'):
        numbers = [float(n) for n in re.findall(r'-?[\d.]+', element.get('points'))]
        return [list(zip(numbers[::2], numbers[1::2]))], [kind == 'polygon']
    elif kind == 'path':
        return path(element.get('d'))
    else:
        raise ValueError(f'element {kind}')
    return outlines, [True] * len(outlines)


# Pictures: rows of [red, green, blue, alpha] from 0 to 1, colours not multiplied by alpha.


def coverage(outlines, size, scale):
    """How much of each pixel the outlines cover, by the nonzero winding rule."""
    fine = size * SAMPLES
    rows = [[0] * size for _ in range(size)]
    edges = []
    for outline in outlines:
        for (x0, y0), (x1, y1) in zip(outline, outline[1:] + outline[:1]):
            if y0 != y1:
                edges.append((x0 * scale * SAMPLES, y0 * scale * SAMPLES, x1 * scale * SAMPLES,
                              y1 * scale * SAMPLES))
    for line in range(fine):
        y = line + 0.5
        crossings = sorted((x0 + (y - y0) * (x1 - x0) / (y1 - y0), 1 if y1 > y0 else -1)
                           for x0, y0, x1, y1 in edges if min(y0, y1) <= y < max(y0, y1))
        winding = 0
        row = rows[line // SAMPLES]
        for (x, turn), (next_x, _) in zip(crossings, crossings[1:]):
            winding += turn
            if winding:
                first = max(0, math.ceil(x - 0.5))
                last = min(fine, math.ceil(next_x - 0.5))
                for sample in range(first, last):
                    row[sample // SAMPLES] += 1
    return [[count / (SAMPLES * SAMPLES) for count in row] for row in rows]


def colour(text):
    digits = text.lstrip('#')
    return [int(digits[i:i + 2], 16) / 255 for i in (0, 2, 4)]


def paint(picture, outlines, scale, rgb, opacity):
    for row, covered in zip(picture, coverage(outlines, len(picture), scale)):
        for pixel, part in zip(row, covered):
            alpha = part * opacity
            if alpha == 0:
                continue
            below = pixel[3] * (1 - alpha)
            total = alpha + below
            for channel in range(3):
                pixel[channel] = (rgb[channel] * alpha + pixel[channel] * below) / total
            pixel[3] = total


def draw(source, size):
    svg = ElementTree.parse(source).getroot()
    scale = size / float(svg.get('viewBox').split()[2])
    picture = [[[0.0] * 4 for _ in range(size)] for _ in range(size)]
    for element in svg:
        if not isinstance(element.tag, str):
            continue  # a comment
        outlines, closed = shapes(element)
        opacity = float(element.get('opacity', 1))
        fill = element.get('fill', 'none' if element.get('stroke') else '#000000')
        if fill != 'none':
            paint(picture, outlines, scale, colour(fill), opacity)
        if element.get('stroke', 'none') != 'none':
            width = float(element.get('stroke-width', 1))
            parts = [part for outline, is_closed in zip(outlines, closed)
                     for part in stroke(outline, is_closed, width)]
            paint(picture, parts, scale, colour(element.get('stroke')), opacity)
    return picture


# Files.


def byte(value):
    return round(value * 255)


def png(picture):
    size = len(picture)
    raw = b''.join(b'\0' + bytes(byte(v) for pixel in row for v in pixel) for row in picture)

    def chunk(kind, data):
        return (struct.pack('>I', len(data)) + kind + data +
                struct.pack('>I', zlib.crc32(kind + data)))

    header = struct.pack('>IIBBBBB', size, size, 8, 6, 0, 0, 0)
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', zlib.compress(raw, 9)) +
            chunk(b'IEND', b''))


def dib(picture):
    """A bitmap as icons hold it: bottom row first, then the mask of old, twice the height."""
    size = len(picture)
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = bytearray()
    mask = bytearray()
    for row in reversed(picture):
        bits = 0
        for red, green, blue, alpha in row:
            pixels += bytes((byte(blue), byte(green), byte(red), byte(alpha)))
            bits = bits << 1 | (alpha < 0.5)
        stride = (size + 31) // 32 * 4
        mask += (bits << (stride * 8 - size)).to_bytes(stride, 'big')
    return header + bytes(pixels) + bytes(mask)


def ico(source, sizes):
    # Only the largest is packed: programs older than the packed form look for the small ones.
    pictures = [png(draw(source, size)) if size >= 256 else dib(draw(source, size))
                for size in sizes]
    offset = 6 + 16 * len(sizes)
    directory = struct.pack('<HHH', 0, 1, len(sizes))
    for size, data in zip(sizes, pictures):
        directory += struct.pack('<BBBBHHII', size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    return directory + b''.join(pictures)


def main():
    if len(sys.argv) == 4:
        Path(sys.argv[3]).write_bytes(png(draw(sys.argv[1], int(sys.argv[2]))))
        return
    for target, (source, sizes) in ICONS.items():
        (ROOT / target).write_bytes(ico(ROOT / source, sizes))


if __name__ == '__main__':
    main()
