import datetime
import unittest

from support import DatabaseTest, LibraryTest, raised
from zefcomponents import ByRef, layout

FOLDER_ID = "CSession.GetFolder: argument 1, FolderID,"
HALF_A_PAIR = "\ud83d"


class RefusalTest(LibraryTest):
    """A refused use of a session that is connected to nothing, and its sentence."""

    def setUp(self):
        super().setUp()
        self.session, self.contact, self.folders = map(self.create, ("CSession", "CContact", "CFolders"))

    def assertRefused(self, kind, sentence, run, *arguments, **named):
        failure = raised(kind, run, *arguments, **named)
        self.assertIs(type(failure), kind)
        self.assertEqual(str(failure), sentence)


class MembersTest(RefusalTest):
    def test_unknown_member_is_told(self):
        self.assertRefused(AttributeError, "CSession has no member Nz", getattr, self.session, "Nz")
        self.assertRefused(AttributeError, "CSession has no member Nz", setattr, self.session, "Nz", 1)

    def test_member_in_another_letter_case_is_told_as_it_is_written(self):
        sentence = "CSession has no member userid; it is written UserID"
        self.assertRefused(AttributeError, sentence, getattr, self.session, "userid")
        self.assertRefused(AttributeError, sentence, setattr, self.session, "userid", 1)

    def test_property_that_is_only_read_is_told(self):
        self.assertRefused(AttributeError, "CFolders.Count can only be read", setattr, self.folders, "Count", 1)

    def test_method_is_not_assigned(self):
        self.assertRefused(AttributeError, "CFolders.Clear is called, not assigned",
                           setattr, self.folders, "Clear", 1)

    def test_property_with_arguments_is_not_assigned(self):
        self.assertRefused(AttributeError, "CFolders.ItemByIdx is called, not assigned",
                           setattr, self.folders, "ItemByIdx", 1)

    def test_member_cannot_be_deleted(self):
        self.session.UserID = 5
        self.assertRefused(AttributeError, "CSession.UserID cannot be deleted", delattr, self.session, "UserID")
        self.assertEqual(self.session.UserID, 5)

    def test_unknown_member_is_missing_for_hasattr(self):
        self.assertFalse(hasattr(self.session, "Nz"))
        self.assertTrue(hasattr(self.session, "UserID"))


class ArgumentCountTest(RefusalTest):
    def test_too_many_arguments_are_told(self):
        self.assertRefused(TypeError, "CSession.GetFolder takes 1 argument, not 2", self.session.GetFolder, 1, 2)
        self.assertRefused(TypeError, "CSession.GetUniqueIDFromSeq takes 2 to 3 arguments, not 4",
                           self.session.GetUniqueIDFromSeq, 1, 2, 3, 4)
        self.assertRefused(TypeError, "CFolders.Clear takes 0 arguments, not 1", self.folders.Clear, 1)

    def test_missing_argument_is_told(self):
        self.assertRefused(TypeError, f"{FOLDER_ID} is missing", self.session.GetFolder)
        self.assertRefused(TypeError, "CSession.GetUniqueIDFromSeq: argument 1, lngSeqID, is missing",
                           self.session.GetUniqueIDFromSeq, lngID=1)

    def test_unknown_argument_is_told_with_those_there_are(self):
        self.assertRefused(TypeError, "CSession.GetFolder has no argument lngID; its arguments: FolderID",
                           self.session.GetFolder, lngID=1)

    def test_argument_given_twice_is_told(self):
        self.assertRefused(TypeError, f"{FOLDER_ID} was given twice", self.session.GetFolder, 1, FolderID=1)


class ValuesTest(RefusalTest):
    def test_text_that_is_no_number_is_told(self):
        self.assertRefused(
            TypeError, f"{FOLDER_ID} takes an integer of 32 bits, to which the str that was given does not convert",
            self.session.GetFolder, "x")

    def test_none_is_told(self):
        self.assertRefused(TypeError, f"{FOLDER_ID} takes an integer of 32 bits, to which None does not convert",
                           self.session.GetFolder, None)

    def test_unfit_argument_is_told_by_its_place_whatever_the_order(self):
        sentence = ("CSession.GetUniqueIDFromSeq: argument 3, lngBatchSize, takes an integer of 32 bits, "
                    "to which the str that was given does not convert")
        self.assertRefused(TypeError, sentence, self.session.GetUniqueIDFromSeq, 1, ByRef(0), "x")
        self.assertRefused(TypeError, sentence, self.session.GetUniqueIDFromSeq, lngBatchSize="x", lngID=1, lngSeqID=1)

    def test_unfit_variable_is_told_by_what_is_in_it(self):
        self.assertRefused(
            TypeError, "CSession.GetUniqueIDFromSeq: argument 2, lngID, takes an integer of 32 bits, "
                       "to which the str that was given does not convert",
            self.session.GetUniqueIDFromSeq, 1, ByRef("x"))

    def test_object_of_another_class_is_told(self):
        self.assertRefused(
            TypeError, "CSession.LoadRootFolders: argument 1, udtFolders, takes a CFolders, "
                       "to which the CTags that was given does not convert",
            self.session.LoadRootFolders, self.create("CTags"))

    def test_unfit_value_of_a_property_is_told(self):
        self.assertRefused(
            TypeError, "CContact.BirthDate: the value takes a date, to which the str that was given does not convert",
            setattr, self.contact, "BirthDate", "never")

    def test_value_of_no_known_type_is_told(self):
        self.assertRefused(TypeError, f"{FOLDER_ID[:-1]}: a value of the type set cannot be given to the library",
                           self.session.GetFolder, set())
        self.assertRefused(
            TypeError, "CSession.UserID: the value: a value of the type dict cannot be given to the library",
            setattr, self.session, "UserID", {})

    def test_integer_beyond_32_bits_is_told(self):
        for number in (2**31, -(2**63)):
            self.assertRefused(OverflowError, f"{FOLDER_ID} is out of the range of what it takes: "
                                              "an integer of 32 bits", self.session.GetFolder, number)

    def test_integer_beyond_32_bits_in_a_variable_is_told(self):
        self.assertRefused(OverflowError, "CSession.GetUniqueIDFromSeq: argument 2, lngID, is out of the range of "
                                          "what it takes: an integer of 32 bits",
                           self.session.GetUniqueIDFromSeq, 1, ByRef(2**31))

    def test_integer_beyond_64_bits_is_told(self):
        self.assertRefused(OverflowError, f"{FOLDER_ID[:-1]}: the integer is too large for the library",
                           self.session.GetFolder, -(2**70))

    def test_date_that_the_library_cannot_keep_is_told(self):
        noon = datetime.datetime(2024, 5, 1, 12, tzinfo=datetime.timezone.utc)
        self.assertRefused(
            ValueError, "CContact.BirthDate: the value: the library's dates are local times and know no time zone",
            setattr, self.contact, "BirthDate", noon)

    def test_refused_value_changes_nothing(self):
        self.contact.BirthDate = datetime.date(1980, 5, 17)
        raised(TypeError, setattr, self.contact, "BirthDate", "never")
        self.assertEqual(self.contact.BirthDate, datetime.datetime(1980, 5, 17))


class SurrogatesTest(DatabaseTest):
    def test_half_a_pair_in_a_property_is_refused_and_changes_nothing(self):
        contact = self.session.CreateContact()
        contact.FirstName = "Ann"
        failure = raised(ValueError, setattr, contact, "FirstName", f"Ann {HALF_A_PAIR}")
        self.assertEqual(str(failure),
                         "CContact.FirstName: the value: the text has half a surrogate pair at position 4")
        self.assertEqual(contact.FirstName, "Ann")

    def test_half_a_pair_in_an_argument_is_refused(self):
        for argument in (HALF_A_PAIR, ByRef(HALF_A_PAIR)):
            failure = raised(ValueError, self.session.GetFolderIDByCriteria, argument)
            self.assertEqual(str(failure), "CSession.GetFolderIDByCriteria: argument 1, strCriteria: "
                                           "the text has half a surrogate pair at position 0")

    def test_whole_pair_in_two_halves_is_refused_too(self):
        raised(ValueError, setattr, self.session.CreateContact(), "FirstName", "\ud83d\ude00")

    def test_half_a_pair_of_the_library_comes_through(self):
        at = layout.new_text("a_b")
        layout.ctypes.memmove(at + 2, HALF_A_PAIR.encode("utf-16-le", "surrogatepass"), 2)
        self.assertEqual(layout.text_taken(at), f"a{HALF_A_PAIR}b")


if __name__ == "__main__":
    unittest.main()
