Attribute VB_Name = "modTypes"
Option Explicit

' Shared types, enumerations and constants of the Ledger application.
' This module holds declarations only; it has no procedures on purpose.

Public Const APP_TITLE As String = "Ledger"
Public Const APP_COPYRIGHT As String = "© 2004 Quillmark Sample Trading"
Public Const DEFAULT_CURRENCY As String = "EUR"
Public Const DEFAULT_TAX_RATE As Double = 19#
Public Const MAX_INVOICE_LINES As Long = 250
Public Const INVOICE_DUE_DAYS As Integer = 30

' Resource string identifiers (see Ledger.res)
Public Const IDS_APP_TITLE As Long = 101
Public Const IDS_UNSAVED_CHANGES As Long = 102
Public Const IDS_OVERDUE_NOTICE As Long = 103

Public Enum InvoiceStatus
    isDraft = 0
    isIssued = 1
    isPartlyPaid = 2
    isPaid = 3
    isCancelled = 9
End Enum

Public Enum PaymentMethod
    pmCash = 1
    pmCheque = 2
    pmBankTransfer = 3
    pmCreditCard = 4
End Enum

Private Enum ReportKind
    rkCustomerList
    rkOpenItems
    rkTaxSummary
End Enum

Public Type AddressInfo
    Street As String
    PostalCode As String * 10
    City As String
    Country As String
End Type

Public Type PaymentRecord
    PaymentID As Long
    InvoiceID As Long
    PaidOn As Date
    Amount As Currency
    Method As PaymentMethod
    Reference As String
End Type

Public Type TaxBreakdown
    NetAmount As Currency
    TaxAmount As Currency
    GrossAmount As Currency
    Rate As Double
End Type

Rem Totals kept for the status bar of the main window.
Public gOpenInvoiceCount As Long
Public gOpenBalance As Currency
