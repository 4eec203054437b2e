VERSION 5.00
Begin VB.Form Form1 
   Caption         =   "Form1"
   ClientHeight    =   3195
   Begin VB.Frame Frame1 
      Caption         =   "Frame1"
      Begin VB.PictureBox Picture1 
         Begin VB.CommandButton cmdOK 
            Caption         =   "OK"
            Index           =   0
         End
      End
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuExit 
         Caption         =   "E&xit"
      End
   End
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
   EndProperty
End
Attribute VB_Name = "Form1"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Option Explicit

Private Sub cmdOK_Click(Index As Integer)
    Unload Me
End Sub
