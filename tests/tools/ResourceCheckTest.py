"""The check of the language libraries finds each kind of mistake, and nothing where there is none."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import resfile, resourcecheck  # noqa: E402
from garmtools.resfile import Control, Dialog, ResourceFile  # noqa: E402

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


class ResourceCheckTest(unittest.TestCase):
    def complaints(self, *libraries, header=HEADER):
        tags = ("en", "de", "ja")
        return resourcecheck.complaints(resourcecheck.Names(header), dict(zip(tags, libraries)))

    def one(self, found, *words):
        self.assertEqual(len(found), 1, found)
        for word in words:
            self.assertIn(word, found[0])

    def test_libraries_without_a_mistake_pass(self):
        german = library(0x407)
        german.strings[102] = "%s - Plotterkonfiguration"
        self.assertEqual(self.complaints(library(), german), [])

    def test_what_a_language_lacks_is_named(self):
        for kind in ("dialogs", "strings", "icons", "bitmaps"):
            german = library(0x407)
            number = max(getattr(german, kind))
            del getattr(german, kind)[number]
            found = [text for text in self.complaints(library(), german) if str(number) in text]
            self.one(found, "de", "missing")

    def test_a_control_that_no_dialog_has_is_missing(self):
        self.one(self.complaints(library(), header=HEADER + "#define IDC_LOST 77\n"), "77 (IDC_LOST)", "missing")

    def test_what_no_code_can_ask_for_is_left_over(self):
        one = library()
        one.strings[999] = "old"
        self.one(self.complaints(one), "string 999")
        two = library()
        two.dialogs[106].controls.append(Control(77, "Static", 0, ""))
        self.one(self.complaints(two), "control 77")

    def test_a_number_stands_for_one_thing(self):
        self.one(self.complaints(library(), header=HEADER + "#define IDS_SAME 213\n"), "IDS_PORT, IDS_SAME", "213")
        self.one(self.complaints(library(), header=HEADER + "#define IDS_PORT 213\n"), "IDS_PORT", "twice")

    def test_a_definition_that_is_not_understood_is_not_passed_over(self):
        self.one(self.complaints(library(), header=HEADER + "#define IDS_HEX 0x20\n"), "IDS_HEX", "not understood")

    def test_a_control_or_resource_that_is_there_twice_is_found(self):
        one = library()
        one.dialogs[106].controls.insert(2, Control(900, "Static", 0, ""))
        self.one(self.complaints(one), "dialog 106", "900", "twice")
        two = library()
        two.twice.append((resfile.DIALOG, 106))
        self.one(self.complaints(two), "106", "twice")

    def test_format_arguments_are_those_of_the_header(self):
        for text in ("%d, depth", "%d, depth %s", "%d %d %d", "depth", "100 % of %d %d", "%5d %d", "%d %d %"):
            german = library(0x407)
            german.strings[231] = text
            self.one(self.complaints(library(), german), "de", "231", "IDS_COLORS")

    def test_a_per_cent_sign_of_a_format_is_doubled(self):
        one = library()
        one.strings[231] = "%d (100 %%), depth %d"
        self.assertEqual(self.complaints(one), [])

    def test_a_plain_text_takes_no_arguments(self):
        one = library()
        one.strings[213] = "Port %s: "
        self.one(self.complaints(one), "213", "IDS_PORT")

    def test_the_order_of_arguments_counts(self):
        one = library()
        one.strings[102] = "%d %s"
        self.one(self.complaints(one, header=HEADER.replace("%s: file", "%s %d: file")), "102")

    def test_access_keys_clash_within_a_dialog(self):
        one = library()
        one.dialogs[106].controls[3].text = "Ca&ncel"
        self.one(self.complaints(one), "IDD_NAME", "Ca&ncel", "&Name:")

    def test_access_keys_of_a_tab_and_its_page_clash(self):
        one = library()
        one.dialogs[110].controls[1].text = "Copie&s:"
        self.one(self.complaints(one), "IDD_DEVICE with IDD_COLLATING", "Copie&s:")

    def test_access_keys_of_two_tabs_are_never_seen_together(self):
        one = library()
        one.dialogs[103].controls[0].text = "De&scription:"
        self.assertEqual(self.complaints(one), [])

    def test_the_sheets_own_buttons_count(self):
        one = library()
        one.dialogs[103].controls[0].text = "W&hat:"
        self.one(self.complaints(one), "IDD_GENERAL", "W&hat:", "Help")

    def test_an_ampersand_of_the_text_is_no_key(self):
        one = library()
        one.dialogs[106].controls[0].text = "&Name && place:"
        self.assertEqual(self.complaints(one), [])
        one.dialogs[106].controls.insert(0, label("R&Nd", NO_PREFIX))
        self.assertEqual(self.complaints(one), [])

    def test_a_key_is_one_letter_that_every_keyboard_has(self):
        for text in ("&N&ame:", "N\u00e4&\u00e4me:", "Name& :"):
            one = library()
            one.dialogs[106].controls[0].text = text
            self.one(self.complaints(one), "Latin")

    def test_what_a_person_operates_has_a_key(self):
        one = library()
        one.dialogs[106].controls[0].text = "Name:"
        self.one(self.complaints(one), "dialog 106", "control 900", "no access key")
        two = library()
        two.dialogs[106].controls.insert(2, Control(resfile.NO_ID, "Button", PUSH, "More"))
        self.one(self.complaints(two), "More", "no access key")

    def test_a_label_that_does_not_stand_right_before_its_control_leads_elsewhere(self):
        one = library()
        one.dialogs[106].controls.insert(1, label("Pick one."))
        self.one(self.complaints(one), "control 900", "no access key")

    def test_pictures_have_the_sizes_and_colours_that_are_asked_for(self):
        one = library()
        one.icons[301] = SIZES[:-1]
        self.one(self.complaints(one), "icon 301", "48")
        two = library()
        two.icons[301] = [*SIZES, (64, 32)]
        self.one(self.complaints(two), "icon 301", "24")
        three = library()
        three.bitmaps[10111] = 32
        self.one(self.complaints(three), "bitmap 10111", "32")

    def test_blanks_that_join_texts_survive_translation(self):
        german = library(0x407)
        german.strings[213] = "Anschluss:"
        self.one(self.complaints(library(), german), "213", "blanks")

    def test_patterns_of_a_file_filter_survive_translation(self):
        german = library(0x407)
        german.strings[206] = "Plotter|*.pc3|Alle|*.*|"
        self.one(self.complaints(library(), german), "206", "patterns")

    def test_each_library_has_one_language_of_its_own(self):
        self.one(self.complaints(library(), library()), "same language")
        mixed = library()
        mixed.languages.add(0x407)
        self.one(self.complaints(mixed), "2 languages")


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


class CompiledScriptTest(unittest.TestCase):
    """What the resource compiler writes is understood."""

    def compiled(self, script):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "Resource.h").write_text(HEADER)
            Path(folder, "x.rc").write_text(script)
            subprocess.run(["x86_64-w64-mingw32-windres", "-O", "res", "-I", folder, "-i", f"{folder}/x.rc",
                            "-o", f"{folder}/x.res"], check=True, timeout=60)
            return Path(folder, "x.res").read_bytes()

    def test_dialogs_and_strings_are_read(self):
        found = resfile.read(self.compiled(SCRIPT))
        dialog = found.dialogs[106]
        self.assertEqual(dialog.caption, "Name of a plotter")
        self.assertEqual([(c.id, c.kind, c.text) for c in dialog.controls],
                         [(resfile.NO_ID, "Static", "&Name:"), (900, "Edit", ""), (30, "msctls_trackbar32", ""),
                          (31, "Static", "text"), (1, "Button", "OK")])
        self.assertTrue(dialog.controls[3].style & NO_PREFIX)
        self.assertEqual(found.strings, {213: "Port: "})
        self.assertEqual(found.languages, {0x409})
        self.assertEqual(found.twice, [])

    def test_every_complaint_is_printed_and_fails_the_build(self):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "Resource.h").write_text(HEADER)
            Path(folder, "en.res").write_bytes(self.compiled(SCRIPT))
            done = subprocess.run([sys.executable, "-m", "garmtools.resourcecheck", f"{folder}/Resource.h",
                                   f"en={folder}/en.res"], cwd=ROOT / "tools", capture_output=True, text=True,
                                  check=False)
            self.assertEqual(done.returncode, 1)
            self.assertIn("string 102 (IDS_TITLE) is missing", done.stderr)
            self.assertIn("dialog 103 (IDD_GENERAL) is missing", done.stderr)

    def test_other_files_are_refused(self):
        with self.assertRaises(ValueError):
            resfile.read(b"MZ" + bytes(100))


if __name__ == "__main__":
    unittest.main()
