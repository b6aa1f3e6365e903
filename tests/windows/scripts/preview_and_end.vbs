' A host that closes the control's window while its preview is open, however it was opened.
Option Explicit

Class ParentOfTheHost
  Public Sub MergeToolBar(commandBar)
    Set Me.Bar = commandBar
  End Sub
  Public Bar
End Class

Dim suite, parent, control, steps
Set suite = CreateObject("ZEPWorkbench.Settings")
suite.ItemClassType = "1"

Class CloseTheHost
  Public Sub Step
    steps = steps + 1
    CloseWindows
  End Sub
End Class

steps = 0
Set parent = New ParentOfTheHost
Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
control.Show parent
Play New CloseTheHost
control.PreviewPara
CheckEqual "the preview ends with the control", steps, 1
control.PreviewPara
CheckEqual "an ended control shows none", steps, 1

Set control = Nothing
Set parent = New ParentOfTheHost
Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
control.Show parent
steps = 0
parent.Bar.Tools.Add "iPrintPreView", "预览", "文件"
parent.Bar.Click "iPrintPreView"
CheckEqual "so does one that was opened from the bar", steps, 1
Play Nothing
