#include "support/transcript.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "support/errors.h"
#include "support/grid_window.h"
#include "support/sample_fleet.h"
#include "support/screen.h"
#include "support/state_text.h"

namespace testing_support {
namespace {

using namespace platform;
using State = std::map<std::string, std::string>;

std::vector<std::string> StoredIn(const zorCrmParvel::DataAccessRef& bd) {
  std::vector<std::string> rows;
  for (const tsql::Table& table : Tables().tables()) {
    if (table.name.rfind("parvel_", 0) == 0) continue;
    for (const auto& cells : Rows(bd, "SELECT * FROM " + table.name)) {
      rows.push_back(table.name);
      for (const std::string& cell : cells) rows.back() += "|" + cell;
    }
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

std::string Missing(const std::vector<std::string>& from, const std::vector<std::string>& in, char sign) {
  std::vector<std::string> rows;
  std::set_difference(from.begin(), from.end(), in.begin(), in.end(), std::back_inserter(rows));
  std::string text;
  for (const std::string& row : rows) text += std::string("    ") + sign + " " + row + "\n";
  return text;
}

std::string Changes(const State& before, const State& after) {
  std::string text;
  for (const auto& [name, shown] : after)
    if (const auto found = before.find(name); found == before.end() || found->second != shown)
      text.append(text.empty() ? "" : "; ").append(name).append(": ").append(shown);
  return text.empty() ? "" : "    ecrã " + text + "\n";
}

std::string WithoutDigits(std::string text) {
  std::erase_if(text, [](char c) { return c >= '0' && c <= '9'; });
  return text;
}

}  // namespace

Transcript::Transcript() { NewFleet(); }

void Transcript::NewFleet() {
  bd_ = MakeRef<RecordingDataAccess>(MemoryDatabase());
  AddSampleFleet(bd_);
  if (sample_.empty()) sample_ = StoredIn(bd_);
  bd_->statements.clear();
}

std::string Transcript::Happened() {
  std::string happened;
  std::string last;
  for (const std::string& statement : bd_->statements) {
    // A loop's statements differ in their numbers; the first tells them all.
    if (const std::string form = WithoutDigits(statement); form != std::exchange(last, form))
      happened += "    > " + OneLine(statement) + "\n";
  }
  happened += host_.log;
  host_.log.clear();
  if (bd_->statements.empty()) return happened;
  const auto rows = StoredIn(bd_);
  const std::string changes = Missing(sample_, rows, '-') + Missing(rows, sample_, '+');
  bd_->statements.clear();
  if (!changes.empty()) NewFleet();
  return happened + changes;
}

void Transcript::Write(const std::string& label, const std::string& happened) {
  const auto [known, isNew] = known_.emplace(happened, label);
  if (isNew || happened.size() < 200)
    text += "  " + label + "\n" + happened;
  else
    text += "  " + label + " como em «" + known->second + "»\n";
}

void Transcript::Act(const std::string& name, const std::function<void()>& act) {
  bd_->statements.clear();
  const std::string error = ErrorOf(act);
  Write(name + (error.empty() ? "" : " ! " + error), Happened());
}

void Transcript::Describe(const Form& form) {
  text += "= " + form.Name + " «" + form.Caption + "»\n";
  shown_ = StateOf(form);
  for (const Control* control : form.Controls())
    text += "  " + NameOf(*control) + ": " + shown_.at(NameOf(*control)) + KindOf(*control) + "\n";
}

void Transcript::Do(const Open& open, int tab, std::size_t place, const std::string& name,
                    const std::function<void(Form&, Control&)>& act) {
  const auto form = open();
  if (tab > 0) form->UserSelectsTab(dynamic_cast<TabControl&>(*form->layout.tabs), tab);
  Control& control = *form->Controls()[place];
  form->UserGoesTo(control);
  const Control* const from = form->ActiveControl();
  const State before = StateOf(*form);
  bd_->statements.clear();
  host_.log.clear();
  const std::string error = ErrorOf([&] { act(*form, control); });
  std::string happened = Changes(before, StateOf(*form));
  happened += form->Notice().empty() ? "" : "    nota: " + form->Notice() + "\n";
  happened += Happened();
  std::string label = name;
  if (form->ActiveControl() != from) label += "→" + NameOf(*form->ActiveControl());
  label += form->IsClosed() ? " fecha" : "";
  if (happened.empty() && error.empty())
    line_ += " " + label;
  else
    Write(NameOf(control) + " " + label + (error.empty() ? "" : " ! " + OneLine(error)), happened);
}

void Transcript::DoList(zorCrmParvel::ICrmVwList& list) {
  GridWindow window;
  SGGrid& grid = window.grid;
  Act("Iniciar", [&] { window.Start(list); });
  const std::string once = SetUpOf(grid);
  text += once + "\n    " + RowsOf(grid) + "\n";
  window.Start(list);
  text += SetUpOf(grid) == once ? "" : "de novo:\n" + SetUpOf(grid) + "\n";
  PopUpMenu menu;
  for (const long command : {900L, 901L, 902L, 800L}) menu.Add(command, std::to_string(command));
  list.ICrmVwList_BeforePopUpViewListEdit(menu);
  for (const MenuItem& item : menu.Items())
    text += "    " + std::to_string(item.id) + " " + item.caption + (item.visible ? "" : " invisível") +
            (item.enabled ? "\n" : " fechado\n");
  const auto verb = [&](const std::string& name, const std::function<void(GridRow&)>& act) {
    if (grid.RowCount() == 0) return;
    window.Start(list);
    const long row = grid.RowCount() > 1 ? 1 : 0;
    GridRow chosen = grid.RowAt(row);
    Act(name, [&] { act(chosen); });
    text += "    " + RowsOf(grid) + "\n";
  };
  verb("Novo", [&](GridRow&) { list.ICrmVwList_Novo(); });
  verb("Editar", [&](GridRow& row) { list.ICrmVwList_Editar(&row); });
  verb("Remover", [&](GridRow& row) { list.ICrmVwList_Remover(&row); });
  verb("comando", [&](GridRow& row) {
    grid.SetRow(row.number());
    menu.Command = menu.Items().back().id;
    list.ICrmVwList_ExecutePopUpViewListEdit(menu);
  });
}

void Transcript::DoControl(const Open& open, int tab, std::size_t place, bool types) {
  const auto sample = open();
  const Control& control = *sample->Controls()[place];
  const auto act = [&](const std::string& name, const std::function<void(Form&, Control&)>& what) {
    host_.asked = false;
    Do(open, tab, place, name, what);
    if (!host_.asked) return;
    host_.answer = kCancel;
    Do(open, tab, place, name + " (Cancelar)", what);
    host_.answer = kOk;
  };
  if (dynamic_cast<const PushButton*>(&control) != nullptr)
    act("carrega", [](Form& form, Control& c) { form.UserPresses(dynamic_cast<PushButton&>(c)); });
  else
    act("Enter", [](Form& form, Control&) { form.UserKey(kKeyEnter); });
  act("Escape", [](Form& form, Control&) { form.UserKey(kKeyEscape); });
  if (dynamic_cast<const zor_input*>(&control) != nullptr) {
    for (const auto& [key, name] : {std::pair{kKeyF3, "F3"}, {kKeyF4, "F4"}, {kKeyF7, "F7"}})
      act(name, [key = key](Form& form, Control&) { form.UserKey(key); });
    for (const char* typed : {"", "7", "0,004"})
      if (const auto& field = dynamic_cast<const zor_input&>(control); types && field.Fits(typed))
        act(std::string("'") + typed + "'",
            [typed](Form&, Control& c) { Enter(dynamic_cast<zor_input&>(c), typed); });
  }
  if (dynamic_cast<const DTPicker*>(&control) != nullptr && types)
    for (const Variant& date : {Variant(Date::FromParts(2023, 1, 31)), Variant(Variant::Null{})})
      act(date.IsNull() ? "nada" : "data",
          [&](Form& form, Control& c) { form.UserPicksDate(dynamic_cast<DTPicker&>(c), date); });
  if (dynamic_cast<const CheckBox*>(&control) != nullptr)
    act("marca", [](Form& form, Control& c) { form.UserToggles(dynamic_cast<CheckBox&>(c)); });
  if (const auto* box = dynamic_cast<const ComboBox*>(&control))
    act("escolhe", [other = box->ListIndex == 0 ? box->ListCount() - 1 : 0](Form& form, Control& c) {
      form.UserChooses(dynamic_cast<ComboBox&>(c), other);
    });
  if (dynamic_cast<const SGGrid*>(&control) != nullptr)
    for (const long row : {0L, 1L})
      act("linha " + std::to_string(row),
          [row](Form& form, Control& c) { form.UserSelectsRow(dynamic_cast<SGGrid&>(c), row); });
}

void Transcript::DoEverything(const Open& open, Acts acts) {
  const auto probe = open();
  const std::string focus = probe->ActiveControl() == nullptr ? "-" : NameOf(*probe->ActiveControl());
  const State before = std::exchange(shown_, StateOf(*probe));
  text += " " + focus + "\n" + Changes(before, shown_);
  const int tabs = std::max(1, static_cast<int>(probe->layout.pages.size()));
  for (int tab = 0; tab < tabs; ++tab) {
    if (tab > 0) probe->UserSelectsTab(dynamic_cast<TabControl&>(*probe->layout.tabs), tab);
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < probe->Controls().size(); ++place) {
      const Control& control = *probe->Controls()[place];
      const bool wanted = acts != Acts::kButtons || dynamic_cast<const PushButton*>(&control) != nullptr;
      if (wanted && control.CanFocus() && (tab == 0 || control.Container != nullptr)) places.push_back(place);
    }
    for (const std::size_t place : places) {
      line_.clear();
      DoControl(open, tab, place, acts == Acts::kAll);
      if (!line_.empty()) text += "  " + NameOf(*probe->Controls()[place]) + line_ + "\n";
    }
  }
}

}  // namespace testing_support
