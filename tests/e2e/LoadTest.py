"""The module asked the same thing many times in one process: nothing of the system may stay behind. The long form is
lab/run load."""

from hostcase import HostCase

from lab.load import load


class LoadTest(HostCase):
    def test_calls_checks_and_openings_leave_nothing_behind(self):
        rows = list(load(self.prefix, self.folder, {"calls": 300, "checks": 60, "openings": 20}, seconds=120))
        assert len(rows) == 24
        assert [(what, count, verdict.text) for what, count, *_, verdict in rows if not verdict.held] == []
