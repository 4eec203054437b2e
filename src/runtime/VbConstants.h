// VB's named constants that the form engine and its callers use (vbModal, vbYes, vbKeyEscape ...).
#pragma once

namespace vb {

// Show
inline constexpr int vbModeless = 0;
inline constexpr int vbModal = 1;

// MsgBox buttons, icons and default buttons
inline constexpr int vbOKOnly = 0;
inline constexpr int vbOKCancel = 1;
inline constexpr int vbAbortRetryIgnore = 2;
inline constexpr int vbYesNoCancel = 3;
inline constexpr int vbYesNo = 4;
inline constexpr int vbRetryCancel = 5;
inline constexpr int vbCritical = 16;
inline constexpr int vbQuestion = 32;
inline constexpr int vbExclamation = 48;
inline constexpr int vbInformation = 64;
inline constexpr int vbDefaultButton1 = 0;
inline constexpr int vbDefaultButton2 = 256;
inline constexpr int vbDefaultButton3 = 512;

// MsgBox answers
inline constexpr int vbOK = 1;
inline constexpr int vbCancel = 2;
inline constexpr int vbAbort = 3;
inline constexpr int vbRetry = 4;
inline constexpr int vbIgnore = 5;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;

// Shift states and mouse buttons
inline constexpr int vbShiftMask = 1;
inline constexpr int vbCtrlMask = 2;
inline constexpr int vbAltMask = 4;
inline constexpr int vbLeftButton = 1;
inline constexpr int vbRightButton = 2;
inline constexpr int vbMiddleButton = 4;

// Key codes (the Windows virtual-key codes)
inline constexpr int vbKeyBack = 8;
inline constexpr int vbKeyTab = 9;
inline constexpr int vbKeyReturn = 13;
inline constexpr int vbKeyEscape = 27;
inline constexpr int vbKeySpace = 32;
inline constexpr int vbKeyEnd = 35;
inline constexpr int vbKeyHome = 36;
inline constexpr int vbKeyLeft = 37;
inline constexpr int vbKeyUp = 38;
inline constexpr int vbKeyRight = 39;
inline constexpr int vbKeyDown = 40;
inline constexpr int vbKeyDelete = 46;
inline constexpr int vbKeyA = 65;
inline constexpr int vbKeyF1 = 112;
inline constexpr int vbKeyF5 = 116;

// CheckBox values
inline constexpr int vbUnchecked = 0;
inline constexpr int vbChecked = 1;
inline constexpr int vbGrayed = 2;

// QueryUnload modes
inline constexpr int vbFormControlMenu = 0;
inline constexpr int vbFormCode = 1;
inline constexpr int vbAppWindows = 2;
inline constexpr int vbAppTaskManager = 3;
inline constexpr int vbFormMDIForm = 4;
inline constexpr int vbFormOwner = 5;

// ComboBox styles
inline constexpr int vbComboDropdown = 0;
inline constexpr int vbComboSimple = 1;
inline constexpr int vbComboDropdownList = 2;

// WindowState and MousePointer
inline constexpr int vbNormal = 0;
inline constexpr int vbMinimized = 1;
inline constexpr int vbMaximized = 2;
inline constexpr int vbDefault = 0;
inline constexpr int vbHourglass = 11;

// List-view sort orders
inline constexpr int lvwAscending = 0;
inline constexpr int lvwDescending = 1;

}  // namespace vb
