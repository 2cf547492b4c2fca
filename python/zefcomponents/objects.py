"""Objects of the library as Python sees them."""

import ctypes

from . import layout
from .apartment import Reference
from .arguments import LEFT_OUT, Call, take
from .failure import Failure
from .layout import VARIANT


class Object(Reference):
    """An object of the library. Its class is made from the type library and has a member for each of the object's."""

    __slots__ = ("__weakref__",)
    _library = None
    _description = None

    def __new__(cls, *_, **__):
        raise TypeError(f"{cls.__name__} cannot be made like this; use CreateObject")

    @classmethod
    def _of(cls, at):
        """The object of an interface whose reference it takes over."""
        made = object.__new__(cls)
        made._hold(at)
        return made

    def _lend(self):
        at = self._use()
        layout.add_reference(at)
        return at

    def _identity(self):
        at = layout.interface_of(self._use(), layout.IID_IUnknown)
        layout.release(at)
        return at

    def __eq__(self, other):
        return self._identity() == other._identity() if isinstance(other, Object) else NotImplemented

    def __hash__(self):
        return hash(self._identity())

    def __reduce_ex__(self, _):
        raise TypeError("an object of the library can be neither copied nor pickled; its own members do that")

    def __repr__(self):
        return f"<{self._library._name}.{self._description.name}>"


def _text_taken(at):
    text = layout.text_at(at)
    layout.free_text(at)
    return text


def _raise(result, told, member, wrong, given):
    source, description, _ = (_text_taken(at) for at in (told.source, told.description, told.help_file))
    if result == layout.DISP_E_EXCEPTION:
        bits = told.scode & 0xFFFFFFFF
        number = bits & 0xFFFF if bits >> 16 == 0x800A else told.scode
        raise Failure(number, description, source)
    if result == layout.E_OUTOFMEMORY:
        raise MemoryError
    at = given - 1 - wrong  # arguments count from the last
    names = [argument.name for argument in member.arguments]
    which = f"{member.name}: {names[at] if 0 <= at < len(names) else 'the value'}"
    if result == layout.DISP_E_TYPEMISMATCH:
        raise TypeError(f"{which} is of a type that does not convert")
    if result == layout.DISP_E_OVERFLOW:
        raise OverflowError(f"{which} is out of the range of its type")
    raise TypeError(f"{member.name}: the call was refused with result {result & 0xFFFFFFFF:08X}")


def _invoke(target, member, flags, parameters):
    """Calls a member; the variant of the result, which the caller clears."""
    at = target._use()
    result, told, wrong = VARIANT(), layout.EXCEPINFO(), ctypes.c_uint32()
    number = ctypes.c_int32(member.number).value
    outcome = layout.invoke(at, number, ctypes.byref(layout.IID_NULL), 0, flags, ctypes.byref(parameters),
                            ctypes.byref(result), ctypes.byref(told), ctypes.byref(wrong))
    if outcome < 0:
        layout.clear(result)
        _raise(outcome, told, member, wrong.value, parameters.count)
    return result


def _taken(result, declared, library):
    try:
        return take(result, declared, library)
    finally:
        layout.clear(result)


def _arranged(member, values, named):
    """The values in the member's order, without those left out at the end."""
    arguments = member.arguments
    if len(values) > len(arguments):
        raise TypeError(f"{member.name} takes {len(arguments)} arguments, not {len(values)}")
    arranged = list(values) + [LEFT_OUT] * (len(arguments) - len(values))
    places = {argument.name: place for place, argument in enumerate(arguments)}
    for name, value in named.items():
        if name not in places:
            raise TypeError(f"{member.name} has no argument {name!r}")
        if arranged[places[name]] is not LEFT_OUT:
            raise TypeError(f"{member.name} got {name!r} twice")
        arranged[places[name]] = value
    for argument, value in zip(arguments, arranged):
        if value is LEFT_OUT and not argument.optional:
            raise TypeError(f"{member.name} needs {argument.name!r}")
    while arranged and arranged[-1] is LEFT_OUT:
        arranged.pop()
    return arranged


def _signature(member):
    shown = (f"{argument.name}{'=...' if argument.optional else ''}" for argument in member.arguments)
    return f"{member.name}({', '.join(shown)})"


def _method(member):
    """A function, or a property with arguments, as a method."""
    flags = layout.DISPATCH_METHOD if member.is_function else layout.DISPATCH_GET
    declared = [argument.type for argument in member.arguments]

    def method(self, *values, **named):
        arranged = _arranged(member, values, named)
        call = Call(arranged, declared)
        with call as parameters:
            try:
                value = _taken(_invoke(self, member, flags, parameters), member.type, self._library)
            finally:
                call.give_back(self._library)
        return value

    method.__name__ = method.__qualname__ = member.name
    method.__doc__ = f"{_signature(member)} -> {member.type}"
    return method


def _property(member):
    put_flag = layout.DISPATCH_PUTREF if member.type.startswith("_") else layout.DISPATCH_PUT
    assigned = ctypes.c_int32(layout.DISPID_PUT)
    nothing = layout.DISPPARAMS()

    def read(self):
        return _taken(_invoke(self, member, layout.DISPATCH_GET, nothing), member.type, self._library)

    def write(self, value):
        with Call([value], [member.type]) as parameters:
            parameters.names, parameters.named = ctypes.addressof(assigned), 1
            layout.clear(_invoke(self, member, put_flag, parameters))

    return property(read, write if member.writable else None, doc=member.type)


class _Enumerator(Reference):
    """Walks over the elements of a collection, as it stands at each step. At its end it stays there."""

    __slots__ = ("_collection", "_declared", "_ended")

    def __init__(self, collection):
        self._collection, self._declared, self._ended = collection, "", False
        member = collection._enumerator
        result = _invoke(collection, member, layout.DISPATCH_GET, layout.DISPPARAMS())
        self._hold(layout.interface_of(result.pointer, layout.IID_IEnumVARIANT))
        layout.clear(result)

    def __iter__(self):
        return self

    def __next__(self):
        at, element = self._use(), VARIANT()
        if self._ended:
            raise StopIteration
        outcome = layout.next_elements(at, 1, ctypes.byref(element), None)
        if outcome < 0:
            raise Failure(outcome, f"The collection refused its next element with result {outcome & 0xFFFFFFFF:08X}")
        if outcome > 0:
            self._ended = True
            raise StopIteration
        value = _taken(element, self._declared, self._collection._library)
        if isinstance(value, Object):
            self._declared = f"_{value._description.name}*"
        return value


def make_class(library, description, enumerator):
    """The Python class of a class of a library."""
    members = {member.name: _method(member) if member.is_function or member.arguments else _property(member)
               for member in description.members}
    if description.enumerable:
        members.update(_enumerator=enumerator, __iter__=lambda self: _Enumerator(self),
                       __len__=lambda self: self.Count,
                       __bool__=lambda self: True)  # an object is there, whatever it holds
    members.update(__slots__=(), __module__=__name__, _library=library, _description=description)
    return type(description.name, (Object,), members)
