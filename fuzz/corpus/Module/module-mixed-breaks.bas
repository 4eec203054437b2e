Attribute VB_Name = "modX"
Option Explicit
Public Sub A(): Debug.Print "a|b" _
  & "c"End Sub
Private Function F$(ByVal x%)
  F = Chr$(27)
End Function