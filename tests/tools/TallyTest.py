"""./test believes a test program only when its report and its end bear each other out."""

import subprocess
import sys

import pytest
from garmtools import tally

CASES = ('<testcase classname="S" name="a" status="run" result="completed"/>'
         '<testcase classname="S" name="b" status="run" result="completed"/>')
FAILED = '<testcase classname="S" name="c" status="run" result="completed"><failure message="m">why</failure></testcase>'
SKIPPED = '<testcase classname="S" name="d" status="run" result="skipped"/>'
DISABLED = '<testcase classname="S" name="e" status="notrun" result="suppressed"/>'


def report(cases):
    return f"printf '%s' '<testsuites><testsuite>{cases}</testsuite></testsuites>' >$xml; "


# What a program does, and what becomes of it: cases passed, and names of the failures.
PROGRAMS = {
    "good": (report(CASES), 2, []),
    "failing": (report(CASES + FAILED) + "exit 1", 2, ["failing: S.c"]),
    "skipping": (report(SKIPPED + DISABLED), 0, ["skipping: S.d", "skipping: S.e"]),
    "crashing": ("kill -SEGV $$", 0, ["crashing"]),
    "crashing at its end": (report(CASES) + "kill -SEGV $$", 2, ["crashing at its end"]),
    "hanging": ("exec sleep 60", 0, ["hanging"]),
    "hanging at its end": (report(CASES) + "exec sleep 60", 2, ["hanging at its end"]),
    "silent": ("exit 0", 0, ["silent"]),
    "half a report": ("printf '<testsuites>' >$xml", 0, ["half a report"]),
    "no cases": (report(""), 0, ["no cases"]),
}


@pytest.mark.parametrize("name", PROGRAMS)
def test_program(tmp_path, name):
    script, passed, failures = PROGRAMS[name]
    (tmp_path / "program").write_text(f"xml='{tmp_path}/{name}.xml'; echo last words; {script}\n")
    (tmp_path / "CTestTestfile.cmake").write_text(f'add_test("{name}" sh "{tmp_path}/program")\n')
    subprocess.run(["ctest", "--timeout", "1", "--output-junit", "ctest.junit"], cwd=tmp_path, capture_output=True,
                   check=False)
    cases = tally.cases_of_programs(tmp_path / "ctest.junit", tmp_path)
    assert [case for case, why in cases if why] == failures
    assert len(cases) == passed + len(failures)
    if "crashing" in name:
        assert "last words" in dict(cases)[name]


@pytest.mark.parametrize("body, line", [("assert True", "1 0"), ("assert False", "0 1"), ("pytest.skip('no')", "0 1"),
                                        ("import os; os._exit(0)", "0 1")])
def test_pytest_report(tmp_path, body, line):
    (tmp_path / "test_x.py").write_text(f"import pytest\ndef test_x():\n    {body}\n")
    subprocess.run([sys.executable, "-m", "pytest", "--junit-xml=x.junit"], cwd=tmp_path, capture_output=True, check=False)
    done = subprocess.run([sys.executable, "-m", "garmtools.tally", tmp_path / "x.junit"], capture_output=True, text=True,
                          cwd=tally.__file__.rsplit("/", 2)[0], check=True)
    assert done.stdout.splitlines()[-1] == line
