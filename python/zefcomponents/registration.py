"""The registry of components: a file for each class in the user's folder "components"."""

import os
import re
import stat

from .failure import CANNOT_CREATE, OBJECT_FILE_MISSING, Failure

_KEY = "InprocServer32="
_LONGEST = 0x10000


def _entry_path(name):
    """Where a class is registered; None without a folder that is named by a whole path."""
    data, home = os.environ.get("XDG_DATA_HOME", ""), os.environ.get("HOME", "")
    if data.startswith("/"):
        return os.path.join(data, "components", name)
    return os.path.join(home, ".local/share/components", name) if home.startswith("/") else None


def check_class_name(name):
    if not isinstance(name, str):
        raise TypeError(f"a class is named by a str, not by {type(name).__name__}")


def RegisteredLibrary(name):
    """The path of the library that a class is registered for, as in "ZEFComponents.CSession".

    Raises Failure 429 if the class is not registered, 53 if the library is not where it was registered.
    """
    entry, library = registered(name)
    if not os.path.exists(library):
        raise unusable(entry, library, "It is not there.")
    return library


def unusable(entry, library, reason):
    return Failure(OBJECT_FILE_MISSING, f"The entry {entry} names the library {library}, which cannot be used; "
                                        f"register it from where it is now. {reason}")


def registered(name):
    """The path of a class's entry, and of the library that it names. Raises Failure 429 if there is none."""
    check_class_name(name)
    if not re.fullmatch(r"\w+\.\w+", name):
        raise Failure(CANNOT_CREATE, f"{name!r} is not the name of a class, as in ZEFComponents.CSession.")
    path = _entry_path(name)
    library = _library_in(path) if path else None
    if library is None:
        raise Failure(CANNOT_CREATE, f"{name} is not registered; register its library first, as in \"zef register\".")
    return path, library


def _library_in(path):
    lines = _content(path).decode("utf-8", "surrogateescape").split("\n")  # a path may have other ends of lines in it
    return next((line[len(_KEY):] for line in lines if line.startswith(_KEY + "/")), None)


def _content(path):
    """The bytes of an entry; none if there is none. Raises Failure 429 for what cannot be one."""
    try:
        content = _head(path)
    except (FileNotFoundError, NotADirectoryError):
        return b""
    except OSError as failed:
        raise _unreadable(path, failed.strerror) from failed
    if len(content) > _LONGEST:
        raise _unreadable(path, "It is too long for an entry")
    return content


def _head(path):
    """Reads without waiting, and little further than any entry reaches: a pipe or a device might never end."""
    file = os.open(path, os.O_RDONLY | os.O_NONBLOCK | os.O_CLOEXEC)
    try:
        if not stat.S_ISREG(os.fstat(file).st_mode):
            raise _unreadable(path, "It is no regular file")
        with open(file, "rb", closefd=False) as entry:
            return entry.read(_LONGEST + 1)
    finally:
        os.close(file)


def _unreadable(path, reason):
    return Failure(CANNOT_CREATE, f"The entry {path} cannot be read: {reason}.")
