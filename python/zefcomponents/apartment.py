"""Who holds what: each reference to something of the library belongs to the thread that got it.

The library counts references without locks, so no other thread may give one back, not even one that collects garbage.
Such a thread leaves the reference with its owner, which gives it back at its next call. When a thread ends, it gives
back all that it still holds, for nobody could use that any more.
"""

import collections
import itertools
import os
import threading

from . import layout

_here = threading.get_ident


class _Apartment:
    """The references of one thread. It is known by itself, never by the thread's number, which another thread gets when
    this one has ended."""

    __slots__ = ("_thread", "_owner", "_held", "_numbers", "_dropped")

    def __init__(self):
        self._thread = _here()  # None when it has no more use for its references
        self._owner = "the thread that created it"
        self._held = {}
        self._numbers = itertools.count()
        self._dropped = collections.deque()  # numbers of references that other threads have no more use for

    def hold(self, at):
        """Takes a reference over; its number, under which it is given back."""
        number = next(self._numbers)
        self._held[number] = at
        return number

    def enter(self, kind):
        """Makes sure that the running thread is the owner. `kind` says what it wants to use."""
        if self._thread != _here():
            raise RuntimeError(f"this {kind} can only be used in {self._owner}")
        if self._dropped:
            self._give_back_dropped()

    def leave(self, number, here=_here):
        """Gives a reference back, or leaves it to the owner."""
        if self._thread == here():
            self._give_back(number)
        else:
            self._dropped.append(number)

    def _give_back_dropped(self):
        try:
            while True:
                self._give_back(self._dropped.popleft())
        except IndexError:
            pass

    def _give_back(self, number, release=layout.release):
        at = self._held.pop(number, None)
        if at is not None:
            release(at)

    def end(self, here=_here):
        """Gives everything back if the owner does this; the thread of a process that was forked off, or of a program
        that is ending, must not."""
        if self._thread != here():
            self.leave_to_parent()
            return
        self._thread = None
        self._owner += ", which has ended"
        while self._held:
            self._give_back(next(reversed(self._held)))  # the youngest first, a session after its records

    def leave_to_parent(self):
        """Gives nothing back, for in a process that was forked off the references are its parent's."""
        self._thread = None
        self._owner = "the process that created it"
        self._held.clear()


class _Tenancy:
    """Stands in the storage of a thread, so that it goes in that thread when the thread ends."""

    __slots__ = ("apartment",)

    def __init__(self):
        self.apartment = _Apartment()

    def __del__(self):
        self.apartment.end()


class _Storage(threading.local):
    def __init__(self):
        self.tenancy = _Tenancy()


_storage = _Storage()


def _leave_to_parent():
    """In a process that was forked off, objects stay what they are: those of its parent."""
    apartment = _storage.tenancy.apartment
    _storage.tenancy.apartment = _Apartment()
    apartment.leave_to_parent()


os.register_at_fork(after_in_child=_leave_to_parent)


class Reference:
    """Something of the library that Python holds."""

    __slots__ = ("_at", "_home", "_number")

    def _hold(self, at, put=object.__setattr__):
        """Takes a reference over, for the running thread."""
        home = _storage.tenancy.apartment
        put(self, "_at", at)
        put(self, "_number", home.hold(at))
        put(self, "_home", home)

    def _use(self):
        """The address, for the owner alone."""
        self._home.enter(type(self).__name__)
        return self._at

    def __del__(self):
        try:
            self._home.leave(self._number)
        except AttributeError:  # never held one
            pass
