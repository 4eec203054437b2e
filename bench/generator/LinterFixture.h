// LinterFixture: a tiny, correct project group and the faults the format linter must find in it.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace vbgen {

// Written with "\n"; the check turns every "\n" into CR LF before writing the files.
struct FixtureFile {
  std::string_view path;
  std::string_view text;
};

inline constexpr std::array<FixtureFile, 7> kFixture = {{
    {"Mini.vbg", "VBGROUP 5.0\nProject=Lib\\Lib.vbp\nStartupProject=App\\App.vbp\n"},
    {"Lib/Lib.vbp",
     "Type=Control\nUserControl=Gauge.ctl\nStartup=\"(None)\"\nCommand32=\"\"\nName=\"Lib\"\n"
     "HelpContextID=\"0\"\nCompatibleMode=\"1\"\nMajorVer=1\nMaxNumberOfThreads=1\n"
     "ThreadingModel=1\n"},
    {"Lib/Gauge.ctl",
     "VERSION 5.00\nBegin VB.UserControl Gauge \n   ClientHeight    =   600\nEnd\n"
     "Attribute VB_Name = \"Gauge\"\nAttribute VB_GlobalNameSpace = False\n"
     "Attribute VB_Creatable = True\nAttribute VB_PredeclaredId = False\n"
     "Attribute VB_Exposed = True\nOption Explicit\n\n"
     "Public Event Click()\nAttribute Click.VB_UserMemId = -600\n"},
    {"App/App.vbp",
     "Type=Exe\n"
     "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#stdole2.tlb#OLE Automation\n"
     "Module=modMain; modMain.bas\nForm=frmMain.frm\nClass=CThing; CThing.cls\n"
     "Object=*\\A..\\Lib\\Lib.vbp\n"
     "Startup=\"frmMain\"\nCommand32=\"\"\nName=\"App\"\nHelpContextID=\"0\"\n"
     "CompatibleMode=\"0\"\nMajorVer=1\nMaxNumberOfThreads=1\n\n"
     "[MS Transaction Server]\nAutoRefresh=1\n"},
    {"App/modMain.bas",
     "Attribute VB_Name = \"modMain\"\nOption Explicit\n\n"
     "Public Function Total(ByVal Count As Long) As Long\n"
     "Attribute Total.VB_Description = \"Adds up.\"\n"
     "    Total = Count * 2 ' a comment with TOTAL and count _\n"
     "      continued: COUNT\n"
     "End Function\n"},
    {"App/CThing.cls",
     "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\n  Persistable = 0  'NotPersistable\n"
     "  DataBindingBehavior = 0  'vbNone\n  DataSourceBehavior  = 0  'vbNone\n"
     "  MTSTransactionMode  = 0  'NotAnMTSObject\nEND\n"
     "Attribute VB_Name = \"CThing\"\nAttribute VB_GlobalNameSpace = False\n"
     "Attribute VB_Creatable = True\nAttribute VB_PredeclaredId = False\n"
     "Attribute VB_Exposed = False\nOption Explicit\n\n"
     "Public Event Changed()\nAttribute Changed.VB_Description = \"Raised on change.\"\n"
     "Private mCount As Long\n\n"
     "Public Property Get Count() As Long\nAttribute Count.VB_UserMemId = 0\n"
     "    Count = mCount\nEnd Property\n\n"
     "Public Property Let Count(ByVal NewValue As Long)\n    mCount = NewValue\n"
     "    RaiseEvent Changed\nEnd Property\n"},
    {"App/frmMain.frm",
     "VERSION 5.00\nObject = \"*\\A..\\Lib\\Lib.vbp\"\nBegin VB.Form frmMain \n"
     "   Caption         =   \"Main\"\n   ClientHeight    =   3000\n"
     "   BeginProperty Font \n      Name            =   \"Tahoma\"\n"
     "      Underline       =   0   'False\n   EndProperty\n"
     "   StartUpPosition =   3  'Windows Default\n"
     "   Begin VB.CommandButton cmdGo \n      Caption         =   \"Go\"\n"
     "      Default         =   -1  'True\n      Index           =   0\n   End\n"
     "   Begin Lib.Gauge Gauge1 \n      Height          =   600\n   End\n"
     "   Begin VB.Frame fraBox \n      Caption         =   \"Box\"\n"
     "      Begin VB.Label lblInfo \n         Caption         =   \"Info\"\n      End\n   End\n"
     "   Begin VB.CommandButton cmdGo \n      Caption         =   \"Stop\"\n"
     "      Index           =   1\n   End\n"
     "   Begin VB.Menu mnuFile \n      Caption         =   \"&File\"\n"
     "      Begin VB.Menu mnuFileSave \n         Caption         =   \"&Save\"\n"
     "         Shortcut        =   ^S\n      End\n   End\nEnd\n"
     "Attribute VB_Name = \"frmMain\"\nAttribute VB_GlobalNameSpace = False\n"
     "Attribute VB_Creatable = False\nAttribute VB_PredeclaredId = True\n"
     "Attribute VB_Exposed = False\nOption Explicit\n\n"
     "Private Sub cmdGo_Click(Index As Integer)\n"
     "    Caption = \"Can't stop; End Sub isn't code\" & modMain.Total(Index)\nEnd Sub\n"},
}};

// One fault: replace `find` (after the CR LF conversion) in `path`; the linter must then report
// a problem mentioning `expect` for that file.
struct FixtureFault {
  std::string_view name;
  std::string_view path;
  std::string_view find;
  std::string_view replace;
  std::string_view expect;
};

inline constexpr std::array<FixtureFault, 30> kFaults = {{
    {"bare LF", "App/modMain.bas", "Option Explicit\r\n", "Option Explicit\n", "LF only"},
    {"no final CR LF", "App/modMain.bas", "End Function\r\n", "End Function", "has no CR LF"},
    {"bare CR", "App/App.vbp", "MajorVer=1\r\n", "MajorVer=1\r", "CR only"},
    {"Begin without trailing space", "App/frmMain.frm", "lblInfo \r\n", "lblInfo\r\n",
     "exactly one space"},
    {"Begin with two trailing spaces", "App/frmMain.frm", "fraBox \r\n", "fraBox  \r\n",
     "exactly one space"},
    {"name not padded", "App/frmMain.frm", "   Caption         =   \"Main\"",
     "   Caption =   \"Main\"", "padded to 16"},
    {"two spaces after =", "App/frmMain.frm", "=   3000", "=  3000", "exactly three spaces"},
    {"boolean spacing", "App/frmMain.frm", "-1  'True", "-1 'True", "form"},
    {"enum spacing", "App/frmMain.frm", "3  'Windows", "3 'Windows", "form"},
    {"property indentation", "App/frmMain.frm",
     "      Name            =", "     Name             =", "indented"},
    {"array element without Index", "App/frmMain.frm", "      Index           =   1\r\n", "",
     "has no Index"},
    {"duplicate array index", "App/frmMain.frm", "Index           =   1", "Index           =   0",
     "appears twice"},
    {"control after menus", "App/frmMain.frm", "   End\r\nEnd\r\nAttribute",
     "   End\r\n   Begin VB.Label lblLate \r\n   End\r\nEnd\r\nAttribute", "after the menus"},
    {"property after child", "App/frmMain.frm", "   End\r\nEnd\r\nAttribute",
     "   End\r\n   Tag             =   \"x\"\r\nEnd\r\nAttribute", "property after a child"},
    {"designer name", "App/frmMain.frm", "Begin VB.Form frmMain ", "Begin VB.Form frmMainX ",
     "differs from VB_Name"},
    {"form not predeclared", "App/frmMain.frm", "VB_PredeclaredId = True",
     "VB_PredeclaredId = False", "PredeclaredId = True"},
    {"member attribute below body", "App/modMain.bas",
     "Attribute Total.VB_Description = \"Adds up.\"\r\n    Total = Count * 2 ' a comment with "
     "TOTAL and count _\r\n      continued: COUNT\r\n",
     "    Total = Count * 2 ' a comment with TOTAL and count _\r\n      continued: COUNT\r\n"
     "Attribute Total.VB_Description = \"Adds up.\"\r\n",
     "right below its declaration"},
    {"member attribute inside a continued line", "App/modMain.bas",
     "Attribute Total.VB_Description = \"Adds up.\"\r\n    Total = Count * 2 ' a comment with "
     "TOTAL and count _\r\n",
     "    Total = Count * 2 ' a comment with TOTAL and count _\r\nAttribute Total.VB_Description = "
     "\"Adds up.\"\r\n",
     "inside a continued line"},
    {"procedure not closed", "App/modMain.bas", "End Function\r\n", "", "not closed"},
    {"identifier spelled twice", "App/CThing.cls", "    mCount = NewValue", "    mcount = NewValue",
     "one spelling per name"},
    {"class header spacing", "App/CThing.cls",
     "DataSourceBehavior  =", "DataSourceBehavior =", "class header"},
    {"trailing blank in code", "App/CThing.cls", "Private mCount As Long\r\n",
     "Private mCount As Long \r\n", "trailing blanks"},
    {"vbp key order", "App/App.vbp", "Command32=\"\"\r\nName=\"App\"\r\n",
     "Name=\"App\"\r\nCommand32=\"\"\r\n", "key order"},
    {"vbp item after settings", "App/App.vbp", "MajorVer=1\r\n",
     "MajorVer=1\r\nModule=modMain; modMain.bas\r\n", "contiguous"},
    {"vbp name differs", "App/App.vbp", "Module=modMain;", "Module=modMains;", "VB_Name is"},
    {"control of another project without Object line", "App/frmMain.frm",
     "Object = \"*\\A..\\Lib\\Lib.vbp\"\r\n", "", "needs an Object line"},
    {"reference to a missing project", "App/App.vbp", "Module=modMain;",
     "Object=*\\A..\\Tools\\Tools.vbp\r\nModule=modMain;", "not found"},
    {"setting without quotes", "App/App.vbp", "Startup=\"frmMain\"", "Startup=frmMain",
     "needs quotes"},
    {"unknown key in the main section", "App/App.vbp", "MajorVer=1\r\n",
     "MajorVer=1\r\nColour=Blue\r\n", "unknown key 'Colour'"},
    {"section without empty line", "App/App.vbp", "\r\n\r\n[MS", "\r\n[MS",
     "preceded by one empty line"},
}};

}  // namespace vbgen
