// A form and a document that write every event they get into a log, for event-order tests.
#pragma once

#include <string>
#include <vector>

#include "runtime/Runtime.h"
#include "runtime/UserDocument.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/TextBox.h"

namespace vbtest {

using Log = std::vector<std::string>;

class LoggingForm : public vb::Form {
 public:
  LoggingForm(vb::Runtime& runtime, Log& log, std::u16string name = u"frmLog")
      : Form(runtime, std::move(name)), log_(log) {
    cmdOK.Click = [this] {
      Add("cmdOK_Click");
      Unload();
    };
    txtName.KeyDown = [this](int& key, int) { Add("txtName_KeyDown " + std::to_string(key)); };
    txtName.KeyPress = [this](int& ascii) { Add("txtName_KeyPress " + std::to_string(ascii)); };
    txtName.KeyUp = [this](int& key, int) { Add("txtName_KeyUp " + std::to_string(key)); };
  }
  vb::CommandButton cmdOK{*this, u"cmdOK"};
  vb::TextBox txtName{*this, u"txtName"};
  int cancelQueryUnload = 0;
  int cancelUnload = 0;
  int swallowFormKey = 0;  // a key code the form's KeyDown zeroes

 protected:
  void Form_Initialize() override { Add("Initialize"); }
  void Form_Load() override { Add("Load"); }
  void Form_Activate() override { Add("Activate"); }
  void Form_Deactivate() override { Add("Deactivate"); }
  void Form_Resize() override { Add("Resize"); }
  void Form_QueryUnload(int& cancel, int mode) override {
    Add("QueryUnload " + std::to_string(mode));
    cancel = cancelQueryUnload;
  }
  void Form_Unload(int& cancel) override {
    Add("Unload");
    cancel = cancelUnload;
  }
  void Form_Terminate() override { Add("Terminate"); }
  void Form_KeyDown(int& key, int) override {
    Add("Form_KeyDown " + std::to_string(key));
    if (key == swallowFormKey) key = 0;
  }
  void Form_KeyPress(int& ascii) override { Add("Form_KeyPress " + std::to_string(ascii)); }
  void Form_KeyUp(int& key, int) override { Add("Form_KeyUp " + std::to_string(key)); }

 private:
  void Add(std::string entry) { log_.push_back(std::move(entry)); }
  Log& log_;
};

class LoggingDocument : public vb::UserDocument {
 public:
  LoggingDocument(vb::Runtime& runtime, Log& log) : UserDocument(runtime, u"docLog"), log_(log) {}

 protected:
  void UserDocument_Initialize() override { log_.push_back("Initialize"); }
  void UserDocument_Show() override { log_.push_back("Show"); }
  void UserDocument_Hide() override { log_.push_back("Hide"); }
  void UserDocument_Resize() override {
    log_.push_back("Resize " + std::to_string(static_cast<int>(ScaleWidth())));
  }
  void UserDocument_Terminate() override { log_.push_back("Terminate"); }

 private:
  Log& log_;
};

}  // namespace vbtest
