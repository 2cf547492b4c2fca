"""What the tests of the Python module share: the built library, new databases, and what still lives."""

import atexit
import ctypes
import functools
import gc
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import zefcomponents

LIBRARY = os.environ["ZEF_LIBRARY"]
ROOT = pathlib.Path(__file__).resolve().parents[2]


def nothing_lives():
    """True if the library has no object left."""
    gc.collect()
    return ctypes.CDLL(LIBRARY).DllCanUnloadNow() == 0


def raised(kind, run, *arguments, **named):
    """What a call raises."""
    try:
        run(*arguments, **named)
    except kind as failure:
        return failure
    raise AssertionError(f"nothing of {kind.__name__} was raised")


@functools.cache
def _new_database():
    """A new database, made once for all tests, which copy it."""
    folder = tempfile.mkdtemp()
    atexit.register(shutil.rmtree, folder)
    path = pathlib.Path(folder, "people.db")
    subprocess.run([os.environ["ZEF_PROGRAM"], "create", path], check=True, stdout=subprocess.DEVNULL)
    return path


class LibraryTest(unittest.TestCase):
    """The library loaded by its path."""

    def setUp(self):
        self.library = zefcomponents.Load(LIBRARY)

    def create(self, name):
        return self.library.CreateObject(name)


class DatabaseTest(LibraryTest):
    """A session on a new database in a folder of its own."""

    def setUp(self):
        super().setUp()
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.database = self.folder / "people.db"
        shutil.copy(_new_database(), self.database)
        self.session = self.create("CSession")
        self.session.Connect2Database(self.database, "", "")
        self.addCleanup(self.session.DisconnectFromDatabase)

    def root_folders(self):
        folders = self.create("CFolders")
        self.assertTrue(self.session.LoadRootFolders(folders))
        return folders

    def new_contact(self, **properties):
        """A saved contact in the folder of contacts."""
        contact = self.session.CreateContact()
        contact.FolderID = self.session.GetFolderIDByCriteria("FLD_Name='Contacts' AND FLD_ParentID=0")
        for name, value in properties.items():
            setattr(contact, name, value)
        self.assertTrue(contact.Save(), self.session.GetErrorDescription())
        return contact
