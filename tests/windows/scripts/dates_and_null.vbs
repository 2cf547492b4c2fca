' Dates keep their time of day, the empty date is zero, and Null stays Null.
Dim session, task, loaded, rows
Set session = Connected()
Set task = session.CreateTask()
task.Name = "When"
task.FolderID = session.GetFolderIDByCriteria("FLD_Name='Tasks' AND FLD_ParentID=0")
Expect "no date yet", CDbl(task.StartDate), 0
task.StartDate = DateSerial(2024, 2, 29) + TimeSerial(23, 59, 59)
task.DueDate = "5/1/2024 9:00:00 AM"
Expect "it is saved", task.Save(), True
Set loaded = session.GetTask(task.ID)
Expect "to the second", loaded.StartDate, DateSerial(2024, 2, 29) + TimeSerial(23, 59, 59)
Expect "from a text", loaded.DueDate, DateSerial(2024, 5, 1) + TimeSerial(9, 0, 0)
Expect "it is a date", VarType(loaded.DueDate), vbDate

session.conDBConnection.Execute "UPDATE Tasks SET TSK_Description=Null WHERE TSK_ID=" & task.ID
Set rows = session.conDBConnection.Execute("SELECT TSK_Description, TSK_DueDate FROM Tasks WHERE TSK_ID=" & task.ID)
Expect "a row", rows.EOF, False
Expect "Null", IsNull(rows.Fields.Item("TSK_Description").Value), True
Expect "a date of a column", VarType(rows.Fields.Item("TSK_DueDate").Value), vbDate
Expect "Null in a record", session.GetTask(task.ID).Description, ""
