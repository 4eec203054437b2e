VERSION 5.00
Begin VB.Form frmPayment 
   Caption         =   "Record Payment"
   ClientHeight    =   3390
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   5535
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   3390
   ScaleWidth      =   5535
   Begin VB.OptionButton optMethod 
      Caption         =   "Cash"
      Height          =   255
      Index           =   1
      Left            =   240
      TabIndex        =   2
      Top             =   1320
      Value           =   -1  'True
      Width           =   1575
   End
   Begin VB.TextBox txtInvoice 
      Height          =   285
      Left            =   1680
      TabIndex        =   0
      Top             =   240
      Width           =   2055
   End
   Begin VB.TextBox txtAmount 
      Alignment       =   1  'Right Justify
      Height          =   285
      Left            =   1680
      TabIndex        =   1
      Top             =   720
      Width           =   2055
   End
   Begin VB.OptionButton optMethod 
      Caption         =   "Cheque"
      Height          =   255
      Index           =   2
      Left            =   240
      TabIndex        =   3
      Top             =   1680
      Width           =   1575
   End
   Begin VB.OptionButton optMethod 
      Caption         =   "Bank transfer"
      Height          =   255
      Index           =   3
      Left            =   2040
      TabIndex        =   4
      Top             =   1320
      Width           =   1575
   End
   Begin VB.OptionButton optMethod 
      Caption         =   "Credit card"
      Height          =   255
      Index           =   4
      Left            =   2040
      TabIndex        =   5
      Top             =   1680
      Width           =   1575
   End
   Begin VB.TextBox txtReference 
      Height          =   285
      Left            =   1680
      TabIndex        =   6
      Top             =   2160
      Width           =   3615
   End
   Begin VB.CommandButton cmdPost 
      Caption         =   "&Post"
      Default         =   -1  'True
      Height          =   375
      Left            =   4080
      TabIndex        =   7
      Top             =   2760
      Width           =   1215
   End
   Begin VB.Label lblInvoice 
      Caption         =   "Invoice no.:"
      Height          =   255
      Left            =   240
      TabIndex        =   8
      Top             =   270
      Width           =   1335
   End
   Begin VB.Label lblAmount 
      Caption         =   "Amount:"
      Height          =   255
      Left            =   240
      TabIndex        =   9
      Top             =   750
      Width           =   1335
   End
End
Attribute VB_Name = "frmPayment"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' Records a payment against an issued invoice.

Private mMethod As PaymentMethod

Private Sub Form_Load()
    mMethod = pmCash
End Sub

Private Sub optMethod_Click(Index As Integer)
    ' The option indexes match the PaymentMethod values on purpose.
    mMethod = Index
    txtReference.Enabled = (mMethod <> pmCash)
End Sub

Private Sub cmdPost_Click()
    Dim frm As Form
    Dim received As Currency

    If Not IsNumeric(txtAmount.Text) Then
        MsgBox "Enter the amount received.", vbExclamation, APP_TITLE
        txtAmount.SetFocus
        Exit Sub
    End If
    received = CCur(txtAmount.Text)

    For Each frm In Forms
        If TypeOf frm Is frmInvoice Then
            If frm.Invoice.Number = txtInvoice.Text Then
                frm.Invoice.AddPayment received, mMethod, txtReference.Text
                gOpenBalance = gOpenBalance - received
                frmMain.UpdateStatus "Payment of " & FormatAmount(received) & " posted"
                Unload Me
                Exit Sub
            End If
        End If
    Next frm
    MsgBox "Invoice '" & txtInvoice.Text & "' is not open in Ledger.", vbExclamation, APP_TITLE
End Sub
