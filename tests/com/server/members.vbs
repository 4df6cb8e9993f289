' Every class from a script: late-bound, by ProgID, with variables of the script as by-reference arguments.
Option Explicit
Dim failures
failures = 0

Sub Expect(what, found, wanted)
  If found <> wanted Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": " & found & " instead of " & wanted
  End If
End Sub

Dim name, plugin
For Each name In Array("clsReceiveBill", "clsPayBill", "clsRPInOutTypeView", "clsInvoice", "clsRPInitial")
  Set plugin = CreateObject("NUVARAPBillInterface." & name)
  Expect name, IsObject(plugin), True
  plugin.Show Nothing
  Set plugin = CreateObject("NUVARAPBillInterface." & name & ".1")
  Expect name & ".1", IsObject(plugin), True
  Set plugin = Nothing
Next

For Each name In Array("clsReceiveBill", "clsPayBill")
  Set plugin = CreateObject("NUVARAPBillInterface." & name)
  Expect name & ".Inside()", plugin.Inside(6), False
  Expect name & ".Inside(5)", plugin.Inside(6, 5), False
  Expect name & ".Inside(5, 6, 7)", plugin.Inside(6, 5, 6, 7), True
  Expect name & ".Inside text", plugin.Inside("a", "A", "a"), True
  Expect name & ".m_LstInterface", plugin.m_LstInterface Is Nothing, True
  Set plugin.m_LstInterface = Nothing
  On Error Resume Next
  Err.Clear
  plugin.SaveBill
  Expect name & ".SaveBill", Err.Number, 438
  Err.Clear
  plugin.Inside
  Expect name & ".Inside without a value", Err.Number <> 0, True
  Err.Clear
  plugin.Show 5
  Expect name & ".Show 5", Err.Number, 13
  ' There is no host here: the operation fails, and says why.
  Dim nCode, sText, done
  nCode = 0
  sText = ""
  Err.Clear
  done = plugin.DoOptToBill(1000201, 31, 1, nCode, sText)
  Expect name & ".DoOptToBill", Err.Number <> 0 Or Not done, True
  Dim bOk
  bOk = 7
  done = plugin.DoOptToBill(1000201, 31, 1, nCode, sText, bOk)
  Expect name & ".DoOptToBill with six arguments", bOk, done
  On Error Goto 0
Next

On Error Resume Next
Err.Clear
Set plugin = CreateObject("NUVARAPBillInterface.clsOther")
Expect "clsOther", Err.Number, 429
' Without a host the types can't be fetched, and so the object can't be made.
Err.Clear
Set plugin = CreateObject("NUVARAPBillInterface.clsROtherBill")
Expect "clsROtherBill without a host", Err.Number <> 0, True
On Error Goto 0

If failures = 0 Then WScript.Echo "every member answers"
WScript.Quit failures
