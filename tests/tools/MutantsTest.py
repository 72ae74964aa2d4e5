"""The mistakes that the mutant campaign makes of a line."""

import pytest

from lab.mutants import mutants_of

# What stands in a function, and the changes of it: what it becomes, or None when it goes.
MADE = {
    "return a == b;": ["{a} != b", "return {}"],
    "return a < 3 ? 1 : b;": ["return a <= 3 ? 1 : b", "return a < (3 + 1) ? 1 : b", "return true ? 1 : b",
                              "return false ? 1 : b", "return a < 3 ? (1 + 1) : b", "return {}"],
    "if (!a) b = 1; return 0;": ["if (a) b = 1;", "if (true) b = 1;", "if (false) b = 1;", "if (!a) b = (1 + 1);",
                                 "return (0 + 1);", "return {};"],
    "b += 2; return b;": ["b -= 2;", "b += (2 + 1);", " ; return b;", "return {};"],
    "while (a) break; return +b;": ["while (false) break;", "return {};"],
    "return use(\"x\", true);": ['use("x~", true)', 'use("x", false)', "return {}"],
    "static_assert(1 + 1 == 2); return a;": ["return {}"],
    "use(\"y\", false); return a;": ['use("y~", false);', 'use("y", true);', " ; return a;", "return {};"],
}


@pytest.mark.parametrize("body", MADE)
def test_body(body):
    source = f"int use(const char*, bool);\nint f(int a, int b) {{ {body} }}\n".encode()
    mutants = mutants_of("x.cpp", source)
    assert {mutant.line for mutant in mutants} == {2}
    changed = [mutant.applied(source).decode() for mutant in mutants]
    wanted = [text.replace("{a}", "a") for text in MADE[body]]
    assert len(changed) == len(wanted), [mutant.change for mutant in mutants]
    for text in wanted:
        assert sum(text in one for one in changed) >= 1, text


def test_source_that_does_not_compile():
    with pytest.raises(ValueError, match="undeclared"):
        mutants_of("x.cpp", b"int f() { return unknown; }\n")
