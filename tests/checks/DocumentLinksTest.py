"""Links from one document to another lead to a file, and to a heading of it."""

import re
import unittest

from sources import ROOT, text, tracked

LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")


def documents():
    return [path for path in tracked() if path.suffix == ".md"]


def anchors(path):
    """The headings as links name them: lower case, "-" for a blank, without other punctuation."""
    headings = re.findall(r"^#+ (.+)$", text(path), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", heading).strip().lower().replace(" ", "-") for heading in headings}


def problem(path, link):
    file, _, anchor = link.partition("#")
    target = (ROOT / path).parent / file if file else ROOT / path
    if not target.exists():
        return "no such file"
    return "no such heading" if anchor and anchor not in anchors(target.resolve().relative_to(ROOT)) else None


class DocumentLinksTest(unittest.TestCase):
    def test_links_lead_somewhere(self):
        links = [(path, link) for path in documents() for link in LINK.findall(text(path)) if "://" not in link]
        assert links != []
        assert [f"{path}: {link}: {problem(path, link)}" for path, link in links if problem(path, link)] == []


if __name__ == "__main__":
    unittest.main()
