' Adding, changing and deleting a class through the public members, late-bound, with the user played
' in the real form and message boxes.
Option Explicit

Const kToolStrip = 301
Const kNumber = 321
Const kName = 322
Const kLoss = 323
Const kReserve = 324
Const kPercentage = 325
Const kAddTool = 1
Const kSaveTool = 2
Const kMembers = 340
Const kAddItemTool = 4
Const kDelItemTool = 5
Const kExitTool = 7
Const kYes = 6
Const kNo = 7
Const kOk = 1
Const kOkOfWindows = 2
Const kBoxText = 65535
Const kDown = 40

Class ParentOfTheHost
  Public Sub MergeToolBar(commandBar)
  End Sub
End Class

Dim suite, control, parent, stage, seen, asked, free, second, third, number, name
Set suite = CreateObject("ZEPWorkbench.Settings")
suite.ItemClassType = "1"
suite.VoucherPresent = False

Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
Set parent = New ParentOfTheHost
control.Show parent

Function Rows(condition)
  Rows = CLng(suite.Query("select count(*) from icPriceDownClass where " & condition))
End Function

' The first item after that one that is in no class and has no history.
Function FreeItem(before)
  FreeItem = suite.Query("select min(FItemID) from t_ICItem where FItemID>" & before & " and FErpClsID=1 and FItemID not in (select FItemID from icPriceDownClass) and FItemID not in (select FItemID from ICPriceDownPrepare)")
End Function
free = FreeItem(0)
second = FreeItem(free)
third = FreeItem(second)

' Nothing was typed: closing asks no question.
Class CloseAtOnce
  Public Sub Step
    If stage = 0 Then
      stage = 1
      CloseForm
    End If
  End Sub
End Class
stage = 0
Play New CloseAtOnce
control.addRecord
CheckEqual "addRecord shows the form until it is closed", stage, 1

' A class with three items is typed, saved and left.
Class AddClass
  Public Sub Step
    Select Case stage
      Case 0
        suite.QueueItems free & "," & second & "," & third
        TypeInto kNumber, number
        TypeInto kName, name
        TypeInto kLoss, "6701"
        TypeInto kReserve, "1471"
        TypeInto kPercentage, "12.5"
        PressTool kToolStrip, kAddItemTool
      Case 2
        PressTool kToolStrip, kSaveTool
      Case 4
        seen = TextIn(kNumber)
        PressTool kToolStrip, kExitTool
      Case 6
        If WindowClass = "PriceDown.ItemClass" Then Exit Sub
        asked = TextIn(kBoxText)
        PressButton kNo
    End Select
    stage = stage + 1
  End Sub
End Class
Sub AddThroughTheForm(numberTyped, nameTyped)
  number = numberTyped
  name = nameTyped
  stage = 0
  seen = "?"
  asked = "?"
  Play New AddClass
  control.addRecord
End Sub
AddThroughTheForm "S Y1'", "脚本类别"
CheckEqual "the form is empty again after the save", seen, ""
CheckEqual "leaving it asks, because the saved list was emptied", asked, "当前记录已经改变，是否保存?"
CheckEqual "the class is stored with its three items", Rows("FItemClassNumber='SY1' and FItemClassName='脚本类别' and FPencentPrepare=12.5"), CLng(3)

' Nothing is selected: the commands ask for a class.
Class ReadMessage
  Public Sub Step
    If WindowClass = "#32770" Then
      seen = TextIn(kBoxText)
      PressButton kOk
      PressButton kOkOfWindows
    End If
  End Sub
End Class
Play Nothing
seen = ""
Play New ReadMessage
control.editRecord
CheckEqual "editRecord without rows asks to select a class", seen, "请选择要修改的物料类别"
seen = ""
control.delRecord
CheckEqual "delRecord without rows asks to select a class", seen, "请选择要删除的物料类别"
Play Nothing

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

' Changing number and name; leaving a saved form asks no question.
Class RenameClass
  Public Sub Step
    Select Case stage
      Case 0
        seen = TextIn(kNumber) & " " & TextIn(kPercentage)
        TypeInto kNumber, "SY2"
        TypeInto kName, "改名"
        PressTool kToolStrip, kSaveTool
      Case 2
        PressTool kToolStrip, kExitTool
    End Select
    stage = stage + 1
  End Sub
End Class
SelectClass "SY1"
stage = 0
Play New RenameClass
control.editRecord
CheckEqual "the form shows the selected class", seen, "SY1 12.5"
CheckEqual "nothing of the old number is left", Rows("FItemClassNumber='SY1'"), CLng(0)
CheckEqual "the class is stored under its new number", Rows("FItemClassNumber='SY2' and FItemClassName='改名'"), CLng(3)

' Its second item is removed.
Class RemoveItem
  Public Sub Step
    Select Case stage
      Case 0
        PressKey kMembers, kDown
      Case 2
        PressTool kToolStrip, kDelItemTool
      Case 4
        PressTool kToolStrip, kSaveTool
      Case 6
        PressTool kToolStrip, kExitTool
    End Select
    stage = stage + 1
  End Sub
End Class
SelectClass "SY2"
stage = 0
Play New RemoveItem
control.editRecord
CheckEqual "two of the three items are left", Rows("FItemClassNumber='SY2'"), CLng(2)
CheckEqual "they are those that were not selected", Rows("FItemClassNumber='SY2' and FItemID in (" & free & "," & third & ")"), CLng(2)

' Deleting: questions and messages, in order; presses Answer where there is a choice.
Dim answer
Class AnswerBoxes
  Public Sub Step
    seen = seen & TextIn(kBoxText) & "|"
    PressButton answer
    PressButton kOk
    PressButton kOkOfWindows
  End Sub
End Class
Function Delete(press)
  SelectClass "SY2"
  answer = press
  seen = ""
  Play New AnswerBoxes
  control.delRecord
  Play Nothing
  Delete = seen
End Function
Const kQuestion = "确定要删除当前记录? 当前的物料类别代码为:SY2  物料类别名称为:改名|"

CheckEqual "No asks and says nothing else", Delete(kNo), kQuestion
CheckEqual "No deletes nothing", Rows("FItemClassNumber='SY2'"), CLng(2)
suite.VoucherPresent = True
CheckEqual "a voucher of the period refuses", Delete(kYes), kQuestion & "本期跌价准备数据已经生成凭证，不得删除物料类别！|"
CheckEqual "the class with a voucher is still there", Rows("FItemClassNumber='SY2'"), CLng(2)
suite.VoucherPresent = False
suite.Query "INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)VALUES(" & free & ",1999,1,0,5)"
CheckEqual "amounts of an earlier year refuse", Delete(kYes), kQuestion & "该物料类别在以前期间已有业务发生，不得删除！|"
CheckEqual "the refused class is still there", Rows("FItemClassNumber='SY2'"), CLng(2)
suite.Query "update ICPriceDownPrepare set FYear=" & suite.CurrentYear & ", FPeriod=" & (suite.CurrentPeriod - 1) & " where FItemID=" & free
CheckEqual "amounts of an earlier period of the year refuse", Delete(kYes), kQuestion & "该物料类别在以前期间已有业务发生，不得删除！|"
CheckEqual "that class is still there too", Rows("FItemClassNumber='SY2'"), CLng(2)

Function Provisions
  Provisions = CLng(suite.Query("select count(*) from ICPriceDownPrepare where FItemID=" & free))
End Function
suite.Query "update ICPriceDownPrepare set FCurrentAdd=0 where FItemID=" & free
CheckEqual "zero amounts of an earlier period do not refuse", Delete(kYes), kQuestion
CheckEqual "the class is deleted", Rows("FItemClassNumber='SY2'"), CLng(0)
CheckEqual "provisions of earlier periods stay", Provisions, CLng(1)

AddThroughTheForm "SY2", "改名"
CheckEqual "the deleted class can be typed again", Rows("FItemClassNumber='SY2' and FItemClassName='改名'"), CLng(3)
suite.Query "delete from ICPriceDownPrepare where FItemID=" & free
suite.Query "INSERT INTO ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)VALUES(" & free & "," & suite.CurrentYear & "," & suite.CurrentPeriod & ",0,7)"
CheckEqual "amounts of the current period do not refuse", Delete(kYes), kQuestion
CheckEqual "the class is deleted again", Rows("FItemClassNumber='SY2'"), CLng(0)
CheckEqual "the current period's provisions go with it", Provisions, CLng(0)

CloseWindows
