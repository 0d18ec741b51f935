#pragma once

#include <vector>

#include "platform/screen/control.h"

namespace platform {

class SGGrid;

/// How a form lays its controls out, told without a toolkit. Null members are left out.
struct LayoutField {
  Label* caption = nullptr;
  Control* field = nullptr;
  PushButton* list = nullptr;    // close at the field's right
  Label* description = nullptr;  // the name that a code stands for, behind the field
};

/// Fields side by side; most rows hold one.
using LayoutRow = std::vector<LayoutField>;

/// A grid at the left, rows of fields at the right (or the other way round, or the one that there is over the
/// whole width), buttons below.
struct LayoutBlock {
  Control* grid = nullptr;
  ShowImg* picture = nullptr;
  MonthView* calendar = nullptr;  // beside the grid
  std::vector<LayoutRow> rows;
  bool fieldsFirst = false;  // the rows at the left, the grid at the right
  std::vector<PushButton*> buttons;
};

/// A form from top to bottom: head, pages under tabs, one row of buttons. The controls stay the form's.
struct Layout {
  LayoutBlock head;
  TabControl* tabs = nullptr;
  std::vector<LayoutBlock> pages;        // one a tab
  std::vector<PushButton*> navigation;   // left of the button row: first, previous, next, last
  std::vector<PushButton*> tools;        // then these
  std::vector<PushButton*> destructive;  // apart from the buttons that confirm
  std::vector<PushButton*> actions;      // at the right
  PushButton* accent = nullptr;          // the main one of the actions
};

}  // namespace platform
