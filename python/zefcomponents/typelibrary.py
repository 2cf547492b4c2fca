"""The type library: what the library itself tells about its classes and enumerations."""

import dataclasses
import re
import struct


@dataclasses.dataclass(frozen=True)
class Argument:
    name: str
    type: str
    by_reference: bool
    optional: bool


@dataclasses.dataclass(frozen=True)
class Member:
    owner: str
    name: str
    number: int
    is_function: bool
    type: str
    arguments: tuple
    writable: bool

    @property
    def title(self):
        return f"{self.owner}.{self.name}"


@dataclasses.dataclass(frozen=True)
class Class:
    name: str
    identifier: str
    interface: str
    creatable: bool
    members: tuple  # without the enumerator
    enumerable: bool


_ENUMERATION = re.compile(r"typedef \[[^\]]*\] enum (\w+) \{(.*?)\}", re.S)
_VALUE = re.compile(r"(\w+) = (-?\d+)")
_INTERFACE = re.compile(r"\[uuid\(([-\w]+)\)[^\]]*\]\s+dispinterface _(\w+) \{(.*?)\n    \};", re.S)
_CLASS = re.compile(r"\[uuid\(([-\w]+)\)([^\]]*)\]\s+coclass (\w+) ")
_MEMBER = re.compile(r"\[id\((0x[0-9a-f]+)\)([^\]]*)\] (.+?) (\w+)\((.*)\);")
_ARGUMENT = re.compile(r"\[(in[^\]]*)\] (.+?)(\*?) (\w+)(?:, |$)")


def read_text(path):
    """The text of a library's type library; None if the file has none."""
    with open(path, "rb") as file:
        head = file.read(64)
        if len(head) < 64 or head[:6] != b"\x7fELF\x02\x01":
            return None
        sections_at, = struct.unpack_from("<Q", head, 40)
        size, count, names = struct.unpack_from("<HHH", head, 58)

        def section(place):
            file.seek(sections_at + place * size)
            name, *_, at, length = struct.unpack("<IIQQQQ", file.read(40))
            return name, at, length

        def content(place):
            _, at, length = section(place)
            file.seek(at)
            return file.read(length)

        try:
            texts = content(names)
            for place in range(count):
                start = section(place)[0]
                if texts[start:texts.find(b"\0", start)] == b"TYPELIB":
                    return content(place).decode("utf-8")
        except (struct.error, ValueError, OverflowError):  # cut off or damaged
            return None
    return None


def enumerations(text):
    """Pairs of a name and its pairs of member and value."""
    for name, body in _ENUMERATION.findall(text):
        yield name, [(member, int(value)) for member, value in _VALUE.findall(body)]


def classes(text):
    """All classes, those included that cannot be created."""
    known = {name: (identifier, "noncreatable" not in more) for identifier, more, name in _CLASS.findall(text)}
    for interface, name, body in _INTERFACE.findall(text):
        identifier, creatable = known[name]
        lines = _MEMBER.findall(body)
        yield Class(name, identifier, interface, creatable, tuple(_members(name, lines)),
                    any("restricted" in more for _, more, *_ in lines))


def _members(owner, lines):
    written = {name for _, more, _, name, _ in lines if "propput" in more}
    for number, more, type_, name, arguments in lines:
        if "propput" in more or "restricted" in more:
            continue
        yield Member(owner, name, int(number, 16), "propget" not in more, type_, tuple(_arguments(arguments)),
                     name in written)


def _arguments(text):
    for more, type_, star, name in _ARGUMENT.findall(text):
        by_reference = "out" in more
        yield Argument(name, type_ if by_reference else type_ + star, by_reference, "optional" in more)
