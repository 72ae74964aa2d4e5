"""The four print queues that ./run and the end-to-end tests work on.

Real drivers of real devices, from a Debian package; the samples are bound to them by name. Two are large-format
plotters, one with margins and one without (zero margins count as "no bounds yet", a case of its own).
"""

import os
import subprocess
from typing import NamedTuple

from .places import BUILD
from .processes import limited

DRIVERS = "/usr/lib/cups/driver/openprinting-ppds"


class Queue(NamedTuple):
    name: str
    model: str  # path of the PPD inside the package
    what: str


QUEUES = (
    Queue("DesignJet-3500CP", "HP/HP_DesignJet_3500CP_PS3.ppd", "large-format plotter with margins"),
    Queue("DesignJet-800PS", "HP/HP_Designjet_800_PS3.ppd", "large-format plotter without margins"),
    Queue("Lanier-MP-W7100", "Lanier/PS/Lanier-MP_W7100_PS.ppd", "wide-format copier"),
    Queue("Brother-HL-5370DW", "Brother/BR5370_2_GPL.ppd", "office printer, duplex"),
)


def unpacked(model):
    """A PPD of the package, as bytes."""
    uri = f"openprinting-ppds:0/ppd/openprinting/{model}"
    done = subprocess.run(limited(60, [DRIVERS, "cat", uri]), stdin=subprocess.DEVNULL, capture_output=True, check=False)
    if done.returncode != 0 or not done.stdout.startswith(b"*PPD-Adobe"):
        raise RuntimeError(f"{uri} cannot be unpacked: {done.stderr.decode(errors='replace')}")
    return done.stdout


def ppd(queue):
    """The queue's PPD as a file; unpacked once per checkout, which takes a second."""
    target = BUILD / "cups/ppd" / f"{queue.name}.ppd"
    if not target.exists():
        target.parent.mkdir(parents=True, exist_ok=True)
        making = target.with_suffix(f".{os.getpid()}")
        making.write_bytes(unpacked(queue.model))
        making.rename(target)
    return target
