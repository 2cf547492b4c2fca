"""The sentences of calls that are refused: each names class, member and, where one is at fault, the argument."""

_TAKES = {
    "long": "an integer of 32 bits",
    "VARIANT_BOOL": "a truth value",
    "BSTR": "a text",
    "DATE": "a date",
    "VARIANT": "a plain value",
}
_STANDARD = (TypeError, OverflowError, ValueError)


def unknown(owner, name, members):
    """The error of a member that a class does not have."""
    meant = next((member for member in members if member.lower() == name.lower()), None)
    hint = f"; it is written {meant}" if meant else ""
    return AttributeError(f"{owner} has no member {name}{hint}")


def not_assigned(member):
    if member.is_function or member.arguments:
        return AttributeError(f"{member.title} is called, not assigned")
    return AttributeError(f"{member.title} can only be read")


def too_many(member, count):
    most, least = len(member.arguments), sum(not argument.optional for argument in member.arguments)
    range_ = f"{least} to {most}" if least < most else f"{most}"
    return TypeError(f"{member.title} takes {range_} argument{'s' if most != 1 else ''}, not {count}")


def unknown_argument(member, name):
    names = ", ".join(argument.name for argument in member.arguments) or "none"
    return TypeError(f"{member.title} has no argument {name}; its arguments: {names}")


def given_twice(member, at):
    return TypeError(f"{_place(member, at)} was given twice")


def needed(member, at):
    return TypeError(f"{_place(member, at)} is missing")


def cannot_be_given(member, at, reason):
    """The error of a value that cannot become an argument; `reason` is the error that tells why."""
    kind = next(kind for kind in _STANDARD if isinstance(reason, kind))
    return kind(f"{_place(member, at).rstrip(',')}: {reason}")


def cannot_be_shown(member, reason):
    """The error of a value of the library that Python has no form for."""
    return ValueError(f"{member.title}: {reason}")


def not_converted(member, at, value):
    kind, takes = type(value).__name__, _taken_by(member, at)
    if takes == f"a {kind}":
        return TypeError(f"{_place(member, at)} takes {takes}, but not one of another library")
    given = "None" if value is None else f"the {kind} that was given"
    return TypeError(f"{_place(member, at)} takes {takes}, to which {given} does not convert")


def out_of_range(member, at):
    return OverflowError(f"{_place(member, at)} is out of the range of what it takes: {_taken_by(member, at)}")


def refused(member, code):
    return TypeError(f"{member.title}: the call was refused with result {code:08X}")


def _place(member, at):
    if at < len(member.arguments):
        return f"{member.title}: argument {at + 1}, {member.arguments[at].name},"
    return f"{member.title}: the value"


def _taken_by(member, at):
    declared = member.arguments[at].type if at < len(member.arguments) else member.type
    if declared.startswith("_"):
        return f"a {declared.strip('_*')}"
    if declared.startswith("SAFEARRAY"):
        return "a table of texts"
    return _TAKES.get(declared, f"a {declared.removeprefix('enum ')}")
