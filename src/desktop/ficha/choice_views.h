#pragma once

#include "desktop/ficha/control_view.h"

class QCheckBox;
class QComboBox;
class QTabWidget;

namespace desktop {

class CheckBoxView : public ControlView {
 public:
  CheckBoxView(platform::CheckBox& box, UserActs& acts, QWidget* parent);
  QWidget* widget() const override;

 protected:
  void SyncContent() override;

 private:
  platform::CheckBox& box_;
  QCheckBox* shown_;
};

class ComboBoxView : public ControlView {
 public:
  ComboBoxView(platform::ComboBox& combo, UserActs& acts, QWidget* parent);
  QWidget* widget() const override;

 protected:
  void SyncContent() override;

 private:
  platform::ComboBox& combo_;
  QComboBox* shown_;
};

/// Pages under captions; the layout of the form fills the pages.
class TabView : public ControlView {
 public:
  TabView(platform::TabControl& tabs, UserActs& acts, QWidget* parent);
  QWidget* widget() const override;
  QWidget* focusWidget() const override;
  QTabWidget* tabs() const { return shown_; }

 protected:
  void SyncContent() override;

 private:
  platform::TabControl& tabs_;
  QTabWidget* shown_;
};

}  // namespace desktop
