#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "platform/screen/form.h"

class QWidget;

namespace desktop {

class BackgroundReader;

/// What a view of a control asks of the window it is in. The user's acts go to the form; the window then
/// shows what came of them.
class UserActs {
 public:
  virtual ~UserActs() = default;
  virtual platform::Form& form() = 0;
  /// Runs one act, shows its error, and brings all views in step with the form.
  virtual void Act(const std::function<void()>& act) = 0;
  /// The act of pressing a button.
  virtual void Press(platform::PushButton& button) = 0;
  /// True while views are being brought in step: changes of widgets are then no acts of the user.
  virtual bool IsSyncing() const = 0;
  /// Shows a short text that nobody has to answer; the next act takes it away.
  virtual void Notice(const QString& text) = 0;
  /// What reads away from the window's thread; null where nothing does.
  virtual BackgroundReader* Reader() const = 0;
};

/// The widget that shows one control of a form. The control is the authority: the view tells what the user
/// does to it and shows what the control then holds.
class ControlView : public QObject {
 public:
  ControlView(platform::Control& control, UserActs& acts) : control_(control), acts_(acts) {}

  platform::Control& control() const { return control_; }
  /// What is laid out; owned by the window.
  virtual QWidget* widget() const = 0;
  /// What has the keyboard when the control has the focus.
  virtual QWidget* focusWidget() const { return widget(); }
  /// Tells those who can't see it what the control is called.
  virtual void SetName(const QString& name);
  /// Shows what the control holds.
  void Sync();
  /// Tells that the control stands on a page of tabs.
  void SetPage(const platform::TabControl* tabs, int page) {
    tabs_ = tabs;
    page_ = page;
  }

 protected:
  virtual void SyncContent() = 0;
  UserActs& acts() const { return acts_; }
  bool IsActive() const { return acts_.form().ActiveControl() == &control_; }

 private:
  bool IsShown() const;

  platform::Control& control_;
  UserActs& acts_;
  const platform::TabControl* tabs_ = nullptr;
  int page_ = 0;
};

/// The view for a control of any kind; null for frames and for kinds that are nothing to look at.
std::unique_ptr<ControlView> MakeControlView(platform::Control& control, UserActs& acts, QWidget* parent);

}  // namespace desktop
