import ctypes
import datetime
import os
import re
import shutil
import subprocess
import sys
import unittest
import unittest.mock

from support import LIBRARY, ROOT, DatabaseTest


class ExampleTest(DatabaseTest):
    """Programs of users, with the library registered."""

    def setUp(self):
        super().setUp()
        self.environment = {**os.environ, "XDG_DATA_HOME": str(self.folder)}
        with unittest.mock.patch.dict(os.environ, self.environment):
            ctypes.CDLL(LIBRARY).DllRegisterServer()

    def run_python(self, *arguments):
        return subprocess.run([sys.executable, *arguments], cwd=self.folder, env=self.environment, capture_output=True,
                              text=True)


class DocumentTest(ExampleTest):
    def test_program_of_the_document_runs(self):
        document = (ROOT / "docs" / "component.md").read_text()
        ended = self.run_python("-c", re.search(r"```python\n(.*?)```", document, re.S)[1])
        self.assertEqual(ended.stderr, "")
        self.assertIn("2 Contacts", ended.stdout)
        self.assertTrue(ended.stdout.endswith("9 Subscript out of range ZEFComponents\n"), ended.stdout)


class BirthdaysTest(ExampleTest):
    def run_example(self, *arguments):
        return self.run_python(ROOT / "examples" / "birthdays.py", *arguments)

    def assertComplains(self, code, sentence, *arguments):
        """The program prints nothing but this sentence, as its last line, and ends with this code."""
        ended = self.run_example(*arguments)
        self.assertEqual((ended.returncode, ended.stdout), (code, ""))
        self.assertEqual(ended.stderr.splitlines()[-1], f"birthdays.py: {sentence}")
        self.assertNotIn("Traceback", ended.stderr)

    def test_birthdays_of_the_month_are_listed_by_day(self):
        self.new_contact(FirstName="Ann", LastName="Lee", BirthDate=datetime.date(1980, 5, 17))
        self.new_contact(FirstName="Bob", LastName="O'Hara", BirthDate=datetime.date(1871, 5, 2))
        self.new_contact(FirstName="Cid", LastName="Moe", BirthDate=datetime.date(1990, 6, 1))
        ended = self.run_example(self.database, "5")
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        self.assertEqual(ended.stdout, " 2  Bob O'Hara (1871)\n17  Ann Lee (1980)\n")

    def test_missing_database_is_told(self):
        path = self.folder / "none.db"
        self.assertComplains(1, f"The database file '{path}' does not exist.", path, "5")

    def test_file_of_another_kind_is_told(self):
        path = self.folder / "note.txt"
        path.write_text("no database\n")
        self.assertComplains(1, f"The file '{path}' is not a database.", path, "5")

    def test_database_with_other_tables_is_told(self):
        self.session.conDBConnection.Execute("DROP TABLE Contacts")
        self.assertComplains(1, "The table 'Contacts' is not known (character 15).", self.database, "5")

    def test_file_whose_name_is_no_text_is_told(self):
        path = os.fsencode(self.folder) + b"/\xff.db"
        shutil.copy(self.database, path)
        ended = self.run_example(path, "5")
        self.assertEqual((ended.returncode, ended.stderr.count("\n")), (1, 1))
        self.assertIn("half a surrogate pair", ended.stderr)

    def test_library_that_is_not_registered_is_told(self):
        self.environment["XDG_DATA_HOME"] = str(self.folder / "nothing")
        self.assertComplains(1, "ZEFComponents.CSession is not registered; register its library first, as in "
                                "\"zef register\".", self.database, "5")

    def test_month_that_is_none_is_wrong_use(self):
        for month in ("13", "0", "May", "-1", "5.5"):
            with self.subTest(month):
                self.assertComplains(2, f"error: argument month: {month} is no month from 1 to 12",
                                     self.database, month)

    def test_missing_argument_is_wrong_use(self):
        self.assertComplains(2, "error: the following arguments are required: database")

    def test_needless_argument_is_wrong_use(self):
        self.assertComplains(2, "error: unrecognized arguments: 6", self.database, "5", "6")


if __name__ == "__main__":
    unittest.main()
