// A host in a terminal: it opens a database, shows the list of makes, drives one ficha by its model and asks
// what is due.  usage: host DATABASE
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "embedded/database.h"
#include "host/sistema.h"
#include "platform/host.h"

namespace {

using platform::Control;
using platform::Form;

/// A control of a form by its name and its place in a control array.
template <typename T>
T& Find(const Form& form, std::string_view name, int index) {
  for (Control* control : form.Controls())
    if (control->Name() == name && control->Index() == index) return dynamic_cast<T&>(*control);
  throw std::logic_error("the form has no such control");
}

/// The button with this caption, mnemonics aside.
platform::PushButton& FindButton(const Form& form, std::string_view caption) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<platform::PushButton*>(control);
    if (button == nullptr) continue;
    std::string text = button->Caption;
    std::erase(text, '&');
    if (text == caption) return *button;
  }
  throw std::logic_error("the form has no such button");
}

/// What a host must offer. Nobody sits before this one, so it declines what it is asked, and where a window
/// would draw the form and wait for its user, it is the user.
class TerminalHost : public platform::Host {
 public:
  int MsgBox(const std::string& text, int style, const std::string& title) override {
    std::printf("%s: %s\n", title.c_str(), text.c_str());
    const bool asks = (style & 7) != platform::kOkOnly;
    return asks ? platform::kNo : platform::kOk;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> OpenFile(const platform::FileDialog&) override { return std::nullopt; }
  std::string ShowLookup(platform::ListaPesquisa&) override { return {}; }
  void ShowReport(platform::MapaListagem&) override {}
  void OpenDocument(const std::string& path) override { std::printf("%s\n", path.c_str()); }
  std::string TemporaryFolder() override { return std::filesystem::temp_directory_path().string() + "/"; }
  platform::Date Now() override { return platform::SystemTime(); }

  void ShowModal(Form& form, Form*) override {
    std::printf("\n%s\n", form.Caption.c_str());
    auto& code = Find<platform::zor_input>(form, "Campo", 0);
    auto& name = Find<platform::zor_input>(form, "Campo", 1);
    form.UserTypes(code, "EX");
    form.UserKey(platform::kKeyTab);  // leaving the code looks its record up
    form.UserTypes(name, "Exemplo");
    form.UserPresses(FindButton(form, "Confirmar"));
    std::printf("confirmed; the focus is on %s\n", form.ActiveControl()->Name().c_str());
    form.UserCloses();
  }
};

/// A form of the host's own, for the grid that a list fills.
class ListWindow : public Form {
 public:
  platform::SGGrid grid{*this, "grid"};
};

void PrintList(zorCrmParvel::Sistema& sistema, const std::string& key) {
  const auto list = sistema.MostraListas(key);
  if (!list) throw std::invalid_argument("there is no list " + key);
  ListWindow window;
  list->ICrmVwList_GridMaster(&window.grid);
  list->ICrmVwList_Iniciar();
  std::printf("\n%s, %ld rows\n", list->ICrmVwList_Name().c_str(), list->ICrmVwList_NumeroItens());
  for (long row = 0; row < window.grid.RowCount(); ++row) {
    for (std::size_t column = 0; column < window.grid.Columns().size(); ++column)
      if (!window.grid.Columns()[column].hidden)
        std::printf("%-12s", window.grid.CellText(row, column).c_str());
    std::printf("\n");
  }
  list->ICrmVwList_Terminar();
}

/// The feed appends one row for each family that has something due.
void PrintAlerts(zorCrmParvel::Sistema& sistema) {
  const auto rows = std::make_shared<platform::MemoryRecordset>();
  for (const char* field : {"APLICACAO", "Entidade", "Texto"})
    rows->Append(field, platform::FieldType::kText, 50);
  rows->Open();
  platform::RecordsetRef alerts(rows);
  sistema.ICrmSistema_AlertasAdd(alerts);
  std::printf("\n%ld families have something due\n", alerts->RecordCount());
  for (long row = 0; row < alerts->RecordCount(); ++row)
    std::printf("%s\n", alerts->CellAt(static_cast<std::size_t>(row), 1).ToText().c_str());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: host DATABASE\n");
    return 2;
  }
  try {
    TerminalHost host;
    const platform::HostInstallation installation(host);
    zorCrmParvel::Sistema sistema;
    sistema.ICrmSistema_ZorDataAccess = zorCrmParvel::DataAccessRef(
        std::shared_ptr<zorCrmParvel::DataAccess>(embedded::Database::Open(argv[1])));
    sistema.Marcas_MostraFicha();
    PrintList(sistema, "Marcas");
    PrintAlerts(sistema);
  } catch (const platform::RuntimeError& error) {
    std::fprintf(stderr, "%d: %s\n", error.number(), error.what());
    return 1;
  }
  return 0;
}
