"""The printer descriptions (PPDs) of the package openprinting-ppds, many at once.

    catalogue = Archive().postscript()            # what there is for PostScript printers
    Archive().extract(catalogue[:50], folder)     # the files themselves

The package's own program unpacks the whole archive for every single file, which takes a second; this reads the archive
that lies in that program, in one pass for all files that are wanted.
"""

import base64
import importlib.machinery
import importlib.util
import lzma
import re
import shlex
import sys
from typing import NamedTuple

from .queues import DRIVERS

CHUNK = 1 << 20


class Model(NamedTuple):
    """One PPD: where it is in the package, and the printer it is for."""

    path: str  # without the package's prefix: "HP/HP_DesignJet_3500CP_PS3.ppd"
    maker: str
    name: str
    language: str  # "en"
    largest: tuple = (0, 0)  # width and length of the paper with the largest area, in millimetres


def is_postscript(ppd):
    """Whether the printer itself understands PostScript, as far as its PPD (bytes) tells. The system's drivers make
    PostScript for every PPD, but for a printer of another language something in between would have to translate."""
    filters = [words.split() for words in re.findall(rb'^\*cupsFilter2?:\s*"([^"]*)"', ppd, re.MULTILINE)]
    formats = {words[0] for words in filters if words}
    if b"application/vnd.cups-raster" in formats:
        return False
    if b"application/vnd.cups-pdf" in formats and b"application/vnd.cups-postscript" not in formats:
        return False
    # Printers of other languages get their jobs from Ghostscript; for a PostScript one the line only adds a header.
    renderer = re.search(rb'^\*FoomaticRIPCommandLine:\s*"([^"]*)"', ppd, re.MULTILINE)
    return not (renderer and re.search(rb"\bgs\b", renderer.group(1)))


def largest_paper(ppd):
    """Width and length in millimetres of the largest paper that a PPD (bytes) names."""
    sizes = re.findall(rb'^\*PaperDimension\s[^"]*"\s*([0-9.]+)\s+([0-9.]+)\s*"', ppd, re.MULTILINE)
    points = max(((float(width), float(length)) for width, length in sizes), key=lambda size: size[0] * size[1],
                 default=(0, 0))
    return tuple(round(length * 25.4 / 72) for length in points)


def described(lines):
    """The model that the package's list describes: its first line, as others name the same printer otherwise."""
    uri, language, maker, name = shlex.split(lines[0])[:4]
    # Some names repeat the maker, some leave it out; blanks come doubled; the package's own mark may be cut off.
    name = re.sub(r" \(recommended\)?$", "", " ".join(name.split()))
    if not name.lower().startswith(maker.lower()):
        name = f"{maker} {name}"
    return Model(uri.split("/ppd/openprinting/", 1)[-1], maker, name, language)


class Archive:
    """The archive in the package's program."""

    def __init__(self, program=DRIVERS):
        self._index = _contents(program)
        self._packed = base64.b64decode(self._index.pop("ARCHIVE"))

    def postscript(self):
        """The models of all PostScript PPDs, in the archive's order."""
        return [described(lines)._replace(largest=largest_paper(ppd))
                for lines, ppd in self._read(self._index.values()) if is_postscript(ppd)]

    def extract(self, models, folder):
        """Writes the models' PPDs into the folder, as 0.ppd, 1.ppd and so on in their order."""
        wanted = {model.path: at for at, model in enumerate(models)}
        entries = [entry for entry in self._index.values() if described(entry[2]).path in wanted]
        if missing := set(wanted) - {described(entry[2]).path for entry in entries}:
            raise RuntimeError(f"the package has no {', '.join(sorted(missing))}")
        for lines, ppd in self._read(entries):
            (folder / f"{wanted[described(lines).path]}.ppd").write_bytes(ppd)

    def _read(self, entries):
        """(lines of the list, bytes) of each entry: [first byte, length, lines]."""
        stream = _Unpacked(self._packed)
        for start, length, lines in sorted(entries, key=lambda entry: entry[0]):
            yield lines, stream.read(start, length)


class _Unpacked:
    """Reads spans of the unpacked archive, which is too large to be kept, from front to back."""

    def __init__(self, packed):
        self._packed = packed
        self._lzma = lzma.LZMADecompressor()
        self._at = 0  # of the first byte kept
        self._kept = b""

    def read(self, start, length):
        while self._at + len(self._kept) < start + length:
            # What lies before the span is not needed again.
            drop = min(max(start - self._at, 0), len(self._kept))
            self._at += drop
            self._kept = self._kept[drop:] + self._lzma.decompress(self._packed, CHUNK)
            self._packed = b""
            if self._lzma.eof and self._at + len(self._kept) < start + length:
                raise RuntimeError("the archive of openprinting-ppds is shorter than its index says")
        return self._kept[start - self._at:start - self._at + length]


def _contents(program):
    """The index that the program holds: {name: [first byte, length, lines of the list]} and the packed ARCHIVE."""
    loader = importlib.machinery.SourceFileLoader("openprinting_ppds", program)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    keep, sys.dont_write_bytecode = sys.dont_write_bytecode, True  # nothing is left beside the package's file
    try:
        loader.exec_module(module)
    finally:
        sys.dont_write_bytecode = keep
    return module.load()
