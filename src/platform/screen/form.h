#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/screen/control.h"
#include "platform/screen/grid.h"
#include "platform/screen/layout.h"
#include "platform/screen/zor_input.h"

namespace platform {

/// A screen without a toolkit: controls, focus, leave validation and the queue of sent keys.
///
/// The model decides. A host tells what the user wants by the `User…` members and then shows what came of it:
/// texts, states, the control with the focus, whether the form is still open. Errors of handlers leave these
/// members as exceptions; the form stays usable. Keys sent by a handler are delivered after it has returned.
class Form {
 public:
  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  std::string Name;     // the class, as the catalogue of fichas has it
  std::string Caption;  // the window's title
  Layout layout;        // where a host puts the controls

  /// Runs `Form_Load` once. The focus goes to the first control that takes it.
  void Load();
  /// Loads, then hands the form to the host, which returns when the form has closed. Only fichas opened by
  /// the entry class have an owner.
  void ShowModal(Form* owner = nullptr);
  /// Ends the form; keys still to be delivered are dropped.
  void Unload();
  bool IsLoaded() const { return loaded_; }
  /// True once unloaded: the host ends its modal loop.
  bool IsClosed() const { return closed_; }

  /// In the tab order. The controls are the derived class's members.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// The one with the focus; null when no control takes it.
  Control* ActiveControl() const { return active_; }
  /// Tells the user something that needs no answer. It stands until the next act.
  void Notify(std::string text) { notice_ = std::move(text); }
  const std::string& Notice() const { return notice_; }
  /// Sends "{TAB}" or "+{TAB}", delivered after the running handler. Error 5 for other keys.
  void SendKeys(const std::string& keys);

  /// The user clicks or moves into a control. False when validation keeps the focus where it was.
  bool UserGoesTo(Control& control);
  void UserPresses(PushButton& button);
  /// A key on the control with the focus: one of `Key`. Where the control's handler has no use for it, Enter
  /// presses a button, opens a row, or goes on like Tab; Escape steps back.
  void UserKey(int key, bool shift = false);
  /// The field's text becomes `text`. False, and no change, when it is longer than the field takes.
  bool UserTypes(zor_input& field, const std::string& text);
  void UserToggles(CheckBox& box);
  void UserChooses(ComboBox& box, int index);
  void UserPicksDate(DTPicker& picker, const Variant& value);
  void UserClicksDate(MonthView& view, Date date);
  /// The user moves to another day of the calendar, and hasn't chosen it yet.
  void UserMovesToDate(MonthView& view, Date date);
  void UserSelectsTab(TabControl& tabs, int index);
  /// False when validation kept the focus elsewhere.
  bool UserSelectsRow(SGGrid& grid, long row);
  void UserDoubleClicks(SGGrid& grid, long row);
  void UserSelectsRow(MSFlexGrid& grid, int row);
  /// The user typed a text into the grid's editable column. False when it was refused.
  bool UserEditsCell(SGGrid& grid, long row, const std::string& text);
  /// A command of the grid's context menu, on a row.
  void UserCommands(SGGrid& grid, long row, long command);
  /// The window's own close button: a plain unload.
  void UserCloses() { Unload(); }

  /// The control that Tab (or Shift+Tab) goes to from another; null when none takes the focus.
  Control* Neighbour(const Control* from, bool backwards) const;

 protected:
  virtual void Form_Load() {}
  /// Moves a control in the tab order to the place before another.
  void TabBefore(Control& control, Control& next);

 private:
  friend class Control;
  class Handling;

  bool Leave(Control* to);
  void Focus(Control* control);
  void MoveFocus(bool backwards);
  void Settle();
  bool Objects(const Control* control);
  void Request(const zor_input& field, int key);
  void UnhandledKey(Control& control, int key);
  bool PressTab();
  void DeliverKeys();

  std::vector<Control*> controls_;
  Control* active_ = nullptr;
  std::deque<std::string> keys_;
  std::string notice_;
  int handling_ = 0;
  bool loaded_ = false;
  bool closed_ = false;
};

}  // namespace platform
