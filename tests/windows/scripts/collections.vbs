' Collections by position, by key and in a walk.
Dim session, folders, folder, names, count
Set session = Connected()
Set folders = Make("CFolders")
Expect "roots are loaded", session.LoadRootFolders(folders), True
Expect "how many", folders.Count, 5
For Each folder In folders
  names = names & folder.Name & " "
Next
Expect "in the walk", names, "Alarms Calendar Contacts Notes Tasks "
Expect "by position", folders.ItemByIdx(3).Name, "Contacts"
Expect "by key", folders.ItemByKey(CStr(folders.ItemByIdx(2).ID)).Name, "Calendar"
Expect "the same object", folders.ItemByIdx(1) Is folders.ItemByIdx(1), True
folders.Remove 1
Expect "one less", folders.Count, 4
folders.Remove CStr(folders.ItemByIdx(1).ID)
Expect "by a key too", folders.ItemByIdx(1).Name, "Contacts"
folders.Clear
Expect "none", folders.Count, 0
For Each folder In folders
  count = count + 1
Next
Expect "nothing to walk over", count, Empty
