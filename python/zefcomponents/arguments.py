"""Values on their way into variants and back."""

import ctypes
import datetime
import os

from . import dates, layout, refusal
from .layout import VARIANT


class ByRef:
    """A variable that a method may change:

    number = ByRef(0)
    session.GetUniqueIDFromSeq(1, number)
    print(number.value)
    """

    __slots__ = ("value",)

    def __init__(self, value=None):
        self.value = value

    def __repr__(self):
        return f"ByRef({self.value!r})"


def put(variant, value, declared):
    """Puts a value into an empty variant, which then owns it. `declared` is the type in the type library; it says
    what None means: no date, Nothing or Null."""
    if value is None:
        _put_none(variant, declared)
    elif isinstance(value, bool):
        variant.vt, variant.truth = layout.VT_BOOL, -1 if value else 0
    elif isinstance(value, int):
        _put_integer(variant, value)
    elif isinstance(value, str):
        _put_text(variant, value)
    elif isinstance(value, float):
        variant.vt, variant.double = layout.VT_R8, value
    elif isinstance(value, (datetime.date, datetime.time)):
        variant.double = dates.to_number(value)
        variant.vt = layout.VT_DATE
    elif isinstance(value, (bytes, bytearray, memoryview)):
        variant.pointer = layout.new_bytes(bytes(value))
        variant.vt = layout.VT_ARRAY | layout.VT_UI1
    elif isinstance(value, os.PathLike):
        put(variant, os.fspath(value), declared)
    elif hasattr(value, "_lend"):
        variant.pointer = value._lend()
        variant.vt = layout.VT_DISPATCH
    elif not (isinstance(value, list) and declared.startswith("SAFEARRAY")):  # members make a table anew
        raise TypeError(f"a value of the type {type(value).__name__} cannot be given to the library")


def _none_means_something(declared):
    """False where None in a variable only says that nothing was put there yet."""
    return declared in ("DATE", "VARIANT") or declared.startswith("_")


def _put_none(variant, declared):
    if declared == "DATE":
        variant.vt, variant.double = layout.VT_DATE, 0.0
    elif declared.startswith("_"):
        variant.vt, variant.pointer = layout.VT_DISPATCH, None
    elif not declared.startswith("SAFEARRAY"):
        variant.vt = layout.VT_NULL


def _put_text(variant, value):
    try:
        variant.pointer = layout.new_text(value)
    except UnicodeEncodeError as unfit:
        raise ValueError(f"the text has half a surrogate pair at position {unfit.start}") from None
    variant.vt = layout.VT_BSTR


def _put_integer(variant, value):
    if -(2**31) <= value < 2**31:
        variant.vt, variant.long = layout.VT_I4, value
    elif -(2**63) <= value < 2**63:
        variant.vt, variant.whole = layout.VT_I8, value
    else:
        raise OverflowError("the integer is too large for the library")


_TAKE = {
    layout.VT_EMPTY: lambda variant: None,
    layout.VT_NULL: lambda variant: None,
    layout.VT_I4: lambda variant: variant.long,
    layout.VT_I8: lambda variant: variant.whole,
    layout.VT_UI1: lambda variant: variant.byte,
    layout.VT_R8: lambda variant: variant.double,
    layout.VT_BOOL: lambda variant: variant.truth != 0,
    layout.VT_BSTR: lambda variant: layout.text_at(variant.pointer),
    layout.VT_ARRAY | layout.VT_UI1: lambda variant: layout.bytes_at(variant.pointer),
    layout.VT_ARRAY | layout.VT_BSTR: lambda variant: layout.rows_at(variant.pointer),
}


def take(variant, declared, library):
    """The value of a variant. A date of day zero at midnight is None where a date is declared; in a column it is a
    date like others, since there Null is what is not set. An object leaves the variant."""
    kind = variant.vt
    if kind == layout.VT_DATE:
        return None if variant.double == 0 and declared == "DATE" else dates.from_number(variant.double)
    if kind == layout.VT_DISPATCH:
        at, variant.pointer = variant.pointer, None
        return library._own(at, declared) if at else None
    if kind not in _TAKE:
        raise TypeError(f"the library gave a value of the kind {kind}, which Python cannot show")
    value = _TAKE[kind](variant)
    return library._enumerated(declared, value) if declared.startswith("enum ") else value


def _content(variant):
    """Kind and value of a variant, to be compared with what it holds later; an object counts by its address."""
    kind = variant.vt
    return kind, _TAKE[kind](variant) if kind in _TAKE else variant.whole


class Call:
    """The arguments of one call, from last to first, with what they own. Leave it with `with`."""

    def __init__(self, member, values, declared):
        self._member = member
        self._variants = (VARIANT * max(len(values), 1))()
        self._references = []  # of each variable: the variable, its own variant, its type
        self._given = []  # what was put into each
        self._values, self._declared = values, declared

    def __enter__(self):
        count = len(self._values)
        try:
            for place, (value, declared) in enumerate(zip(self._values, self._declared)):
                self._place(self._variants[count - 1 - place], value, declared)
        except (TypeError, ValueError, OverflowError) as unfit:
            self.__exit__()
            raise refusal.cannot_be_given(self._member, place, unfit) from None
        except BaseException:
            self.__exit__()
            raise
        return layout.DISPPARAMS(ctypes.addressof(self._variants), None, count, 0)

    def __exit__(self, *_):
        for variant in self._variants:
            layout.clear(variant)
        for _, inner, _ in self._references:
            layout.clear(inner)

    def _place(self, variant, value, declared):
        if value is LEFT_OUT:
            variant.vt, variant.long = layout.VT_ERROR, layout.DISP_E_PARAMNOTFOUND
        elif isinstance(value, ByRef):
            inner = VARIANT()
            self._references.append((value, inner, declared))
            if value.value is not None or _none_means_something(declared):
                put(inner, value.value, declared)
            self._given.append(_content(inner))
            variant.vt = layout.VT_BYREF | layout.VT_VARIANT
            variant.pointer = ctypes.addressof(inner)
        else:
            put(variant, value, declared)

    def give_back(self, library):
        """Gives the variables what the method left in them; the others keep their very values."""
        for (variable, inner, declared), given in zip(self._references, self._given):
            if _content(inner) != given:
                variable.value = take(inner, declared, library)


LEFT_OUT = object()
