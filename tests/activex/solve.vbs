' The control driven by a script of the system's own script host, as a teacher's page or macro drives it.
' Each check is a line; the exit code is 1 where one fails.
Option Explicit

Dim failed, files
failed = 0
Set files = CreateObject("Scripting.FileSystemObject")

Sub Check(what, seen, wanted)
  ' A number may be of any kind, but a text is not equal to a number.
  If (VarType(seen) = vbString) = (VarType(wanted) = vbString) And seen = wanted Then
    WScript.Echo "ok      " & what
  Else
    failed = failed + 1
    WScript.Echo "FAILED  " & what & ": " & Shown(seen) & ", not " & Shown(wanted)
  End If
End Sub

Function Shown(value)
  Shown = "[" & value & "] (" & TypeName(value) & ")"
End Function

' What went wrong last, and forgets it. Called under On Error Resume Next.
Function ErrorNumber()
  ErrorNumber = Err.Number
  Err.Clear
End Function

Function Contents(name)
  Dim stream
  Set stream = files.OpenTextFile(name, 1)
  Contents = stream.ReadAll
  stream.Close
End Function

Dim here, scratch, golden
here = files.GetParentFolderName(files.GetAbsolutePathName("solve.vbs"))
golden = files.BuildPath(files.GetParentFolderName(here), "files\golden")
scratch = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName)

' ---- A control without a form
Dim control, number, name
Set control = CreateObject("Tabulon.LPctrl")
control.prmNrBeslisVar = 1
control.prmNrKleinerGelijkVglen = 1
control.prmNrGroterGelijkVglen = 0
control.prmNrGelijkVglen = 0
control.prmBigM = 100
control.prmShow = True
control.SchrijfTableau scratch
Check "a new tableau is written as it always was", Contents(scratch), Contents(files.BuildPath(golden, "one-variable.tbl"))

Check "a number in decimals", control.strSoortGetal(False, 1 / 3), " 0.333333"
Check "a number in fractions", control.strSoortGetal(True, -2.5), "-2-1/2"
number = 0.1 + 0.2
Check "a variable in fractions", control.strSoortGetal(True, number), " 3/10"
Check "the variable is then the fraction that is shown", number, 0.3

' ---- Errors have the numbers that a script knows
On Error Resume Next
name = control.prmBigM
Check "a property cannot be read", ErrorNumber(), 438
control.prmKleur = 1
Check "a property that it lacks", ErrorNumber(), 438
control.prmNrBeslisVar = "drie"
Check "a text that is no number", ErrorNumber(), 13
control.prmBigM = 40000
Check "a number beyond 16 bits", ErrorNumber(), 6
control.prmBigM = "40000"
Check "a text of a number beyond 16 bits", ErrorNumber(), 6
control.prmNrBeslisVar = 31
control.prmShow = True
Check "a tableau beyond the room", Err.Number, 9
Check "an error says who it is from", Err.Source, "Tabulon.LPctrl"
Check "an error is explained", Len(Err.Description) > 0, True
Err.Clear
' What is read stays open while the script runs, so it is not the file that goes at the end.
control.LeesTableau files.BuildPath(golden, "one-variable.tbl")
Check "a tableau is not opened again", ErrorNumber(), 54
control.LeesTableau scratch & ".niet"
Check "a file that is not there", ErrorNumber(), 53
control.SchrijfTableau files.BuildPath(scratch & ".map", "a.tbl")
Check "a folder that is not there", ErrorNumber(), 76
control.SchrijfTableau "C:\wat?.tbl"
Check "a name that is none", ErrorNumber(), 52
Check "afterwards all is well", Err.Number, 0
On Error Goto 0
files.DeleteFile scratch
Set control = Nothing

' ---- A control on a form, and a person at it
Dim form
Set form = CreateObject("TabulonTests.Form")
Set control = form.Control
control.prmNrBeslisVar = 2
control.prmNrKleinerGelijkVglen = 3
control.prmShow = True
control.prmDLfunctie = " -3, -5"
control.prmKleinerGelijkVglen = " 1, 0, 0, 2, 3, 2"
control.prmRL = " 4, 12, 18"
Check "row F is shown", form.Text("txtRij_F", 1), " -3"
Check "the right-hand sides are shown", form.Text("txtRL", 3), " 18"
Check "a person solves it", form.Play("press Alt+W O" & vbLf & "see form frmMelding" & vbLf & _
  "see lblMelding ""Optimale oplossing gevonden!""" & vbLf & "press Enter" & vbLf & "see no form"), ""
Check "the optimum", form.Text("lblFRL"), " 36"
Check "x2 in the optimum", form.Text("txtRL", 2), " 6"
form.Close
Set control = Nothing
Set form = Nothing

' Who runs this looks for this line: a script that breaks off does not come here.
WScript.Echo failed & " failed"
If failed > 0 Then WScript.Quit 1
