VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmCustomers 
   Caption         =   "Customers"
   ClientHeight    =   5535
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   8895
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5535
   ScaleWidth      =   8895
   Begin VB.CommandButton cmdAction 
      Caption         =   "&New"
      Height          =   375
      Index           =   0
      Left            =   120
      TabIndex        =   1
      Top             =   5040
      Width           =   1215
   End
   Begin MSComctlLib.ListView lvwCustomers 
      Height          =   2655
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   8655
      _ExtentX        =   15266
      _ExtentY        =   4683
      View            =   3
      LabelEdit       =   1
      LabelWrap       =   -1  'True
      HideSelection   =   0   'False
      FullRowSelect   =   -1  'True
      GridLines       =   -1  'True
      _Version        =   393217
      ForeColor       =   -2147483640
      BackColor       =   -2147483643
      BorderStyle     =   1
      Appearance      =   1
      NumItems        =   4
      BeginProperty ColumnHeader(1) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Text            =   "Code"
         Object.Width           =   1411
      EndProperty
      BeginProperty ColumnHeader(2) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   1
         Text            =   "Name"
         Object.Width           =   5292
      EndProperty
      BeginProperty ColumnHeader(3) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   2
         Text            =   "City"
         Object.Width           =   3175
      EndProperty
      BeginProperty ColumnHeader(4) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Alignment       =   1
         SubItemIndex    =   3
         Text            =   "Balance"
         Object.Width           =   2540
      EndProperty
   End
   Begin VB.Frame fraDetails 
      Caption         =   "Details"
      Height          =   2055
      Left            =   120
      TabIndex        =   4
      Top             =   2880
      Width           =   8655
      Begin VB.PictureBox picDetails 
         BorderStyle     =   0  'None
         Height          =   1695
         Left            =   120
         ScaleHeight     =   1695
         ScaleWidth      =   8415
         TabIndex        =   5
         Top             =   240
         Width           =   8415
         Begin VB.CheckBox chkTaxExempt 
            Caption         =   "Tax exempt"
            Height          =   255
            Left            =   4800
            TabIndex        =   12
            Top             =   480
            Width           =   1575
         End
         Begin VB.TextBox txtCreditLimit 
            Alignment       =   1  'Right Justify
            Height          =   285
            Left            =   6600
            TabIndex        =   11
            Top             =   0
            Width           =   1695
         End
         Begin VB.TextBox txtCity 
            Height          =   285
            Left            =   1200
            TabIndex        =   10
            Top             =   1080
            Width           =   3375
         End
         Begin VB.TextBox txtStreet 
            Height          =   285
            Left            =   1200
            TabIndex        =   9
            Top             =   720
            Width           =   3375
         End
         Begin VB.TextBox txtName 
            Height          =   285
            Left            =   1200
            MaxLength       =   60
            TabIndex        =   8
            Top             =   360
            Width           =   3375
         End
         Begin VB.TextBox txtCode 
            Height          =   285
            Left            =   1200
            MaxLength       =   10
            TabIndex        =   7
            Top             =   0
            Width           =   1215
         End
         Begin VB.Label lblField 
            Caption         =   "Credit limit:"
            Height          =   255
            Index           =   4
            Left            =   4800
            TabIndex        =   13
            Top             =   30
            Width           =   1695
         End
         Begin VB.Label lblField 
            Caption         =   "City:"
            Height          =   255
            Index           =   3
            Left            =   0
            TabIndex        =   14
            Top             =   1110
            Width           =   1095
         End
         Begin VB.Label lblField 
            Caption         =   "Street:"
            Height          =   255
            Index           =   2
            Left            =   0
            TabIndex        =   15
            Top             =   750
            Width           =   1095
         End
         Begin VB.Label lblField 
            Caption         =   "Name:"
            Height          =   255
            Index           =   1
            Left            =   0
            TabIndex        =   16
            Top             =   390
            Width           =   1095
         End
         Begin VB.Label lblField 
            Caption         =   "Code:"
            Height          =   255
            Index           =   0
            Left            =   0
            TabIndex        =   6
            Top             =   30
            Width           =   1095
         End
      End
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "&Save"
      Default         =   -1  'True
      Height          =   375
      Index           =   1
      Left            =   1440
      TabIndex        =   2
      Top             =   5040
      Width           =   1215
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   7560
      TabIndex        =   17
      Top             =   5040
      Width           =   1215
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "&Delete"
      Height          =   375
      Index           =   2
      Left            =   2760
      TabIndex        =   3
      Top             =   5040
      Width           =   1215
   End
End
Attribute VB_Name = "frmCustomers"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' Customer maintenance: the list on top, the selected customer's details below.

Private Const ACTION_NEW As Integer = 0
Private Const ACTION_SAVE As Integer = 1
Private Const ACTION_DELETE As Integer = 2

Private mCurrent As CCustomer
Private mLoading As Boolean

Private Sub Form_Load()
    FillList
    ClearDetails
End Sub

Private Sub Form_Resize()
    If Me.WindowState = vbMinimized Then Exit Sub
    If Me.ScaleWidth > 2000 Then
        lvwCustomers.Width = Me.ScaleWidth - 240
        fraDetails.Width = lvwCustomers.Width
    End If
End Sub

Private Sub FillList()
    Dim cust As CCustomer
    Dim itm As ListItem

    lvwCustomers.ListItems.Clear
    For Each cust In gCustomers
        Set itm = lvwCustomers.ListItems.Add(, "K" & cust.Code, cust.Code)
        itm.SubItems(1) = cust.Name
        itm.SubItems(2) = cust.City
        itm.SubItems(3) = FormatAmount(cust.Balance, False)
    Next cust
End Sub

Private Sub lvwCustomers_ItemClick(ByVal Item As MSComctlLib.ListItem)
    ShowCustomer gCustomers(Item.Text)
End Sub

Private Sub ShowCustomer(ByVal Customer As CCustomer)
    mLoading = True
    Set mCurrent = Customer
    txtCode.Text = Customer.Code
    txtCode.Locked = True
    txtName.Text = Customer.Name
    txtStreet.Text = Customer.Street
    txtCity.Text = Customer.City
    txtCreditLimit.Text = FormatAmount(Customer.CreditLimit, False)
    chkTaxExempt.Value = IIf(Customer.TaxExempt, vbChecked, vbUnchecked)
    cmdAction(ACTION_DELETE).Enabled = (Customer.Balance = 0)
    mLoading = False
End Sub

Private Sub ClearDetails()
    Set mCurrent = Nothing
    txtCode.Text = ""
    txtCode.Locked = False
    txtName.Text = ""
    txtStreet.Text = ""
    txtCity.Text = ""
    txtCreditLimit.Text = "0.00"
    chkTaxExempt.Value = vbUnchecked
    cmdAction(ACTION_DELETE).Enabled = False
End Sub

Private Sub cmdAction_Click(Index As Integer)
    On Error GoTo ActionFailed

    Select Case Index
    Case ACTION_NEW
        ClearDetails
        txtCode.SetFocus
    Case ACTION_SAVE
        If Not ValidateDetails() Then Exit Sub
        SaveDetails
        FillList
    Case ACTION_DELETE
        If MsgBox("Delete customer '" & mCurrent.Name & "'?", vbQuestion + vbYesNo, APP_TITLE) = vbYes Then
            gCustomers.Remove mCurrent.Code
            FillList
            ClearDetails
        End If
    End Select
    Exit Sub

ActionFailed:
    MsgBox Err.Description, vbExclamation, APP_TITLE
End Sub

Private Function ValidateDetails() As Boolean
    If Len(Trim$(txtCode.Text)) = 0 Then
        MsgBox "Enter a customer code. If you don't have one yet, Select ""New"" and then Save.", _
               vbExclamation, APP_TITLE
        txtCode.SetFocus
        Exit Function
    End If
    If Not IsNumeric(txtCreditLimit.Text) Then
        MsgBox "The credit limit must be a number, not """ & txtCreditLimit.Text & """.", _
               vbExclamation, APP_TITLE
        txtCreditLimit.SetFocus
        Exit Function
    End If
    ValidateDetails = True
End Function

Private Sub SaveDetails()
    If mCurrent Is Nothing Then
        Set mCurrent = gCustomers.Add(txtCode.Text, txtName.Text)
    Else
        mCurrent.Name = txtName.Text
    End If
    mCurrent.Street = txtStreet.Text
    mCurrent.City = txtCity.Text
    mCurrent.CreditLimit = CCur(txtCreditLimit.Text)
    mCurrent.TaxExempt = (chkTaxExempt.Value = vbChecked)
End Sub

Private Sub txtCode_KeyPress(KeyAscii As Integer)
    ' Codes are upper case; let Backspace through.
    If KeyAscii <> vbKeyBack Then KeyAscii = Asc(UCase$(Chr$(KeyAscii)))
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub
