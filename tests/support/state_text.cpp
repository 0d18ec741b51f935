#include "support/state_text.h"

#include <sstream>

#include "support/screen.h"

namespace testing_support {

using namespace platform;

std::string RowsOf(const SGGrid& grid) {
  std::string rows = std::to_string(grid.RowCount()) + "@" + std::to_string(grid.Row());
  for (long row = 0; row < grid.RowCount(); ++row) {
    std::string cells;
    bool empty = true;
    for (std::size_t i = 0; i < grid.Columns().size(); ++i) {
      const std::string cell = grid.CellText(row, i);
      empty = empty && cell.empty();
      cells += "|" + cell;
    }
    const GridStyle* style = grid.StyleOf(row);
    if (!empty) rows += " /" + cells + (style == nullptr ? "" : " " + style->name);
  }
  return rows;
}

namespace {

std::string Shown(const Control& control) {
  if (const auto* field = dynamic_cast<const zor_input*>(&control))
    return field->DisplayText() == field->Text ? field->Text : field->Text + " = " + field->DisplayText();
  if (const auto* picker = dynamic_cast<const DTPicker*>(&control))
    return picker->Value.IsNull() ? "NULL" : picker->Value.ToText();
  if (const auto* box = dynamic_cast<const ComboBox*>(&control)) return std::to_string(box->ListIndex);
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return std::to_string(box->Value);
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption;
  if (const auto* tabs = dynamic_cast<const TabControl*>(&control)) return std::to_string(tabs->Tab);
  if (const auto* grid = dynamic_cast<const SGGrid*>(&control)) return RowsOf(*grid);
  if (const auto* view = dynamic_cast<const MonthView*>(&control)) return view->Value.ToText();
  if (const auto* picture = dynamic_cast<const ShowImg*>(&control))
    return picture->Shown().empty() ? "" : "x";
  return "";
}

}  // namespace

std::string KindOf(const Control& control) {
  std::ostringstream text;
  if (control.Container != nullptr) text << " em " << NameOf(*control.Container);
  if (!control.ToolTipText.empty()) text << " dica «" << control.ToolTipText << "»";
  if (!control.TabStop) text << " sem Tab";
  if (!control.CausesValidation) text << " sem validar";
  if (const auto* button = dynamic_cast<const PushButton*>(&control)) text << " «" << button->Caption << "»";
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) text << " «" << box->Caption << "»";
  if (const auto* picker = dynamic_cast<const DTPicker*>(&control))
    text << " " << picker->CustomFormat << (picker->Optional ? " opcional" : "");
  if (const auto* field = dynamic_cast<const zor_input*>(&control))
    text << " " << field->maxlength << " " << field->formato_campo << " " << field->tipo_campo << " "
         << field->formato;
  if (const auto* tabs = dynamic_cast<const TabControl*>(&control))
    for (const std::string& caption : tabs->Captions) text << " " << caption << ";";
  if (const auto* box = dynamic_cast<const ComboBox*>(&control))
    for (const std::string& entry : box->List) text << " " << entry << ";";
  if (const auto* grid = dynamic_cast<const SGGrid*>(&control)) text << "\n" << SetUpOf(*grid);
  return text.str();
}

std::map<std::string, std::string> StateOf(const Form& form) {
  std::map<std::string, std::string> state;
  for (const Control* control : form.Controls()) {
    std::string& text = state[NameOf(*control)];
    text = Shown(*control);
    if (!control->Enabled) text += " (fechado)";
    if (!control->Visible) text += " (escondido)";
  }
  return state;
}

std::string SetUpOf(const SGGrid& grid) {
  std::ostringstream text;
  for (const GridColumn& c : grid.Columns())
    text << "    coluna " << c.key << " «" << c.caption << "» " << c.width << " " << c.dataType << " "
         << c.cellAlignment << " " << c.headingAlignment << " " << c.format << (c.option ? " o" : "")
         << (c.hidden ? " oculta " : " ") << c.mark << " " << c.textLimit << "\n";
  for (const GridStyle& s : grid.Styles())
    text << "    estilo " << s.name << " " << std::hex << s.color.value_or(0) << std::dec << " " << s.fontName
         << " " << s.fontSize << (s.bold ? " negro " : " ") << s.alignment << "\n";
  text << "    " << grid.Setting << (grid.Redraw ? "" : " sem desenho") << " " << grid.EditableColumn;
  return text.str();
}

}  // namespace testing_support
