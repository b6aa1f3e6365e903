' Every public member of PriceDown, late-bound, in the system's container.
Option Explicit

Class GridOfTheHost
  Public Col
  Public Col2
  Public Row
  Public Row2
  Public MaxCols
  Public MaxRows
End Class

Class ParentOfTheHost
  Public Bar
  Public Merges
  Public Sub MergeToolBar(commandBar)
    Set Bar = commandBar
    Merges = Merges + 1
  End Sub
End Class

Dim suite, control, parent, params, used, tool
Set suite = CreateObject("ZEPWorkbench.Settings")
suite.ItemClassType = "1"

Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
Set parent = New ParentOfTheHost
parent.Merges = 0
control.ShowMode = 1
Dim answer
answer = control.Show(parent)
Check "Show answers True", answer
CheckEqual "Show merges the command bar once", CLng(parent.Merges), CLng(1)
control.RefreshToolbar
CheckEqual "RefreshToolbar merges it again", CLng(parent.Merges), CLng(2)

CheckEqual "the bar has its menu and three tools", CLng(parent.Bar.Tools.Count), CLng(4)
CheckEqual "the tools have their captions", parent.Bar.Tools("iEdit").Caption, "修改"
CheckEqual "the tools have their descriptions", parent.Bar.Tools("iCut").Description, "删除物料类别"
CheckEqual "the band has its name", parent.Bar.Bands(1).Name, "MnuBand1"
Check "the tools are enabled by item class", parent.Bar.Tools("iInsert").Enabled

params = Array(1, "two", Empty)
control.NotifyMessage "QueryUnload", params
control.NotifyMessage "FirstShow", params
control.notifymessage "Activate", params
control.NotifyMessage "No such message", params
Check "NotifyMessage takes any message", True

used = False
parent.Bar.Tools.Add "iToolBar", "工具条", "查看"
Set tool = parent.Bar.Tools("iToolBar")
Check "an added check tool is checked", tool.Checked
control.ParentWindow_ToolBarClick tool, used
Check "a click on it inverts it", Not tool.Checked
Check "bUse is not changed", Not used
control.ParentWindow_ToolBarClick tool, used
Check "a second click restores it", tool.Checked

Dim grid
Set grid = New GridOfTheHost
grid.MaxCols = 4
grid.MaxRows = 9
control.SelBlock grid
CheckEqual "SelBlock without ends: Col", CLng(grid.Col), CLng(1)
CheckEqual "SelBlock without ends: Col2", CLng(grid.Col2), CLng(4)
CheckEqual "SelBlock without ends: Row", CLng(grid.Row), CLng(1)
CheckEqual "SelBlock without ends: Row2", CLng(grid.Row2), CLng(9)
control.SelBlock grid, 2, 3, , 5
CheckEqual "SelBlock with ends: Col", CLng(grid.Col), CLng(2)
CheckEqual "SelBlock with ends: Col2", CLng(grid.Col2), CLng(3)
CheckEqual "SelBlock with a missing end: Row", CLng(grid.Row), CLng(1)
CheckEqual "SelBlock with ends: Row2", CLng(grid.Row2), CLng(5)
control.SelBlock suite
Check "SelBlock ignores errors", True

control.ModelCurrent
Check "ModelCurrent answers", True

' There is no printer: the preview still opens, and printing reports why it fails.
Dim seen
Class ReadAndClose
  Public Sub Step
    If seen <> "" Then Exit Sub
    seen = WindowClass & " " & TextIn(0) & " " & TextIn(65535)
    CloseForm
  End Sub
End Class
seen = ""
Play New ReadAndClose
control.PreviewPara
CheckEqual "PreviewPara shows the preview until it is closed", seen, "PriceDown.Preview 打印预览 "
seen = ""
control.PrintPara
CheckEqual "PrintPara reports that there is no printer", seen, "#32770 岚禾提示 没有安装打印机，请先在系统中添加打印机。"
Play Nothing

On Error Resume Next
Dim shown
shown = control.ShowMode
Check "ShowMode cannot be read", Err.Number <> 0
Err.Clear
control.RefreshToolbar 1
Check "RefreshToolbar takes no argument", Err.Number <> 0
Err.Clear
On Error GoTo 0

CloseWindows
