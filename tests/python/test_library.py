import concurrent.futures
import ctypes
import enum
import errno
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest
import unittest.mock

import zefcomponents
from support import LIBRARY, LibraryTest, raised
from zefcomponents import Failure, typelibrary

PUBLIC = """CSession CAlarm CAttachement CCategory CContact CEvent CFolder CNote CNotification CPhoneLog CRecurrence
CTask CUser CTag CAlarms CCategories CContacts CEvents CFolders CNotes CPhoneLogs CTags CTasks CUsers""".split()


class ClassesTest(LibraryTest):
    def test_every_public_class_can_be_created(self):
        for name in PUBLIC:
            with self.subTest(name):
                self.assertIsInstance(self.create(f"ZEFComponents.{name}"), getattr(self.library, name))

    def test_class_that_is_only_reached_cannot_be_created(self):
        self.assertEqual(raised(Failure, self.create, "Recordset").number, 429)

    def test_unknown_class_cannot_be_created(self):
        self.assertEqual(raised(Failure, self.create, "CNothing").number, 429)

    def test_class_is_named_by_a_text(self):
        for create in (self.create, zefcomponents.CreateObject):
            for name in (None, 5, b"CTag"):
                self.assertIn(type(name).__name__, str(raised(TypeError, create, name)))

    def test_enumerations_are_those_of_the_library(self):
        self.assertTrue(issubclass(self.library.FolderType, enum.IntEnum))
        self.assertEqual(self.library.FolderType.FT_ALARMS, 6)
        self.assertEqual(self.library.RecurrenceType.REC_WEEKLY, 2)

    def test_every_line_of_the_type_library_is_understood(self):
        text = typelibrary.read_text(LIBRARY)
        lines = sum(line.lstrip().startswith("[id(") for line in text.splitlines())
        understood = sum(1 + member.writable for described in typelibrary.classes(text) for member in described.members)
        enumerators = sum(described.enumerable for described in typelibrary.classes(text))
        self.assertEqual(understood + enumerators, lines)

    def test_unknown_attribute_is_told(self):
        raised(AttributeError, getattr, self.library, "CNothing")


class LoadingTest(unittest.TestCase):
    def test_same_file_gives_the_same_library(self):
        self.assertIs(zefcomponents.Load(LIBRARY), zefcomponents.Load(os.path.realpath(LIBRARY)))

    def test_missing_file_is_told_with_its_path(self):
        failure = raised(Failure, zefcomponents.Load, "/nowhere/lib.so")
        self.assertEqual(failure.number, 53)
        self.assertIn("/nowhere/lib.so", failure.description)

    def test_foreign_files_are_told(self):
        with tempfile.TemporaryDirectory() as folder:
            for content in (b"", b"text", b"\x7fELF\x02\x01" + bytes(58),
                            b"\x7fELF\x02\x01" + bytes(34) + b"\xff" * 22, pathlib.Path(LIBRARY).read_bytes()[:5000]):
                file = pathlib.Path(folder, "foreign.so")
                file.write_bytes(content)
                failure = raised(Failure, zefcomponents.Load, file)
                self.assertEqual(failure.number, 53)
                self.assertIn("foreign.so", failure.description)


    def test_path_may_be_of_any_kind(self):
        loaded = zefcomponents.Load(LIBRARY)
        for path in (pathlib.Path(LIBRARY), os.fsencode(LIBRARY), os.path.relpath(LIBRARY)):
            self.assertIs(zefcomponents.Load(path), loaded)

    def test_empty_path_is_told(self):
        failure = raised(Failure, zefcomponents.Load, "")
        self.assertEqual((failure.number, failure.description), (53, "No library is named."))

    def test_path_that_no_file_can_have_is_told(self):
        for path in ("a\0b", "\ud800.so"):
            failure = raised(Failure, zefcomponents.Load, path)
            self.assertEqual(failure.number, 53)
            self.assertTrue(failure.description.endswith("no file has such a name."), failure.description)
            failure.description.encode()

    def test_folder_and_pipe_are_no_libraries(self):
        with tempfile.TemporaryDirectory() as folder:
            pipe = pathlib.Path(folder, "pipe.so")
            os.mkfifo(pipe)
            for path in (folder, pipe):
                failure = raised(Failure, zefcomponents.Load, path)
                self.assertEqual(failure.number, 53)
                self.assertEqual(failure.description, f"{os.path.realpath(path)} is not the library ZEFComponents.")

    def test_threads_that_load_at_once_get_the_same_library(self):
        gate, construct = threading.Barrier(2), zefcomponents.Library

        def construct_together(path):
            gate.wait()
            return construct(path)

        with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(2) as threads:
            copied = shutil.copy(LIBRARY, folder)
            with unittest.mock.patch("zefcomponents.library.Library", construct_together):
                one, other = threads.map(zefcomponents.Load, [copied, copied])
        self.assertIs(one, other)


CONNECT_TWICE = """
import os, sys, zefcomponents
session = zefcomponents.Load(os.environ["ZEF_LIBRARY"]).CreateObject("CSession")
for _ in range(2):
    try:
        session.Connect2DatabaseCS("Provider=PostgreSQL;Host=/nowhere;Database=none")
    except zefcomponents.Failure as failure:
        print(failure.description.splitlines()[0])
    if os.path.exists(sys.argv[1]):
        os.remove(sys.argv[1])
"""


class ServerTest(unittest.TestCase):
    def test_client_library_of_the_server_may_be_put_right_between_two_attempts(self):
        with tempfile.TemporaryDirectory() as folder:
            broken = pathlib.Path(folder, "libpq.so.5")
            broken.write_text("no library")
            told = subprocess.run([sys.executable, "-c", CONNECT_TWICE, broken], check=True, text=True,
                                  stdout=subprocess.PIPE, env={**os.environ, "LD_LIBRARY_PATH": folder}).stdout
        first, second = told.splitlines()
        if first == "The provider cannot be found.":
            self.skipTest("built without servers")
        self.assertIn("cannot be loaded", first)
        self.assertNotIn("cannot be loaded", second)


class RegistrationTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        environment = unittest.mock.patch.dict(os.environ, {"XDG_DATA_HOME": folder.name})
        environment.start()
        self.addCleanup(environment.stop)
        # The library asks the process's environment, which Python's writes reach.
        self.assertEqual(ctypes.CDLL(LIBRARY).DllRegisterServer(), 0)

    def test_registered_class_is_created_by_name(self):
        self.assertEqual(zefcomponents.CreateObject("ZEFComponents.CTag").ID, 0)

    def test_registered_library_is_loaded_without_a_path(self):
        self.assertEqual(zefcomponents.Load().path, os.path.realpath(LIBRARY))

    def test_class_that_is_not_registered_is_told(self):
        failure = raised(Failure, zefcomponents.CreateObject, "ZEFComponents.CNothing")
        self.assertEqual(failure.number, 429)
        self.assertIn("ZEFComponents.CNothing is not registered", failure.description)

    def test_text_that_names_no_class_is_told(self):
        for name in ("", "../x.y", "CTag"):
            failure = raised(Failure, zefcomponents.CreateObject, name)
            self.assertEqual(failure.number, 429)
            self.assertIn(f"{name!r} is not the name of a class", failure.description)

    def test_folder_that_is_no_whole_path_is_no_registry(self):
        for home in ("", "."):
            with unittest.mock.patch.dict(os.environ, {"XDG_DATA_HOME": ".", "HOME": home}):
                self.assertEqual(raised(Failure, zefcomponents.CreateObject, "ZEFComponents.CTag").number, 429)

    def test_stale_entry_names_itself_and_the_library(self):
        cut, pipe = self.folder / "cut.so", self.folder / "pipe.so"
        cut.write_bytes(pathlib.Path(LIBRARY).read_bytes()[:5000])
        os.mkfifo(pipe)
        for library in ("/gone/libZEFComponents.so", "/etc/passwd", str(cut), str(pipe)):
            for name, create in (("CSession", lambda _: zefcomponents.Load()), ("CTag", zefcomponents.CreateObject)):
                with self.subTest(library, name=name):
                    entry = self.folder / "components" / f"ZEFComponents.{name}"
                    entry.write_text(f"InprocServer32={library}\n")
                    failure = raised(Failure, create, f"ZEFComponents.{name}")
                    self.assertEqual(failure.number, 53)
                    self.assertIn(f"The entry {entry} names the library {library}, ", failure.description)

    def test_file_in_place_of_the_registry_registers_nothing(self):
        shutil.rmtree(self.folder / "components")
        (self.folder / "components").write_text("a file")
        failure = raised(Failure, zefcomponents.CreateObject, "ZEFComponents.CTag")
        self.assertEqual(failure.number, 429)
        self.assertIn("is not registered", failure.description)

    def test_what_cannot_be_an_entry_is_told(self):
        entry = self.folder / "components" / "ZEFComponents.CTag"
        for make, reason in (
            (entry.mkdir, "It is no regular file"),
            (lambda: os.mkfifo(entry), "It is no regular file"),
            (lambda: entry.symlink_to("/dev/zero"), "It is no regular file"),
            (lambda: entry.write_bytes(bytes(0x10001)), "It is too long for an entry"),
            (lambda: entry.symlink_to(entry), os.strerror(errno.ELOOP)),
        ):
            with self.subTest(reason):
                entry.rmdir() if entry.is_dir() else entry.unlink()
                make()
                failure = raised(Failure, zefcomponents.CreateObject, "ZEFComponents.CTag")
                self.assertEqual((failure.number, failure.description),
                                 (429, f"The entry {entry} cannot be read: {reason}."))

    def test_path_may_have_the_line_ends_of_other_systems_in_it(self):
        folder = self.folder / "a\u2028b\x0bc"
        folder.mkdir()
        copied = shutil.copy(LIBRARY, folder)
        self.assertEqual(ctypes.CDLL(copied).DllRegisterServer(), 0)
        self.assertEqual(zefcomponents.RegisteredLibrary("ZEFComponents.CTag"), os.path.realpath(copied))

    def test_second_copy_of_the_library_serves_its_own_objects(self):
        copied = self.folder / "libcopy.so"
        shutil.copy(LIBRARY, copied)
        other = zefcomponents.Load(copied)
        folders, session = other.CreateObject("CFolders"), zefcomponents.Load(LIBRARY).CreateObject("CSession")
        failure = raised(TypeError, session.LoadRootFolders, folders)
        self.assertIn("takes a CFolders, but not one of another library", str(failure))


if __name__ == "__main__":
    unittest.main()
