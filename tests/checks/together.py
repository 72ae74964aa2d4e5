"""Sources that can be compiled as one, so that the headers they share are parsed and checked once and not for each.

Two files go together unless something that is private to one of them has the name of something private to the other.
"""

import re
import shlex
from dataclasses import dataclass, field

MOST = 14  # files in a group: a few groups keep all processors busy

# What stands at the left margin of an unnamed namespace: types, functions, constants, other names of types.
_NAMES = re.compile(r"^(?:template <.*> *)?(?:(?:class|struct|union|enum class|enum|using|namespace) (\w+)"
                    r"|(?:\w[\w:<>,&*\[\] ]*[ &*])(\w+)(?: =|\(|\{|\[|;))", re.MULTILINE)
_UNNAMED = re.compile(r"^namespace\n\{\n(.*?)^\} // namespace$", re.MULTILINE | re.DOTALL)
_MACROS = re.compile(r"^#define (\w+)", re.MULTILINE)
_STATIC = re.compile(r"^static [\w:<>,&* ]+[ &*](\w+)(?: =|\(|\{|\[|;)", re.MULTILINE)


def private_names(source):
    """The names that only this file may use, as far as the layout of the source tells."""
    names = {first or second for body in _UNNAMED.findall(source) for first, second in _NAMES.findall(body)}
    return names | set(_MACROS.findall(source)) | set(_STATIC.findall(source))


def flags(command):
    """The words of a compile command that do not belong to one file: neither the compiler nor what it reads and writes."""
    words = iter(shlex.split(command["command"]))
    kept = []
    for word in words:
        if word in ("-o", "-MF", "-MT", "-include"):
            next(words)
        elif word == "-isystem":
            kept += [word, next(words)]
        elif word.startswith("-") and word not in ("-c", "-MD", "-Winvalid-pch"):
            kept.append(word)
    return tuple(kept)


@dataclass
class Group:
    kind: tuple
    paths: list = field(default_factory=list)
    names: set = field(default_factory=set)


def grouped(files):
    """Groups of files that can be compiled together. files: (path, kind, source) of each; a group is of one kind."""
    groups = []
    for path, kind, source in sorted(files):
        names = private_names(source)
        for group in groups:
            if group.kind == kind and len(group.paths) < MOST and not names & group.names:
                break
        else:
            group = Group(kind)
            groups.append(group)
        group.paths.append(path)
        group.names |= names
    return groups
