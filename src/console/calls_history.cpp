#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "console/calls.h"
#include "console/kept_store.h"
#include "console/program.h"
#include "exchange/imports/take_back.h"
#include "history/figures.h"
#include "history/outside.h"
#include "history/retention.h"
#include "history/undo.h"
#include "history/view/browser.h"
#include "history/view/table_names.h"
#include "platform/runtime_error.h"

namespace console {
namespace {

struct HistoryOptions {
  history::Filter filter;
  bool json = false;
  long number = 0;
  bool overwrite = false;
  std::string before;
  bool documentsOnly = false;
  history::Settings settings;
  bool off = false;
  bool on = false;
};

void PrintOperation(const history::Operation& operation, std::ostream& out) {
  out << operation.number << "  " << history::ShownMoment(operation.moment) << "  " << operation.operador
      << "  " << history::ShownWords(operation);
  if (operation.undoneBy != 0) out << "  (anulada por " << operation.undoneBy << ")";
  out << '\n';
}

nlohmann::ordered_json JsonOf(const history::Operation& operation) {
  return {{"numero", operation.number},     {"momento", operation.moment.ToText()},
          {"operador", operation.operador}, {"posto", operation.posto},
          {"texto", operation.words},       {"registo", operation.record},
          {"anula", operation.undoes},      {"anulada_por", operation.undoneBy}};
}

int PrintHistory(const Calls& calls, const HistoryOptions& options) {
  history::Browser browser(OpenKept(calls));
  browser.Ask(options.filter);
  auto all = nlohmann::ordered_json::array();
  for (std::size_t told = 0; !browser.AtEnd();) {
    browser.ReadOn();
    for (; told < browser.operations().size(); ++told) {
      if (options.json)
        all.push_back(JsonOf(browser.operations()[told]));
      else
        PrintOperation(browser.operations()[told], calls.out);
    }
  }
  if (options.json) calls.out << all.dump(2) << '\n';
  return kDone;
}

int Clear(const Calls& calls, const HistoryOptions& options) {
  platform::Date day;
  if (!platform::Date::TryParse(options.before, day)) {
    calls.err << "«" << options.before << "» não é uma data. Escreva-a como 31-12-2024.\n";
    return kUsage;
  }
  const history::Cleared cleared = history::ClearBefore(*OpenKept(calls), day, options.documentsOnly);
  calls.out << cleared.operations << (cleared.operations == 1 ? " operação" : " operações") << " e "
            << cleared.documents << (cleared.documents == 1 ? " documento" : " documentos")
            << " saíram do histórico.\n";
  return kDone;
}

int PrintSize(const Calls& calls) {
  const auto store = OpenKept(calls);
  calls.out << history::ShownSize(history::SizeOf(*store)) << '\n';
  if (const embedded::Database* file = store->file())
    calls.out << "Ocupa " << (file->BytesOf(history::OwnTables()) + 1023) / 1024 << " KB do ficheiro.\n";
  return kDone;
}

std::string Years(int years) {
  if (years == 0) return "para sempre";
  return std::to_string(years) + (years == 1 ? " ano" : " anos");
}

int Settle(const Calls& calls, const HistoryOptions& options) {
  const auto store = OpenKept(calls);
  const zorCrmParvel::DataAccessRef bd(store->inner());
  history::Settings settings = history::ReadSettings(bd);
  const history::Settings before = settings;
  if (options.settings.years >= 0) settings.years = options.settings.years;
  if (options.settings.documentYears >= 0) settings.documentYears = options.settings.documentYears;
  if (options.settings.driverYears > 0) settings.driverYears = options.settings.driverYears;
  if (options.on || options.off) settings.records = options.on;
  if (!(settings == before)) history::WriteSettings(bd, settings);
  calls.out << "Histórico: " << (settings.records ? "ligado" : "desligado") << '\n'
            << "Operações: " << Years(settings.years) << '\n'
            << "Documentos e fotografias removidos: " << Years(settings.documentYears) << '\n'
            << "Motoristas inactivos: ao fim de " << Years(settings.driverYears) << '\n';
  return kDone;
}

/// An import is undone by its taking back.
void KnowImports() {
  history::SetUndoing(
      "parvel_importacoes", [](const auto& inner, const std::string& key, const auto& beforeCommit) {
        std::vector<std::string> lines;
        for (const exchange::KeptRow& kept : exchange::TakeBackImport(inner, std::stol(key), [&] {
                                               beforeCommit("Anular: Importação " + key);
                                             }).kept)
          lines.push_back(kept.table + " " + kept.key + " " + kept.why);
        return lines;
      });
}

int UndoOne(const Calls& calls, const HistoryOptions& options) {
  KnowImports();
  const auto store = OpenKept(calls);
  const auto conflicts = history::Conflicts(*store, options.number);
  if (!conflicts.empty() && !options.overwrite) {
    calls.err << "Depois da operação " << options.number << " alguém alterou o mesmo:\n";
    for (const history::Conflict& conflict : conflicts)
      calls.err << "  " << history::NameOfTable(conflict.table) << " " << conflict.key << " "
                << conflict.column << ": agora «" << conflict.now << "», ficaria «" << conflict.before
                << "»\n";
    calls.err << "Nada foi anulado. Para pôr mesmo assim tudo como estava antes: --sobrepor\n";
    return kRefused;
  }
  std::vector<std::string> kept;
  const long undoing = history::Undo(store, options.number, &kept);
  for (const std::string& line : kept) calls.out << "fica: " << line << '\n';
  calls.out << "Anulada a operação " << options.number << ", pela operação " << undoing << ".\n";
  return kept.empty() ? kDone : kRefused;
}

void AddSettingCalls(Calls& calls, CLI::App& historico, const std::shared_ptr<HistoryOptions>& options) {
  auto& limpar = calls.AddBelow(historico, "limpar", "Esquece para sempre o que se fez antes de um dia.",
                                [&calls, options] { return Clear(calls, *options); });
  limpar.add_option("--antes-de", options->before, "O primeiro dia que fica.")->type_name("DATA")->required();
  limpar.add_flag("--so-documentos", options->documentsOnly,
                  "Só o conteúdo de documentos e fotografias removidos até lá.");
  calls.AddBelow(historico, "tamanho", "Diz o que o histórico tem e ocupa.",
                 [&calls] { return PrintSize(calls); });
  auto& opcoes = calls.AddBelow(historico, "opcoes", "Mostra ou muda o que vale para todos os operadores.",
                                [&calls, options] { return Settle(calls, *options); });
  options->settings = {.records = true, .years = -1, .documentYears = -1, .driverYears = -1};
  opcoes.add_option("--anos", options->settings.years, "Anos que as operações se guardam; 0: sempre.")
      ->type_name("ANOS");
  opcoes
      .add_option("--anos-documentos", options->settings.documentYears,
                  "Anos que se guardam documentos e fotografias removidos; 0: sempre.")
      ->type_name("ANOS");
  opcoes
      .add_option("--anos-motoristas", options->settings.driverYears,
                  "Anos sem gastos, multas ou sinistros até um motorista estar inactivo.")
      ->type_name("ANOS");
  auto* on = opcoes.add_flag("--ligar", options->on, "Regista o que se faz.");
  opcoes.add_flag("--desligar", options->off, "Deixa de registar o que se faz.")->excludes(on);
}

}  // namespace

std::shared_ptr<history::KeepingStore> OpenKept(const Calls& calls) {
  return std::make_shared<history::KeepingStore>(calls.Open());
}

int RunFiguresCheck(const Calls& calls, bool correct) {
  const std::vector<history::WrongFigures> wrong = history::CheckFigures(OpenKept(calls), correct);
  for (const history::WrongFigures& each : wrong) {
    calls.out << each.plate << '\n';
    for (const std::string& line : each.lines) calls.out << "  " << line << '\n';
  }
  if (wrong.empty())
    calls.out << "As figuras de todas as viaturas estão certas.\n";
  else
    calls.out << wrong.size() << (wrong.size() == 1 ? " viatura" : " viaturas")
              << (correct ? " com figuras corrigidas.\n"
                          : " com figuras erradas. Para as corrigir: --corrigir\n");
  return wrong.empty() || correct ? kDone : kRefused;
}

void AddHistoryCalls(Calls& calls) {
  const auto options = std::make_shared<HistoryOptions>();
  auto& historico = calls.Add("historico", "Mostra o que se fez, o mais recente primeiro.",
                              [&calls, options] { return PrintHistory(calls, *options); });
  historico.add_option("registo", options->filter.record, "Só de um registo: a sua matrícula ou código.")
      ->type_name("");
  historico.add_flag("--json", options->json, "Em JSON.");
  historico.add_option("--operador", options->filter.operador, "Só o que este operador fez.")
      ->type_name("NOME");
  historico.add_option("--texto", options->filter.text, "Só onde este texto está.")->type_name("TEXTO");
  AddSettingCalls(calls, historico, options);

  auto& anular = calls.Add("anular", "Põe tudo como estava antes de uma operação do histórico.",
                           [&calls, options] { return UndoOne(calls, *options); });
  anular.add_option("número", options->number, "Número da operação.")->type_name("")->required();
  anular.add_flag("--sobrepor", options->overwrite, "Também sobre o que alguém alterou depois.");
}

}  // namespace console
