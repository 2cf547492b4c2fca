"""Loaded libraries."""

import ctypes
import enum
import os
import stat

from . import layout, typelibrary
from .failure import CANNOT_CREATE, OBJECT_FILE_MISSING, Failure
from .objects import make_class
from .registration import check_class_name, registered, unusable

_SESSION = "ZEFComponents.CSession"
_NAME = "ZEFComponents"
_loaded = {}


def Load(path=None):
    """The library of a path, or the registered one. It stays loaded, and the same file gives the same Library.

    Raises Failure 53 if it cannot be loaded or is another library, 429 if none is registered.
    """
    if path is None:
        return load_registered(_SESSION)
    path = _whole(path)
    return _loaded.get(path) or _loaded.setdefault(path, Library(path))


def load_registered(name):
    """The library that a class is registered for. Raises Failure 53, with the paths of the entry and of the library, if
    that is gone or cannot be loaded."""
    entry, library = registered(name)
    try:
        return Load(library)
    except Failure as failure:
        raise unusable(entry, library, failure.description) from failure


def _whole(path):
    named = os.fsdecode(path)
    if not named:
        raise Failure(OBJECT_FILE_MISSING, "No library is named.")
    try:
        return os.path.realpath(named)
    except ValueError as unfit:  # a zero or half a surrogate pair
        raise Failure(OBJECT_FILE_MISSING, f"The library {named!a} cannot be read: no file has such a name.") from unfit


class Library:
    """A loaded library. Its classes and enumerations are its attributes, as in library.FolderType.FT_TASKS."""

    _name = _NAME

    def __init__(self, path):
        self.path = os.fspath(path)
        text = self._type_library()
        try:
            self._get_class_object = ctypes.CDLL(self.path).DllGetClassObject
        except (OSError, AttributeError) as failed:
            raise Failure(OBJECT_FILE_MISSING, f"The library {self.path} cannot be loaded: {failed}") from failed
        self._get_class_object.argtypes = [ctypes.c_void_p] * 3
        self._enumerations = {name: enum.IntEnum(name, members) for name, members in typelibrary.enumerations(text)}
        self._classes = {description.name: make_class(self, description) for description in typelibrary.classes(text)}
        self._interfaces = [(layout.identifier(known._description.interface), known)
                            for known in self._classes.values()]

    def _type_library(self):
        try:
            regular = stat.S_ISREG(os.stat(self.path).st_mode)  # a pipe would be read for ever
            text = typelibrary.read_text(self.path) if regular else None
        except OSError as failed:
            raise Failure(OBJECT_FILE_MISSING, f"The library {self.path} cannot be read: {failed.strerror}") from failed
        if text is None or f"library {_NAME} " not in text:
            raise Failure(OBJECT_FILE_MISSING, f"{self.path} is not the library {_NAME}.")
        return text

    def CreateObject(self, name):
        """A new object of a class, named as CSession or ZEFComponents.CSession. Raises Failure 429 for others."""
        check_class_name(name)
        known = self._classes.get(name.removeprefix(f"{_NAME}."))
        if known is None or not known._description.creatable:
            raise Failure(CANNOT_CREATE, f"{self.path} has no class {name!r} that can be created.")
        made = ctypes.c_void_p()
        identifier = layout.identifier(known._description.identifier)
        self._check(self._get_class_object(ctypes.byref(identifier), ctypes.byref(layout.IID_IClassFactory),
                                           ctypes.byref(made)), name)
        factory, made = made.value, ctypes.c_void_p()
        result = layout.create_instance(factory, None, ctypes.byref(layout.IID_IDispatch), ctypes.byref(made))
        layout.release(factory)
        self._check(result, name)
        return known._of(made.value)

    def _check(self, result, name):
        if result < 0:
            raise Failure(CANNOT_CREATE, f"{name} cannot be created: result {result & 0xFFFFFFFF:08X} of {self.path}.")

    def _own(self, at, declared):
        """The object of an interface whose reference it takes over; `declared` is the type that it should have."""
        expected = self._classes.get(declared.strip("_*"))
        order = [] if expected is None else [(layout.identifier(expected._description.interface), expected)]
        for interface, known in order + self._interfaces:
            found = layout.interface_of(at, interface)
            if found is not None:
                layout.release(found)
                return known._of(at)
        layout.release(at)
        raise TypeError("the library gave an object of an unknown class")

    def _enumerated(self, declared, value):
        """A member of the enumeration of a type such as "enum FolderType"; other numbers stay what they are."""
        try:
            return self._enumerations[declared.removeprefix("enum ")](value)
        except (KeyError, ValueError):
            return value

    def __getattr__(self, name):
        for known in ("_classes", "_enumerations"):
            found = self.__dict__.get(known, {}).get(name)
            if found is not None:
                return found
        raise AttributeError(f"{self._name} has no class or enumeration {name!r}")

    def __dir__(self):
        return [*super().__dir__(), *self._classes, *self._enumerations]

    def __repr__(self):
        return f"Library({self.path!r})"
