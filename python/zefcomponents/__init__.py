"""ZEFComponents for Python: the library's classes by name, with nothing but the standard library.

    import zefcomponents

    session = zefcomponents.CreateObject("ZEFComponents.CSession")
    session.Connect2Database("people.db", "", "")

Properties are attributes, methods take positional and named arguments, collections can be iterated, and a failure is
an exception. A variable that a method is to change is given as ByRef. Null and Nothing are None, and so is a date of
a record that is not set; dates are datetime, byte blocks bytes, tables of texts lists of rows.

An object belongs to the thread that created it; other threads get a RuntimeError. It goes when nothing refers to it
any more: at once if its own thread drops it, with that thread's next call if another one does, and when its thread ends
at the latest.
"""

from .arguments import ByRef
from .failure import Failure
from .library import Library, Load, load_registered
from .objects import Object
from .registration import RegisteredLibrary

__all__ = ["ByRef", "CreateObject", "Failure", "Library", "Load", "Object", "RegisteredLibrary"]


def CreateObject(name):
    """A new object of a registered class, as in CreateObject("ZEFComponents.CSession").

    Raises Failure 429 if the class is not registered, 53 if its library is gone or cannot be loaded.
    """
    return load_registered(name).CreateObject(name)
