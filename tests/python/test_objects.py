import contextlib
import copy
import os
import pickle
import subprocess
import sys
import threading
import unittest

import zefcomponents
from support import LIBRARY, DatabaseTest, LibraryTest, nothing_lives, raised
from zefcomponents import layout


def attempt(run):
    """What a function returns or raises."""
    try:
        return run()
    except Exception as failure:
        return failure


@contextlib.contextmanager
def running_thread(run):
    """What a thread of its own returns or raises. The thread idles until the block ends, then it ends."""
    outcome, done, leave = [], threading.Event(), threading.Event()

    def body():
        outcome.append(attempt(run))
        done.set()
        leave.wait()

    thread = threading.Thread(target=body)
    thread.start()
    done.wait()
    try:
        yield outcome.pop()
    finally:
        leave.set()
        thread.join()


def references(thing):
    """How many references to an object of the library there are."""
    layout.add_reference(thing._at)
    return layout.release(thing._at)


def in_thread(run):
    """What a thread returns or raises that has ended then."""
    with running_thread(run) as outcome:
        return outcome


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

    def test_walk_that_came_to_its_end_stays_there(self):
        tags, tag = self.create("CTags"), self.create("CTag")
        walk = iter(tags)
        self.assertEqual(list(walk), [])
        tags.Add(tag)
        self.assertEqual(list(walk), [])
        self.assertEqual(list(tags), [tag])

    def test_walk_sees_what_was_added_before_its_end(self):
        tags, tag = self.create("CTags"), self.create("CTag")
        walk = iter(tags)
        tags.Add(tag)
        self.assertEqual(list(walk), [tag])

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


class ThreadsTest(LibraryTest):
    def test_other_thread_is_refused(self):
        tag = self.create("CTag")
        refused = in_thread(lambda: tag.ID)
        self.assertIsInstance(refused, RuntimeError)
        self.assertEqual(str(refused), "this CTag can only be used in the thread that created it")

    def test_walk_of_another_thread_is_refused(self):
        walk = iter(self.create("CTags"))
        refused = in_thread(lambda: next(walk))
        self.assertIsInstance(refused, RuntimeError)
        self.assertEqual(str(refused), "this Walk can only be used in the thread that created it")

    def test_thread_with_the_number_of_one_that_ended_is_refused(self):
        tag, owner = in_thread(lambda: (self.create("CTag"), threading.get_ident()))
        for _ in range(1000):
            outcome, number = in_thread(lambda: (attempt(lambda: tag.ID), threading.get_ident()))
            if number == owner:
                break
        else:
            self.skipTest("the system gave no number twice")
        self.assertIsInstance(outcome, RuntimeError)
        self.assertIn("which has ended", str(outcome))

    def test_object_dropped_by_another_thread_goes_with_the_next_call(self):
        task = self.create("CTask")
        rule, holder = task.Recurrence, [task.Recurrence]
        in_thread(holder.clear)
        self.assertEqual(references(rule), 2)
        self.assertEqual(task.ID, 0)
        self.assertEqual(references(rule), 1)

    def test_object_dropped_by_another_thread_goes_when_its_own_ends_without_a_call(self):
        with running_thread(lambda: [self.create("CTag")]) as holder:
            holder.clear()
            self.assertFalse(nothing_lives())
        self.assertTrue(nothing_lives())

    def test_object_goes_with_its_thread_whoever_refers_to_it(self):
        with running_thread(lambda: self.create("CTag")) as tag:
            self.assertFalse(nothing_lives())
        self.assertTrue(nothing_lives())
        self.assertIn("CTag", repr(tag))

    def test_object_that_went_with_its_thread_can_be_dropped(self):
        tag = in_thread(lambda: self.create("CTag"))
        del tag
        self.assertTrue(nothing_lives())

    def test_walk_goes_with_its_thread(self):
        walk = in_thread(lambda: iter(self.create("CTags")))
        self.assertTrue(nothing_lives())
        del walk

    def test_object_in_the_storage_of_a_thread_goes_with_it(self):
        for library_first in (True, False):
            storage = threading.local()

            def keep():
                if library_first:
                    self.create("CTag")
                storage.tags = []
                storage.tags.append(self.create("CTag"))

            in_thread(keep)
            self.assertTrue(nothing_lives())

    def test_forked_process_can_neither_use_nor_release_objects_of_its_parent(self):
        tag = self.create("CTag")
        child = os.fork()
        if child == 0:
            refused = isinstance(attempt(lambda: tag.ID), RuntimeError)
            del tag
            works = self.create("CTag").ID == 0
            os._exit(0 if refused and works and not nothing_lives() else 1)
        self.assertEqual(os.waitpid(child, 0)[1], 0)
        self.assertEqual(tag.ID, 0)

    def test_forked_process_is_told_that_objects_of_its_parent_are_its_parents(self):
        tag = self.create("CTag")
        with running_thread(lambda: self.create("CTag")) as other:
            child = os.fork()
            if child == 0:
                told = {str(attempt(lambda: kept.ID)) for kept in (tag, other)}
                os._exit(0 if told == {"this CTag can only be used in the process that created it"} else 1)
            self.assertEqual(os.waitpid(child, 0)[1], 0)

    def test_program_may_end_with_objects_of_any_thread(self):
        program = """
import sys, threading, zefcomponents
kept = zefcomponents.Load(sys.argv[1]).CreateObject("CSession")
ready = threading.Event()
def work():
    global other
    other = zefcomponents.Load(sys.argv[1]).CreateObject("CSession")
    ready.set()
    threading.Event().wait()
threading.Thread(target=work, daemon=True).start()
ready.wait()
"""
        ended = subprocess.run([sys.executable, "-c", program, LIBRARY], capture_output=True, text=True)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
