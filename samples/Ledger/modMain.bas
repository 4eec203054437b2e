Attribute VB_Name = "modMain"
Option Explicit

' Start-up and shared application state.

Public gSettings As CSettings
Public gCustomers As CCustomers
Private mNextInvoiceNumber As Long

Public Sub Main()
    On Error GoTo StartupFailed

    If App.PrevInstance Then
        MsgBox "Ledger is already running.", vbInformation, APP_TITLE
        Exit Sub
    End If

    Set gSettings = New CSettings
    gSettings.LoadFromIni
    mNextInvoiceNumber = gSettings.NextInvoiceNumber

    Set gCustomers = New CCustomers
    LoadDemoCustomers

    frmMain.Caption = LoadResString(IDS_APP_TITLE) & " - " & gSettings.CompanyName
    frmMain.Show
    Exit Sub

StartupFailed:
    MsgBox "Ledger could not start: " & Err.Description & " (" & Err.Number & ")", _
           vbCritical, APP_TITLE
End Sub

' Hands out invoice numbers; the counter is saved again on exit.
Public Function NextInvoiceNumber() As String
    NextInvoiceNumber = gSettings.InvoicePrefix & Format$(mNextInvoiceNumber, "000000")
    mNextInvoiceNumber = mNextInvoiceNumber + 1
End Function

Public Sub ShutDown()
    Dim frm As Form

    gSettings.NextInvoiceNumber = mNextInvoiceNumber
    gSettings.SaveToIni
	' Unload every child window before the main window goes away.
    For Each frm In Forms
        If Not frm Is frmMain Then Unload frm
    Next frm
    Set gCustomers = Nothing
    Set gSettings = Nothing
End Sub

Private Sub LoadDemoCustomers()
    Dim cust As CCustomer

    Set cust = gCustomers.Add("C001", "Bäckerei Müller", "Hauptstraße 12", "Köln")
    cust.CreditLimit = 5000
    Set cust = gCustomers.Add("C002", "Café de l'Opéra", "2 rue Auber", "Paris")
    cust.CreditLimit = 2500
    Set cust = gCustomers.Add("C003", "O'Brien & Sons Hardware", "14 Quay Street", "Galway")
    cust.CreditLimit = 10000
    cust.TaxExempt = True
End Sub

Rem Formats an amount the way every screen and report shows it.
Public Function FormatAmount(ByVal Amount As Currency, Optional ByVal WithSymbol As Boolean = True) As String
    If WithSymbol Then
        FormatAmount = Format$(Amount, "#,##0.00") & " " & gSettings.CurrencyCode
    Else
        FormatAmount = Format$(Amount, "#,##0.00")
    End If
End Function

Public Function ConfirmDiscard(ByVal DocumentName As String) As Boolean
    Dim answer As VbMsgBoxResult

    answer = MsgBox(Replace$(LoadResString(IDS_UNSAVED_CHANGES), "%1", DocumentName), _
                    vbQuestion + vbYesNo, APP_TITLE)
    ConfirmDiscard = (answer = vbYes)
End Function
