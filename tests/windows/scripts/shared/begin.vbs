Option Explicit

Dim Failures
Failures = 0

Sub Expect(what, found, wanted)
  If found = wanted Then Exit Sub
  Failures = Failures + 1
  WScript.Echo what & ": '" & found & "' instead of '" & wanted & "'"
End Sub

Function Make(name)
  Set Make = CreateObject("ZEFComponents." & name)
End Function

' A session that may do everything.
Function Connected()
  Dim made
  Set made = Make("CSession")
  made.Connect2Database "people.db", "", ""
  made.SetAdministratorRights
  Set Connected = made
End Function
