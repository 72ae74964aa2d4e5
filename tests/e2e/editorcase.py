"""What the scenarios of the editor stand on: a script that does what a person does at its windows."""

from hostcase import WITH_MARGINS, HostCase

from garmtools import editorscript as ed
from garmtools.editorscript import Answers, Script


class EditorCase(HostCase):
    """Every session is a process of its own, like every call of the host."""

    def session(self, script, status=0, **settings):
        """Runs a script with the test's folder as the search path; its answers."""
        done = ed.run(self.prefix, script, [self.folder], cwd=self.folder, **settings)
        assert done.returncode == status, f"{done.stdout}\n{done.stderr}"
        return Answers(done.stdout)

    def configuration(self, name):
        """The values of a file by block, as the host shows them."""
        return self.answer("show", name)["configuration"]

    def opened(self, name="x.pc3"):
        """The start of a script: the editor on a file."""
        return Script(f"edit {name}", "dialog")

    def created(self, name="x.pc3", printer=WITH_MARGINS):
        """A new configuration, and its bytes."""
        path = self.create(printer, name)
        return path, path.read_bytes()
