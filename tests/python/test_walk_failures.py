import ctypes
import unittest

from support import DatabaseTest, LibraryTest, raised
from zefcomponents import Failure, layout

E_NOINTERFACE = layout.hresult(0x80004002)
AT = ctypes.c_void_p


class FailingEnumerator:
    """An enumerator whose next element fails with a code. It tells source and description by the published interface
    for that, or has no such interface."""

    def __init__(self, code, told=None):
        self._code, self._told, self._functions = code, told, []
        self._information = self._object(self._count, self._text(0), self._text(1))  # the first is not asked
        self.enumerator = self._object(self._next)

    def _object(self, *methods):
        """An object with methods behind those that all have; the first stands at place 3."""
        shapes = [(self._query, AT, AT, AT), (self._count, AT), (self._count, AT)]
        shapes += [(method, AT, ctypes.c_uint32, AT, AT) if method == self._next else (method, AT, AT)
                   for method in methods]
        functions = [ctypes.CFUNCTYPE(ctypes.c_int32, *types)(method) for method, *types in shapes]
        table = (AT * len(functions))(*(ctypes.cast(function, AT) for function in functions))
        holder = AT(ctypes.addressof(table))
        self._functions += [functions, table, holder]
        return ctypes.addressof(holder)

    def _query(self, _, wanted, found):
        asked = bytes(layout.GUID.from_address(wanted).bytes)
        if self._told is None or asked != bytes(layout.IID_IErrorInfo.bytes):
            return E_NOINTERFACE
        AT.from_address(found).value = self._information
        return 0

    def _count(self, *_):
        return 1

    def _next(self, *_):
        return self._code

    def _text(self, place):
        def tell(_, at):
            text = self._told[place]
            AT.from_address(at).value = layout.new_text(text) if text else None
            return 0

        return tell


class WalkFailureTest(LibraryTest):
    def next_of(self, failing):
        walk = iter(self.create("CTags"))
        walk._at = failing.enumerator
        return next(walk)

    def test_failure_has_number_description_and_source(self):
        failing = FailingEnumerator(layout.hresult(0x800A0E78), ("ZEFComponents", "The object is closed."))
        failure = raised(Failure, self.next_of, failing)
        self.assertEqual(failure.args, (3704, "The object is closed.", "ZEFComponents"))

    def test_failure_of_the_provider_keeps_its_number(self):
        failing = FailingEnumerator(-2147217865, ("ZEFComponents", "There is no such table."))
        self.assertEqual(raised(Failure, self.next_of, failing).number, -2147217865)

    def test_failure_without_a_description_is_told_with_its_code(self):
        for told in (None, ("", "")):
            failure = raised(Failure, self.next_of, FailingEnumerator(layout.hresult(0x800A0E78), told))
            self.assertEqual(failure.number, 3704)
            self.assertEqual(failure.description, "CTags has no next element, for the failure 800A0E78.")

    def test_lack_of_memory_is_a_memory_error(self):
        failing = FailingEnumerator(layout.E_OUTOFMEMORY, ("", ""))
        self.assertEqual(str(raised(MemoryError, self.next_of, failing)), "CTags.NewEnum: there is not enough memory")


class ClosedRecordsTest(DatabaseTest):
    def test_walk_fails_as_a_call_does(self):
        records = self.session.conDBConnection.Execute("SELECT * FROM Folders")
        fields = records.Fields
        walk = iter(fields)
        records.Close()
        of_walk, of_call = raised(Failure, next, walk), raised(Failure, lambda: fields.Count)
        self.assertEqual(of_walk.args, of_call.args)


if __name__ == "__main__":
    unittest.main()
