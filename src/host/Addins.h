// host::Addins and host::AddIn: the add-ins the IDE knows and the connected instances.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Liveness.h"
#include "vbide/AddIn.h"
#include "vbide/Extensibility.h"

namespace host {

class Ide;

class AddIn final : public vbide::AddIn {
 public:
  AddIn(std::weak_ptr<Ide> ide, std::u16string progId, std::u16string description)
      : ide_(std::move(ide)), progId_(std::move(progId)), description_(std::move(description)) {}

  std::u16string ProgId() override { return progId_; }
  std::u16string Description() override { return description_; }
  bool Connect() override { return instance_ != nullptr; }
  void SetConnect(bool connect) override;
  vbide::AddinsPtr Collection() override;

  // The connected instance and how it was connected (for OnStartupComplete).
  const std::shared_ptr<vbide::IDTExtensibility>& Instance() const { return instance_; }
  vbide::ext_ConnectMode Mode() const { return mode_; }
  void Connected(std::shared_ptr<vbide::IDTExtensibility> instance, vbide::ext_ConnectMode mode) {
    instance_ = std::move(instance);
    mode_ = mode;
  }
  void Disconnected() { instance_.reset(); }

 private:
  std::weak_ptr<Ide> ide_;
  std::u16string progId_;
  std::u16string description_;
  std::shared_ptr<vbide::IDTExtensibility> instance_;
  vbide::ext_ConnectMode mode_ = vbide::ext_cm_AfterStartup;
};

class Addins final : public vbide::Addins {
 public:
  int Count() override { return static_cast<int>(items_.size()); }
  vbide::AddInPtr Item(int index) override;
  vbide::AddInPtr Item(std::u16string_view progId) override;
  std::vector<vbide::AddInPtr> Items() override;

  std::shared_ptr<AddIn> Find(std::u16string_view progId) const;
  void Add(std::shared_ptr<AddIn> addIn) { items_.push_back(std::move(addIn)); }
  const std::vector<std::shared_ptr<AddIn>>& List() const { return items_; }

 private:
  std::vector<std::shared_ptr<AddIn>> items_;
};

}  // namespace host
