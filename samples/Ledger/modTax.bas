Attribute VB_Name = "modTax"
Option Explicit

' Tax and currency helpers. Amounts are Currency so that cents never drift.

Private Type ExchangeRate
    Code As String
    UnitsPerEuro As Double
End Type

Private mRates() As ExchangeRate
Private mRateCount As Integer

Public Function CalculateTax(ByVal NetAmount As Currency, ByVal RatePercent As Double) As TaxBreakdown
    Dim result As TaxBreakdown

    If RatePercent < 0 Or RatePercent > 100 Then
        Err.Raise 5, "modTax.CalculateTax", "Tax rate must lie between 0 and 100, not " & RatePercent
    End If
    result.NetAmount = NetAmount
    result.Rate = RatePercent
    result.TaxAmount = RoundCents(NetAmount * RatePercent / 100)
    result.GrossAmount = result.NetAmount + result.TaxAmount
    CalculateTax = result
End Function

' Commercial rounding: half a cent always goes away from zero,
' unlike Round(), which rounds half to even.
Public Function RoundCents(ByVal Amount As Currency) As Currency
    If Amount >= 0 Then
        RoundCents = Int(Amount * 100 + 0.5) / 100
    Else
        RoundCents = -Int(-Amount * 100 + 0.5) / 100
    End If
End Function

Public Function NetFromGross(ByVal GrossAmount As Currency, ByVal RatePercent As Double) As Currency
    NetFromGross = RoundCents(GrossAmount / (1 + RatePercent / 100))
End Function

Public Function TaxRateFor(ByVal Category As String) As Double
    Select Case UCase$(Category)
    Case "FOOD", "BOOKS", "NEWSPAPERS"
        TaxRateFor = 7
    Case "EXPORT", "EXEMPT"
        TaxRateFor = 0
    Case "SERVICE", "GOODS", ""
        TaxRateFor = gSettings.DefaultTaxRate
    Case Else
        Err.Raise 5, "modTax.TaxRateFor", "Unknown tax category '" & Category & "'"
    End Select
End Function

Public Sub RegisterRate(ByVal Code As String, ByVal UnitsPerEuro As Double)
    Dim i As Integer

    For i = 0 To mRateCount - 1
        If mRates(i).Code = Code Then
            mRates(i).UnitsPerEuro = UnitsPerEuro
            Exit Sub
        End If
    Next i
    ReDim Preserve mRates(mRateCount)
    mRates(mRateCount).Code = Code
    mRates(mRateCount).UnitsPerEuro = UnitsPerEuro
    mRateCount = mRateCount + 1
End Sub

Public Function ConvertAmount(ByVal Amount As Currency, ByVal FromCode As String, _
                              ByVal ToCode As String) As Currency
    Dim fromRate As Double
    Dim toRate As Double

    On Error GoTo ConversionFailed
    If FromCode = ToCode Then
        ConvertAmount = Amount
        Exit Function
    End If
    fromRate = RateOf(FromCode)
    toRate = RateOf(ToCode)
    ConvertAmount = RoundCents(Amount / fromRate * toRate)
    Exit Function

ConversionFailed:
    Err.Raise Err.Number, "modTax.ConvertAmount", _
              "Can't convert " & FromCode & " to " & ToCode & ": " & Err.Description
End Function

Private Function RateOf(ByVal Code As String) As Double
    Dim i As Integer

    If Code = "EUR" Then
        RateOf = 1
        Exit Function
    End If
    For i = 0 To mRateCount - 1
        If mRates(i).Code = Code Then
            RateOf = mRates(i).UnitsPerEuro
            Exit Function
        End If
    Next i
    Err.Raise vbObjectError + 2001, "modTax.RateOf", "No exchange rate for " & Code
End Function

' Spells out an amount for cheques: "One hundred twenty and 50/100".
Public Function AmountInWords(ByVal Amount As Currency) As String
    Dim whole As Long
    Dim cents As Long
    Dim words As String

    whole = Fix(Amount)
    cents = CLng((Amount - whole) * 100)
    If whole = 0 Then
        words = "Zero"
    Else
        words = NumberWords(whole)
        words = UCase$(Left$(words, 1)) & Mid$(words, 2)
    End If
    AmountInWords = words & " and " & Format$(cents, "00") & "/100"
End Function

Private Function NumberWords(ByVal Number As Long) As String
    Dim ones As Variant
    Dim tens As Variant
    Dim phrase As String

    ones = Array("", "one", "two", "three", "four", "five", "six", "seven", "eight", "nine", _
                 "ten", "eleven", "twelve", "thirteen", "fourteen", "fifteen", "sixteen", _
                 "seventeen", "eighteen", "nineteen")
    tens = Array("", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety")

    If Number >= 1000000 Then
        phrase = NumberWords(Number \ 1000000) & " million " & NumberWords(Number Mod 1000000)
    ElseIf Number >= 1000 Then
        phrase = NumberWords(Number \ 1000) & " thousand " & NumberWords(Number Mod 1000)
    ElseIf Number >= 100 Then
        phrase = ones(Number \ 100) & " hundred " & NumberWords(Number Mod 100)
    ElseIf Number >= 20 Then
        phrase = tens(Number \ 10) & " " & ones(Number Mod 10)
    Else
        phrase = ones(Number)
    End If
    phrase = Trim$(phrase)
    NumberWords = phrase
End Function
