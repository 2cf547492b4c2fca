import copy
import pickle
import threading
import unittest

import zefcomponents
from support import LIBRARY, DatabaseTest, LibraryTest, nothing_lives, raised


def in_thread(run):
    """What a thread of its own returns or raises."""
    outcome = []

    def body():
        try:
            outcome.append(run())
        except Exception as failure:
            outcome.append(failure)

    thread = threading.Thread(target=body)
    thread.start()
    thread.join()
    return outcome[0]


class IdentityTest(DatabaseTest):
    def test_same_child_is_equal_and_has_the_same_hash(self):
        task = self.session.CreateTask()
        one, other = task.Recurrence, task.Recurrence
        self.assertEqual(one, other)
        self.assertEqual(hash(one), hash(other))

    def test_objects_alike_are_not_equal(self):
        self.assertNotEqual(self.session.CreateTask(), self.session.CreateTask())

    def test_object_equals_nothing_else(self):
        self.assertNotEqual(self.session, 1)
        self.assertFalse(self.session == None)  # noqa: E711


class IterationTest(DatabaseTest):
    def test_elements_come_in_order(self):
        folders = self.root_folders()
        self.assertEqual([folder.ID for folder in folders],
                         [folders.ItemByIdx(place).ID for place in range(1, len(folders) + 1)])

    def test_empty_collection_has_no_element_and_is_still_there(self):
        tags = self.create("CTags")
        self.assertEqual(list(tags), [])
        self.assertTrue(tags)

    def test_walks_over_one_collection_are_independent(self):
        folders = self.root_folders()
        pairs = [(a.ID, b.ID) for a in folders for b in folders]
        self.assertEqual(len(pairs), len(folders) ** 2)

    def test_collection_emptied_meanwhile_ends_the_walk(self):
        folders = self.root_folders()
        walk = iter(folders)
        next(walk)
        folders.Clear()
        self.assertEqual(list(walk), [])

    def test_walk_keeps_its_collection(self):
        walk = iter(self.root_folders())
        self.assertEqual(next(walk).ParentID, 0)

    def test_record_cannot_be_iterated(self):
        raised(TypeError, iter, self.session)


class LifetimeTest(unittest.TestCase):
    def test_nothing_lives_behind_calls_of_every_kind(self):
        case = DatabaseTest("run")
        case.setUp()
        folders = case.root_folders()
        variable = zefcomponents.ByRef(folders)
        case.session.LoadRootFolders(variable)
        [folder.Session for folder in folders]
        next(iter(folders))
        raised(TypeError, case.session.LoadRootFolders, case.session)
        raised(zefcomponents.Failure, folders.ItemByIdx, 99)
        raised(TypeError, case.session.GetUniqueIDFromSeq, 1, zefcomponents.ByRef("x"))
        case.session.CreateTask().Recurrence
        self.assertFalse(nothing_lives())
        case.doCleanups()
        del folders, variable, case
        self.assertTrue(nothing_lives())

    def test_object_in_a_ring_of_references_is_released(self):
        ring = [zefcomponents.Load(LIBRARY).CreateObject("CTag")]
        ring.append(ring)
        del ring
        self.assertTrue(nothing_lives())


class WrongUseTest(LibraryTest):
    def test_object_is_neither_copied_nor_pickled(self):
        tag = self.create("CTag")
        for wrong in (copy.copy, copy.deepcopy, pickle.dumps):
            raised(TypeError, wrong, tag)

    def test_class_cannot_be_called(self):
        raised(TypeError, self.library.CTag)

    def test_object_without_an_interface_goes_quietly(self):
        empty = object.__new__(self.library.CTag)
        raised(AttributeError, lambda: empty.ID)
        del empty

    def test_other_thread_is_refused(self):
        tag = self.create("CTag")
        self.assertIsInstance(in_thread(lambda: tag.ID), RuntimeError)

    def test_object_dropped_by_another_thread_goes_with_the_next_call(self):
        holder, tag = [self.create("CTag")], self.create("CTag")
        in_thread(holder.clear)
        self.assertEqual(tag.ID, 0)
        del tag
        self.assertTrue(nothing_lives())

    def test_object_of_a_thread_that_ended_can_be_dropped(self):
        tag = in_thread(lambda: self.create("CTag"))
        del tag
        self.assertTrue(nothing_lives())
