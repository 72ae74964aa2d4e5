"""A fuzz target that breaks off or tries nothing fails."""

import subprocess

import pytest
from garmtools.places import ROOT

TRIED = "echo 'stat::number_of_executed_units: 12'"


@pytest.mark.parametrize("script, passes", [(TRIED, True), (f"{TRIED}; exit 77", False), ("kill -SEGV $$", False), ("", False),
                                            ("echo 'stat::number_of_executed_units: 0'", False)])
@pytest.mark.parametrize("what", ["replay", "search"])
def test_target(tmp_path, what, script, passes):
    program = tmp_path / "fuzz_made_up"
    program.write_text(f"#!/bin/sh\n{script}\n")
    program.chmod(0o755)
    done = subprocess.run([ROOT / "fuzz/run", what, program, tmp_path], capture_output=True, check=False)
    assert (done.returncode == 0) == passes, done.stdout


def test_new_inputs_are_kept_where_asked(tmp_path):
    program = tmp_path / "fuzz_made_up"
    program.write_text(f'#!/bin/sh\necho "$@"\n{TRIED}\n')
    program.chmod(0o755)
    done = subprocess.run([ROOT / "fuzz/run", "search", program, "seeds"], text=True, capture_output=True, check=True,
                          env={"PATH": "/usr/bin:/bin", "GARM_FUZZ_SECONDS": "7", "GARM_FUZZ_CORPUS": str(tmp_path / "kept")})
    assert f"-max_total_time=7 {tmp_path}/kept/fuzz_made_up seeds" in done.stdout
