#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "console/calls.h"
#include "console/program.h"
#include "history/reader.h"
#include "history/undo.h"

namespace console {
namespace {

struct HistoryOptions {
  std::string record;
  bool json = false;
  long number = 0;
  bool overwrite = false;
};

std::shared_ptr<history::KeepingStore> OpenKept(const Calls& calls) {
  return std::make_shared<history::KeepingStore>(calls.Open());
}

void PrintOperation(const history::Operation& operation, std::ostream& out) {
  out << operation.number << "  " << operation.moment.ToText() << "  " << operation.operador << "  "
      << operation.words;
  if (!operation.record.empty() && !operation.words.ends_with(operation.record))
    out << ", " << operation.record;
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
  const auto store = OpenKept(calls);
  history::Filter filter;
  filter.record = options.record;
  auto all = nlohmann::ordered_json::array();
  long below = 0;
  do {
    const history::Slice slice = history::ReadOperations(*store, filter, below);
    for (const history::Operation& operation : slice.operations) {
      if (options.json)
        all.push_back(JsonOf(operation));
      else
        PrintOperation(operation, calls.out);
    }
    below = slice.next;
  } while (below != 0);
  if (options.json) calls.out << all.dump(2) << '\n';
  return kDone;
}

int UndoOne(const Calls& calls, const HistoryOptions& options) {
  const auto store = OpenKept(calls);
  const auto conflicts = history::Conflicts(*store, options.number);
  if (!conflicts.empty() && !options.overwrite) {
    calls.err << "Depois da operação " << options.number << " alguém alterou o mesmo:\n";
    for (const history::Conflict& conflict : conflicts)
      calls.err << "  " << conflict.table << " " << conflict.key << " " << conflict.column << ": agora «"
                << conflict.now << "», ficaria «" << conflict.before << "»\n";
    calls.err << "Nada foi anulado. Para pôr mesmo assim tudo como estava antes: --sobrepor\n";
    return kRefused;
  }
  calls.out << "Anulada a operação " << options.number << ", pela operação "
            << history::Undo(store, options.number) << ".\n";
  return kDone;
}

}  // namespace

void AddHistoryCalls(Calls& calls) {
  const auto options = std::make_shared<HistoryOptions>();
  auto& historico = calls.Add("historico", "Mostra o que se fez na janela, o mais recente primeiro.",
                              [&calls, options] { return PrintHistory(calls, *options); });
  historico.add_option("registo", options->record, "Só de um registo: a sua matrícula ou código.")
      ->type_name("");
  historico.add_flag("--json", options->json, "Em JSON.");

  auto& anular = calls.Add("anular", "Põe tudo como estava antes de uma operação do histórico.",
                           [&calls, options] { return UndoOne(calls, *options); });
  anular.add_option("número", options->number, "Número da operação.")->type_name("")->required();
  anular.add_flag("--sobrepor", options->overwrite, "Também sobre o que alguém alterou depois.");
}

}  // namespace console
