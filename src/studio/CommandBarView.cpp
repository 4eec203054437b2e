// studio::CommandBarView.
#include "studio/CommandBarView.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

#include "studio/QtText.h"

namespace studio {
namespace {

// The shortcuts VB6 users know, for the built-in items that carry them.
struct Shortcut {
  host::IdeCommand command;
  const char* keys;
};
constexpr Shortcut kShortcuts[] = {
    {host::IdeCommand::Open, "Ctrl+O"},          {host::IdeCommand::Save, "Ctrl+S"},
    {host::IdeCommand::Undo, "Ctrl+Z"},          {host::IdeCommand::Find, "Ctrl+F"},
    {host::IdeCommand::ViewCode, "F7"},          {host::IdeCommand::ViewObject, "Shift+F7"},
    {host::IdeCommand::ViewImmediate, "Ctrl+G"}, {host::IdeCommand::ViewProject, "Ctrl+R"},
    {host::IdeCommand::ViewProperties, "F4"},    {host::IdeCommand::Start, "F5"},
    {host::IdeCommand::StepInto, "F8"},
};

QKeySequence ShortcutFor(std::u16string_view tag) {
  for (auto& s : kShortcuts)
    if (host::CommandTag(s.command) == tag) return QKeySequence(QString::fromLatin1(s.keys));
  return {};
}

// The built-in buttons carry no face of their own; the toolkit's usual pictures stand in, so
// the Standard toolbar looks like one.
struct StandardFace {
  host::IdeCommand command;
  QStyle::StandardPixmap pixmap;
};
constexpr StandardFace kStandardFaces[] = {
    {host::IdeCommand::Open, QStyle::SP_DialogOpenButton},
    {host::IdeCommand::Save, QStyle::SP_DialogSaveButton},
    {host::IdeCommand::Cut, QStyle::SP_DialogDiscardButton},
    {host::IdeCommand::Copy, QStyle::SP_FileIcon},
    {host::IdeCommand::Paste, QStyle::SP_DialogApplyButton},
    {host::IdeCommand::Find, QStyle::SP_FileDialogContentsView},
    {host::IdeCommand::Start, QStyle::SP_MediaPlay},
    {host::IdeCommand::End, QStyle::SP_MediaStop},
    {host::IdeCommand::ViewProject, QStyle::SP_DirIcon},
    {host::IdeCommand::ViewProperties, QStyle::SP_FileDialogDetailedView},
};

QIcon StandardFaceFor(std::u16string_view tag, const QStyle& style) {
  for (auto& face : kStandardFaces)
    if (host::CommandTag(face.command) == tag) return style.standardIcon(face.pixmap);
  return {};
}

// Every kind of bar control keeps its pasted face in the shared base.
template <class Interface>
QIcon FaceOf(const vbide::CommandBarControlPtr& control) {
  auto* own = dynamic_cast<host::BarControl<Interface>*>(control.get());
  return own && own->Face() ? ToIcon(*own->Face()) : QIcon();
}

Qt::ToolBarArea AreaOf(int position) {
  switch (position) {
    case vbide::msoBarLeft:
      return Qt::LeftToolBarArea;
    case vbide::msoBarRight:
      return Qt::RightToolBarArea;
    case vbide::msoBarBottom:
      return Qt::BottomToolBarArea;
    default:
      return Qt::TopToolBarArea;
  }
}

}  // namespace

CommandBarView::CommandBarView(QMainWindow& window, std::shared_ptr<host::CommandBars> bars,
                               Guard guard)
    : QObject(&window), window_(window), bars_(std::move(bars)), guard_(std::move(guard)) {
  changed_ = bars_->Context().changed.Subscribe([this] { ScheduleRebuild(); });
}

CommandBarView::~CommandBarView() = default;

void CommandBarView::SetCommand(host::IdeCommand ide, std::function<void()> command) {
  commands_[std::u16string(host::CommandTag(ide))] = std::move(command);
}

void CommandBarView::AddExtraAction(const std::u16string& menuName, QAction* action) {
  extras_.emplace(menuName, action);
}

void CommandBarView::ScheduleRebuild() {
  // The model changes in bursts (an add-in adds a dozen controls); one redraw per burst, and
  // never while a drawn widget is still delivering the click that caused the change.
  if (recording_ > 0 || pending_) return;
  pending_ = true;
  QTimer::singleShot(0, this, [this] {
    if (pending_ && actionDepth_ == 0) Rebuild();
  });
}

void CommandBarView::RunUserAction(const std::function<void()>& action) {
  ++actionDepth_;
  guard_(action);
  --actionDepth_;
  if (actionDepth_ == 0 && pending_) {
    pending_ = false;
    ScheduleRebuild();
  }
}

void CommandBarView::Rebuild() {
  pending_ = false;
  ++rebuilds_;
  BuildMenuBar();
  BuildToolBars();
}

void CommandBarView::BuildMenuBar() {
  QMenuBar* menuBar = window_.menuBar();
  for (QAction* action : menuBar->actions()) {
    if (QMenu* menu = action->menu()) {
      for (QAction* extra : menu->actions())
        if (extra->parent() != menu) menu->removeAction(extra);  // ours outlive the menu
      menu->deleteLater();
    }
  }
  menuBar->clear();
  auto main = bars_->MenuBar();
  if (!main || !main->Visible()) return;
  for (auto& control : main->ControlList()->Items()) AddControl(nullptr, nullptr, control);
}

void CommandBarView::AddControl(QMenu* menu, QToolBar* toolBar,
                                const vbide::CommandBarControlPtr& control) {
  if (!control->Visible()) return;
  if (control->BeginGroup()) {
    if (menu && !menu->isEmpty()) menu->addSeparator();
    if (toolBar && !toolBar->actions().isEmpty()) toolBar->addSeparator();
  }
  if (auto popup = std::dynamic_pointer_cast<host::CommandBarPopup>(control)) {
    QWidget* owner = menu ? static_cast<QWidget*>(menu) : window_.menuBar();
    auto* sub = new QMenu(ToQt(popup->Caption()), owner);
    sub->setIcon(FaceOf<vbide::CommandBarControl>(control));
    sub->setEnabled(popup->Enabled());
    if (auto bar = popup->Bar()) FillMenu(*sub, *bar);
    if (menu)
      menu->addMenu(sub);
    else if (toolBar)
      toolBar->addAction(sub->menuAction());
    else
      window_.menuBar()->addMenu(sub);
    return;
  }
  if (auto combo = std::dynamic_pointer_cast<host::CommandBarComboBox>(control)) {
    if (toolBar) AddComboBox(*toolBar, combo);
    return;
  }
  auto button = std::dynamic_pointer_cast<host::CommandBarButton>(control);
  if (!button) return;
  QObject* parent = menu ? static_cast<QObject*>(menu) : static_cast<QObject*>(toolBar);
  QAction* action = MakeButtonAction(parent, button);
  // A key bound twice is ambiguous to Qt and does nothing: the menu item keeps the shortcut.
  if (!menu) action->setShortcut({});
  if (action->icon().isNull() && toolBar)
    action->setIcon(StandardFaceFor(button->Tag(), *window_.style()));
  if (menu) menu->addAction(action);
  if (toolBar) toolBar->addAction(action);
}

void CommandBarView::FillMenu(QMenu& menu, host::CommandBar& bar) {
  for (auto& control : bar.ControlList()->Items()) AddControl(&menu, nullptr, control);
  auto [first, last] = extras_.equal_range(bar.Name());
  if (first != last) menu.addSeparator();
  for (auto it = first; it != last; ++it) menu.addAction(it->second);
}

QAction* CommandBarView::MakeButtonAction(QObject* parent,
                                          const std::shared_ptr<host::CommandBarButton>& button) {
  auto* action = new QAction(ToQt(button->Caption()), parent);
  action->setIcon(FaceOf<vbide::CommandBarControl>(button));
  action->setEnabled(button->Enabled());
  std::u16string tip = button->ToolTipText();
  action->setToolTip(ToQt(tip.empty() ? host::StripAccessKey(button->Caption()) : tip));
  std::u16string tag = button->Tag();
  action->setShortcut(ShortcutFor(tag));
  std::weak_ptr<host::CommandBarButton> weak = button;
  connect(action, &QAction::triggered, this, [this, weak, tag] {
    auto pressed = weak.lock();
    if (!pressed || !pressed->Alive()) return;
    RunUserAction([&] { pressed->Click(); });
    if (auto it = commands_.find(tag); it != commands_.end()) RunUserAction(it->second);
  });
  return action;
}

void CommandBarView::AddComboBox(QToolBar& toolBar,
                                 const std::shared_ptr<host::CommandBarComboBox>& combo) {
  auto* box = new QComboBox(&toolBar);
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  for (int i = 1; i <= combo->ListCount(); ++i) box->addItem(ToQt(combo->List(i)));
  box->setCurrentIndex(combo->ListIndex() - 1);
  box->setEditText(ToQt(combo->Text()));
  if (combo->Width() > 0) box->setFixedWidth(combo->Width());
  box->setToolTip(ToQt(combo->ToolTipText()));
  box->setEnabled(combo->Enabled());
  std::weak_ptr<host::CommandBarComboBox> weak = combo;
  // Enter in the box commits what was typed; Qt may then also report an activation of a
  // matching entry, which is the same commit and must not reach the add-in twice.
  auto typedCommit = std::make_shared<bool>(false);
  connect(box->lineEdit(), &QLineEdit::returnPressed, this, [this, weak, box, typedCommit] {
    auto target = weak.lock();
    if (!target || !target->Alive()) return;
    *typedCommit = true;
    std::u16string typed = FromQt(box->currentText());
    RunUserAction([&] { target->CommitTyped(typed); });
    QTimer::singleShot(0, this, [typedCommit] { *typedCommit = false; });
  });
  connect(box, &QComboBox::activated, this, [this, weak, typedCommit](int index) {
    auto target = weak.lock();
    if (*typedCommit || !target || !target->Alive()) return;
    RunUserAction([&] { target->Pick(index + 1); });
  });
  toolBar.addWidget(box);
}

void CommandBarView::BuildToolBars() {
  for (QToolBar* toolBar : toolBars_) {
    window_.removeToolBar(toolBar);
    toolBar->deleteLater();
  }
  toolBars_.clear();
  std::vector<std::shared_ptr<host::CommandBar>> shown;
  for (auto& item : bars_->Items()) {
    auto bar = std::static_pointer_cast<host::CommandBar>(item);
    if (!bar->IsMenu() && bar->Visible()) shown.push_back(bar);
  }
  // Rows top to bottom, and within a row from the left, as the bars were docked.
  std::stable_sort(shown.begin(), shown.end(), [](auto& a, auto& b) {
    return std::pair(a->RowIndex(), a->Left()) < std::pair(b->RowIndex(), b->Left());
  });
  for (auto& bar : shown) {
    auto* toolBar = new QToolBar(ToQt(bar->Name()), &window_);
    toolBar->setObjectName(ToQt(bar->Name()));
    toolBar->setIconSize(QSize(16, 16));
    toolBar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    for (auto& control : bar->ControlList()->Items()) AddControl(nullptr, toolBar, control);
    PlaceToolBar(*toolBar, *bar);
    toolBars_.push_back(toolBar);
  }
}

void CommandBarView::PlaceToolBar(QToolBar& toolBar, host::CommandBar& bar) {
  if (bar.Position() == vbide::msoBarFloating) {
    // Qt has no call that floats a toolbar; a tool window holding it looks and acts the same:
    // a title and a close button, nothing to minimise or maximise.
    toolBar.setParent(&window_, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                    Qt::WindowCloseButtonHint);
    toolBar.setWindowTitle(ToQt(bar.Name()));
    // Drawn again after every change to the bars; showing it must not take the keyboard from
    // the code window the user is typing in.
    toolBar.setAttribute(Qt::WA_ShowWithoutActivating);
    toolBar.setProperty("qmBar", ToQt(bar.Name()));
    toolBar.adjustSize();
    toolBar.setFixedSize(toolBar.sizeHint());
    // A floating bar's Left and Top are screen places, as the IDE's are.
    toolBar.move(bar.Left(), bar.Top());
    toolBar.installEventFilter(this);
    toolBar.show();
    return;
  }
  Qt::ToolBarArea area = AreaOf(bar.Position());
  bool newRow = false;
  for (QToolBar* other : toolBars_)
    if (window_.toolBarArea(other) == area && other->property("qmRow").toInt() != bar.RowIndex())
      newRow = true;
  if (newRow) window_.addToolBarBreak(area);
  toolBar.setProperty("qmRow", bar.RowIndex());
  window_.addToolBar(area, &toolBar);
}

bool CommandBarView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Move)
    if (auto* toolBar = qobject_cast<QToolBar*>(watched); toolBar && toolBar->isVisible())
      RecordFloatingPlace(*toolBar);
  return QObject::eventFilter(watched, event);
}

void CommandBarView::RecordFloatingPlace(QToolBar& toolBar) {
  std::u16string name = FromQt(toolBar.property("qmBar").toString());
  for (auto& item : bars_->Items()) {
    auto bar = std::static_pointer_cast<host::CommandBar>(item);
    if (bar->Name() != name || bar->Position() != vbide::msoBarFloating) continue;
    QPoint place = toolBar.pos();
    if (bar->Left() == place.x() && bar->Top() == place.y()) return;
    ++recording_;
    bar->SetLeft(place.x());
    bar->SetTop(place.y());
    --recording_;
    return;
  }
}

bool CommandBarView::OpenMenu(QChar key) {
  QChar wanted = key.toLower();
  for (QAction* action : window_.menuBar()->actions()) {
    QString text = action->text();
    qsizetype amp = text.indexOf(u'&');
    while (amp >= 0 && amp + 1 < text.size() && text[amp + 1] == u'&')
      amp = text.indexOf(u'&', amp + 2);
    if (amp < 0 || amp + 1 >= text.size() || text[amp + 1].toLower() != wanted) continue;
    window_.menuBar()->setActiveAction(action);
    return true;
  }
  return false;
}

QToolBar* CommandBarView::ToolBarNamed(const QString& name) const {
  for (QToolBar* toolBar : toolBars_)
    if (toolBar->objectName() == name) return toolBar;
  return nullptr;
}

}  // namespace studio
