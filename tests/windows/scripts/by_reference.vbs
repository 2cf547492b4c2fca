' Members write into the variables of a script.
Dim session, first, second, version, kind, names, given
Set session = Connected()
first = 0
Expect "a number is drawn", session.GetUniqueIDFromSeq(2, first, 1), 1
Expect "the next one too", session.GetUniqueIDFromSeq(2, second), 1
Expect "they follow", second, first + 1
Expect "about the database", session.GetDBInfo(version, kind), True
Expect "its version", version, "9.2.4"
given = "FLD_Name='Notes' AND FLD_ParentID=0"
Expect "what is only read stays", session.GetFolderIDByCriteria(given) > 0, True
Expect "as it was", given, "FLD_Name='Notes' AND FLD_ParentID=0"
