#!/usr/bin/env python3
"""Draws the icons of the dialogs: writes the .ico files beside this script.

Each picture is a list of (shape, colour) painted one over the other on a square of 16 by 16 units; a
shape says whether a point lies in it. Pixels are averaged from a grid of such points. The same script
gives the same bytes.
"""
import math
import pathlib
import struct

POINTS = 8  # to a side of a pixel
ROW_SIZES = (16, 20, 24, 32)
WINDOW_SIZES = (16, 24, 32, 48)

RED, DARK_RED = (214, 40, 40), (150, 16, 16)
BLUE, DARK_BLUE = (38, 110, 214), (18, 66, 148)
GREY, DARK_GREY = (190, 190, 190), (152, 152, 152)
YELLOW, DARK_YELLOW = (255, 205, 40), (176, 122, 0)
WHITE, PALE, INK, STEEL, SLATE = ((255, 255, 255), (240, 240, 240), (40, 40, 40), (112, 128, 148),
                                  (62, 74, 92))


# ---- Shapes ----

def disc(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def box(left, top, right, bottom, r=0.0):
    def inside(x, y):
        dx = max(left + r - x, 0, x - right + r)
        dy = max(top + r - y, 0, y - bottom + r)
        in_box = left <= x <= right and top <= y <= bottom
        return in_box and (r == 0 or math.hypot(dx, dy) <= r)
    return inside


def stroke(x1, y1, x2, y2, width):
    """A line with flat ends."""
    length = math.hypot(x2 - x1, y2 - y1)
    ux, uy = (x2 - x1) / length, (y2 - y1) / length

    def inside(x, y):
        along = (x - x1) * ux + (y - y1) * uy
        across = (y - y1) * ux - (x - x1) * uy
        return 0 <= along <= length and abs(across) <= width / 2
    return inside


def rounded_triangle(top, left, right, r):
    """Grown by r beyond its corners."""
    corners = [top, right, left]

    def inside(x, y):
        nearest, within = math.inf, True
        for (ax, ay), (bx, by) in zip(corners, corners[1:] + corners[:1]):
            ex, ey = bx - ax, by - ay
            t = min(1, max(0, ((x - ax) * ex + (y - ay) * ey) / (ex * ex + ey * ey)))
            nearest = min(nearest, math.hypot(x - ax - t * ex, y - ay - t * ey))
            within = within and ex * (y - ay) - ey * (x - ax) >= 0
        return within or nearest <= r
    return inside


# ---- Pictures ----

def badge(fill, edge):
    return [(disc(8, 8, 7.5), edge), (disc(8, 8, 6.6), fill)]


def error(fill, edge):
    return badge(fill, edge) + [(stroke(4.9, 4.9, 11.1, 11.1, 2.0), WHITE),
                                (stroke(11.1, 4.9, 4.9, 11.1, 2.0), WHITE)]


def information(fill, edge):
    return badge(fill, edge) + [(box(7, 3.6, 9, 5.6), WHITE), (box(7, 6.8, 9, 12.4), WHITE)]


def warning():
    return [(rounded_triangle((8, 2.2), (1.9, 13.4), (14.1, 13.4), 1.5), DARK_YELLOW),
            (rounded_triangle((8, 2.4), (2.1, 13.3), (13.9, 13.3), 0.7), YELLOW),
            (box(7.1, 5, 8.9, 10.2, 0.6), INK), (disc(8, 12.1, 1.05), INK)]


def printer():
    """A ticket printer with its paper, and a mark that something wants a look."""
    return [(box(3.5, 0.5, 12.5, 8), STEEL), (box(4.2, 1.2, 11.8, 8), WHITE),
            (box(5.5, 2.6, 10.5, 3.4), STEEL), (box(5.5, 4.6, 9, 5.4), STEEL),
            (box(0.5, 6.5, 15.5, 14.5, 1.6), SLATE), (box(1.3, 7.3, 14.7, 13.7, 1.0), STEEL),
            (box(3, 8, 13, 9.2, 0.5), INK), (box(3, 11, 7, 12, 0.4), PALE),
            (disc(11.8, 11.8, 3.7), WHITE), (disc(11.8, 11.8, 3.2), RED),
            (box(11.2, 9.5, 12.4, 12.2), WHITE), (box(11.2, 12.9, 12.4, 14.1), WHITE)]


PICTURES = {
    "error": (error(RED, DARK_RED), ROW_SIZES),
    "information": (information(BLUE, DARK_BLUE), ROW_SIZES),
    "error_grey": (error(GREY, DARK_GREY), ROW_SIZES),
    "information_grey": (information(GREY, DARK_GREY), ROW_SIZES),
    "warning": (warning(), WINDOW_SIZES),
    "kestra": (printer(), WINDOW_SIZES),
}


# ---- Files ----

def pixel(layers, column, row, size):
    """(blue, green, red, alpha)"""
    red = green = blue = hits = 0
    for i in range(POINTS * POINTS):
        x = (column + (i % POINTS + 0.5) / POINTS) * 16 / size
        y = (row + (i // POINTS + 0.5) / POINTS) * 16 / size
        colour = next((colour for shape, colour in reversed(layers) if shape(x, y)), None)
        if colour:
            hits += 1
            red, green, blue = red + colour[0], green + colour[1], blue + colour[2]
    if not hits:
        return (0, 0, 0, 0)
    return (round(blue / hits), round(green / hits), round(red / hits),
            round(255 * hits / POINTS ** 2))


def image(layers, size):
    """A bitmap as icon files hold them: rows from the bottom up, then the mask of what is empty."""
    colours, mask = b"", b""
    for row in reversed(range(size)):
        pixels = [pixel(layers, column, row, size) for column in range(size)]
        colours += b"".join(struct.pack("4B", *each) for each in pixels)
        bits = "".join("1" if each[3] < 128 else "0" for each in pixels)
        width = (size + 31) // 32 * 32
        mask += int(bits.ljust(width, "0"), 2).to_bytes(width // 8, "big")
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(colours) + len(mask),
                         0, 0, 0, 0)
    return header + colours + mask


def icon(layers, sizes):
    images = [image(layers, size) for size in sizes]
    offset = 6 + 16 * len(sizes)
    directory = struct.pack("<HHH", 0, 1, len(sizes))
    for size, data in zip(sizes, images):
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    return directory + b"".join(images)


def main():
    folder = pathlib.Path(__file__).resolve().parent
    for name, (layers, sizes) in PICTURES.items():
        (folder / f"{name}.ico").write_bytes(icon(layers, sizes))


if __name__ == "__main__":
    main()
