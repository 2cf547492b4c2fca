' What the library raises reaches the Err object, what it traps the error record.
Dim session, folders, folder
Set session = Make("CSession")
Set folders = Make("CFolders")

On Error Resume Next
session.Connect2Database "nowhere.db", "", ""
Expect "a missing file", Err.Number, -2147467259
Expect "who says so", Err.Source, "ZEFComponents"
Expect "in words", Err.Description, "The database file 'nowhere.db' does not exist."
Err.Clear
Set folder = folders.ItemByIdx(4)
Expect "a position that is none", Err.Number, 9
Err.Clear
session.NoSuchMember
Expect "an unknown member", Err.Number, 438
Err.Clear
On Error GoTo 0

session.Connect2Database "people.db", "", ""
Expect "a trapped failure", session.LoadFoldersWithCriteria(folders, "no condition at all ("), False
Expect "is flagged", session.GetErrorFlag(), True
Expect "by its place", session.GetErrorProcedure(), "LoadFoldersWithCriteria"
Expect "in words too", Len(session.GetErrorDescription()) > 0, True
session.ClearError
Expect "and forgotten", session.GetErrorFlag(), False
