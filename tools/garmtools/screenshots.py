"""Takes a picture of every dialog, tab and page of the editor, in every language and at three scales.

    tools/screenshots [--language TAG]... [--dpi N]... [--into FOLDER]

They come into build/screenshots/DPI/TAG, for a person to look at.
"""

import argparse
import re
import shutil
import tempfile
from pathlib import Path

from PIL import Image

from . import editorscript as ed
from . import privatecups, wineprefix, xdisplay
from .editorscript import Script
from .places import BUILD, WINDOWS_BIN, windows_path
from .processes import run_main, say

LANGUAGES = ("en", "de", "ja")
SCALES = (96, 144, 192)
PLOTTER = "DesignJet-3500CP"
VIRTUAL_PRINTER = "Tarnwick PDF Printer 2018"


def take_all(prefix, language, target):
    """Every tab, page and dialog in one language, as PNG files in the folder target."""
    with tempfile.TemporaryDirectory(prefix="garm-pictures-") as name:
        folder = Path(name)
        _make_configurations(prefix, folder)
        for title, script in _sessions(folder):
            done = ed.run(prefix, script, [folder], language, folder)
            if done.returncode != 0:
                raise RuntimeError(f"the pictures of {title} failed:\n{done.stdout}\n{done.stderr}")
        target.mkdir(parents=True, exist_ok=True)
        for bitmap in sorted(folder.glob("*.bmp")):
            Image.open(bitmap).save(target / f"{bitmap.stem}.png", optimize=True)
    say(f"  {target}")


def _make_configurations(prefix, folder):
    host = WINDOWS_BIN / "plothost.exe"
    done = prefix.run([host, "create", PLOTTER, windows_path(folder / "plan.pc3")])
    if done.returncode != 0:
        raise RuntimeError(f"no configuration to show: {done.stderr}")
    shutil.copy(WINDOWS_BIN.parents[2] / "samples/virtual-pdf.pc3", folder / "file.pc3")
    plain = (folder / "file.pc3").read_bytes()
    for title, description in ("signs", rb"before\\U+0000after"), ("long", b"A long description. " * 10_000):
        changed, count = re.subn(rb'(config_description=").*', rb"\g<1>" + description, plain)
        if count != 1:
            raise RuntimeError("no description to change")
        (folder / f"{title}.pc3").write_bytes(changed)
    (folder / "taken.pc3").mkdir()  # a folder in the way of a file of that name


def _sessions(folder):
    yield "the tabs and pages", _pages()
    yield "saving", _saving(folder)
    yield "the virtual printers' dialog", _virtual_printer()
    yield "texts that are cut or have signs", _hard_to_show()


def _pages():
    script = Script("edit plan.pc3", "dialog",
                    f"type {ed.DESCRIPTION} Plans of the second floor, colour, ISO A1", "picture 01-general")
    script.device_tab().add("picture 02-device").entry("root").add("picture 03-page-none", "page-pictures 03-page")
    script.entry("collating").add(f"choose {ed.COLLATING} 1")
    script.entry("raster").add(f"slide {ed.PREFERENCE} 10", f"slide {ed.RASTER_IMAGES} 2")
    script.entry("truetype").add(f"click {ed.AS_GRAPHICS}")
    script.entry("merge").add(f"click {ed.MERGE}").entry("raster").add("picture 04-marks")
    script.add(f"click {ed.DEFAULTS}", "dialog", "picture 05-reset-question", f"click {ed.NO}", "closed")
    script.add(f"click {ed.CANCEL}", "end")
    return script.add("edit file.pc3", "dialog", "picture 06-general-file", f"click {ed.CANCEL}", "end")


def _saving(folder):
    script = Script("edit plan.pc3", "dialog").device_tab().entry("truetype")
    script.add(f"click {ed.AS_GRAPHICS}", f"click {ed.SAVE_AS}", "dialog", "picture 07-save-as")
    script.add(f"click {ed.CANCEL}", "closed", f"click {ed.OK}", "dialog", "picture 08-name")
    script.add(f"type {ed.NAME} taken", f"click {ed.OK}", "dialog", "picture 09-save-failed", f"click {ed.OK}", "end")
    script.add(f"edit-printer {PLOTTER}", "dialog", "picture 10-general-printer").device_tab().entry("truetype")
    script.add(f"click {ed.AS_GRAPHICS}", f"click {ed.OK}", "dialog", "picture 11-name-extension")
    return script.add(f"click {ed.CANCEL}", "end")


def _virtual_printer():
    script = Script(f"add-printer {VIRTUAL_PRINTER}|{PLOTTER}", f"edit-printer {VIRTUAL_PRINTER}", "dialog")
    script.device_tab().add(f"click {ed.DRIVER_SETTINGS}", "dialog", "picture 12-virtual-printer")
    script.add(f"choose {ed.PAPER} 2", f"type {ed.WIDTH} 210", f"type {ed.LENGTH} 297", "picture 13-virtual-custom")
    script.add(f"click {ed.INCHES}", f"click {ed.LANDSCAPE}", "picture 14-virtual-inches")
    script.add(f"type {ed.WIDTH} 8.27", f"type {ed.LENGTH} 200", f"click {ed.OK}", "picture 15-virtual-too-long")
    return script.add(f"click {ed.CANCEL}", "closed", f"click {ed.CANCEL}", "end",
                      f"delete-printer {VIRTUAL_PRINTER}")


def _hard_to_show():
    return Script("edit signs.pc3", "dialog", "picture 16-general-signs", f"click {ed.CANCEL}", "end",
                  "edit long.pc3", "dialog", "picture 17-general-cut", f"click {ed.CANCEL}", "end")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--language", action="append", choices=LANGUAGES)
    parser.add_argument("--dpi", action="append", type=int, choices=SCALES)
    parser.add_argument("--into", type=Path, default=BUILD / "screenshots")
    options = parser.parse_args()
    with privatecups.private_cups() as cups, xdisplay.private_display() as display:
        for dpi in options.dpi or SCALES:
            with wineprefix.clone(cups=cups.socket, dpi=dpi, display=display) as prefix:
                for language in options.language or LANGUAGES:
                    take_all(prefix, language, options.into / str(dpi) / language)
    return 0


if __name__ == "__main__":
    run_main(main)
