// What holds for every ficha that the catalogue knows.
#include <algorithm>
#include <cctype>
#include <map>
#include <memory>

#include "events/event_form.h"
#include "host/form_catalog.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/grid_window.h"
#include "support/sample_fleet.h"
#include "support/screen.h"
#include "support/writing_host.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

constexpr const char* kFichas[] = {
    "Viaturas",    "Motoristas",  "Multas",     "Inspecoes", "Acessorios",   "Sinistros",       "Seguros",
    "Revisoes",    "Gastos",      "Categorias", "Modelos",   "TiposManut",   "TiposAcessorios", "Companhias",
    "TiposSeguro", "TiposGastos", "Viagens",    "Marcas",    "Departamentos"};

std::vector<std::string> All() {
  std::vector<std::string> names(std::begin(kFichas), std::end(kFichas));
  names.insert(names.end(), {"frmArquivo", "frm_Attach"});
  return names;
}

/// The sample fleet, and a host that goes on whatever is asked.
class FichasTest : public testing::Test {
 protected:
  FichasTest() { NewFleet(); }

  void NewFleet() {
    bd = MemoryDatabase();
    AddSampleFleet(bd);
  }
  std::unique_ptr<Ficha> New(const std::string& name) const {
    auto form = FormCatalog::Shared().Make(name);
    form->mybd = bd;
    form->Load();
    return form;
  }
  /// A new ficha on the n-th record.
  std::unique_ptr<Ficha> Opened(const std::string& name, int n) const {
    auto form = New(name);
    if (auto* event = dynamic_cast<EventForm*>(form.get()))
      event->Carrega(n);
    else
      form->Chamar(name == "Viaturas" ? "CarregaViatura" : "CarregaFicha", std::string(1, "ABC"[n - 1]));
    return form;
  }

  WritingHost host;
  Sistema sistema;
  DataAccessRef bd;
};

TEST_F(FichasTest, WhatIsTypedAndSavedComesBackInANewFichaAndFitsItsColumns) {
  // Numbers that aren't ten characters wide.
  const std::map<std::string, int> widths = {
      {"Campo(24)", 4}, {"Campo(19)", 12}, {"Campo(21)", 12}, {"Campo(22)", 12}};
  for (const std::string name : kFichas) {
    SCOPED_TRACE(name);
    NewFleet();
    const auto form = Opened(name, 2);
    auto& confirm = Find<platform::PushButton>(*form, "btConf");
    form->UserGoesTo(confirm);
    FillOut(*form, name == "Viaturas" ? Screen{{"Campo(9)", ""}} : Screen{});  // the sector has no column
    const Screen typed = ScreenOf(*form);
    Press(confirm);
    EXPECT_EQ(ScreenOf(*Opened(name, 2)), typed);
    const tsql::Table& table = Tables().Get(name == "Motoristas" ? "zor_Funcionarios" : "zor_PV_" + name);
    ExpectLimits(*form, typed, bd,
                 "SELECT * FROM " + table.name + " WHERE " + table.columns[0].name + "='" +
                     (table.columns[0].identity ? "2" : "B") + "'",
                 name == "Viaturas" ? widths : std::map<std::string, int>{});
  }
}

TEST_F(FichasTest, EveryControlHasOnePlaceOnTheScreen) {
  for (const char* name : kFichas) {
    SCOPED_TRACE(name);
    const auto form = New(name);
    const auto placed = Placed(*form);
    for (const platform::Control* control : form->Controls()) {
      const bool drawn = control->Visible && dynamic_cast<const platform::Frame*>(control) == nullptr;
      EXPECT_TRUE(!drawn || placed.count(control) == 1) << NameOf(*control);
      const bool ownStop = control->Name() != "btLista";
      EXPECT_TRUE(ownStop || !control->TabStop) << "Tab goes past the button of a field's list";
    }
    const auto opened = Opened(name, 1);
    for (int page = 0; page < static_cast<int>(opened->layout.pages.size()); ++page) {
      opened->UserSelectsTab(dynamic_cast<platform::TabControl&>(*opened->layout.tabs), page);
      const platform::LayoutBlock& block = opened->layout.pages[static_cast<std::size_t>(page)];
      std::vector<const platform::Control*> shown = {block.grid, block.calendar};
      for (const platform::LayoutRow& row : block.rows)
        for (const platform::LayoutField& place : row) shown.push_back(place.field);
      for (const platform::Control* control : shown)
        EXPECT_TRUE(control == nullptr || control->Container->Visible) << page << " " << NameOf(*control);
    }
  }
}

char Mnemonic(const std::string& caption) {
  const auto mark = caption.find('&');
  return mark == std::string::npos || mark + 1 == caption.size()
             ? '\0'
             : static_cast<char>(std::tolower(static_cast<unsigned char>(caption[mark + 1])));
}

TEST_F(FichasTest, NoTwoButtonsInSightShareALetter) {
  for (const std::string& name : All()) {
    const auto form = FormCatalog::Shared().Make(name);
    std::map<char, std::vector<const void*>> pages;
    for (const platform::Control* control : form->Controls()) {
      const auto* button = dynamic_cast<const platform::PushButton*>(control);
      const char letter = button == nullptr ? '\0' : Mnemonic(button->Caption);
      if (letter == '\0') continue;
      for (const void* page : pages[letter])
        EXPECT_TRUE(page != nullptr && button->Container != nullptr && page != button->Container)
            << name << ": " << button->Caption;
      pages[letter].push_back(button->Container);
    }
  }
}

/// The controls of a block that the user goes through, from left to right and from top to bottom.
void Read(const platform::LayoutBlock& block, std::vector<const platform::Control*>& order) {
  const auto fields = [&] {
    for (const platform::LayoutRow& row : block.rows)
      for (const platform::LayoutField& field : row) order.push_back(field.field);
  };
  if (block.fieldsFirst) fields();
  order.push_back(block.grid);
  order.push_back(block.calendar);
  if (!block.fieldsFirst) fields();
  for (const platform::PushButton* button : block.buttons) order.push_back(button);
}

TEST_F(FichasTest, TabGoesThroughTheFieldsAsTheyAreRead) {
  for (const std::string& name : All()) {
    const auto form = FormCatalog::Shared().Make(name);
    std::vector<const platform::Control*> read;
    Read(form->layout.head, read);
    read.push_back(form->layout.tabs);
    for (const platform::LayoutBlock& page : form->layout.pages) Read(page, read);
    const auto& controls = form->Controls();
    const auto place = [&](const platform::Control* control) {
      return std::find(controls.begin(), controls.end(), control);
    };
    const platform::Control* before = nullptr;
    for (const platform::Control* control : read) {
      if (control == nullptr || !control->TakesFocus() || !control->TabStop) continue;
      const bool sees =
          before != nullptr && (before->Container == nullptr || control->Container == before->Container);
      EXPECT_TRUE(!sees || place(before) < place(control))
          << name << ": " << NameOf(*before) << " before " << NameOf(*control);
      before = control;
    }
  }
}

/// The buttons and the fields with requests that a user reaches on a tab, by their places among the controls;
/// the removal, which leaves less for the others, last.
std::vector<std::size_t> Reachable(const platform::Form& form, int tab) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < form.Controls().size(); ++i) {
    const platform::Control& control = *form.Controls()[i];
    if (!control.CanFocus() || (tab > 0 && control.Container == nullptr)) continue;
    const auto* field = dynamic_cast<const platform::zor_input*>(&control);
    const bool asks = field != nullptr && (field->PedidoLista || field->PedidoFicha || field->PedidoMapa);
    if (asks || dynamic_cast<const platform::PushButton*>(&control) != nullptr) places.push_back(i);
  }
  std::stable_partition(places.begin(), places.end(),
                        [&](std::size_t i) { return form.Controls()[i]->Name() != "btAnular"; });
  return places;
}

/// Lets a user do each thing that a ficha offers, each on a ficha of its own that `open` gives.
template <typename Open>
void DoEverything(const std::string& name, Open&& open) {
  const auto onTab = [&](int tab) {
    auto form = open();
    if (tab > 0) form->UserSelectsTab(dynamic_cast<platform::TabControl&>(*form->layout.tabs), tab);
    return form;
  };
  const auto probe = open();
  const int tabs = std::max(1, static_cast<int>(probe->layout.pages.size()));
  for (int tab = 0; tab < tabs; ++tab)
    for (const std::size_t place : Reachable(*onTab(tab), tab)) {
      const auto form = onTab(tab);
      platform::Control& control = *form->Controls()[place];
      auto* button = dynamic_cast<platform::PushButton*>(&control);
      const int error = NumberOf([&] {
        if (button != nullptr) return form->UserPresses(*button);
        if (!form->UserGoesTo(control)) return;
        for (int key : {platform::kKeyF3, platform::kKeyF4, platform::kKeyF7}) form->UserKey(key);
      });
      EXPECT_TRUE(error == 0 || (button == nullptr && error == platform::kStatementRefused))
          << name << " " << NameOf(control) << ": " << error;
    }
}

TEST_F(FichasTest, WhatAFichaDoesNotHaveIsRefused) {
  for (const char* name : {"Viaturas", "Motoristas", "Gastos", "Marcas", "frmArquivo", "frm_Attach"}) {
    const auto form = New(name);
    EXPECT_EQ(NumberOf([&] { form->Chamar("Nada", "A"); }), platform::kNoSuchMember) << name;
    EXPECT_EQ(NumberOf([&] { form->Definir("Nada", "A"); }), platform::kNoSuchMember) << name;
  }
}

TEST_F(FichasTest, NoRowOfAListIsNoRecord) {
  for (const std::string& key : Sistema::ChavesDasListas()) {
    SCOPED_TRACE(key);
    sistema.ICrmSistema_ZorDataAccess = bd;
    const auto list = sistema.MostraListas(key);
    GridWindow window;
    window.Start(*list);
    GridRow group(window.grid, 0, true);
    const RecordsetRef before = window.grid.DataSource();
    for (GridRow* row : {static_cast<GridRow*>(nullptr), &group}) {
      list->ICrmVwList_Editar(row);
      list->ICrmVwList_Remover(row);
    }
    EXPECT_TRUE(window.grid.DataSource() == before);
  }
  EXPECT_EQ(host.log, "");
}

TEST_F(FichasTest, EachActUsesTheDatabaseThatTheFichaHoldsThen) {
  for (const char* name : kFichas) {
    NewFleet();
    const DataAccessRef fleet = bd;
    DoEverything(name, [&] {
      const auto before = platform::MakeRef<RecordingDataAccess>(fleet);
      bd = before;
      auto form = Opened(name, 1);
      form->mybd = fleet;
      before->Leave();
      return form;
    });
  }
}

}  // namespace
}  // namespace zorCrmParvel
