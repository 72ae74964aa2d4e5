"""Reads a compiled resource file (.res): dialogs, strings, icons and bitmaps, as far as checks ask for them."""

import struct
from dataclasses import dataclass, field

# Numbers of the kinds of resources.
BITMAP, ICON, DIALOG, STRING, GROUP_ICON = 2, 3, 5, 6, 14

CLASSES = {0x80: "Button", 0x81: "Edit", 0x82: "Static", 0x83: "ListBox", 0x84: "ScrollBar", 0x85: "ComboBox"}
KNOWN = {name.casefold(): name for name in CLASSES.values()}  # a class may also be named by a text, in any case
NO_ID = 0xFFFFFFFF  # a control that is never looked up


@dataclass
class Control:
    id: int
    kind: str  # the window class; other than the six basic ones in small letters
    style: int
    text: str


@dataclass
class Dialog:
    id: int
    style: int
    caption: str
    controls: list


@dataclass
class ResourceFile:
    languages: set = field(default_factory=set)
    dialogs: dict = field(default_factory=dict)  # Dialog by number
    strings: dict = field(default_factory=dict)  # text by number; empty ones are not there
    icons: dict = field(default_factory=dict)    # by number: a list of (width, bits per pixel)
    bitmaps: dict = field(default_factory=dict)  # bits per pixel by number
    twice: list = field(default_factory=list)    # (kind, number) of what is there more than once


class Reader:
    """Little-endian values one after the other."""

    def __init__(self, data, at=0):
        self.data, self.at = data, at

    def take(self, layout):
        values = struct.unpack_from("<" + layout, self.data, self.at)
        self.at += struct.calcsize("<" + layout)
        return values if len(values) > 1 else values[0]

    def align(self):
        self.at = (self.at + 3) & ~3

    def text(self):
        """UTF-16 up to a NUL."""
        end = self.at
        while self.data[end:end + 2] not in (b"\0\0", b""):
            end += 2
        text = self.data[self.at:end].decode("utf-16-le")
        self.at = end + 2
        return text

    def name(self):
        """A number after 0xFFFF, or a text."""
        if self.data[self.at:self.at + 2] == b"\xff\xff":
            return self.take("HH")[1]
        return self.text()


def read(data):
    """The contents of a .res file; ValueError when it is not one."""
    result, seen, reader = ResourceFile(), set(), Reader(data)
    if data[:8] != struct.pack("<II", 0, 32):
        raise ValueError("not a compiled resource file")
    while reader.at < len(data):
        start = reader.at
        size, header = reader.take("II")
        kind, number = reader.name(), reader.name()
        reader.align()
        _, _, language, _, _ = reader.take("IHHII")
        content = data[start + header:start + header + size]
        if size:
            if (kind, number) in seen:
                result.twice.append((kind, number))
            seen.add((kind, number))
            result.languages.add(language)
            _add(result, kind, number, content)
        reader.at = start + header + size
        reader.align()
    return result


def _add(result, kind, number, content):
    if kind == DIALOG:
        result.dialogs[number] = _dialog(number, content)
    elif kind == STRING:
        result.strings.update(_strings(number, content))
    elif kind == GROUP_ICON:
        result.icons[number] = _icon_sizes(content)
    elif kind == BITMAP:
        result.bitmaps[number] = struct.unpack_from("<H", content, 14)[0]


def _dialog(number, content):
    reader = Reader(content)
    version, signature = reader.take("HH")
    if (version, signature) != (1, 0xFFFF):
        raise ValueError(f"dialog {number} is not a DIALOGEX")
    _, _, style, count, *_ = reader.take("IIIHhhhh")
    reader.name()  # menu
    reader.name()  # class
    caption = reader.text()
    if style & 0x40:  # DS_SETFONT
        reader.take("HHBB")
        reader.text()
    return Dialog(number, style, caption, [_control(reader) for _ in range(count)])


def _control(reader):
    reader.align()
    _, _, style, *_, number = reader.take("IIIhhhhI")
    kind, text = reader.name(), reader.name()
    extra = reader.take("H")
    reader.at += extra
    name = KNOWN.get(kind.casefold(), kind.casefold()) if isinstance(kind, str) else CLASSES.get(kind, str(kind))
    return Control(number, name, style, text if isinstance(text, str) else "")


def _strings(block, content):
    """A block holds sixteen strings, the missing ones empty."""
    reader, found = Reader(content), {}
    for index in range(16):
        length = reader.take("H")
        text = content[reader.at:reader.at + 2 * length].decode("utf-16-le")
        reader.at += 2 * length
        if text:
            found[(block - 1) * 16 + index] = text
    return found


def _icon_sizes(content):
    reader = Reader(content)
    _, _, count = reader.take("HHH")
    images = [reader.take("BBBBHHIH") for _ in range(count)]
    return [(width or 256, bits) for width, _, _, _, _, bits, _, _ in images]
