import contextlib
import datetime
import pathlib
import subprocess
import sys
import unittest

from support import DatabaseTest, raised
from zefcomponents import ByRef, Failure


class PropertiesTest(DatabaseTest):
    def test_text_comes_back_in_all_of_unicode(self):
        contact = self.session.CreateContact()
        for text in ("", "O'Brien", "Jürgen \U0001f600", "a\0b"):
            contact.FirstName = text
            self.assertEqual(contact.FirstName, text)

    def test_truth_is_a_bool(self):
        self.assertIs(self.session.TransactionStarted, False)

    def test_text_is_converted_to_an_integer(self):
        self.session.UserID = "17"
        self.assertEqual(self.session.UserID, 17)

    def test_date_that_is_not_set_is_none(self):
        contact = self.session.CreateContact()
        contact.BirthDate = datetime.date(1980, 5, 17)
        contact.BirthDate = None
        self.assertIsNone(contact.BirthDate)

    def test_early_date_comes_back_from_the_database(self):
        contact = self.new_contact(FirstName="George", BirthDate=datetime.datetime(1732, 2, 22, 6, 30))
        self.assertEqual(self.session.GetContact(contact.ID).BirthDate, datetime.datetime(1732, 2, 22, 6, 30))

    def test_property_with_an_argument_is_called(self):
        folders = self.root_folders()
        first = folders.ItemByIdx(1)
        self.assertEqual(folders.ItemByKey(str(first.ID)), first)

    def test_object_is_assigned(self):
        user = self.create("CUser")
        self.assertIsNone(user.Session)
        user.Session = self.session
        self.assertEqual(user.Session, self.session)
        user.Session = None
        self.assertIsNone(user.Session)

    def test_dir_lists_the_members(self):
        self.assertLessEqual({"Connect2Database", "UserRights", "GetTask"}, set(dir(self.session)))


class MethodsTest(DatabaseTest):
    def test_variable_gets_what_the_method_leaves_in_it(self):
        first, second = ByRef(0), ByRef(0)
        self.session.GetUniqueIDFromSeq(1, first)
        self.session.GetUniqueIDFromSeq(1, second, 5)
        self.assertEqual(second.value - first.value, 5)

    def test_named_arguments_take_any_order(self):
        number = ByRef(0)
        self.session.GetUniqueIDFromSeq(lngBatchSize=2, lngID=number, lngSeqID=1)
        self.assertGreater(number.value, 0)

    def test_variable_may_begin_as_nothing(self):
        version, kind = ByRef(), ByRef()
        self.assertTrue(self.session.GetDBInfo(version, kind))
        self.assertEqual(version.value, "9.2.4")

    def test_table_of_texts_is_a_list_of_rows(self):
        contact = self.new_contact(FirstName="Ann", LastName="O'Neil")
        rows, count = ByRef(), ByRef(0)
        self.assertTrue(contact.GetFieldsArray(self.library.FieldType.FN_SERIALIZE, rows, count))
        self.assertGreaterEqual(len(rows.value), count.value)
        self.assertIn("O'Neil", [cell for row in rows.value for cell in row])
        self.assertEqual({len(row) for row in rows.value}, {len(rows.value[0])})

    def test_object_in_a_variable_stays_the_same(self):
        folders = self.create("CFolders")
        variable = ByRef(folders)
        self.session.LoadRootFolders(variable)
        self.assertEqual(variable.value, folders)
        self.assertGreater(len(folders), 0)

    def test_variable_with_an_integer_of_64_bits_keeps_it(self):
        variable = ByRef(2**40)
        self.assertEqual(self.session.GetFolderIDByCriteria(variable),
                         self.session.GetFolderIDByCriteria(str(2**40)))
        self.assertEqual(variable.value, 2**40)

    def test_variable_that_the_method_leaves_alone_keeps_its_very_value(self):
        for value in (pathlib.Path("FLD_ID=1"), datetime.date(2024, 5, 1), bytearray(b"x")):
            variable = ByRef(value)
            with contextlib.suppress(Failure, TypeError):
                self.session.GetFolderIDByCriteria(variable)
            self.assertIs(variable.value, value)

    def test_variable_of_a_refused_call_keeps_its_very_value(self):
        for value in (pathlib.Path("x"), bytearray(b"x"), []):
            variable = ByRef(value)
            raised(TypeError, self.session.GetUniqueIDFromSeq, 1, variable)
            self.assertIs(variable.value, value)

    def test_variable_keeps_its_value_when_the_call_is_refused(self):
        variable = ByRef("x")
        raised(TypeError, self.session.GetUniqueIDFromSeq, 1, variable)
        self.assertEqual(variable.value, "x")


class FailuresTest(DatabaseTest):
    def test_raised_failure_has_number_description_and_source(self):
        failure = raised(Failure, self.root_folders().ItemByIdx, 99)
        self.assertEqual((failure.number, failure.source), (9, "ZEFComponents"))
        self.assertEqual(failure.description, "Subscript out of range")
        self.assertEqual(str(failure), failure.description)

    def test_failure_of_the_provider_keeps_its_number(self):
        failure = raised(Failure, self.session.conDBConnection.Execute, "SELECT * FROM Nowhere")
        self.assertEqual(failure.number, -2147217865)

    def test_missing_file_is_told(self):
        failure = raised(Failure, self.create("CSession").Connect2Database, self.folder / "none.db", "", "")
        self.assertIn("none.db", failure.description)


class DatesTest(DatabaseTest):
    def test_last_moment_that_python_has_is_saved_to_the_second(self):
        event = self.session.CreateEvent()
        event.FolderID = self.session.GetFolderIDByCriteria("FLD_Name='Calendar'")
        event.StartDate = datetime.datetime.max
        self.assertTrue(event.Save(), self.session.GetErrorDescription())
        self.assertEqual(self.session.GetEvent(event.ID).StartDate, datetime.datetime(9999, 12, 31, 23, 59, 59))


class ColumnsTest(DatabaseTest):
    def value(self, column):
        return self.session.conDBConnection.Execute(f"SELECT {column} FROM Contacts").Fields.Item(0).Value

    def test_null_is_none(self):
        self.new_contact(FirstName="Ann")
        self.session.conDBConnection.Execute("UPDATE Contacts SET CNT_LastName=Null")
        self.assertIsNone(self.value("CNT_LastName"))

    def test_date_of_day_zero_is_a_date(self):
        self.new_contact(FirstName="Ann")
        self.session.conDBConnection.Execute("UPDATE Contacts SET CNT_BirthDate=#12/30/1899#")
        self.assertEqual(self.value("CNT_BirthDate"), datetime.datetime(1899, 12, 30))

    def test_number_that_is_no_date_is_told(self):
        contact = self.new_contact(FirstName="Ann")
        self.write_as_another_program("UPDATE Contacts SET CNT_BirthDate=1e9")
        for title, read in (("CContact.BirthDate", lambda: self.session.GetContact(contact.ID).BirthDate),
                            ("Field.Value", lambda: self.value("CNT_BirthDate"))):
            self.assertEqual(str(raised(ValueError, read)), f"{title}: the number 1000000000.0 is no date")

    def write_as_another_program(self, statement):
        program = "import sqlite3, sys; sqlite3.connect(sys.argv[1], isolation_level=None).execute(sys.argv[2])"
        subprocess.run([sys.executable, "-c", program, self.database, statement], check=True)

    def test_bytes_come_back(self):
        content = bytes(range(256)) * 10
        connection = self.session.conDBConnection
        records = self.create_records(connection)
        records.AddNew()
        records.Fields.Item("T_Bytes").Value = content
        records.Update()
        self.assertEqual(connection.Execute("SELECT T_Bytes FROM T").Fields.Item(0).Value, content)

    def create_records(self, connection):
        connection.Execute("CREATE TABLE T (T_Bytes LongBinary)")
        return self.open(connection)

    def open(self, connection):
        records = connection.Execute("SELECT * FROM T")
        records.Close()
        records.Open("SELECT * FROM T", connection, 1, 3)
        return records


if __name__ == "__main__":
    unittest.main()
