Attribute VB_Name = "modWin32"
Option Explicit

' Thin wrappers around the Windows API calls the application needs.

Private Declare Function GetPrivateProfileString Lib "kernel32" Alias "GetPrivateProfileStringA" _
    (ByVal lpApplicationName As String, ByVal lpKeyName As Any, ByVal lpDefault As String, _
     ByVal lpReturnedString As String, ByVal nSize As Long, ByVal lpFileName As String) As Long
Private Declare Function WritePrivateProfileString Lib "kernel32" Alias "WritePrivateProfileStringA" _
    (ByVal lpApplicationName As String, ByVal lpKeyName As Any, ByVal lpString As Any, _
     ByVal lpFileName As String) As Long
Private Declare Function GetTickCount Lib "kernel32" () As Long
Private Declare Function ShellExecute Lib "shell32.dll" Alias "ShellExecuteA" _
    (ByVal hWnd As Long, ByVal lpOperation As String, ByVal lpFile As String, _
     ByVal lpParameters As String, ByVal lpDirectory As String, ByVal nShowCmd As Long) As Long
Public Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)

Private Const SW_SHOWNORMAL As Long = 1
Private Const MAX_VALUE_LENGTH As Long = 512

Public Function ReadIni(ByVal Section As String, ByVal Key As String, _
                        Optional ByVal Default As String = "") As String
    Dim buffer As String
    Dim length As Long

    buffer = String$(MAX_VALUE_LENGTH, vbNullChar)
    length = GetPrivateProfileString(Section, Key, Default, buffer, MAX_VALUE_LENGTH, IniPath())
    ReadIni = Left$(buffer, length)
End Function

Public Sub WriteIni(ByVal Section As String, ByVal Key As String, ByVal Value As String)
    If WritePrivateProfileString(Section, Key, Value, IniPath()) = 0 Then
        Err.Raise vbObjectError + 1001, "modWin32.WriteIni", _
                  "Could not write """ & Key & """ to " & IniPath()
    End If
End Sub

Public Function IniPath() As String
    IniPath = App.Path & "\Ledger.ini"
End Function

Public Function ElapsedMilliseconds(ByVal FromTick As Long) As Long
    ElapsedMilliseconds = GetTickCount() - FromTick
End Function

Public Function StartTick() As Long
    StartTick = GetTickCount()
End Function

Public Sub OpenDocument(ByVal OwnerHwnd As Long, ByVal Path As String)
    Dim result As Long

    result = ShellExecute(OwnerHwnd, "open", Path, vbNullString, vbNullString, SW_SHOWNORMAL)
    If result <= 32 Then
        MsgBox "Windows couldn't open '" & Path & "' (error " & result & ").", vbExclamation, APP_TITLE
    End If
End Sub
