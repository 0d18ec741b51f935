#include "support/screen.h"

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>

namespace testing_support {
namespace {

using namespace platform;

std::string TextFor(const zor_input& field, int number) {
  if (field.formato_campo == zor_input::kInteiro) return std::to_string(1000 + number);
  if (field.formato_campo == zor_input::kNumero) return std::to_string(1000 + number) + ",25";
  std::string text = "t" + std::to_string(number);
  text.resize(std::max(text.size(), static_cast<std::size_t>(field.maxlength)), 'x');
  return text;
}

Date DateFor(const DTPicker& picker, int number) {
  const bool timed = picker.CustomFormat.find("hh") != std::string::npos;
  return Date::FromParts(2031, 1 + number % 12, 1 + number % 28, timed ? 9 : 0, timed ? 41 : 0);
}

void Fill(Form& form, Control& control, int number) {
  if (auto* field = dynamic_cast<zor_input*>(&control))
    EXPECT_TRUE(form.UserTypes(*field, TextFor(*field, number))) << NameOf(control);
  else if (auto* picker = dynamic_cast<DTPicker*>(&control))
    picker->Value = DateFor(*picker, number);
  else if (auto* choice = dynamic_cast<ComboBox*>(&control))
    choice->ListIndex = choice->ListIndex == 0 ? choice->ListCount() - 1 : 0;
  else if (auto* box = dynamic_cast<CheckBox*>(&control))
    box->Value = box->Value == 1 ? 0 : 1;
}

void Place(std::multiset<const Control*>& placed, const LayoutBlock& block) {
  placed.insert({block.grid, block.picture, block.calendar});
  placed.insert(block.buttons.begin(), block.buttons.end());
  for (const LayoutRow& row : block.rows)
    for (const LayoutField& place : row)
      placed.insert({place.caption, place.field, place.list, place.description});
}

}  // namespace

std::string NameOf(const Control& control) {
  const std::string index = std::to_string(control.Index());
  return control.Index() < 0 ? control.Name() : control.Name() + "(" + index + ")";
}

Screen ScreenOf(const Form& form) {
  Screen screen;
  for (const Control* control : form.Controls()) {
    const std::string name = NameOf(*control);
    if (const auto* field = dynamic_cast<const zor_input*>(control))
      screen[name] = field->Text;
    else if (const auto* picker = dynamic_cast<const DTPicker*>(control))
      screen[name] = picker->Value.IsNull() ? "NULL" : picker->Value.ToText();
    else if (const auto* choice = dynamic_cast<const ComboBox*>(control))
      screen[name] = std::to_string(choice->ListIndex);
    else if (const auto* box = dynamic_cast<const CheckBox*>(control))
      screen[name] = std::to_string(box->Value);
  }
  return screen;
}

void FillOut(Form& form, const Screen& given) {
  int number = 0;
  for (Control* control : form.Controls()) {
    ++number;
    const auto found = given.find(NameOf(*control));
    if (found != given.end())
      dynamic_cast<zor_input&>(*control).Text = found->second;
    else if (control->Enabled && NameOf(*control) != "Campo(0)")
      Fill(form, *control, number);
  }
}

std::vector<std::string> InColumns(const Screen& screen, const std::string& controls) {
  std::vector<std::string> row;
  std::istringstream names(controls);
  for (std::string name; names >> name;) {
    if (row.empty() && name != "0") {
      row.push_back(name);
      continue;
    }
    if (name[0] == '#')
      name.replace(0, 1, "DTPicker1(").append(")");
    else if (std::isdigit(static_cast<unsigned char>(name[0])) != 0)
      name.insert(0, "Campo(").append(")");
    row.push_back(screen.at(name));
  }
  return row;
}

void ExpectLimits(const Form& form, const Screen& typed, const zorCrmParvel::DataAccessRef& bd,
                  const std::string& statement, const std::map<std::string, int>& others) {
  RecordsetRef row;
  bd->AbrirLeitura("", statement.c_str(), row);
  const auto& fields = row->FieldList();
  for (const Control* control : form.Controls()) {
    const auto* field = dynamic_cast<const zor_input*>(control);
    const std::string name = NameOf(*control);
    if (field == nullptr || typed.at(name).empty()) continue;
    SCOPED_TRACE(name);
    if (field->Numeric()) {
      EXPECT_EQ(field->maxlength, others.count(name) ? others.at(name) : 10);
      continue;
    }
    std::size_t column = 0;
    while (column < fields.size() && row->CellAt(0, column).ToText() != typed.at(name)) ++column;
    ASSERT_LT(column, fields.size()) << "no column holds " << typed.at(name);
    EXPECT_EQ(field->maxlength, name == "Campo(0)" ? 10 : fields[column].definedSize);
  }
}

std::multiset<const Control*> Placed(const Form& form) {
  const Layout& layout = form.layout;
  std::multiset<const Control*> placed{layout.tabs};
  Place(placed, layout.head);
  for (const LayoutBlock& page : layout.pages) Place(placed, page);
  for (const auto* row : {&layout.navigation, &layout.tools, &layout.destructive, &layout.actions})
    placed.insert(row->begin(), row->end());
  placed.erase(nullptr);
  return placed;
}

}  // namespace testing_support
