VERSION 5.00
Begin VB.UserControl AmountBox 
   ClientHeight    =   285
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   1695
   PropertyPages   =   "AmountBox.ctx":0000
   ScaleHeight     =   285
   ScaleWidth      =   1695
   Begin VB.TextBox txtValue 
      Alignment       =   1  'Right Justify
      BorderStyle     =   0  'None
      Height          =   285
      Left            =   0
      TabIndex        =   0
      Text            =   "0.00"
      Top             =   0
      Width           =   1695
   End
End
Attribute VB_Name = "AmountBox"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
Option Explicit

' A text box for money amounts: right-aligned, digits only, fixed decimal places.

Public Event Change()
Attribute Change.VB_Description = "Occurs when the amount changes."
Public Event Click()
Attribute Click.VB_Description = "Occurs when the user clicks the control."
Attribute Click.VB_UserMemId = -600
Public Event InvalidEntry(ByVal Text As String)
Attribute InvalidEntry.VB_Description = "Occurs when the typed text is not an amount."

Private Const DEFAULT_DECIMALS As Integer = 2

Private mValue As Currency
Private mDecimalPlaces As Integer
Private mUpdating As Boolean

Public Property Get Value() As Currency
Attribute Value.VB_Description = "The amount shown in the box."
Attribute Value.VB_ProcData.VB_Invoke_Property = "ppgAmount"
Attribute Value.VB_UserMemId = 0
    Value = mValue
End Property

Public Property Let Value(ByVal NewValue As Currency)
    mValue = NewValue
    ShowValue
    PropertyChanged "Value"
    RaiseEvent Change
End Property

Public Property Get DecimalPlaces() As Integer
Attribute DecimalPlaces.VB_Description = "Number of decimal places shown, 0 to 4."
Attribute DecimalPlaces.VB_ProcData.VB_Invoke_Property = "ppgAmount;Appearance"
    DecimalPlaces = mDecimalPlaces
End Property

Public Property Let DecimalPlaces(ByVal NewValue As Integer)
    If NewValue < 0 Or NewValue > 4 Then
        Err.Raise 380, "AmountBox.DecimalPlaces", "DecimalPlaces must lie between 0 and 4"
    End If
    mDecimalPlaces = NewValue
    ShowValue
    PropertyChanged "DecimalPlaces"
End Property

Public Property Get Enabled() As Boolean
Attribute Enabled.VB_UserMemId = -514
    Enabled = UserControl.Enabled
End Property

Public Property Let Enabled(ByVal NewValue As Boolean)
    UserControl.Enabled = NewValue
    txtValue.Enabled = NewValue
    PropertyChanged "Enabled"
End Property

Public Property Get Font() As StdFont
Attribute Font.VB_UserMemId = -512
    Set Font = txtValue.Font
End Property

Public Property Set Font(ByVal NewFont As StdFont)
    Set txtValue.Font = NewFont
    PropertyChanged "Font"
End Property

Private Sub UserControl_InitProperties()
    mDecimalPlaces = DEFAULT_DECIMALS
    mValue = 0
    ShowValue
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    mDecimalPlaces = PropBag.ReadProperty("DecimalPlaces", DEFAULT_DECIMALS)
    mValue = PropBag.ReadProperty("Value", 0)
    UserControl.Enabled = PropBag.ReadProperty("Enabled", True)
    Set txtValue.Font = PropBag.ReadProperty("Font", Ambient.Font)
    ShowValue
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    PropBag.WriteProperty "DecimalPlaces", mDecimalPlaces, DEFAULT_DECIMALS
    PropBag.WriteProperty "Value", mValue, 0
    PropBag.WriteProperty "Enabled", UserControl.Enabled, True
    PropBag.WriteProperty "Font", txtValue.Font, Ambient.Font
End Sub

Private Sub UserControl_Resize()
    txtValue.Move 0, 0, UserControl.ScaleWidth, UserControl.ScaleHeight
End Sub

Private Sub txtValue_Click()
    RaiseEvent Click
End Sub

Private Sub txtValue_KeyPress(KeyAscii As Integer)
    Select Case KeyAscii
    Case vbKey0 To vbKey9, vbKeyBack
        ' digits and Backspace are always fine
    Case 44, 46 ' comma or full stop: one decimal separator only
        If InStr(txtValue.Text, ".") > 0 Or InStr(txtValue.Text, ",") > 0 Then KeyAscii = 0
    Case 45 ' minus sign, only in front
        If txtValue.SelStart > 0 Then KeyAscii = 0
    Case Else
        KeyAscii = 0
        Beep
    End Select
End Sub

Private Sub txtValue_LostFocus()
    If mUpdating Then Exit Sub
    If IsNumeric(txtValue.Text) Then
        Value = CCur(txtValue.Text)
    Else
        RaiseEvent InvalidEntry(txtValue.Text)
        ShowValue
    End If
End Sub

Private Sub ShowValue()
    mUpdating = True
    If mDecimalPlaces = 0 Then
        txtValue.Text = Format$(mValue, "#,##0")
    Else
        txtValue.Text = Format$(mValue, "#,##0." & String$(mDecimalPlaces, "0"))
    End If
    mUpdating = False
End Sub
