// quillmark::frmAbout.
#include "addin/frmAbout.h"

#include "runtime/AppInfo.h"
#include "runtime/FileSystem.h"
#include "runtime/Resources.h"
#include "runtime/Shell.h"
#include "runtime/Utf.h"
#include "runtime/VbStrings.h"

namespace quillmark {
namespace {

constexpr int kLinkIndex = 4;
constexpr std::uint32_t kPressedColour = 0xFF0000;  // pure blue, as &H00BBGGRR
constexpr std::uint32_t kLinkColour = 0x800000;     // navy
constexpr std::intptr_t kShellFailed = 32;          // results of 32 or less are failures
constexpr int kShowNormal = 1;
constexpr std::u16string_view kTempPage = u"qthtml.htm";
constexpr std::u16string_view kPicture = u"Search";  // the product's magnifier

}  // namespace

frmAbout::frmAbout(mdlMain& main) : Form(main.Rt(), u"frmAbout"), main_(main) {
  SetCaption(u"About Quillmark Tools");
  SetBorderStyle(3);  // fixed dialog
  cmdClose.SetCaption(u"Close");
  cmdClose.SetCancel(true);
  cmdClose.Click = [this] { cmdClose_Click(); };
  lblInfo(2).SetCaption(u"Productivity tools for Visual Basic 6 programmers.");
  lblInfo(3).SetCaption(u"Web page:");
  // The box as the designer placed it, in twips.
  Move(0, 0, 5175, 2775);
  Image1.Move(240, 240, 480, 480);
  lblInfo(0).Move(960, 240, 3975, 255);
  lblInfo(1).Move(960, 540, 3975, 255);
  lblInfo(2).Move(960, 900, 3975, 255);
  lblInfo(3).Move(960, 1320, 855, 255);
  lblInfo(4).Move(1860, 1320, 3075, 255);
  cmdClose.Move(3720, 1860, 1215, 375);
  lblInfo.Wire(&vb::Control::Click, [this](int index) { lblInfo_Click(index); });
  lblInfo.Wire(&vb::Control::MouseDown,
               [this](int index, int, int, float, float) { lblInfo_MouseDown(index); });
  lblInfo.Wire(&vb::Control::MouseUp,
               [this](int index, int, int, float, float) { lblInfo_MouseUp(index); });
}

void frmAbout::Form_Load() {
  auto& app = main_.Rt().App();
  lblInfo(0).SetCaption(u"Quillmark Tools for Visual Basic");
  lblInfo(1).SetCaption(u"Version " + vb::CStr(static_cast<std::int64_t>(app.Major())) + u"." +
                        vb::CStr(static_cast<std::int64_t>(app.Minor())) + u"." +
                        vb::CStr(static_cast<std::int64_t>(app.Revision())));
  lblInfo(kLinkIndex).SetCaption(std::u16string(kWebPage));
  lblInfo(kLinkIndex).SetForeColor(kLinkColour);
  Image1.SetPicture(main_.Rt().GetResources().LoadResPicture(kPicture));
}

void frmAbout::cmdClose_Click() {
  Unload();
}

void frmAbout::lblInfo_MouseDown(int index) {
  if (index == kLinkIndex) lblInfo(kLinkIndex).SetForeColor(kPressedColour);
}

void frmAbout::lblInfo_MouseUp(int index) {
  if (index == kLinkIndex) lblInfo(kLinkIndex).SetForeColor(kLinkColour);
}

void frmAbout::lblInfo_Click(int index) {
  if (index != kLinkIndex) return;
  auto& rt = main_.Rt();
  // The page exists only so that the shell names the program registered for ".htm" files; the
  // address goes to that program directly. A folder that cannot be written ends the click here.
  std::u16string page = rt.App().Path() + u"/" + std::u16string(kTempPage);
  rt.Files().WriteFile(page, "<HTML> <\\HTML>\r\n");
  std::u16string program;
  std::intptr_t found = rt.GetShell().FindExecutable(page, u"", program);
  program = vb::Trim(program);
  if (found <= kShellFailed) {
    rt.MsgBox(u"Could not find associated Browser", vb::vbExclamation, u"Browser Not Found");
  } else if (rt.GetShell().ShellExecute(hWnd(), u"open", program, kWebPage, u"", kShowNormal) <=
             kShellFailed) {
    rt.MsgBox(u"Web Page not Opened", vb::vbExclamation, u"URL Failed");
  }
  rt.Files().Kill(page);
}

}  // namespace quillmark
