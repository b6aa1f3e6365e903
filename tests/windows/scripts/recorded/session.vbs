' A session with the control that is recorded and replayed: browsing, adding, saving, deleting, and a
' call that fails. It prints what the windows show after each step, and asks the company nothing.
Option Explicit

Const kToolStrip = 301
Const kNumber = 321
Const kName = 322
Const kLoss = 323
Const kReserve = 324
Const kPercentage = 325
Const kAddItemTool = 4
Const kSaveTool = 2
Const kExitTool = 7
Const kYes = 6
Const kNo = 7
Const kOk = 1
Const kOkOfWindows = 2
Const kBoxText = 65535

Class ParentOfTheHost
  Public Sub MergeToolBar(commandBar)
  End Sub
End Class

Dim suite, control, parent, stage, seen, failed
Set suite = CreateObject("ZEPWorkbench.Settings")
Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
Set parent = New ParentOfTheHost
control.Show parent
Print "shown " & Picture

' The host's user had that class selected when the control is shown.
Sub SelectClass(number)
  Dim profile, settings
  Set profile = CreateObject("ZEPEBCBASE.UserProfile")
  profile.Load "script_host", "PriceDown"
  Set settings = profile.Dictionary
  settings("NodeSel1") = "gi" & number
  profile.Save "script_host", "PriceDown"
  control.Show parent
End Sub
SelectClass "01"
Print "class 01 " & Picture

Class AddClass
  Public Sub Step
    Select Case stage
      Case 0
        suite.QueueItems "15,21"
        TypeInto kNumber, "RC1"
        TypeInto kName, "记录的类别"
        TypeInto kLoss, "6701"
        TypeInto kReserve, "1471"
        TypeInto kPercentage, "12.5"
        PressTool kToolStrip, kAddItemTool
      Case 2
        PressTool kToolStrip, kSaveTool
      Case 4
        If WindowClass <> "PriceDown.ItemClass" Then
          failed = TextIn(kBoxText)
          PressButton kOk
          PressButton kOkOfWindows
          Exit Sub
        End If
        ' Empty when the save is over.
        If TextIn(kNumber) <> "" And failed = "" Then Exit Sub
        PressTool kToolStrip, kExitTool
      Case 6
        If WindowClass = "PriceDown.ItemClass" Then Exit Sub
        seen = TextIn(kBoxText)
        PressButton kNo
    End Select
    stage = stage + 1
  End Sub
End Class
stage = 0
Play New AddClass
control.addRecord
Play Nothing
Print "added " & seen & failed
SelectClass "RC1"
Print "class RC1 " & Picture

Class AnswerBoxes
  Public Sub Step
    seen = seen & TextIn(kBoxText) & "|"
    PressButton kYes
    PressButton kOk
    PressButton kOkOfWindows
  End Sub
End Class
seen = ""
Play New AnswerBoxes
control.delRecord
Play Nothing
Print "deleted " & seen
Print "without it " & Picture

Sub FailingCall
  Dim connection
  Set connection = CreateObject("ZEPConnection.AppConnection")
  On Error Resume Next
  connection.Execute "select FNoSuchColumn from t_ICItem"
  Print "failed " & Hex(Err.Number) & " " & Err.Source & ": " & Err.Description
End Sub
FailingCall

CloseWindows
