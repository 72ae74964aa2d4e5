"""Wine prefixes: one template per checkout and Wine version, cloned in a blink for every use.

    with clone(cpu=2) as prefix:
        status = prefix.run(["build/windows-release/bin/x.exe"], seconds=60).returncode

A clone has its own wineserver, pinned to one CPU together with its clients: a warm start then takes 30 ms instead of up
to 450. Without X and without a person: the graphics driver is "null", windows work by messages only.
"""

import contextlib
import filecmp
import glob
import hashlib
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from .places import BUILD
from .processes import allowed_cpus, as_user, end_server, limited, run_to_end, say, start_server, wait_until

WINE = "/usr/lib/wine/wine64"  # the wrapper "wine" prints a hint about a missing 32-bit half
WINESERVER = "/usr/lib/wine/wineserver64"
FONTS = "/usr/share/wine/fonts"

# In place of a socket: whatever the machine's CUPS clients talk to by themselves.
MACHINE = "machine"

# From fonts-ipafont-gothic, which Wine finds by itself but must be told when to use.
JAPANESE_FONT, JAPANESE_FILE = "IPAPGothic", "ipagp.ttf"

# Wine's own hiccups, seen once in thousands of starts: worth a second try, which needs error messages switched on.
HICCUPS = ("failed to map the shared user data", "dl-fini.c", "fixed a temporary directory error")

# No queue may be baked into the template, no display used, no menu entry or browser set up.
# Edit controls look a letter's font up by its script: "hani" and "kana", as numbers.
REGISTRY = rf"""WINE REGISTRY Version 2

[Software\\Wine\\Drivers]
"Graphics"="null"

[Software\\Wine\\X11 Driver]
"Managed"="N"

[Software\\Wine\\Uniscribe\\Fallback]
"696e6168"="{JAPANESE_FONT}"
"616e616b"="{JAPANESE_FONT}"
"""


def environment(prefix, cups=None):
    """The environment of a program in this prefix. Without a CUPS socket there are no printers, not even the
    machine's."""
    env = {name: value for name, value in os.environ.items()
           if not name.startswith("WINE") and name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    env.update(WINEPREFIX=str(prefix), WINESERVER=WINESERVER, WINEDEBUG="fixme-all,-winediag,-systray", WINEARCH="win64",
               WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=", CUPS_SERVER=cups or "/nonexistent")
    if cups == MACHINE:
        del env["CUPS_SERVER"]
    return env


def is_hiccup(text):
    return any(words in text for words in HICCUPS)


class Prefix:
    """One prefix with its running wineserver. Made by clone(); ended by close()."""

    def __init__(self, folder, cpu, cups, user=None):
        self.folder = Path(folder)
        self.cpu = cpu
        self.env = environment(folder, cups)
        self._user = os.getuid() if user is None else user
        if self._user != os.getuid():
            self.env["HOME"] = str(folder)
        self._server = None

    def start(self):
        # In the foreground the server is our own child: we know its process and nothing is left to look for.
        self._server = start_server([*self._pinned(), WINESERVER, "-f", "-p"], self.folder / "wineserver.log", self.env)
        # A program that comes before the socket would start a second server.
        if not wait_until(lambda: (self._socket_folder() / "socket").exists(), 20):
            raise RuntimeError("the wineserver does not come up:\n" + (self.folder / "wineserver.log").read_text())

    def close(self):
        """Ends the server and every program in the prefix."""
        end_server(self._server)
        self._server = None
        _end_programs(self.folder)
        self._forget_socket()

    def wait_for_server(self, seconds):
        """Waits for a server that was asked to end."""
        self._server.wait(seconds)

    def command(self, arguments, seconds=None):
        """The whole command line for a Windows program; arguments[0] is its path."""
        command = [*self._pinned(), WINE, *map(str, arguments)]
        return limited(seconds, command) if seconds else command

    def run(self, arguments, seconds=120, cwd=None, env=None, meanwhile=None):
        """Runs a program to its end and returns a CompletedProcess with text in stdout and stderr. meanwhile is called
        repeatedly while it runs."""
        done = self._run_once(arguments, seconds, cwd, env, meanwhile)
        return self._run_once(arguments, seconds, cwd, env, meanwhile) if is_hiccup(done.stderr) else done

    def _run_once(self, arguments, seconds, cwd, env, meanwhile):
        # Into files, not pipes: the first program starts Wine's services, which would hold a pipe open for good.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            command = self.command(arguments, seconds)
            status = run_to_end(command, meanwhile, cwd=cwd, env={**self.env, **(env or {})}, stdout=out, stderr=err)
            return subprocess.CompletedProcess(command, status, _text(out), _text(err))

    def _socket_folder(self):
        """Where Debian's Wine puts the server's socket: in the user's run-time folder, or where there is none, in a
        temporary folder whose name it leaves in the prefix."""
        status = self.folder.stat()
        name = f"server-{status.st_dev:x}-{status.st_ino:x}"
        mark = self.folder / "wineserver"
        if mark.exists():
            return Path(self.env.get("TMPDIR", "/tmp"), mark.read_text(), name)
        return Path(f"/run/user/{self._user}/wine", name)

    def _forget_socket(self):
        """Wine leaves the folder behind; the next prefix in the same place on disk would fail because of it."""
        with contextlib.suppress(OSError):
            folder = self._socket_folder()
            shutil.rmtree(folder, ignore_errors=True)
            folder.parent.rmdir()

    def _pinned(self):
        return [*as_user(self._user), "taskset", "-c", str(self.cpu)]


@contextlib.contextmanager
def clone(cpu=None, cups=None, folder=None, dpi=None, display=None, user=None):
    """A fresh copy of the template with a running server, removed at the end. Start CUPS first: Wine copies the list
    of queues when a program loads the spooler. dpi is the scale of its desktop, 96 unless given; display is an X display
    on which its windows are to be seen. user is the number of the user whose prefix it is, which root alone may choose:
    its server and its programs run as that user."""
    template = make_template()
    target = Path(tempfile.mkdtemp(prefix="garm-wine-", dir=folder))
    prefix = Prefix(target / "prefix", allowed_cpus()[-1] if cpu is None else cpu, cups, user)
    try:
        if run_to_end(["cp", "-a", str(template), str(prefix.folder)]) != 0:
            raise RuntimeError(f"the Wine prefix template cannot be copied to {prefix.folder}")
        if user is not None and run_to_end(["chown", "-hR", f"{user}:{user}", str(target)]) != 0:
            raise RuntimeError(f"the Wine prefix {prefix.folder} cannot be given to user {user}")
        # A section that comes twice is merged when the registry is loaded.
        with open(prefix.folder / "user.reg", "a", encoding="utf-8") as registry:
            if dpi:
                registry.write(f'\n[Control Panel\\\\Desktop]\n"LogPixels"=dword:{dpi:08x}\n')
            if display:
                registry.write('\n[Software\\\\Wine\\\\Drivers]\n"Graphics"="x11"\n')
        if display:
            prefix.env["DISPLAY"] = display
        prefix.start()
        yield prefix
    finally:
        prefix.close()
        shutil.rmtree(target, ignore_errors=True)


def make_template():
    """The template's folder; made when there is none for this Wine and these settings (some seconds)."""
    version = subprocess.run([WINE, "--version"], capture_output=True, text=True, check=True,
                             env={**os.environ, "WINEPREFIX": "/nonexistent"}).stdout.strip()
    key = hashlib.sha256("\n".join([version, Path(__file__).read_text()]).encode()).hexdigest()[:12]
    template = BUILD / "wine" / f"template-{key}"
    if template.is_dir():
        return template
    say("making the Wine prefix template")
    template.parent.mkdir(parents=True, exist_ok=True)
    for old in template.parent.glob("template-*"):
        shutil.rmtree(old, ignore_errors=True)
    with tempfile.TemporaryDirectory(prefix="making-", dir=template.parent) as making:
        folder = Path(making) / "prefix"
        _fill(folder)
        try:
            folder.rename(template)
        except OSError:
            if not template.is_dir():  # else another run was faster
                raise
    return template


def _fill(folder):
    folder.mkdir()
    (folder / "user.reg").write_text(REGISTRY)
    prefix = Prefix(folder, allowed_cpus()[-1], None)
    prefix.start()
    try:
        done = prefix.run(["wineboot", "-i"], seconds=300)
        if done.returncode != 0 or not (folder / "drive_c/windows/system32/kernel32.dll").exists():
            raise RuntimeError(f"wineboot failed with status {done.returncode}:\n{done.stderr}")
        # The registry is written when the last program has ended; only then may it be copied.
        subprocess.run(limited(60, [WINESERVER, "-k"]), env=prefix.env, check=False)
        prefix.wait_for_server(60)
    finally:
        prefix.close()
    if not (folder / "system.reg").exists():
        raise RuntimeError("the new Wine prefix has no registry")
    _edit_registry(folder / "system.reg")
    _link_builtins(folder)
    _link_fonts(folder)
    # The server's record of its own socket would be wrong in a clone.
    for name in ("wineserver", "wineserver.log"):
        (folder / name).unlink(missing_ok=True)


def programs(folder):
    """The processes of a prefix, also those that a Windows program started of this system."""
    mark = f"WINEPREFIX={folder}".encode()
    for environ in glob.glob("/proc/[0-9]*/environ"):
        with contextlib.suppress(OSError):
            if mark in Path(environ).read_bytes().split(b"\0"):
                yield int(environ.split("/")[2])


def _end_programs(folder):
    """Ends programs left in a prefix whose server has ended; they notice it themselves, but late."""
    for process in programs(folder):
        with contextlib.suppress(OSError):
            os.kill(process, signal.SIGKILL)


def _text(file):
    file.seek(0)
    return file.read().decode("utf-8", "replace").replace("\r\n", "\n")


def _edit_registry(registry):
    """What Wine's own set-up writes and we want otherwise."""
    lines = registry.read_text(encoding="utf-8", errors="surrogateescape").splitlines(keepends=True)
    # Wine would start its menu builder with the first program of every clone; switched off as it is, it only prints an
    # error.
    lines = [line for line in lines if not line.startswith('"winemenubuilder"=')]
    # The dialogs' font takes Japanese letters from another one; those that Wine names are not available here. Its bold
    # face, used in title bars, takes none as far as we know.
    linked = rf"{JAPANESE_FILE},{JAPANESE_FONT}\0"
    entry = '"Tahoma"=str(7):"'
    for at, line in enumerate(lines):
        if line.startswith(entry):
            lines[at] = f'{entry}{linked}{line[len(entry):]}"Tahoma Bold"=str(7):"{linked}"\n'
    registry.write_text("".join(lines), encoding="utf-8", errors="surrogateescape")


def _link_builtins(folder):
    """Replaces copies of Wine's own files by links: 19 MB instead of 696, and clones in 50 ms."""
    originals = {}
    for path in glob.glob("/usr/lib/*/wine/x86_64-windows/*"):
        originals[os.path.basename(path).lower()] = path
    for path in (folder / "drive_c").rglob("*"):
        original = originals.get(path.name.lower())
        if original and path.is_file() and not path.is_symlink() and filecmp.cmp(path, original, shallow=False):
            path.unlink()
            path.symlink_to(original)


def _link_fonts(folder):
    """Debian's Wine brings no fonts into a prefix; without them glyphs and text widths are wrong."""
    fonts = folder / "drive_c/windows/Fonts"
    fonts.mkdir(parents=True, exist_ok=True)
    for path in Path(FONTS).glob("*"):
        target = fonts / path.name
        if not target.exists():
            target.symlink_to(path)
