' The labelled rows of a record are an array of texts. This host looks no further into arrays of texts.
Dim session, note, rows, count
Set session = Connected()
Set note = session.CreateNote()
note.Title = "Choir"
note.Text = "Tuesday, l'" & Chr(233) & "glise"
note.FolderID = session.GetFolderIDByCriteria("FLD_Name='Notes' AND FLD_ParentID=0")
Expect "it is saved", note.Save(), True
Expect "rows are given", note.GetFieldsArray(1, rows, count), True
Expect "an array", IsArray(rows), True
Expect "of texts", VarType(rows), vbArray + vbString
Expect "so many", count > 0, True
Expect "a row by itself", note.Field2String("NOT_Title"), "Choir"
