// Forward declarations of the IDE's object model and the shared-pointer names used for them.
#pragma once

#include <memory>

namespace vbide {

class VBE;
class VBProjects;
class VBProject;
class VBComponents;
class VBComponent;
class CodeModule;
class CodePanes;
class CodePane;
class Members;
class Member;
class VBForm;
class VBControls;
class VBControl;
class ControlObject;
class Windows;
class Window;
class CommandBars;
class CommandBar;
class CommandBarControls;
class CommandBarControl;
class CommandBarComboBox;
class Events;
class VBProjectsEvents;
class VBComponentsEvents;
class VBControlsEvents;
class CommandBarEvents;
class Addins;
class AddIn;
class IDTExtensibility;

// Objects are handed out as shared pointers, the counterpart of COM references: an object the
// add-in holds stays valid after it leaves its collection, and using it then raises error 91.
using VBEPtr = std::shared_ptr<VBE>;
using VBProjectsPtr = std::shared_ptr<VBProjects>;
using VBProjectPtr = std::shared_ptr<VBProject>;
using VBComponentsPtr = std::shared_ptr<VBComponents>;
using VBComponentPtr = std::shared_ptr<VBComponent>;
using CodeModulePtr = std::shared_ptr<CodeModule>;
using CodePanesPtr = std::shared_ptr<CodePanes>;
using CodePanePtr = std::shared_ptr<CodePane>;
using MembersPtr = std::shared_ptr<Members>;
using MemberPtr = std::shared_ptr<Member>;
using VBFormPtr = std::shared_ptr<VBForm>;
using VBControlsPtr = std::shared_ptr<VBControls>;
using VBControlPtr = std::shared_ptr<VBControl>;
using ControlObjectPtr = std::shared_ptr<ControlObject>;
using WindowsPtr = std::shared_ptr<Windows>;
using WindowPtr = std::shared_ptr<Window>;
using CommandBarsPtr = std::shared_ptr<CommandBars>;
using CommandBarPtr = std::shared_ptr<CommandBar>;
using CommandBarControlsPtr = std::shared_ptr<CommandBarControls>;
using CommandBarControlPtr = std::shared_ptr<CommandBarControl>;
using CommandBarComboBoxPtr = std::shared_ptr<CommandBarComboBox>;
using EventsPtr = std::shared_ptr<Events>;
using VBProjectsEventsPtr = std::shared_ptr<VBProjectsEvents>;
using VBComponentsEventsPtr = std::shared_ptr<VBComponentsEvents>;
using VBControlsEventsPtr = std::shared_ptr<VBControlsEvents>;
using CommandBarEventsPtr = std::shared_ptr<CommandBarEvents>;
using AddinsPtr = std::shared_ptr<Addins>;
using AddInPtr = std::shared_ptr<AddIn>;

}  // namespace vbide
