
If Failures = 0 Then WScript.Echo "passed"
