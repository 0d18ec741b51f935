#include "desktop/ficha/form_layout.h"

#include <QGridLayout>
#include <QLabel>
#include <QTabWidget>
#include <algorithm>

#include "desktop/ficha/button_view.h"
#include "desktop/ficha/choice_views.h"
#include "desktop/ficha/ficha_area.h"
#include "desktop/ficha/label_view.h"
#include "desktop/look/look.h"

namespace desktop {
namespace {

using platform::Control;
using platform::Label;
using platform::Layout;
using platform::LayoutBlock;
using platform::LayoutField;
using platform::LayoutRow;
using platform::PushButton;

bool IsEmpty(const LayoutBlock& block) {
  return block.grid == nullptr && block.calendar == nullptr && block.picture == nullptr &&
         block.rows.empty() && block.buttons.empty();
}

bool IsEmpty(const Layout& layout) {
  return IsEmpty(layout.head) && layout.tabs == nullptr && layout.navigation.empty() &&
         layout.tools.empty() && layout.destructive.empty() && layout.actions.empty();
}

/// One control a row, a label before the control that follows it, buttons at the bottom.
Layout PlainColumn(const std::vector<Control*>& controls) {
  Layout layout;
  Label* caption = nullptr;
  for (Control* control : controls) {
    if (auto* label = dynamic_cast<Label*>(control)) {
      caption = label;
    } else if (auto* button = dynamic_cast<PushButton*>(control)) {
      layout.actions.push_back(button);
    } else if (dynamic_cast<platform::Frame*>(control) == nullptr &&
               dynamic_cast<platform::TabControl*>(control) == nullptr) {
      layout.head.rows.push_back({LayoutField{.caption = caption, .field = control}});
      caption = nullptr;
    }
  }
  return layout;
}

bool HoldsNotes(const LayoutField& field) {
  const auto* input = dynamic_cast<const platform::zor_input*>(field.field);
  return input != nullptr && input->tipo_campo == 1;
}

/// Fields that may grow to the right, and with the window.
bool Grows(const QWidget* widget) { return widget->maximumWidth() > widget->minimumWidth(); }

}  // namespace

FormLayout::FormLayout(UserActs& acts, QWidget* window) : acts_(acts), window_(window) {}

template <typename View>
View* FormLayout::Make(Control* control, QWidget* parent) {
  std::unique_ptr<ControlView> view = MakeControlView(*control, acts_, parent);
  auto* made = dynamic_cast<View*>(view.get());
  if (view && page_ >= 0) view->SetPage(acts_.form().layout.tabs, page_);
  if (view) views_.push_back(std::move(view));
  return made;
}

QWidget* FormLayout::Plain(Control* control, QWidget* parent) {
  auto* view = Make<ControlView>(control, parent);
  return view != nullptr ? view->widget() : nullptr;
}

void FormLayout::Build(QLabel* notice, QWidget* line) {
  const Layout& given = acts_.form().layout;
  const Layout layout = IsEmpty(given) ? PlainColumn(acts_.form().Controls()) : given;
  auto* column = new QVBoxLayout(window_);
  const int margin = WideGap(window_);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(window_));

  column->addWidget(Content(layout), 1);
  AlignCaptions();
  column->addWidget(line);
  column->addWidget(notice);
  column->addLayout(ButtonRow(layout));
}

/// All that stands above the buttons.
QWidget* FormLayout::Content(const Layout& layout) {
  auto* area = new FichaArea(window_);
  auto* content = new QWidget(area);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Gap(window_));
  area->setWidget(content);  // which asks for its size, and had better do so before there is anything to keep
  if (!IsEmpty(layout.head)) column->addLayout(Block(layout.head, content), layout.tabs == nullptr ? 1 : 0);
  if (layout.tabs != nullptr) column->addWidget(Tabs(layout, content), 1);
  return area;
}

QWidget* FormLayout::Tabs(const Layout& layout, QWidget* parent) {
  QTabWidget* tabs = Make<TabView>(layout.tabs, parent)->tabs();
  for (std::size_t i = 0; i < layout.tabs->Captions.size(); ++i) {
    auto* page = new QWidget(tabs);
    page_ = static_cast<int>(i);
    QLayout* content = Block(i < layout.pages.size() ? layout.pages[i] : LayoutBlock{}, page);
    content->setContentsMargins(0, WideGap(window_), 0, 0);
    page->setLayout(content);
    tabs->addTab(page, QString::fromStdString(layout.tabs->Captions[i]));
  }
  page_ = -1;
  return tabs;
}

QLayout* FormLayout::Block(const LayoutBlock& block, QWidget* parent) {
  auto* column = new QVBoxLayout;
  column->setSpacing(WideGap(window_));
  auto* sides = new QHBoxLayout;
  sides->setSpacing(WideGap(window_));
  at_left_ = block.grid == nullptr || block.fieldsFirst;
  if (block.fieldsFirst) sides->addLayout(Fields(block, parent), 2);
  if (block.grid != nullptr) sides->addWidget(Grid(block.grid, parent), 3);
  if (block.calendar != nullptr) sides->addWidget(Plain(block.calendar, parent), 0, Qt::AlignTop);
  if (!block.rows.empty() && !block.fieldsFirst)
    sides->addLayout(Fields(block, parent), block.grid != nullptr ? 2 : 3);
  if (block.picture != nullptr) sides->addLayout(Picture(block, parent));
  column->addLayout(sides, 1);
  if (block.picture == nullptr && !block.buttons.empty()) column->addLayout(Buttons(block.buttons, parent));
  return column;
}

/// A grid is called as its page, or its window.
QWidget* FormLayout::Grid(Control* grid, QWidget* parent) {
  const platform::Form& form = acts_.form();
  auto* view = Make<ControlView>(grid, parent);
  view->SetName(QString::fromStdString(
      page_ >= 0 ? form.layout.tabs->Captions[static_cast<std::size_t>(page_)] : form.Caption));
  return view->widget();
}

/// A picture with the buttons of its block below it.
QLayout* FormLayout::Picture(const LayoutBlock& block, QWidget* parent) {
  auto* column = new QVBoxLayout;
  column->setSpacing(Gap(window_));
  column->addWidget(Plain(block.picture, parent), 1);
  if (!block.buttons.empty()) column->addLayout(Buttons(block.buttons, parent));
  return column;
}

QLayout* FormLayout::Fields(const LayoutBlock& block, QWidget* parent) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(WideGap(window_));
  grid->setVerticalSpacing(Gap(window_));
  std::size_t widest = 1;
  for (const LayoutRow& row : block.rows) widest = std::max(widest, row.size());
  const int columns = static_cast<int>(widest) * 2;
  int line = 0;
  bool grows = false;
  for (const LayoutRow& row : block.rows) {
    Row(row, line, columns, *grid, parent);
    const bool notes = std::any_of(row.begin(), row.end(), &HoldsNotes);
    grid->setRowStretch(line++, notes ? 1 : 0);
    grows = grows || notes;
  }
  grid->setColumnStretch(columns - 1, 1);
  if (!grows) grid->setRowStretch(line, 1);
  return grid;
}

void FormLayout::Row(const LayoutRow& row, int line, int columns, QGridLayout& grid, QWidget* parent) {
  int column = 0;
  for (std::size_t i = 0; i < row.size(); ++i, column += 2) {
    if (row[i].caption != nullptr) {
      QWidget* caption = Plain(row[i].caption, parent);
      if (column == 0 && at_left_) captions_.push_back(caption);
      grid.addWidget(caption, line, column,
                     Qt::AlignLeft | (HoldsNotes(row[i]) ? Qt::AlignTop : Qt::AlignVCenter));
    }
    const bool last = i + 1 == row.size();
    grid.addLayout(Field(row[i], parent), line, column + 1, 1, last ? columns - column - 1 : 1);
  }
}

QLayout* FormLayout::Field(const LayoutField& field, QWidget* parent) {
  auto* cell = new QHBoxLayout;
  cell->setSpacing(Gap(window_) / 3);
  bool grows = field.description != nullptr;
  if (field.field != nullptr) {
    auto* view = Make<ControlView>(field.field, parent);
    QWidget* shown = view->widget();
    if (field.caption != nullptr) view->SetName(QString::fromStdString(field.caption->Caption));
    const bool wide = Grows(shown) && shown->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding;
    cell->addWidget(shown, wide && !grows ? 1 : 0);
    grows = grows || wide;
  }
  if (field.list != nullptr) {
    auto* list = Make<ButtonView>(field.list, parent);
    list->MakeListButton();
    cell->addWidget(list->widget());
  }
  if (field.description != nullptr) {
    auto* description = Make<LabelView>(field.description, parent);
    description->MakeDescription();
    cell->addSpacing(Gap(window_));
    cell->addWidget(description->widget(), 1);
  }
  if (!grows) cell->addStretch(1);
  return cell;
}

QLayout* FormLayout::Buttons(const std::vector<PushButton*>& buttons, QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->setSpacing(Gap(window_));
  for (PushButton* button : buttons) row->addWidget(Plain(button, parent));
  row->addStretch(1);
  return row;
}

QLayout* FormLayout::ButtonRow(const Layout& layout) {
  auto* row = new QHBoxLayout;
  row->setSpacing(Gap(window_));
  auto* arrows = new QHBoxLayout;
  arrows->setSpacing(Gap(window_) / 3);
  for (std::size_t i = 0; i < layout.navigation.size(); ++i) {
    auto* arrow = Make<ButtonView>(layout.navigation[i], window_);
    arrow->MakeArrow(i);
    arrows->addWidget(arrow->widget());
  }
  row->addLayout(arrows);
  for (PushButton* tool : layout.tools) row->addWidget(Plain(tool, window_));
  row->addSpacing(WideGap(window_) * 2);
  row->addStretch(1);
  for (PushButton* button : layout.destructive) row->addWidget(Plain(button, window_));
  if (!layout.destructive.empty()) row->addSpacing(WideGap(window_));
  for (PushButton* button : layout.actions) {
    auto* action = Make<ButtonView>(button, window_);
    if (button == layout.accent) action->MakeAccent();
    row->addWidget(action->widget());
  }
  return row;
}

void FormLayout::AlignCaptions() {
  int widest = 0;
  for (QWidget* caption : captions_) {
    const auto* label = qobject_cast<QLabel*>(caption);
    for (const auto& view : views_)
      if (view->widget() == caption) view->Sync();
    if (label != nullptr) widest = std::max(widest, label->sizeHint().width());
  }
  for (QWidget* caption : captions_) caption->setMinimumWidth(widest);
}

}  // namespace desktop
