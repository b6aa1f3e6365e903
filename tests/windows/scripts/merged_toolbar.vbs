' The command bar as a host merges it: notifications of clicks and changes, and a forwarded click with
' and without the user's right.
Option Explicit

Const kCommands = 1002
Const kNumber = 35
Const kNo = 7
Const kOk = 1
Const kOkOfWindows = 2
Const kBoxText = 65535

Class ParentOfTheHost
  Public Bar
  Public Sub MergeToolBar(commandBar)
    Set Bar = commandBar
  End Sub
End Class

Class BarListener
  Public Heard
  Public Sub ToolClicked(tool)
    Heard = Heard & "clicked " & tool.Name & "|"
  End Sub
  Public Sub ToolChanged(tool)
    Heard = Heard & "changed " & tool.Name & " " & CInt(tool.Enabled) & " " & CInt(tool.Checked) & " " & CInt(tool.Visible) & "|"
  End Sub
End Class

Class OnlyClicks
  Public Heard
  Public Sub ToolClicked(tool)
    Heard = Heard & tool.Name & "|"
  End Sub
End Class

Dim suite, control, parent, bar, listener, other, used, seen, every, forms
Set suite = CreateObject("ZEPWorkbench.Settings")
suite.ItemClassType = "1"
suite.VoucherPresent = False
every = suite.Rights(kCommands, kNumber)

' The host's user had the first class selected when the control is shown.
Dim profile, settings
Set profile = CreateObject("ZEPEBCBASE.UserProfile")
profile.Load "script_host", "PriceDown"
Set settings = profile.Dictionary
settings("NodeSel1") = "gi01"
profile.Save "script_host", "PriceDown"

Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
Set parent = New ParentOfTheHost
control.Show parent
Set bar = parent.Bar
Check "there is no listener at first", bar.Listener Is Nothing
Set listener = New BarListener
Set bar.Listener = listener
Check "the listener is kept", bar.Listener Is listener

' Changes and clicks.
bar.Tools.Add "iToolBar", "工具条", "查看"
CheckEqual "an added check tool begins checked", CInt(bar.Tools("iToolBar").Checked), CInt(-1)
CheckEqual "which is no change", listener.Heard, ""
bar.Click "iToolBar"
CheckEqual "a click reports what it changed, and then itself", listener.Heard, "changed iToolBar -1 0 -1|clicked iToolBar|"
listener.Heard = ""
bar.Tools("iEdit").Enabled = False
bar.Tools("iEdit").Enabled = False
bar.Tools("iEdit").Click
CheckEqual "a change is reported once, a click on a disabled tool not at all", listener.Heard, "changed iEdit 0 0 -1|"
bar.Tools("iEdit").Enabled = True
listener.Heard = ""
bar.Tools.Add "iRefresh", "刷新", "查看"
bar.Click "iRefresh"
CheckEqual "a refresh is reported", listener.Heard, "clicked iRefresh|"
Set other = New OnlyClicks
Set bar.Listener = other
bar.Click "iToolBar"
CheckEqual "a listener may leave out what it does not want to know", other.Heard, "iToolBar|"
CheckEqual "the previous listener gets no more calls", listener.Heard, "clicked iRefresh|"
Set bar.Listener = Nothing
Check "there is no listener any more", bar.Listener Is Nothing
On Error Resume Next
bar.Listener = 5
Check "a listener is an object", Err.Number <> 0
Err.Clear
On Error GoTo 0

' The collections, walked over and asked in any case.
Function NamesOf(collection)
  Dim one, names
  For Each one In collection
    names = names & one.Name & " "
  Next
  NamesOf = names
End Function

CheckEqual "For Each walks over the bands", NamesOf(bar.Bands), "MnuBand1 "
CheckEqual "and over the tools", NamesOf(bar.Tools), "mnuEdit iInsert iEdit iCut iToolBar iRefresh "
bar.Bands(1).Tools.Add "iPrint", "打印", "文件"
CheckEqual "what the band is given stands in it", NamesOf(bar.Bands("mnuband1").Tools), "mnuEdit iInsert iEdit iCut iPrint "
CheckEqual "and in the bar, under any spelling", bar.Tools("IPRINT").Caption, "打印"

' The control's own events, by name.
Class ControlListener
  Public Heard
  Public Sub SelectionChanged(classNumber)
    Heard = Heard & "selected " & classNumber & "|"
  End Sub
  Public Sub Closing
    Heard = Heard & "closing|"
  End Sub
End Class

Dim events
Set events = New ControlListener
Set control.Listener = events
Check "the control is ready", control.Ready
CheckEqual "and says nothing of a failure", control.CreationError, ""

' A tool of the host's own toolbar, forwarded.
Class ToolOfTheHost
  Public Name
  Public Checked
End Class

' Boxes are read and answered with No or OK; a form is counted and closed.
Class AnswerAll
  Public Sub Step
    If WindowClass = "PriceDown.ItemClass" Then
      forms = forms + 1
      CloseForm
    Else
      seen = seen & TextIn(kBoxText) & "|"
      PressButton kNo
      PressButton kOk
      PressButton kOkOfWindows
    End If
  End Sub
End Class

Function Forward(name)
  Dim tool
  Set tool = New ToolOfTheHost
  tool.Name = name
  used = False
  seen = ""
  forms = 0
  Play New AnswerAll
  control.ParentWindow_ToolBarClick tool, used
  Play Nothing
  Forward = seen & forms
End Function

Const kNoRight = "没有权限,请与系统管理员联系|0"
suite.Rights(kCommands, kNumber) = 0
CheckEqual "iInsert without its right is refused", Forward("iInsert"), kNoRight
CheckEqual "iEdit without its right is refused", Forward("iEdit"), kNoRight
CheckEqual "iCut without its right is refused", Forward("iCut"), kNoRight
CheckEqual "iRefresh needs no right", Forward("iRefresh"), "0"
suite.Rights(kCommands, kNumber) = every
CheckEqual "iInsert opens the form", Forward("iInsert"), "1"
CheckEqual "iCut asks about the class in the grid", Left(Forward("iCut"), 32), Left("确定要删除当前记录? 当前的物料类别代码为:01  物料类别名称为:", 32)
CheckEqual "iEdit opens the form", Forward("iEdit"), "1"
CheckEqual "iCut right behind it asks to select a class", Forward("iCut"), "请选择要删除的物料类别|0"
CheckEqual "iRefresh fills the grid again", Forward("iRefresh"), "0"
CheckEqual "so that iEdit has a class once more", Forward("iEdit"), "1"
CheckEqual "an unknown tool does nothing", Forward("iUnknown"), "0"
Check "bUse is not changed", Not used

Set other = New OnlyClicks
Set bar.Listener = other
Forward "iRefresh"
CheckEqual "a forwarded click is reported, too", other.Heard, "iRefresh|"
CheckEqual "the control's listener has heard nothing yet", events.Heard, ""

CloseWindows
CheckEqual "it hears of the end", events.Heard, "closing|"
