Attribute VB_Name = "A|B"
Sub Main()
End Sub
