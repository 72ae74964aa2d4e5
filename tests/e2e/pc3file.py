"""PC3 files as a person with a text editor sees them; written independently of the module."""

import struct
import zlib

FIRST = b"PIAFILEVERSION_2.0,PC3VER1"
CONTAINER = FIRST + b",compress\r\npmzlibcodec"


def read_text(path):
    """The text of a file in either form."""
    content = path.read_bytes()
    if content.startswith(CONTAINER):
        adler, length, size = struct.unpack_from("<III", content, len(CONTAINER))
        stream = content[len(CONTAINER) + 12:]
        text = zlib.decompress(stream)
        assert (adler, length, size) == (zlib.adler32(stream), len(text), len(stream)), "wrong numbers in the container"
        return text.decode("ascii")
    first, text = content.split(b"\n", 1)
    assert first.rstrip(b"\r") == FIRST, first
    return text.decode("ascii")


def write_plain(path, text):
    path.write_bytes(FIRST + b"\r\n" + text.encode("ascii"))


def write_compressed(path, text):
    content = text.encode("ascii")
    stream = zlib.compress(content, 9)
    path.write_bytes(CONTAINER + struct.pack("<III", zlib.adler32(content), len(content), len(stream)) + stream)


def edit(path, *changes):
    """Replaces texts that each occur exactly once; the file is in the plain form afterwards."""
    text = read_text(path)
    for old, new in changes:
        assert text.count(old) == 1, f"{old!r} occurs {text.count(old)} times"
        text = text.replace(old, new)
    write_plain(path, text)
