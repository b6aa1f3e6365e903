' Maintains an item class through the control's command bar, as the user of a host does: adds a class,
' changes its percentage, deletes it. script_host.exe runs it and stands in for a host program:
' HostControl puts the control into a container in a window with that caption, Play acts as its user.
Option Explicit

' Ids of the form's controls and of the buttons of message boxes.
Const kToolStrip = 301
Const kNumber = 321
Const kName = 322
Const kLoss = 323
Const kReserve = 324
Const kPercentage = 325
Const kBoxText = 65535
Const kYes = 6
Const kNo = 7
' Positions on the form's tool strip.
Const kSaveTool = 2
Const kAddItemTool = 4
Const kExitTool = 7

' What the control needs of its window: one operation, which receives the command bar.
Class HostWindow
  Public Bar
  Public Sub MergeToolBar(commandBar)
    Set Bar = commandBar
    ' The host's own tools, under the names that the control knows.
    Bar.Tools.Add "iRefresh", "刷新", ""
    Bar.Tools.Add "iExit", "退出", ""
  End Sub
End Class

Dim suite, price, control, window, item, stage, asked
Set suite = CreateObject("ZEPWorkbench.Settings")

' One name: as a statement it reads the company's setting, in an expression it returns it.
Set price = CreateObject("ZEPPriceDownPrepare.updatePrice")
price.ItemClassType
CheckEqual "provisions are kept by item class", CLng(price.ItemClassType), CLng(1)

Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
Set window = New HostWindow
control.Show window

Function Rows(condition)
  Rows = CLng(suite.Query("select count(*) from icPriceDownClass where FItemClassNumber='SAMPLE' and " & condition))
End Function

' An item of no class and without provisions.
item = suite.Query("select min(FItemID) from t_ICItem where FErpClsID=1 and FItemID not in (select FItemID from icPriceDownClass) and FItemID not in (select FItemID from ICPriceDownPrepare)")

' A player's Step is called while a form or a message box waits. What it presses happens after the
' step, so every second step only waits.
Class AddingUser
  Public Sub Step
    Select Case stage
      Case 0
        ' In place of the item picker's window.
        suite.QueueItems CStr(item)
        TypeInto kNumber, "SAMPLE"
        TypeInto kName, "样例类别"
        TypeInto kLoss, "6701.01"
        TypeInto kReserve, "1471.01"
        TypeInto kPercentage, "12.5"
        PressTool kToolStrip, kAddItemTool
      Case 2
        PressTool kToolStrip, kSaveTool
      Case 4
        PressTool kToolStrip, kExitTool
      Case 6
        ' The form is empty again after a save, and asks because of that.
        If WindowClass = "PriceDown.ItemClass" Then Exit Sub
        PressButton kNo
    End Select
    stage = stage + 1
  End Sub
End Class
stage = 0
Play New AddingUser
' Returns when the form has closed.
window.Bar.Click "iInsert"
CheckEqual "the class is added", Rows("FPencentPrepare=12.5"), CLng(1)

' A class is selected by a click of the user, or as here by the setting that remembers the last one.
Sub SelectSample
  Dim profile, settings
  Set profile = CreateObject("ZEPEBCBASE.UserProfile")
  profile.Load "script_host", "PriceDown"
  Set settings = profile.Dictionary
  settings("NodeSel1") = "giSAMPLE"
  profile.Save "script_host", "PriceDown"
  control.Show window
End Sub

Class ChangingUser
  Public Sub Step
    Select Case stage
      Case 0
        TypeInto kPercentage, "15"
        PressTool kToolStrip, kSaveTool
      Case 2
        PressTool kToolStrip, kExitTool
    End Select
    stage = stage + 1
  End Sub
End Class
SelectSample
stage = 0
Play New ChangingUser
window.Bar.Click "iEdit"
CheckEqual "its percentage is changed", Rows("FPencentPrepare=15"), CLng(1)

Class AnsweringUser
  Public Sub Step
    asked = TextIn(kBoxText)
    PressButton kYes
  End Sub
End Class
SelectSample
asked = ""
Play New AnsweringUser
window.Bar.Click "iCut"
Play Nothing
CheckEqual "deleting asks first", asked, "确定要删除当前记录? 当前的物料类别代码为:SAMPLE  物料类别名称为:样例类别"
CheckEqual "the class is deleted", Rows("FItemID>0"), CLng(0)

CloseWindows
