VERSION 5.00
Begin VB.MDIForm frmMain 
   BackColor       =   &H8000000C&
   Caption         =   "Ledger"
   ClientHeight    =   6600
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   9480
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   3  'Windows Default
   WindowState     =   2  'Maximized
   Begin VB.PictureBox picStatus 
      Align           =   2  'Align Bottom
      BorderStyle     =   0  'None
      Height          =   315
      Left            =   0
      ScaleHeight     =   315
      ScaleWidth      =   9480
      TabIndex        =   0
      Top             =   6285
      Width           =   9480
      Begin VB.Label lblStatus 
         AutoSize        =   -1  'True
         Caption         =   "Ready"
         Height          =   195
         Index           =   0
         Left            =   120
         TabIndex        =   1
         Top             =   60
         Width           =   465
      End
      Begin VB.Label lblStatus 
         Alignment       =   1  'Right Justify
         Caption         =   "0 open invoices"
         Height          =   195
         Index           =   1
         Left            =   6600
         TabIndex        =   2
         Top             =   60
         Width           =   2775
      End
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNewInvoice 
         Caption         =   "&New Invoice..."
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileSave 
         Caption         =   "&Save Settings"
         Shortcut        =   ^S
      End
      Begin VB.Menu mnuFileSep1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuLedger 
      Caption         =   "&Ledger"
      Begin VB.Menu mnuLedgerCustomers 
         Caption         =   "&Customers"
         Shortcut        =   {F2}
      End
      Begin VB.Menu mnuLedgerPayment 
         Caption         =   "Record &Payment..."
         Shortcut        =   {F3}
      End
      Begin VB.Menu mnuLedgerReports 
         Caption         =   "&Reports"
         Begin VB.Menu mnuReport 
            Caption         =   "&Customer List"
            Index           =   0
         End
         Begin VB.Menu mnuReport 
            Caption         =   "&Open Items"
            Index           =   1
         End
         Begin VB.Menu mnuReport 
            Caption         =   "&Tax Summary"
            Index           =   2
         End
      End
   End
   Begin VB.Menu mnuWindow 
      Caption         =   "&Window"
      WindowList      =   -1  'True
      Begin VB.Menu mnuWindowCascade 
         Caption         =   "&Cascade"
      End
      Begin VB.Menu mnuWindowTile 
         Caption         =   "&Tile"
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpReadme 
         Caption         =   "&Read Me"
      End
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&About Ledger..."
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' The main window: menus, child windows and the status bar.

Private mReport As CReportWriter

Private Sub MDIForm_Load()
    Set mReport = New CReportWriter
    mReport.PageWidth = gSettings.PageWidth
    UpdateStatus "Ready"
End Sub

Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If UnloadMode = vbFormControlMenu Or UnloadMode = vbFormCode Then
        If MsgBox("Close Ledger?", vbQuestion + vbYesNo, APP_TITLE) = vbNo Then
            Cancel = True
            Exit Sub
        End If
    End If
    ShutDown
End Sub

Private Sub MDIForm_Resize()
    If Me.WindowState = vbMinimized Then Exit Sub
    lblStatus(1).Left = picStatus.ScaleWidth - lblStatus(1).Width - 120
End Sub

Public Sub UpdateStatus(ByVal Message As String)
    lblStatus(0).Caption = Message
    lblStatus(1).Caption = gOpenInvoiceCount & " open invoices, " & FormatAmount(gOpenBalance)
End Sub

'--- File menu ------------------------------------------------------------

Private Sub mnuFileNewInvoice_Click()
    Dim frm As frmInvoice

    Set frm = New frmInvoice
    frm.Show
End Sub

Private Sub mnuFileSave_Click()
    On Error GoTo SaveFailed
    gSettings.SaveToIni
    UpdateStatus "Settings saved"
    Exit Sub

SaveFailed:
    MsgBox "The settings were not saved: " & Err.Description, vbExclamation, APP_TITLE
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

'--- Ledger menu ----------------------------------------------------------

Private Sub mnuLedgerCustomers_Click()
    frmCustomers.Show
    frmCustomers.ZOrder 0
End Sub

Private Sub mnuLedgerPayment_Click()
    frmPayment.Show
End Sub

Private Sub mnuReport_Click(Index As Integer)
    mReport.Clear
    Select Case Index
    Case 0
        mReport.CustomerList gCustomers, gSettings.ShowZeroBalances
    Case 1
        mReport.OpenItems
    Case 2
        If ActiveForm Is Nothing Then Exit Sub
        If TypeOf ActiveForm Is frmInvoice Then
            mReport.TaxSummary ActiveForm.Invoice
        Else
            MsgBox "Open an invoice first.", vbInformation, APP_TITLE
            Exit Sub
        End If
    End Select
    Clipboard.Clear
    Clipboard.SetText mReport.Text()
    UpdateStatus "Report copied to the clipboard"
End Sub

'--- Window and Help menus ------------------------------------------------

Private Sub mnuWindowCascade_Click()
    Me.Arrange vbCascade
End Sub

Private Sub mnuWindowTile_Click()
    Me.Arrange vbTileHorizontal
End Sub

Private Sub mnuHelpReadme_Click()
    OpenDocument Me.hWnd, App.Path & "\Ledger.ini"
End Sub

Private Sub mnuHelpAbout_Click()
    frmAbout.Show vbModal, Me
End Sub
