' Every class can be made by its name.
Dim name, names, made
names = Array("CSession", "CAlarm", "CAttachement", "CCategory", "CContact", "CEvent", "CFolder", "CNote", _
              "CNotification", "CPhoneLog", "CRecurrence", "CTask", "CUser", "CTag", "CAlarms", "CCategories", _
              "CContacts", "CEvents", "CFolders", "CNotes", "CPhoneLogs", "CTags", "CTasks", "CUsers")
Expect "classes", UBound(names) + 1, 24
For Each name In names
  Set made = Make(name)
  Expect name & " is an object", IsObject(made), True
  Expect name & " is something", made Is Nothing, False
Next

' Those that are only reached cannot.
On Error Resume Next
Set made = Make("Recordset")
Expect "a record set", Err.Number, 429
On Error GoTo 0
