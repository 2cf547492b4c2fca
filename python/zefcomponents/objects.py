"""Objects of the library as Python sees them."""

import ctypes

from . import layout, refusal
from .apartment import Reference
from .arguments import LEFT_OUT, ByRef, Call, take
from .failure import Failure, number_of
from .layout import VARIANT
from .typelibrary import Member


class Object(Reference):
    """An object of the library. Its class is made from the type library and has a member for each of the object's."""

    __slots__ = ("__weakref__",)
    _library = None
    _description = None
    _members = {}

    def __new__(cls, *_, **__):
        raise TypeError(f"{cls.__name__} cannot be made like this; use CreateObject")

    @classmethod
    def _of(cls, at):
        """The object of an interface whose reference it takes over."""
        made = object.__new__(cls)
        made._hold(at)
        return made

    def __getattr__(self, name):
        raise refusal.unknown(type(self).__name__, name, self._members)

    def __setattr__(self, name, value):
        member = self._members.get(name)
        if member is None:
            raise refusal.unknown(type(self).__name__, name, self._members)
        if not member.writable or member.arguments:
            raise refusal.not_assigned(member)
        object.__setattr__(self, name, value)

    def __delattr__(self, name):
        raise AttributeError(f"{type(self).__name__}.{name} cannot be deleted")

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


def _raise(result, told, member, wrong, values):
    source, description, _ = (layout.text_taken(at) for at in (told.source, told.description, told.help_file))
    if result == layout.DISP_E_EXCEPTION:
        raise Failure(number_of(told.scode & 0xFFFFFFFF), description, source)
    if result == layout.E_OUTOFMEMORY:
        raise MemoryError(f"{member.title}: there is not enough memory")
    at = len(values) - 1 - wrong  # arguments count from the last
    if result == layout.DISP_E_TYPEMISMATCH and at >= 0:
        value = values[at]
        raise refusal.not_converted(member, at, value.value if isinstance(value, ByRef) else value)
    if result == layout.DISP_E_OVERFLOW and at >= 0:
        raise refusal.out_of_range(member, at)
    raise refusal.refused(member, result & 0xFFFFFFFF)


def _invoke(target, member, flags, parameters, values=()):
    """Calls a member; the variant of the result, which the caller clears."""
    at = target._use()
    result, told, wrong = VARIANT(), layout.EXCEPINFO(), ctypes.c_uint32()
    number = ctypes.c_int32(member.number).value
    outcome = layout.invoke(at, number, ctypes.byref(layout.IID_NULL), 0, flags, ctypes.byref(parameters),
                            ctypes.byref(result), ctypes.byref(told), ctypes.byref(wrong))
    if outcome < 0:
        layout.clear(result)
        _raise(outcome, told, member, wrong.value, values)
    return result


def _taken(result, member, declared, library):
    try:
        return take(result, declared, library)
    except ValueError as unfit:  # a date that only other programs could write
        raise refusal.cannot_be_shown(member, unfit) from None
    finally:
        layout.clear(result)


def _arranged(member, values, named):
    """The values in the member's order, without those left out at the end."""
    arguments = member.arguments
    if len(values) > len(arguments):
        raise refusal.too_many(member, len(values))
    arranged = list(values) + [LEFT_OUT] * (len(arguments) - len(values))
    places = {argument.name: place for place, argument in enumerate(arguments)}
    for name, value in named.items():
        if name not in places:
            raise refusal.unknown_argument(member, name)
        if arranged[places[name]] is not LEFT_OUT:
            raise refusal.given_twice(member, places[name])
        arranged[places[name]] = value
    for place, (argument, value) in enumerate(zip(arguments, arranged)):
        if value is LEFT_OUT and not argument.optional:
            raise refusal.needed(member, place)
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
        call = Call(member, arranged, declared)
        with call as parameters:
            try:
                value = _taken(_invoke(self, member, flags, parameters, arranged), member, member.type, self._library)
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
        return _taken(_invoke(self, member, layout.DISPATCH_GET, nothing), member, member.type, self._library)

    def write(self, value):
        with Call(member, [value], [member.type]) as parameters:
            parameters.names, parameters.named = ctypes.addressof(assigned), 1
            layout.clear(_invoke(self, member, put_flag, parameters, [value]))

    return property(read, write if member.writable else None, doc=member.type)


class Walk(Reference):
    """Walks over the elements of a collection, as it stands at each step. At its end it stays there."""

    __slots__ = ("_collection", "_declared", "_ended")

    def __init__(self, collection):
        self._collection, self._declared, self._ended = collection, "", False
        result = _invoke(collection, collection._enumerator, layout.DISPATCH_GET, layout.DISPPARAMS())
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
            self._raise(at, outcome & 0xFFFFFFFF)
        if outcome > 0:
            self._ended = True
            raise StopIteration
        value = _taken(element, self._collection._enumerator, self._declared, self._collection._library)
        if isinstance(value, Object):
            self._declared = f"_{value._description.name}*"
        return value

    def _raise(self, at, code):
        source, description = layout.error_told(at)
        if layout.hresult(code) == layout.E_OUTOFMEMORY:
            raise MemoryError(f"{self._collection._enumerator.title}: there is not enough memory")
        name = type(self._collection).__name__
        raise Failure(number_of(code), description or f"{name} has no next element, for the failure {code:08X}.",
                      source or self._collection._library._name)


def make_class(library, description):
    """The Python class of a class of a library."""
    content = {member.name: _method(member) if member.is_function or member.arguments else _property(member)
               for member in description.members}
    if description.enumerable:
        enumerator = Member(description.name, "NewEnum", layout.DISPID_ENUMERATOR, False, "IUnknown*", (), False)
        content.update(_enumerator=enumerator, __iter__=lambda self: Walk(self), __len__=lambda self: self.Count,
                       __bool__=lambda self: True)  # an object is there, whatever it holds
    content.update(__slots__=(), __module__=__name__, _library=library, _description=description,
                   _members={member.name: member for member in description.members})
    return type(description.name, (Object,), content)
