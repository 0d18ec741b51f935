#include "console/import_commands.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "console/program.h"
#include "exchange/assistant/preview_table.h"
#include "exchange/imports/import_log.h"
#include "exchange/imports/row_mark.h"
#include "exchange/imports/take_back.h"
#include "exchange/plan/import_plan.h"
#include "exchange/profile/profile_store.h"
#include "exchange/shape/profile_guess.h"
#include "history/outside.h"

namespace console {
namespace {

using exchange::ImportPlan;
using exchange::RowState;

constexpr const char* kImports = "parvel_importacoes";

/// Puts an import into the history.
void NoteImport(const zorCrmParvel::Store& database, long number, const std::string& file, long rows) {
  history::NoteIn(database,
                  "Importação " + std::to_string(number) + ": " + file + " (" + std::to_string(rows) +
                      (rows == 1 ? " linha)" : " linhas)"),
                  kImports, std::to_string(number));
}

std::string UserName() {
  const char* user = std::getenv("USER");
  return user != nullptr ? user : "";
}

exchange::TableOptions OptionsOf(const exchange::Profile& profile) {
  exchange::TableOptions options;
  if (!profile.separator.empty()) options.separator = profile.separator[0];
  for (const auto encoding : {exchange::TextEncoding::kUtf8, exchange::TextEncoding::kUtf16LittleEndian,
                              exchange::TextEncoding::kUtf16BigEndian, exchange::TextEncoding::kWindows1252})
    if (profile.encoding == exchange::NameOf(encoding)) options.encoding = encoding;
  return options;
}

std::string NameOf(const std::string& file) { return std::filesystem::path(file).filename().string(); }

/// Others may read meanwhile, but wait to write: who starts a long import knows it before.
void TellOfLongImport(const std::string& name, std::ostream& err) {
  constexpr std::uintmax_t kLong = 2'000'000;  // bytes, some seconds
  std::error_code unknown;
  const std::uintmax_t bytes = std::filesystem::file_size(name, unknown);
  if (!unknown && bytes > kLong)
    err << "O ficheiro é grande: até ao fim da importação, que entra toda junta ou não entra, os outros "
           "programas só podem ler esta base de dados, e o que quiserem gravar é recusado.\n";
}

void TellNumber(long number, std::ostream& out) {
  out << "Importação " << number << "; anula-se com «parvel importacoes anular " << number << "».\n";
}

/// The rows of which there is something to tell.
void TellRows(const ImportPlan& plan, std::ostream& out) {
  for (std::size_t i = 0; i < plan.size(); ++i) {
    const RowState state = plan.StateOf(i);
    const exchange::Why& why = plan.why(i);
    if (why.reason.empty() || state == RowState::kNew || state == RowState::kKnown) continue;
    out << "linha " << plan.row(i).line << ", " << exchange::NameOf(state);
    if (!why.column.empty()) out << ", " << why.column;
    out << ": " << why.reason << '\n';
  }
}

void TellSums(const exchange::Reconciliation& sums, bool simulate, std::ostream& out) {
  const auto tell = [&](const char* what, const exchange::Tally& tally) {
    out << what << ": " << tally.rows << " (" << tally.amount.ToText() << ")\n";
  };
  tell(simulate ? "Entrariam" : "Novas", sums.stored);
  tell("Já existiam", sums.known);
  tell("Postas de parte", sums.aside);
  tell("Recusadas", sums.refused);
  tell("No ficheiro", sums.file);
  if (sums.declared)
    out << "O próprio ficheiro diz " << sums.declared->ToText()
        << (*sums.declared == sums.file.amount ? ": confere\n" : ": não confere\n");
}

void WriteRefused(const ImportPlan& plan, const std::string& file) {
  std::ofstream out(file, std::ios::binary);
  plan.WriteRefused(out);
  if (!out.flush()) throw std::runtime_error("Não foi possível escrever as linhas recusadas em " + file);
}

std::string ReadText(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("Não é possível ler o ficheiro " + file);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A profile for a file that nobody has mapped yet.
exchange::Profile Guessed(const std::string& kindName, const std::string& file) {
  const exchange::ImportKind* kind = exchange::KindOf(kindName);
  if (kind == nullptr) throw std::runtime_error("Não se importa «" + kindName + "».");
  constexpr std::size_t kSample = 100;
  const auto reader = exchange::OpenTable(file);
  std::vector<exchange::TableRow> rows;
  for (exchange::TableRow row; rows.size() < kSample && reader->Next(row);) rows.push_back(row);
  exchange::Profile profile = exchange::GuessProfile(*kind, rows);
  profile.name = std::filesystem::path(file).stem().string();
  return profile;
}

exchange::Profile Required(const Calls& calls, const std::string& name) {
  if (auto profile = exchange::FindProfile(calls.Open(), name)) return *profile;
  throw std::runtime_error("Não há o perfil «" + name + "». Veja «parvel perfis».");
}

}  // namespace

int ImportOwnColumns(const Calls& calls, const ProfileImport& import) {
  std::ifstream file(import.file, std::ios::binary);
  if (!file) throw std::runtime_error("Não é possível ler o ficheiro " + import.file);
  const auto database = calls.Open();
  const auto target = exchange::MakeImportTarget(import.kind, database);
  if (!target) {
    calls.err << "Não se importa «" << import.kind << "». Pode importar: " << exchange::ImportTargetNames()
              << ".\n";
    return kUsage;
  }
  TellOfLongImport(import.file, calls.err);
  exchange::ImportResult result;
  if (import.simulate) {
    result = exchange::ImportCsv(*database, *target, file, true, calls.out, import.decimal);
  } else {
    const history::KeepingStore noting(database);
    const std::string name = NameOf(import.file);
    const auto note = [&](long number, long rows) { NoteImport(*database, number, name, rows); };
    result = exchange::ImportCsvToLog(
        database, {import.kind, name, exchange::ChecksumOfFile(import.file), UserName(), note}, file,
        calls.out, import.decimal);
  }
  const auto tell = [&](long rows, const char* one, const char* several) {
    calls.out << rows << (rows == 1 ? one : several);
  };
  tell(result.added, import.simulate ? " entraria, " : " novo, ",
       import.simulate ? " entrariam, " : " novos, ");
  tell(result.known, " já existia, ", " já existiam, ");
  tell(result.refused, " recusado\n", " recusados\n");
  if (result.number != 0) TellNumber(result.number, calls.out);
  return result.refused == 0 ? kDone : kRefused;
}

int ImportWithProfile(const Calls& calls, const ProfileImport& import) {
  if (!import.rows.empty()) exchange::FormatOf(import.rows);  // told before anything is done
  TellOfLongImport(import.file, calls.err);
  const auto database = calls.Open();
  exchange::Profile profile = Required(calls, import.profile);
  if (profile.kind != import.kind)
    throw std::runtime_error("O perfil «" + profile.name + "» é de " + profile.kind + ", não de " +
                             import.kind + ".");
  const std::string checksum = exchange::ChecksumOfFile(import.file);
  if (const auto before = exchange::ImportedBefore(database, checksum))
    calls.err << "Este ficheiro já foi importado em " << before->when.ToText() << " (importação "
              << before->number << ").\n";
  const auto reader = exchange::OpenTable(import.file, OptionsOf(profile));
  ImportPlan plan(database, std::move(profile));
  plan.Load(*reader);
  plan.AcceptProposals(import.simulate || import.acceptProposals);
  if (import.createCodes) plan.SettleUnknownCodes();
  exchange::StoredImport stored;
  if (import.simulate) {
    plan.Check();
    stored.rows = plan.Sums();
  } else {
    const std::string name = NameOf(import.file);
    const history::KeepingStore kept(database);
    stored = plan.Store(name, checksum, UserName(), {},
                        [&](long number, long rows) { NoteImport(*database, number, name, rows); });
  }
  TellRows(plan, calls.out);
  TellSums(stored.rows, import.simulate, calls.out);
  if (!import.simulate) TellNumber(stored.number, calls.out);
  if (!import.refused.empty()) WriteRefused(plan, import.refused);
  if (!import.rows.empty())
    exchange::WriteTable(exchange::PreviewTable(plan), import.rows, exchange::FormatOf(import.rows));
  return stored.rows.refused.rows == 0 ? kDone : kRefused;
}

int RunProfiles(const Calls& calls, const std::vector<std::string>& words) {
  const std::string action = words.empty() ? "listar" : words[0];
  const auto is = [&](const char* name, std::size_t count) {
    return action == name && words.size() == count;
  };
  if (action == "listar" && words.size() <= 1) {
    for (const exchange::Profile& profile : exchange::ListProfiles(calls.Open()))
      calls.out << profile.name << " (" << profile.kind << ")\n";
  } else if (is("exportar", 2)) {
    calls.out << exchange::ToJson(Required(calls, words[1])) << '\n';
  } else if (is("importar", 2)) {
    const exchange::Profile profile = exchange::ProfileFromJson(ReadText(words[1]));
    exchange::SaveProfile(calls.Open(), profile);
    calls.out << "Perfil guardado: " << profile.name << '\n';
  } else if (is("remover", 2)) {
    if (exchange::RemoveProfile(calls.Open(), words[1])) return kDone;
    calls.err << "Não há o perfil «" << words[1] << "».\n";
    return kRefused;
  } else if (is("propor", 3)) {
    calls.out << exchange::ToJson(Guessed(words[1], words[2])) << '\n';
  } else {
    calls.err
        << "Use: parvel perfis [listar | exportar NOME | importar FICHEIRO | remover NOME | propor TIPO "
           "FICHEIRO].\n";
    return kUsage;
  }
  return kDone;
}

int RunImports(const Calls& calls, const std::vector<std::string>& words) {
  if (words.empty()) {
    for (const exchange::ImportEntry& entry : exchange::ListImports(calls.Open())) {
      calls.out << entry.number << "  " << entry.when.ToText() << "  " << entry.kind << "  " << entry.rows
                << " linhas  " << entry.file << "  " << entry.profile << "  " << entry.who;
      if (entry.takenBack) calls.out << "  anulada em " << entry.takenBack->ToText();
      calls.out << '\n';
    }
    return kDone;
  }
  const bool number = words.size() == 2 && !words[1].empty() && words[1].size() < 10 &&
                      words[1].find_first_not_of("0123456789") == std::string::npos;
  if (words[0] != "anular" || !number) {
    calls.err << "Use: parvel importacoes [anular NÚMERO].\n";
    return kUsage;
  }
  const auto database = calls.Open();
  const history::KeepingStore noting(database);
  const exchange::TakenBack back = exchange::TakeBackImport(database, std::stol(words[1]), [&] {
    history::NoteUndoneIn(*database, "Anular: Importação " + words[1], kImports, words[1]);
  });
  for (const exchange::KeptRow& kept : back.kept) {
    calls.out << "fica: " << kept.table << " " << kept.key;
    if (kept.line > 0) calls.out << " (linha " << kept.line << ")";
    calls.out << " " << kept.why << '\n';
  }
  calls.out << back.removed << " linhas tiradas, " << back.kept.size() << " ficam, " << back.gone
            << " já não existiam\n";
  return back.kept.empty() ? kDone : kRefused;
}

}  // namespace console
