// The control tree read from a designer header: nesting, arrays, menus and property blocks.
#include <gtest/gtest.h>

#include <tuple>

#include "FilesTestSupport.h"
#include "host/files/ModuleFile.h"

namespace host::files {
namespace {

using testing::Cp1252;
using testing::Fixture;

ModuleFile Read(std::string_view bytes, ModuleKind kind) {
  Problems problems;
  ModuleFile module = ReadModule(bytes, kind, Cp1252(), "test", problems);
  EXPECT_TRUE(problems.empty());
  return module;
}

std::vector<std::u16string> Names(const DesignerControl& parent) {
  std::vector<std::u16string> names;
  for (const DesignerControl& child : parent.children) names.push_back(child.name);
  return names;
}

std::u16string Property(const DesignerControl& control, std::u16string_view name) {
  for (const auto& [key, value] : control.properties)
    if (key == name) return value;
  return u"<missing>";
}

TEST(FilesDesignerTree, FormHoldsItsControlsInZOrderWithMenusLast) {
  ModuleFile module = Read(Fixture("form.frm"), ModuleKind::Form);
  ASSERT_TRUE(module.designer);
  const DesignerControl& form = *module.designer;
  EXPECT_EQ(form.className, u"VB.Form");
  EXPECT_EQ(form.name, u"frmMain");
  EXPECT_EQ(form.index, -1);
  EXPECT_EQ(form.beginLine, 2);
  EXPECT_EQ(form.endLine, 66);
  EXPECT_EQ(module.header[66].bytes, "End");
  EXPECT_EQ(Names(form), (std::vector<std::u16string>{u"cmdAction", u"fraOptions", u"lvwItems",
                                                      u"cmdAction", u"mnuFile", u"mnuHelp"}));
  std::vector<std::u16string> keys;
  for (const auto& property : form.properties) keys.push_back(property.first);
  EXPECT_EQ(keys, (std::vector<std::u16string>{u"Caption", u"ClientHeight", u"ClientWidth", u"Font",
                                               u"LinkTopic", u"ScaleHeight", u"StartUpPosition"}));
  EXPECT_EQ(Property(form, u"StartUpPosition"), u"3  'Windows Default");
  EXPECT_EQ(Property(form, u"Caption"), u"\"Main\"");
}

TEST(FilesDesignerTree, ControlArrayElementsKeepTheirIndexWhereverTheyStand) {
  ModuleFile module = Read(Fixture("form.frm"), ModuleKind::Form);
  const auto& children = module.designer->children;
  EXPECT_EQ(children[0].index, 0);
  EXPECT_EQ(children[3].index, 1);
  EXPECT_EQ(Property(children[3], u"Caption"), u"\"Cancel\"");
  EXPECT_EQ(children[1].index, -1);
  // Each block's lines are where the file has them.
  for (const DesignerControl& child : children) {
    EXPECT_TRUE(module.header[child.beginLine].bytes.ends_with(" ")) << child.beginLine;
    EXPECT_EQ(module.header[child.endLine].bytes, "   End");
  }
}

TEST(FilesDesignerTree, ContainersNestTheirChildren) {
  ModuleFile module = Read(Fixture("form.frm"), ModuleKind::Form);
  const DesignerControl& frame = module.designer->children[1];
  EXPECT_EQ(frame.className, u"VB.Frame");
  EXPECT_EQ(Names(frame), (std::vector<std::u16string>{u"chkOne", u"picInner"}));
  const DesignerControl& picture = frame.children[1];
  ASSERT_EQ(picture.children.size(), 1u);
  const DesignerControl& label = picture.children[0];
  EXPECT_EQ(label.name, u"lblDeep");
  EXPECT_EQ(Property(label, u"Caption"), u"$\"frmMain.frx\":0000");
  EXPECT_EQ(module.header[label.beginLine].bytes, "         Begin VB.Label lblDeep ");
}

TEST(FilesDesignerTree, APropertyBlockIsOneEntryAndItsInsideIsNotReadAsProperties) {
  ModuleFile module = Read(Fixture("form.frm"), ModuleKind::Form);
  const DesignerControl& list = module.designer->children[2];
  EXPECT_EQ(list.className, u"MSComctlLib.ListView");
  ASSERT_EQ(list.properties.size(), 3u);
  EXPECT_EQ(list.properties[2].first, u"ColumnHeaders");
  EXPECT_EQ(list.properties[2].second, u"{0713E8C7-850A-101B-AFC0-4210102A8DA7} NumListImages=1");
  EXPECT_EQ(Property(list, u"Text"), u"<missing>");
  EXPECT_TRUE(list.children.empty());
}

TEST(FilesDesignerTree, MenusNestForSubmenus) {
  ModuleFile module = Read(Fixture("form.frm"), ModuleKind::Form);
  const DesignerControl& file = module.designer->children[4];
  EXPECT_TRUE(file.IsMenu());
  EXPECT_EQ(Names(file), (std::vector<std::u16string>{u"mnuFileOpen", u"mnuFileRecent"}));
  EXPECT_EQ(Property(file.children[0], u"Shortcut"), u"^O");
  const DesignerControl& recent = file.children[1];
  ASSERT_EQ(recent.children.size(), 1u);
  EXPECT_EQ(recent.children[0].name, u"mnuFileRecentItem");
  EXPECT_EQ(recent.children[0].index, 0);
}

TEST(FilesDesignerTree, AMenuWrittenBeforeAControlIsStillListedAfterIt) {
  std::string bytes =
      "VERSION 5.00\r\nBegin VB.Form F \r\n   Begin VB.Menu mnuA \r\n   End\r\n"
      "   Begin VB.Label lblB \r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
  ModuleFile module = Read(bytes, ModuleKind::Form);
  EXPECT_EQ(Names(*module.designer), (std::vector<std::u16string>{u"lblB", u"mnuA"}));
  EXPECT_EQ(module.designer->children[1].beginLine, 2);
  EXPECT_EQ(WriteModule(module, Cp1252()), bytes);
}

TEST(FilesDesignerTree, DesignerFilesKeepTheirNestedPropertyBlocksOutOfTheTree) {
  ModuleFile module = Read(Fixture("designer.dsr"), ModuleKind::Designer);
  ASSERT_TRUE(module.designer);
  const DesignerControl& root = *module.designer;
  EXPECT_EQ(root.className, u"{C0E45035-5775-11D0-B388-00A0C9055D8E}");
  EXPECT_EQ(root.name, u"deMain");
  EXPECT_TRUE(root.children.empty());
  EXPECT_EQ(Property(root, u"Connection1"), u"{C0E45036-5775-11D0-B388-00A0C9055D8E}");
  // The property after the three nested blocks belongs to the root again.
  EXPECT_EQ(root.properties.back().first, u"OLEDBString");
  EXPECT_EQ(root.properties.back().second, u"$\"deMain.dsx\":0000");
  EXPECT_EQ(Property(root, u"Name"), u"<missing>");
}

TEST(FilesDesignerTree, ValuesKeepEqualsSignsAndQuotesAsWritten) {
  std::string bytes =
      "VERSION 5.00\r\nBegin VB.Form F \r\n   Tag             =   \"a = b\"\r\n"
      "   Index           =   -3\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
  ModuleFile module = Read(bytes, ModuleKind::Form);
  EXPECT_EQ(Property(*module.designer, u"Tag"), u"\"a = b\"");
  EXPECT_EQ(module.designer->index, -3);
}

TEST(FilesDesignerTree, OnlyDesignerKindsHaveOne) {
  EXPECT_FALSE(Read(Fixture("class.cls"), ModuleKind::Class).designer);
  EXPECT_FALSE(Read(Fixture("standard.bas"), ModuleKind::Standard).designer);
  for (auto [file, kind, cls] :
       {std::tuple{"control.ctl", ModuleKind::UserControl, u"VB.UserControl"},
        std::tuple{"page.pag", ModuleKind::PropertyPage, u"VB.PropertyPage"},
        std::tuple{"document.dob", ModuleKind::UserDocument, u"VB.UserDocument"},
        std::tuple{"mdi.frm", ModuleKind::MdiForm, u"VB.MDIForm"}}) {
    ModuleFile module = Read(Fixture(file), kind);
    ASSERT_TRUE(module.designer) << file;
    EXPECT_EQ(module.designer->className, cls) << file;
  }
}

}  // namespace
}  // namespace host::files
