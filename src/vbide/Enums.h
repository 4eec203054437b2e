// The numeric codes of the IDE's object model, with VBIDE's and Office's own names.
#pragma once

namespace vbide {

enum vbext_ProjectType : int {
  vbext_pt_StandardExe = 0,
  vbext_pt_ActiveXExe = 1,
  vbext_pt_ActiveXDll = 2,
  vbext_pt_ActiveXControl = 3,
};

enum vbext_ComponentType : int {
  vbext_ct_StdModule = 1,
  vbext_ct_ClassModule = 2,
  vbext_ct_MSForm = 3,
  vbext_ct_ResFile = 4,
  vbext_ct_VBForm = 5,
  vbext_ct_VBMDIForm = 6,
  vbext_ct_PropPage = 7,
  vbext_ct_UserControl = 8,
  vbext_ct_DocObject = 9,
  vbext_ct_RelatedDocument = 10,
  vbext_ct_ActiveXDesigner = 11,
};

enum vbext_ProcKind : int {
  vbext_pk_Proc = 0,
  vbext_pk_Let = 1,
  vbext_pk_Set = 2,
  vbext_pk_Get = 3,
};

enum vbext_MemberType : int {
  vbext_mt_Method = 1,
  vbext_mt_Property = 2,
  vbext_mt_Variable = 3,
  vbext_mt_Event = 4,
  vbext_mt_Const = 5,
};

enum vbext_Scope : int {
  vbext_Private = 1,
  vbext_Public = 2,
  vbext_Friend = 3,
};

enum vbext_WindowType : int {
  vbext_wt_CodeWindow = 0,
  vbext_wt_Designer = 1,
  vbext_wt_Browser = 2,
  vbext_wt_Watch = 3,
  vbext_wt_Locals = 4,
  vbext_wt_Immediate = 5,
  vbext_wt_ProjectWindow = 6,
  vbext_wt_PropertyWindow = 7,
  vbext_wt_Find = 8,
  vbext_wt_FindReplace = 9,
  vbext_wt_Toolbox = 10,
  vbext_wt_LinkedWindowFrame = 11,
  vbext_wt_MainWindow = 12,
  vbext_wt_ToolWindow = 15,
};

enum ext_ConnectMode : int {
  ext_cm_AfterStartup = 0,
  ext_cm_Startup = 1,
  ext_cm_External = 2,
  ext_cm_CommandLine = 3,
};

enum ext_DisconnectMode : int {
  ext_dm_HostShutdown = 0,
  ext_dm_UserClosed = 1,
};

enum MsoControlType : int {
  msoControlButton = 1,
  msoControlEdit = 2,
  msoControlDropdown = 3,
  msoControlComboBox = 4,
  msoControlPopup = 10,
};

enum MsoBarPosition : int {
  msoBarLeft = 0,
  msoBarTop = 1,
  msoBarRight = 2,
  msoBarBottom = 3,
  msoBarFloating = 4,
  msoBarPopup = 5,
  msoBarMenuBar = 6,
};

// Bit flags.
enum MsoBarProtection : int {
  msoBarNoProtection = 0,
  msoBarNoCustomize = 1,
  msoBarNoResize = 2,
  msoBarNoMove = 4,
  msoBarNoChangeVisible = 8,
  msoBarNoChangeDock = 16,
  msoBarNoVerticalDock = 32,
  msoBarNoHorizontalDock = 64,
};

}  // namespace vbide
