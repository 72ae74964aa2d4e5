"""The check of the language libraries finds each kind of mistake, and nothing where there is none."""

import subprocess
import sys

import pytest
from garmtools import resfile, resourcecheck
from garmtools.places import ROOT
from garmtools.resfile import Control, Dialog, ResourceFile

HEADER = """
#define IDD_GENERAL 103
#define IDD_DEVICE 105
#define IDD_COLLATING 110
#define IDD_NAME 106
#define IDS_TITLE 102  // %s: file title
#define IDS_COLORS 231 // %d %d: number of colours, depth
#define IDS_PORT 213
#define IDS_FILTER 206
#define IDI_PRINTER 301
#define IDB_PORTRAIT 10111
#define IDC_DESCRIPTION 510
#define IDC_TREE 508
#define IDC_COPIES 526
#define IDC_NAME 900
"""
SIZES = [(16, 24), (24, 24), (32, 24), (48, 24)]
STATIC, PUSH, GROUP, NO_PREFIX = 0, 0, 7, 0x80


def label(text, style=STATIC):
    return Control(resfile.NO_ID, "Static", style, text)


def library(language=0x409):
    """One in which nothing is wrong."""
    dialogs = [
        Dialog(103, 0, "General", [label("&Description:"), Control(510, "Edit", 0, "")]),
        Dialog(105, 0, "Device", [label("&Settings:"), Control(508, "SysTreeView32", 0, "")]),
        Dialog(110, 0, "", [Control(resfile.NO_ID, "Button", GROUP, "Collating"), label("&Copies:"),
                            Control(526, "ComboBox", 0, "")]),
        Dialog(106, 0, "Name", [label("&Name:"), Control(900, "Edit", 0, ""), Control(1, "Button", PUSH, "OK"),
                                Control(2, "Button", PUSH, "Cancel")]),
    ]
    return ResourceFile({language}, {dialog.id: dialog for dialog in dialogs},
                        {102: "%s - Plotter", 231: "%d, depth %d", 213: "Port: ", 206: "Plotters|*.pc3|All|*.*||"},
                        {301: list(SIZES)}, {10111: 24})


def put(kind, number, value):
    """A change of a library: another text or the like."""
    return lambda library: getattr(library, kind).update({number: value})


def lack(kind, number):
    return lambda library: getattr(library, kind).pop(number)


def retext(dialog, at, text):
    return lambda library: setattr(library.dialogs[dialog].controls[at], "text", text)


def insert(dialog, at, control):
    return lambda library: library.dialogs[dialog].controls.insert(at, control)


# What is changed in one language and what is said of it, every word in one complaint; nothing where that is no mistake.
CHANGES = [
    (put("strings", 102, "%s - Plotterkonfiguration"), ()),
    (lack("strings", 231), ("de", "231", "missing")), (lack("icons", 301), ("de", "301", "missing")),
    (lack("bitmaps", 10111), ("de", "10111", "missing")),
    (put("strings", 999, "old"), ("string 999",)),  # no code can ask for it
    (insert(106, 4, Control(77, "Static", 0, "")), ("control 77",)),
    (insert(106, 2, Control(900, "Static", 0, "")), ("dialog 106", "900", "twice")),
    (lambda library: library.twice.append((resfile.DIALOG, 106)), ("106", "twice")),
    *((put("strings", 231, text), ("de", "231", "IDS_COLORS"))
      for text in ("%d, depth", "%d, depth %s", "%d %d %d", "depth", "100 % of %d %d", "%5d %d", "%d %d %")),
    (put("strings", 231, "%d (100 %%), depth %d"), ()),
    (put("strings", 213, "Port %s: "), ("213", "IDS_PORT")),
    # Access keys clash within a dialog, with the page below a tab, and with the sheet's own buttons.
    (retext(106, 3, "Ca&ncel"), ("IDD_NAME", "Ca&ncel", "&Name:")),
    (retext(110, 1, "Copie&s:"), ("IDD_DEVICE with IDD_COLLATING", "Copie&s:")),
    (retext(103, 0, "De&scription:"), ()),  # two tabs are never seen together
    (retext(103, 0, "W&hat:"), ("IDD_GENERAL", "W&hat:", "Help")),
    (retext(106, 0, "&Name && place:"), ()), (insert(106, 0, label("R&Nd", NO_PREFIX)), ()),
    *((retext(106, 0, text), ("Latin",)) for text in ("&N&ame:", "N\u00e4&\u00e4me:", "Name& :")),
    (retext(106, 0, "Name:"), ("dialog 106", "control 900", "no access key")),
    (insert(106, 2, Control(resfile.NO_ID, "Button", PUSH, "More")), ("More", "no access key")),
    (insert(106, 1, label("Pick one.")), ("control 900", "no access key")),  # the label leads to the control right after it
    (put("icons", 301, SIZES[:-1]), ("icon 301", "48")), (put("icons", 301, [*SIZES, (64, 32)]), ("icon 301", "24")),
    (put("bitmaps", 10111, 32), ("bitmap 10111", "32")),
    (put("strings", 213, "Anschluss:"), ("213", "blanks")),
    (put("strings", 206, "Plotter|*.pc3|Alle|*.*|"), ("206", "patterns")),
    (lambda library: library.languages.add(0x408), ("2 languages",)),
    (lambda library: (library.languages.clear(), library.languages.add(0x409)), ("same language",)),
]
HEADERS = [("#define IDC_LOST 77\n", ("77 (IDC_LOST)", "missing")), ("#define IDS_SAME 213\n", ("IDS_PORT, IDS_SAME", "213")),
           ("#define IDS_PORT 213\n", ("IDS_PORT", "twice")), ("#define IDS_HEX 0x20\n", ("IDS_HEX", "not understood"))]


def check(found, words):
    assert len(found) == bool(words), found
    assert [word for word in words if word not in found[0]] == []


@pytest.mark.parametrize("change, words", CHANGES)
def test_change_of_one_language(change, words):
    german = library(0x407)
    change(german)
    check(resourcecheck.complaints(resourcecheck.Names(HEADER), {"en": library(), "de": german}), words)


@pytest.mark.parametrize("line, words", HEADERS)
def test_line_of_the_header(line, words):
    check(resourcecheck.complaints(resourcecheck.Names(HEADER + line), {"en": library()}), words)


def test_missing_dialog_and_order_of_arguments():
    german = library(0x407)
    del german.dialogs[110]
    found = resourcecheck.complaints(resourcecheck.Names(HEADER), {"en": library(), "de": german})
    assert [text for text in found if "110" in text] == ["de: dialog 110 (IDD_COLLATING) is missing"]
    one = library()
    one.strings[102] = "%d %s"
    check(resourcecheck.complaints(resourcecheck.Names(HEADER.replace("%s: file", "%s %d: file")), {"en": one}), ("102",))


SCRIPT = """
#include <windows.h>
#include "Resource.h"
LANGUAGE LANG_ENGLISH, SUBLANG_ENGLISH_US
IDD_NAME DIALOGEX 0, 0, 100, 50
STYLE DS_SHELLFONT | WS_POPUP | WS_CAPTION
CAPTION "Name of a plotter"
FONT 8, "MS Shell Dlg 2"
{
    LTEXT "&Name:", -1, 7, 7, 50, 8
    EDITTEXT IDC_NAME, 7, 17, 50, 14
    CONTROL "", 30, "msctls_trackbar32", WS_TABSTOP, 0, 0, 5, 5
    CONTROL "text", 31, "Static", SS_NOPREFIX, 0, 0, 5, 5
    DEFPUSHBUTTON "OK", IDOK, 7, 33, 50, 14
}
STRINGTABLE { IDS_PORT "Port: " }
"""


@pytest.fixture
def compiled(tmp_path):
    """The folder with what the resource compiler makes of the script."""
    (tmp_path / "Resource.h").write_text(HEADER)
    (tmp_path / "x.rc").write_text(SCRIPT)
    subprocess.run(["x86_64-w64-mingw32-windres", "-O", "res", "-I", ".", "-i", "x.rc", "-o", "en.res"], cwd=tmp_path,
                   check=True)
    return tmp_path


def test_compiled_dialogs_and_strings_are_read(compiled):
    found = resfile.read((compiled / "en.res").read_bytes())
    dialog = found.dialogs[106]
    assert dialog.caption == "Name of a plotter"
    assert [(c.id, c.kind, c.text) for c in dialog.controls] == [
        (resfile.NO_ID, "Static", "&Name:"), (900, "Edit", ""), (30, "msctls_trackbar32", ""), (31, "Static", "text"),
        (1, "Button", "OK")]
    assert dialog.controls[3].style & NO_PREFIX
    assert (found.strings, found.languages, found.twice) == ({213: "Port: "}, {0x409}, [])


def test_complaints_are_printed_and_fail_the_build(compiled):
    done = subprocess.run([sys.executable, "-m", "garmtools.resourcecheck", compiled / "Resource.h",
                           f"en={compiled}/en.res"], cwd=ROOT / "tools", capture_output=True, text=True, check=False)
    assert done.returncode == 1
    assert "string 102 (IDS_TITLE) is missing" in done.stderr
    assert "dialog 103 (IDD_GENERAL) is missing" in done.stderr


def test_other_files_are_refused():
    with pytest.raises(ValueError):
        resfile.read(b"MZ" + bytes(100))
