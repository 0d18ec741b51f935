#include "desktop/ficha/control_view.h"

#include <QWidget>

#include "desktop/ficha/button_view.h"
#include "desktop/ficha/choice_views.h"
#include "desktop/ficha/date_views.h"
#include "desktop/ficha/input_view.h"
#include "desktop/ficha/label_view.h"
#include "desktop/ficha/picture_view.h"
#include "desktop/ficha/table_control_views.h"
#include "desktop/look/text.h"

namespace desktop {

void ControlView::SetName(const QString& name) { widget()->setAccessibleName(name); }

void ControlView::Sync() {
  QWidget* shown = widget();
  const bool visible = IsShown();
  if (shown->isHidden() == visible) shown->setVisible(visible);
  const QString tip = PlainToolTip(ToQt(control_.ToolTipText));
  if (shown->toolTip() != tip) shown->setToolTip(tip);
  SyncContent();
}

/// Frames of pages that aren't turned to are hidden by the form; the widgets keep their places there, so that
/// the window is large enough for all pages from the start.
bool ControlView::IsShown() const {
  const bool elsewhere = tabs_ != nullptr && tabs_->Tab != page_;
  return control_.Visible && (control_.Container == nullptr || control_.Container->Visible || elsewhere);
}

std::unique_ptr<ControlView> MakeControlView(platform::Control& control, UserActs& acts, QWidget* parent) {
  if (auto* input = dynamic_cast<platform::zor_input*>(&control))
    return std::make_unique<InputView>(*input, acts, parent);
  if (auto* label = dynamic_cast<platform::Label*>(&control))
    return std::make_unique<LabelView>(*label, acts, parent);
  if (auto* button = dynamic_cast<platform::PushButton*>(&control))
    return std::make_unique<ButtonView>(*button, acts, parent);
  if (auto* box = dynamic_cast<platform::CheckBox*>(&control))
    return std::make_unique<CheckBoxView>(*box, acts, parent);
  if (auto* combo = dynamic_cast<platform::ComboBox*>(&control))
    return std::make_unique<ComboBoxView>(*combo, acts, parent);
  if (auto* tabs = dynamic_cast<platform::TabControl*>(&control))
    return std::make_unique<TabView>(*tabs, acts, parent);
  if (auto* picker = dynamic_cast<platform::DTPicker*>(&control))
    return std::make_unique<PickerView>(*picker, acts, parent);
  if (auto* month = dynamic_cast<platform::MonthView*>(&control))
    return std::make_unique<CalendarView>(*month, acts, parent);
  if (auto* grid = dynamic_cast<platform::SGGrid*>(&control))
    return std::make_unique<GridView>(*grid, acts, parent);
  if (auto* grid = dynamic_cast<platform::MSFlexGrid*>(&control))
    return std::make_unique<FlexGridView>(*grid, acts, parent);
  if (auto* picture = dynamic_cast<platform::ShowImg*>(&control))
    return std::make_unique<PictureView>(*picture, acts, parent);
  return nullptr;
}

}  // namespace desktop
