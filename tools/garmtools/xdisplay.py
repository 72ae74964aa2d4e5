"""A display of our own without a screen, for pictures of windows.

    with private_display() as display:      # ":7"
        with wineprefix.clone(display=display) as prefix: ...
"""

import contextlib
import tempfile
from pathlib import Path

from .processes import end_server, start_server, wait_until

SCREEN = "1600x1200x24"


@contextlib.contextmanager
def private_display():
    """The name of a display that accepts connections from this machine only; removed at the end."""
    with tempfile.TemporaryDirectory(prefix="garm-display-") as folder:
        log = Path(folder) / "log"
        # The server chooses a free number and writes it once it is ready.
        server = start_server(["Xvfb", "-displayfd", "1", "-screen", "0", SCREEN, "-nolisten", "tcp"], log)
        try:
            if not wait_until(lambda: server.poll() is not None or _number(log), 20) or server.poll() is not None:
                raise RuntimeError("no display: " + log.read_text(errors="replace"))
            yield f":{_number(log)}"
        finally:
            end_server(server)


def _number(log):
    lines = [line for line in log.read_text(errors="replace").splitlines(keepends=True) if line.endswith("\n")]
    numbers = [line.strip() for line in lines if line.strip().isdigit()]
    return numbers[-1] if numbers else ""
