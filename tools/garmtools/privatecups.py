"""A CUPS of our own: no system file is read or changed, the machine's server is never talked to.

    with private_cups() as cups:          # the four queues of queues.py
        cups.add("Another", ppd)          # lpadmin on this server only
        with wineprefix.clone(cups=cups.socket) as prefix: ...

Everything lives in a short folder under the temporary one: a socket path above 107 bytes would leave the server without
a listener, and its filters, which run as another user, could not enter a private home.
"""

import contextlib
import grp
import os
import pwd
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from .processes import end_server, limited, start_server, wait_until
from .queues import QUEUES, ppd

SERVER = "/usr/sbin/cupsd"
FILES = """ServerRoot {root}/etc
StateDir {root}/state
CacheDir {root}/cache
RequestRoot {root}/spool
TempDir {root}/spool/tmp
AccessLog {root}/log/access
ErrorLog {root}/log/error
PageLog {root}/log/page
FileDevice yes
Sandboxing relaxed
SystemGroup {group}
Printcap
"""
SERVICE = """Listen {root}/socket
Browsing No
WebInterface No
DefaultAuthType None
LogLevel warn
MaxLogSize 0
DirtyCleanInterval 0
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
"""


class Cups:
    """A running server. Made by private_cups()."""

    def __init__(self, root):
        self.root = Path(root)
        self.socket = str(self.root / "socket")
        self.output = self.root / "printed"
        self._server = None

    def start(self):
        for name in ("etc", "state", "cache", "spool", "spool/tmp", "log", "printed"):
            (self.root / name).mkdir(exist_ok=True)
        # Jobs are written by another user when we are root.
        self.output.chmod(0o777)
        files = FILES.format(root=self.root, group=grp.getgrgid(os.getgid()).gr_name)
        if os.getuid() != 0:
            files += f"User {pwd.getpwuid(os.getuid()).pw_name}\nGroup {grp.getgrgid(os.getgid()).gr_name}\n"
        (self.root / "etc/cups-files.conf").write_text(files)
        (self.root / "etc/cupsd.conf").write_text(SERVICE.format(root=self.root))
        # A copy of the program, because desktops confine the installed one to the system's folders.
        program = self.root / "cupsd"
        shutil.copy(SERVER, program)
        self._server = start_server([program, "-f", "-c", self.root / "etc/cupsd.conf",
                                     "-s", self.root / "etc/cups-files.conf"], self.root / "log/output")
        if not wait_until(self._answers, 20):
            raise RuntimeError("the private CUPS does not answer:\n" + self.log())

    def stop(self):
        """Ends the server; the queues stay and are there again after start()."""
        self.thaw()
        end_server(self._server)
        self._server = None

    def kill(self):
        """Ends the server like a crash: its socket remains, with no process listening."""
        if self._server:
            self._server.kill()
            self._server.wait()
        self._server = None

    def running(self):
        return self._server is not None

    def freeze(self):
        """The server accepts connections but does not respond until thaw()."""
        self._server.send_signal(signal.SIGSTOP)

    def thaw(self):
        if self._server:
            self._server.send_signal(signal.SIGCONT)

    def add(self, name, ppd_file, *options):
        """A queue that prints into a file of its name; options as for lpadmin, e.g. "PageSize=AnsiE"."""
        words = [word for option in options for word in ("-o", option)]
        self._lpadmin("-p", name, "-E", "-v", f"file://{self.output}/{name}.ps", "-P", str(ppd_file), *words)

    def set_option(self, name, option):
        self._lpadmin("-p", name, "-o", option)

    def set_default(self, name):
        self._lpadmin("-d", name)

    def remove(self, name):
        self._lpadmin("-x", name)

    def has(self, name):
        return self._client("lpstat", "-p", name).returncode == 0

    def log(self):
        texts = [path.read_text(errors="replace") for path in sorted((self.root / "log").glob("*"))]
        return "".join(texts)

    def _answers(self):
        if self._server.poll() is not None:
            raise RuntimeError(f"the private CUPS ended with status {self._server.returncode}:\n{self.log()}")
        # lpstat exits with status 0 in either case; the socket of a killed server still exists.
        return os.path.exists(self.socket) and "is running" in self._client("lpstat", "-r").stdout

    def _lpadmin(self, *words):
        done = self._client("lpadmin", *words)
        if done.returncode != 0:
            raise RuntimeError(f"lpadmin {' '.join(words)} failed: {done.stderr}\n{self.log()}")

    def _client(self, *words):
        env = {**os.environ, "CUPS_SERVER": self.socket, "LC_ALL": "C", "PATH": os.environ.get("PATH", "") + ":/usr/sbin:/usr/bin"}
        return subprocess.run(limited(30, list(words)), env=env, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, errors="replace", check=False)


@contextlib.contextmanager
def private_cups(queues=QUEUES, keep_output=None):
    """A server with the given queues, the first of them the default; removed at the end. Printed files are moved into
    the folder keep_output, if one is given."""
    root = tempfile.mkdtemp(prefix="garm-cups-")
    os.chmod(root, 0o755)
    cups = Cups(root)
    try:
        cups.start()
        for queue in queues:
            cups.add(queue.name, ppd(queue))
        if queues:
            cups.set_default(queues[0].name)
        yield cups
    finally:
        cups.stop()
        if keep_output:
            _keep(cups.output, keep_output)
        shutil.rmtree(root, ignore_errors=True)


def _keep(printed, target):
    for path in printed.glob("*"):
        if path.stat().st_size > 0:
            os.makedirs(target, exist_ok=True)
            shutil.copy(path, target)
