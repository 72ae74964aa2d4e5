"""Checks the language resource libraries against Resource.h and against each other; the build runs it.

    python3 -m garmtools.resourcecheck Resource.h en=en.res de=de.res ...    (with PYTHONPATH=tools)

In every language: everything that Resource.h names exists, and nothing else; no number is used twice; format strings
take the arguments that Resource.h notes; access keys are unique among the controls on screen together, and each control
that a user can operate has one; pictures have the sizes and colours that the editor asks for. Exit status 1 and a line for
each problem if something is wrong.
"""

import re
import sys
from collections import Counter
from pathlib import Path

from . import resfile

KINDS = {"IDD": "dialog", "IDS": "string", "IDI": "icon", "IDB": "bitmap", "IDC": "control"}
DEFINE = re.compile(r"#define\s+(ID[A-Z]_\w+)\s+(\S+)(?:\s*//\s*(.*))?\s*$")
ARGUMENT = re.compile(r"%.?", re.DOTALL)
OK_CANCEL = (1, 2)
ICON_WIDTHS, BITS = {16, 24, 32, 48}, 24

# What is on screen together, by the names of the dialogs. A sheet has buttons of the system: OK and Cancel without
# access keys, and Help with its first letter in the languages at hand.
TABS_AND_PAGES = {
    "IDD_GENERAL": [],
    "IDD_DEVICE": ["IDD_VECTOR_GRAPHICS", "IDD_CUSTOM_PROP", "IDD_RASTER_GRAPHICS", "IDD_COLLATING", "IDD_TRUETYPE",
                   "IDD_MERGE_CTRL"],
}
SHEET_KEYS = {"H": "the sheet's Help"}

# Never operated, so without access keys: the page that only shows, and the list that stays disabled.
ONLY_SHOWN = ("IDD_VECTOR_GRAPHICS", "IDC_PRINTERS")

# Bits of control styles.
SS_NOPREFIX, BS_TYPE, BS_GROUPBOX, SS_TYPE, SS_LAST_TEXT = 0x80, 0xF, 0x7, 0x1F, 0x2


class Names:
    """The content of Resource.h: numbers by name, and the arguments of format strings."""

    def __init__(self, text):
        self.numbers, self.arguments, self.complaints = {}, {}, []
        for line in text.splitlines():
            found = DEFINE.match(line)
            if found:
                self._add(*found.groups())
        for kind in KINDS:
            names = self.of_kind(kind)
            for number, count in Counter(names.values()).items():
                if count > 1:
                    same = ", ".join(name for name in names if names[name] == number)
                    self.complaints.append(f"{same} have the same number {number}")

    def _add(self, name, value, comment):
        if name[:3] not in KINDS or not value.isdecimal():
            self.complaints.append(f"{name} {value}: not understood")
        elif name in self.numbers:
            self.complaints.append(f"{name} is defined twice")
        else:
            self.numbers[name] = int(value)
            words = (comment or "").split(":")[0].split()
            self.arguments[name] = words if words and all(word in ("%s", "%d") for word in words) else []

    def of_kind(self, kind):
        return {name: number for name, number in self.numbers.items() if name.startswith(kind + "_")}


def complaints(names, libraries):
    """What is wrong with the libraries, a dictionary of ResourceFile by language."""
    found = list(names.complaints)
    for tag, library in libraries.items():
        own = [*_missing_and_left_over(names, library), *_doubled(library), *_formats(names, library),
               *_keys(names, library), *_pictures(library)]
        found += [f"{tag}: {complaint}" for complaint in own]
    return found + _differences(names, libraries)


def _missing_and_left_over(names, library):
    controls = {control.id for dialog in library.dialogs.values() for control in dialog.controls}
    there = {"IDD": set(library.dialogs), "IDS": set(library.strings), "IDI": set(library.icons),
             "IDB": set(library.bitmaps), "IDC": controls - {resfile.NO_ID, *OK_CANCEL}}
    for kind, word in KINDS.items():
        wanted = names.of_kind(kind)
        for name, number in wanted.items():
            if number not in there[kind]:
                yield f"{word} {number} ({name}) is missing"
        for number in sorted(there[kind] - set(wanted.values()), key=str):
            yield f"{word} {number} has no name in Resource.h"


def _doubled(library):
    for kind, number in library.twice:
        yield f"resource {number} of kind {kind} is there twice"
    for dialog in library.dialogs.values():
        for number, count in Counter(control.id for control in dialog.controls).items():
            if count > 1 and number != resfile.NO_ID:
                yield f"dialog {dialog.id} has control {number} twice"
    if len(library.languages) != 1:
        yield f"resources of {len(library.languages)} languages in one library"


def arguments_of(text):
    """The places of a format in their order; None if a % does not start a place."""
    places = ARGUMENT.findall(text)
    return None if any(place not in ("%s", "%d", "%%") for place in places) else [p for p in places if p != "%%"]


def _formats(names, library):
    for name, number in names.of_kind("IDS").items():
        text = library.strings.get(number, "")
        wanted = names.arguments[name]
        if not wanted and "%" not in text:
            continue
        places = arguments_of(text)
        if text and places != wanted:
            yield f"string {number} ({name}) takes {places}, Resource.h notes {wanted}"


def access_keys(text):
    """The letters after a single "&"."""
    return [letter.upper() for letter in re.findall(r"&(.?)", text, re.DOTALL) if letter != "&"]


def _has_prefix(control):
    """Whether "&" marks a key in the control's text."""
    if control.kind == "Static":
        return not control.style & SS_NOPREFIX and control.style & SS_TYPE <= SS_LAST_TEXT
    return control.kind == "Button"


def _screens(names, library):
    """What is on screen together: a title, the keys that are taken already, and dialogs."""
    def dialog(name):
        return library.dialogs.get(names.numbers.get(name))

    in_sheet = {name for tab, pages in TABS_AND_PAGES.items() for name in (tab, *pages)}
    for tab, pages in TABS_AND_PAGES.items():
        for page in pages or [None]:
            yield f"{tab} with {page}" if page else tab, SHEET_KEYS, [d for d in (dialog(tab), dialog(page)) if d]
    for name in names.of_kind("IDD"):
        if name not in in_sheet and dialog(name):
            yield name, {}, [dialog(name)]


def _keys(names, library):
    clashes = []
    for screen, taken, dialogs in _screens(names, library):
        owners = dict(taken)
        for control in (control for dialog in dialogs for control in dialog.controls if _has_prefix(control)):
            for key in access_keys(control.text):
                if key in owners:
                    clashes.append(f'{screen}: "{control.text}" has the access key of "{owners[key]}"')
                owners.setdefault(key, control.text)
    yield from clashes
    for dialog in library.dialogs.values():
        yield from _key_complaints(names, dialog)


def _key_complaints(names, dialog):
    shown = {names.numbers.get(name) for name in ONLY_SHOWN}
    before = None
    for control in dialog.controls:
        keys = access_keys(control.text) if _has_prefix(control) else []
        if len(keys) > 1 or any(not (key.isascii() and key.isalnum()) for key in keys):
            yield f'dialog {dialog.id}: "{control.text}" must have one Latin letter or digit as access key'
        if dialog.id not in shown and control.id not in shown and not _is_reached(control, keys, before):
            yield f'dialog {dialog.id}: control {control.id} "{control.text}" has no access key'
        before = control


def _is_reached(control, keys, before):
    """Whether a key leads to the control, if it is one that a person operates."""
    if control.kind == "Static" or control.id in OK_CANCEL:
        return True
    if control.kind == "Button":
        return bool(keys) or control.style & BS_TYPE == BS_GROUPBOX
    return before is not None and before.kind == "Static" and _has_prefix(before) and bool(access_keys(before.text))


def _pictures(library):
    for number, images in library.icons.items():
        missing = ICON_WIDTHS - {width for width, bits in images if bits == BITS}
        if missing:
            yield f"icon {number} lacks the sizes {sorted(missing)} with {BITS} bits per pixel"
        if any(bits != BITS for _, bits in images):
            yield f"icon {number} has pictures of other than {BITS} bits per pixel"
    for number, bits in library.bitmaps.items():
        if bits != BITS:
            yield f"bitmap {number} has {bits} bits per pixel, not {BITS}"


def _differences(names, libraries):
    """What translations must not change: blanks that join texts, and the patterns of a file filter."""
    found = []
    languages = [library.languages for library in libraries.values()]
    if any(languages.count(language) > 1 for language in languages):
        found.append("two libraries have the same language")
    for name, number in names.of_kind("IDS").items():
        texts = {tag: library.strings[number] for tag, library in libraries.items() if number in library.strings}
        if len({(_edges(text), _patterns(text)) for text in texts.values()}) > 1:
            found.append(f"string {number} ({name}) differs in its outer blanks or its file patterns: {texts}")
    return found


def _edges(text):
    return text[:len(text) - len(text.lstrip())], text[len(text.rstrip()):]


def _patterns(text):
    """The patterns of a filter like "Drawings|*.a|All|*.*||"."""
    return tuple(text.split("|")[1::2])


def main(header, *libraries):
    names = Names(Path(header).read_text(encoding="utf-8"))
    files = dict(word.split("=", 1) for word in libraries)
    found = complaints(names, {tag: resfile.read(Path(path).read_bytes()) for tag, path in files.items()})
    for complaint in found:
        print(f"{header}: error: {complaint}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
