' Printing and previewing items through the public members on a real printer, with the user played in
' the system's print dialog. The driver checks the printed pages by the lines "item" and "date".
Option Explicit

Const kPages = 1058
Const kFirst = 1152
Const kLast = 1153
Const kCopies = 1154
Const kLeftMargin = 1155
Const kLandscape = 1057
Const kOk = 1
Const kCancel = 2
Const kPreviewBar = 501
Const kPrintTool = 1
Const kSetUpTool = 2

Class ParentOfTheHost
  Public Sub MergeToolBar(commandBar)
  End Sub
End Class

Dim suite, control, parent
Set suite = CreateObject("ZEPWorkbench.Settings")
suite.ItemClassType = "1"
Set control = HostControl("ZEPPriceDownPrepare.PriceDown", "物料类别维护")
Set parent = New ParentOfTheHost

Sub SelectClass(number)
  Dim profile, settings
  Set profile = CreateObject("ZEPEBCBASE.UserProfile")
  profile.Load "script_host", "PriceDown"
  Set settings = profile.Dictionary
  settings("NodeSel1") = "gi" & number
  profile.Save "script_host", "PriceDown"
  control.Show parent
End Sub

' The items of the class as the grid lists them.
Sub ReportItems(number)
  Dim code, rows
  rows = " from t_ICItem t, icPriceDownClass c where t.FItemID=c.FItemID and c.FItemClassNumber='" & number & "'"
  code = suite.Query("select min(t.FNumber)" & rows)
  Do While code <> ""
    Print "item " & code & "|" & suite.Query("select t.FName" & rows & " and t.FNumber='" & code & "'") & "|" & suite.Query("select t.FModel" & rows & " and t.FNumber='" & code & "'")
    code = "" & suite.Query("select min(t.FNumber)" & rows & " and t.FNumber>'" & code & "'")
  Loop
End Sub

' The windows that the user sees, one word each; which button ends the print dialog, and whether the
' page is set up first.
Dim seen, answer, setsUp
Class UserOfTheDialog
  Public Sub Step
    If WindowClass = "PriceDown.Preview" Then
      If seen = "" And setsUp Then
        seen = "preview "
        PressTool kPreviewBar, kSetUpTool
      ElseIf seen = "" Or Right(seen, 7) = "set-up " Then
        seen = seen & "preview "
        PressTool kPreviewBar, kPrintTool
      ElseIf Right(seen, 7) = "dialog " Then
        seen = seen & "preview "
        CloseForm
      End If
    ElseIf TextIn(kLeftMargin) <> "" Then
      ' Changing the orientation also rotates the margins, so they come second.
      If seen = "preview " Then
        seen = seen & "turned "
        PressButton kLandscape
      ElseIf Right(seen, 7) = "turned " Then
        seen = seen & "set-up "
        TypeInto kLeftMargin, "50"
        PressButton kOk
      End If
    ElseIf TextIn(65535) <> "" And TextIn(kCopies) = "" Then
      seen = seen & "message: " & TextIn(65535)
      CloseForm
    ElseIf Right(seen, 7) <> "dialog " Then
      seen = seen & "dialog "
      FillIn
      PressButton answer
    End If
  End Sub
End Class
Dim first, last, copies
Sub FillIn
  If first = 0 Then Exit Sub
  PressButton kPages
  TypeInto kFirst, CStr(first)
  TypeInto kLast, CStr(last)
  TypeInto kCopies, CStr(copies)
End Sub

SelectClass "05"
ReportItems "05"
Print "date " & FormatDateTime(Date, vbShortDate)
Play New UserOfTheDialog
first = 0
setsUp = False
answer = kOk
seen = ""
control.PrintPara
CheckEqual "PrintPara shows the print dialog and nothing else", seen, "dialog "

answer = kCancel
seen = ""
control.PrintPara
CheckEqual "a cancelled dialog is the end of it", seen, "dialog "

answer = kOk
seen = ""
control.PreviewPara
CheckEqual "the preview prints by the same dialog and stays open", seen, "preview dialog preview "

first = 1
last = 1
copies = 2
seen = ""
control.PrintPara
CheckEqual "pages and copies are chosen in the dialog", seen, "dialog "

first = 0
setsUp = True
seen = ""
control.PreviewPara
CheckEqual "the page is set up in the preview", seen, "preview turned set-up preview dialog preview "
Play Nothing

CloseWindows
