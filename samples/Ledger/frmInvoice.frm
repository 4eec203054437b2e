VERSION 5.00
Object = "*\A..\LedgerControls\LedgerControls.vbp"
Begin VB.Form frmInvoice 
   Caption         =   "Invoice"
   ClientHeight    =   5910
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7815
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5910
   ScaleWidth      =   7815
   Begin VB.ComboBox cboCustomer 
      Height          =   315
      Left            =   1320
      Style           =   2  'Dropdown List
      TabIndex        =   0
      Top             =   120
      Width           =   3735
   End
   Begin VB.TextBox txtDescription 
      Height          =   285
      Left            =   1320
      TabIndex        =   1
      Top             =   600
      Width           =   3735
   End
   Begin VB.TextBox txtQuantity 
      Alignment       =   1  'Right Justify
      Height          =   285
      Left            =   5160
      TabIndex        =   2
      Text            =   "1"
      Top             =   600
      Width           =   735
   End
   Begin LedgerControls.AmountBox ambPrice 
      Height          =   285
      Left            =   6000
      TabIndex        =   3
      Top             =   600
      Width           =   1695
      _ExtentX        =   2990
      _ExtentY        =   503
   End
   Begin VB.ListBox lstLines 
      BeginProperty Font 
         Name            =   "Courier New"
         Size            =   9
         Charset         =   0
         Weight          =   400
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   3210
      Left            =   120
      TabIndex        =   5
      Top             =   1080
      Width           =   7575
   End
   Begin VB.CommandButton cmdLine 
      Caption         =   "&Add Line"
      Default         =   -1  'True
      Height          =   375
      Index           =   0
      Left            =   120
      TabIndex        =   4
      Top             =   4440
      Width           =   1335
   End
   Begin VB.Label lblTotals 
      Alignment       =   1  'Right Justify
      Caption         =   "0.00"
      BeginProperty Font 
         Name            =   "Tahoma"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   255
      Left            =   4560
      TabIndex        =   9
      Top             =   4500
      Width           =   3135
   End
   Begin VB.CommandButton cmdLine 
      Caption         =   "&Remove Line"
      Height          =   375
      Index           =   1
      Left            =   1560
      TabIndex        =   6
      Top             =   4440
      Width           =   1335
   End
   Begin VB.CommandButton cmdIssue 
      Caption         =   "&Issue"
      Height          =   375
      Left            =   5040
      TabIndex        =   7
      Top             =   5400
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancelInvoice 
      Caption         =   "Ca&ncel Invoice"
      Height          =   375
      Left            =   6360
      TabIndex        =   8
      Top             =   5400
      Width           =   1335
   End
   Begin VB.Label lblCustomer 
      Caption         =   "Customer:"
      Height          =   255
      Left            =   120
      TabIndex        =   10
      Top             =   150
      Width           =   1095
   End
   Begin VB.Label lblStatus 
      Caption         =   "Draft"
      Height          =   255
      Left            =   120
      TabIndex        =   11
      Top             =   5460
      Width           =   3615
   End
End
Attribute VB_Name = "frmInvoice"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' Editing one invoice. The form listens to the invoice and redraws itself on every change.

Private WithEvents mInvoice As CInvoice
Attribute mInvoice.VB_VarHelpID = -1
Private mDirty As Boolean

Public Property Get Invoice() As CInvoice
    Set Invoice = mInvoice
End Property

Private Sub Form_Load()
    Dim cust As CCustomer

    Set mInvoice = New CInvoice
    For Each cust In gCustomers
        cboCustomer.AddItem cust.Code & " - " & cust.Name
    Next cust
    Me.Caption = "Invoice (new)"
    ShowTotals 0, 0
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If mDirty And mInvoice.Status = isDraft Then
        If Not ConfirmDiscard(Me.Caption) Then Cancel = True
    End If
End Sub

Private Sub cboCustomer_Click()
    Dim customerCode As String

    customerCode = Left$(cboCustomer.Text, InStr(cboCustomer.Text, " - ") - 1)
    Set mInvoice.Customer = gCustomers(customerCode)
    mDirty = True
End Sub

Private Sub cmdLine_Click(Index As Integer)
    On Error GoTo LineFailed

    Select Case Index
    Case 0 ' Add Line
        If Len(txtDescription.Text) = 0 Then
            MsgBox "Describe the article or service first.", vbExclamation, APP_TITLE
            Exit Sub
        End If
        mInvoice.AddLine txtDescription.Text, Val(txtQuantity.Text), ambPrice.Value
        txtDescription.Text = ""
        txtQuantity.Text = "1"
        ambPrice.Value = 0
        txtDescription.SetFocus
    Case 1 ' Remove Line: not possible once lines are posted
        MsgBox "Lines can't be removed from this invoice; cancel it and start again.", _
               vbInformation, APP_TITLE
    End Select
    Exit Sub

LineFailed:
    MsgBox "The line was not added: " & Err.Description, vbExclamation, APP_TITLE
End Sub

Private Sub cmdIssue_Click()
    On Error GoTo IssueFailed
    mInvoice.Issue
    If mInvoice.Status = isIssued Then
        Me.Caption = "Invoice " & mInvoice.Number
        gOpenInvoiceCount = gOpenInvoiceCount + 1
        gOpenBalance = gOpenBalance + mInvoice.GrossTotal()
        frmMain.UpdateStatus "Invoice " & mInvoice.Number & " issued"
        mDirty = False
    End If
    Exit Sub

IssueFailed:
    MsgBox Err.Description, vbExclamation, APP_TITLE
End Sub

Private Sub cmdCancelInvoice_Click()
    If MsgBox("Cancel this invoice? This can't be undone.", vbQuestion + vbYesNo, APP_TITLE) = vbYes Then
        mInvoice.Cancel
    End If
End Sub

Private Sub mInvoice_LineAdded(ByVal NewLine As CInvoiceLine)
    lstLines.AddItem NewLine.Describe()
    mDirty = True
End Sub

Private Sub mInvoice_TotalsChanged(ByVal Net As Currency, ByVal Gross As Currency)
    ShowTotals Net, Gross
End Sub

Private Sub mInvoice_StatusChanged(ByVal OldStatus As InvoiceStatus, ByVal NewStatus As InvoiceStatus)
    Dim names As Variant

    names = Array("Draft", "Issued", "Partly paid", "Paid")
    If NewStatus = isCancelled Then
        lblStatus.Caption = "Cancelled"
    Else
        lblStatus.Caption = names(NewStatus)
    End If
    cmdIssue.Enabled = (NewStatus = isDraft)
    cmdLine(0).Enabled = (NewStatus = isDraft)
    cmdLine(1).Enabled = (NewStatus = isDraft)
End Sub

Private Sub ShowTotals(ByVal Net As Currency, ByVal Gross As Currency)
    lblTotals.Caption = "Net " & FormatAmount(Net) & "   Gross " & FormatAmount(Gross)
End Sub
