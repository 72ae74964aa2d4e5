"""Pictures of the resource library: what rsvg-convert draws, written as icons and bitmaps that Windows takes.

Icons have 24 bits per pixel and a mask of one bit: an image list without alpha, which alone can lay one icon over
another, takes nothing else. So a pixel is all there or not at all, and what is not there must be black.
"""

import struct
import subprocess
import zlib

PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"
CHANNELS = {2: 3, 6: 4}  # by PNG's number for the kind of colour
OPAQUE = 128  # a pixel covered by half or more belongs to the icon


class Picture:
    """Rows of (red, green, blue, alpha), the top one first."""

    def __init__(self, rows):
        self.rows = rows
        self.height = len(rows)
        self.width = len(rows[0])


def draw(svg, size):
    """The drawing at size by size pixels."""
    done = subprocess.run(["rsvg-convert", "--width", str(size), "--height", str(size), str(svg)],
                          stdout=subprocess.PIPE, check=True, timeout=60)
    return read_png(done.stdout)


def read_png(data):
    """A picture from a PNG file of the kinds that rsvg-convert writes: 8 bits per channel, in order; without alpha when
    the drawing covers all of its area."""
    if not data.startswith(PNG_SIGNATURE):
        raise ValueError("not a PNG file")
    at, packed, header = len(PNG_SIGNATURE), b"", None
    while at < len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        content = data[at + 8:at + 8 + length]
        at += length + 12
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", content)
        elif kind == b"IDAT":
            packed += content
    width, height, depth, color, _, _, interlace = header
    if depth != 8 or color not in CHANNELS or interlace != 0:
        raise ValueError("a PNG file of a kind that is not expected here")
    return Picture(_rows(zlib.decompress(packed), width, height, CHANNELS[color]))


def _rows(data, width, height, channels):
    stride, rows = width * channels, []
    above = bytearray(stride)
    for y in range(height):
        kind = data[y * (stride + 1)]
        line = bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            left, up = line[i - channels] if i >= channels else 0, above[i]
            corner = above[i - channels] if i >= channels else 0
            line[i] = (line[i] + (0, left, up, (left + up) // 2, _paeth(left, up, corner))[kind]) & 0xFF
        rows.append([(*line[i:i + channels], 255)[:4] for i in range(0, stride, channels)])
        above = line
    return rows


def _paeth(left, up, corner):
    """Of the three neighbours the one that is nearest to left + up - corner."""
    estimate = left + up - corner
    return min((left, up, corner), key=lambda value: abs(estimate - value))


def icon(pictures):
    """An icon file with these pictures."""
    images = [_icon_image(picture) for picture in pictures]
    at = 6 + 16 * len(images)
    result = struct.pack("<HHH", 0, 1, len(images))
    for picture, image in zip(pictures, images):
        result += struct.pack("<BBBBHHII", picture.width, picture.height, 0, 0, 1, 24, len(image), at)
        at += len(image)
    return result + b"".join(images)


def bitmap(picture):
    """A bitmap file; the picture must cover all of its area."""
    if any(pixel[3] != 255 for row in picture.rows for pixel in row):
        raise ValueError("a bitmap has no alpha: draw a ground under it")
    pixels = b"".join(_padded(b"".join(bytes((b, g, r)) for r, g, b, _ in row)) for row in reversed(picture.rows))
    return struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54) \
        + _header(picture.width, picture.height, len(pixels)) + pixels


def _icon_image(picture):
    pixels, mask = b"", b""
    for row in reversed(picture.rows):
        there = [pixel[3] >= OPAQUE for pixel in row]
        pixels += _padded(b"".join(bytes((p[2], p[1], p[0])) if t else b"\0\0\0" for p, t in zip(row, there)))
        bits = "".join("0" if t else "1" for t in there)
        bits += "0" * (-len(bits) % 8)
        mask += _padded(bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8)))
    # The height in an icon's header counts pixels and mask.
    return _header(picture.width, picture.height * 2, len(pixels) + len(mask)) + pixels + mask


def _header(width, height, size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, size, 0, 0, 0, 0)


def _padded(line):
    """Lines of a bitmap end at multiples of four bytes."""
    return line + b"\0" * (-len(line) % 4)
