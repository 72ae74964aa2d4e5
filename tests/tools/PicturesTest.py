"""Drawings become icons and bitmaps that Windows takes, and what is kept in the repository is complete."""

import struct
import sys
import unittest
import zlib
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import pictures  # noqa: E402

RED, FAINT, NOTHING = (255, 0, 0, 255), (0, 255, 0, 127), (9, 9, 9, 0)


def chunk(kind, content):
    return struct.pack(">I4s", len(content), kind) + content + struct.pack(">I", zlib.crc32(kind + content))


def png(width, height, color, lines, interlace=0):
    """A PNG file from its lines, each with the number of its filter in front."""
    return pictures.PNG_SIGNATURE + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, color, 0, 0, interlace)) \
        + chunk(b"IDAT", zlib.compress(b"".join(lines))) + chunk(b"IEND", b"")


class ReadPngTest(unittest.TestCase):
    def test_every_filter_gives_the_same_picture(self):
        first, second = bytes([10, 20, 30, 40, 12, 22, 32, 42]), bytes([60, 70, 80, 90, 61, 72, 83, 94])
        expected = [[(10, 20, 30, 40), (12, 22, 32, 42)], [(60, 70, 80, 90), (61, 72, 83, 94)]]
        left, up = bytes(4) + second[:4], first
        # The nearest of the three neighbours to left + up - corner: up for the first pixel (0 + 10 - 0), left for the
        # second (60 + 12 - 10).
        nearest = first[:4] + second[:4]
        for kind, guess in enumerate((bytes(8), left, up, bytes((a + b) // 2 for a, b in zip(left, up)), nearest)):
            line = bytes((value - g) & 0xFF for value, g in zip(second, guess))
            picture = pictures.read_png(png(2, 2, 6, [b"\0" + first, bytes([kind]) + line]))
            self.assertEqual(picture.rows, expected, kind)

    def test_a_drawing_without_alpha_is_all_there(self):
        self.assertEqual(pictures.read_png(png(1, 1, 2, [b"\0\x01\x02\x03"])).rows, [[(1, 2, 3, 255)]])

    def test_other_kinds_are_refused(self):
        for data in (b"GIF89a", png(1, 1, 3, [b"\0\0"]), png(1, 1, 2, [b"\0\0\0\0"], interlace=1)):
            with self.assertRaises(ValueError):
                pictures.read_png(data)


class IconTest(unittest.TestCase):
    def setUp(self):
        data = pictures.icon([pictures.Picture([[RED, FAINT], [NOTHING, RED]])])
        self.entry, self.image = data[:22], data[22:]

    def test_header_names_the_picture(self):
        self.assertEqual(struct.unpack("<HHHBBBBHHII", self.entry), (0, 1, 1, 2, 2, 0, 0, 1, 24, len(self.image), 22))
        self.assertEqual(struct.unpack_from("<IiiHH", self.image), (40, 2, 4, 1, 24))

    def test_lines_go_from_bottom_to_top_and_what_is_not_there_is_black(self):
        self.assertEqual(self.image[40:56], b"\0\0\0" b"\0\0\xff" b"\0\0" b"\0\0\xff" b"\0\0\0" b"\0\0")

    def test_mask_is_clean(self):
        self.assertEqual(self.image[56:], b"\x80\0\0\0" b"\x40\0\0\0")

    def test_a_bitmap_must_cover_its_area(self):
        with self.assertRaises(ValueError):
            pictures.bitmap(pictures.Picture([[RED, FAINT]]))

    def test_bitmap_has_24_bits(self):
        data = pictures.bitmap(pictures.Picture([[RED], [(1, 2, 3, 255)]]))
        self.assertEqual(data[:2], b"BM")
        self.assertEqual(struct.unpack_from("<IiiHH", data, 14), (40, 1, 2, 1, 24))
        self.assertEqual(data[54:], b"\x03\x02\x01\0" b"\0\0\xff\0")


class KeptPicturesTest(unittest.TestCase):
    def test_every_drawing_has_its_picture_and_every_picture_its_drawing(self):
        for folder, suffix in (("icons", ".ico"), ("bitmaps", ".bmp")):
            drawings = {path.stem for path in (ROOT / "resources" / folder).glob("*.svg")}
            kept = {path.stem for path in (ROOT / "resources" / folder).glob(f"*{suffix}")}
            self.assertTrue(drawings)
            self.assertEqual(drawings, kept)

    def test_icons_that_are_laid_over_others_have_no_alpha(self):
        for path in (ROOT / "resources/icons").glob("*.ico"):
            data = path.read_bytes()
            count = struct.unpack_from("<H", data, 4)[0]
            entries = [struct.unpack_from("<BBBBHHII", data, 6 + 16 * index) for index in range(count)]
            self.assertEqual({entry[5] for entry in entries}, {24}, path.name)
            self.assertLessEqual({16, 24, 32, 48}, {entry[0] for entry in entries}, path.name)


if __name__ == "__main__":
    unittest.main()
