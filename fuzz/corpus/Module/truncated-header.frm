VERSION 5.00
Begin VB.Form Form1
   Begin VB.Label Label1
      Caption = "x