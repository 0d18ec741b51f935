#pragma once

#include <map>
#include <memory>
#include <vector>

#include "desktop/ficha/control_view.h"

class QGridLayout;
class QLabel;
class QLayout;

namespace desktop {

/// Lays a form's controls out by its own description: captions in one column, fields in the next, both
/// aligned through the whole window. A form without a description gets a plain column of its controls.
class FormLayout {
 public:
  /// The views are made here and belong to the caller.
  FormLayout(UserActs& acts, QWidget* window);

  /// Builds everything into the window's layout; `notice` gets its line above the buttons.
  void Build(QLabel* notice, QWidget* line);
  std::vector<std::unique_ptr<ControlView>> TakeViews() { return std::move(views_); }

 private:
  template <typename View>
  View* Make(platform::Control* control, QWidget* parent);
  QWidget* Plain(platform::Control* control, QWidget* parent);

  QLayout* Block(const platform::LayoutBlock& block, QWidget* parent);
  QWidget* Grid(platform::Control* grid, QWidget* parent);
  QLayout* Picture(const platform::LayoutBlock& block, QWidget* parent);
  QLayout* Fields(const platform::LayoutBlock& block, QWidget* parent);
  void Row(const platform::LayoutRow& row, int line, int columns, QGridLayout& grid, QWidget* parent);
  QLayout* Field(const platform::LayoutField& field, QWidget* parent);
  QLayout* Buttons(const std::vector<platform::PushButton*>& buttons, QWidget* parent);
  QWidget* Content(const platform::Layout& layout);
  QWidget* Tabs(const platform::Layout& layout, QWidget* parent);
  QLayout* ButtonRow(const platform::Layout& layout);
  void AlignCaptions();

  UserActs& acts_;
  QWidget* window_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::vector<QWidget*> captions_;  // of the first column of all blocks that begin at the left
  bool at_left_ = true;
  int page_ = -1;  // of the tabs, while it is laid out
};

}  // namespace desktop
