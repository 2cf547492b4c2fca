' A task with a due date that repeats every week, from its making to its event in the calendar.
Dim session, task, loaded, events, happening
Set session = Connected()
Set task = session.CreateTask()
Expect "a new task is new", task.IsNew(), True
task.Name = "Water the plants"
task.FolderID = session.GetFolderIDByCriteria("FLD_Name='Tasks' AND FLD_ParentID=0")
task.DueDate = DateSerial(2024, 5, 17)
task.Recurrence.RType = 2
task.Recurrence.Options1 = 1
task.Recurrence.Friday = True
Expect "it is saved", task.Save(), True
Expect "no failure", session.GetErrorDescription(), ""
Expect "it is new no more", task.IsNew(), False

Set loaded = session.GetTask(task.ID)
Expect "its name", loaded.Name, "Water the plants"
Expect "its due date", loaded.DueDate, DateSerial(2024, 5, 17)
Expect "its rule", loaded.Recurrence.Friday, True

Set events = Make("CEvents")
Expect "events are loaded", session.LoadEventsWithCriteria(events, "EVE_LinkID=" & task.ID), True
Expect "one event", events.Count, 1
Set happening = events.ItemByIdx(1)
Expect "on the due date", happening.StartDate, DateSerial(2024, 5, 17)
Expect "the session goes", session.DisconnectFromDatabase(), True
