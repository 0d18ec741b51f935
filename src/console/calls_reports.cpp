#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "console/calls.h"
#include "console/program.h"
#include "console/report_printer.h"
#include "exchange/export/report_table.h"
#include "platform/host.h"
#include "platform/runtime_error.h"
#include "reports/definicoes.h"
#include "reports/relatorio.h"

namespace console {
namespace {

using platform::Date;
using reports::Pedido;
using reports::Periodo;
using reports::TipoDeRelatorio;

struct ReportOptions {
  std::string from, to, period, by, columns, premiums, rents;
  Pedido request;
  std::string file;
  bool csv = false;
  bool json = false;
  bool seen = false;
  std::vector<std::string> mark, unmark;
  std::string note;
};

/// What the words of a call may not be; the message goes to the user as it is.
struct WrongWords : std::runtime_error {
  using std::runtime_error::runtime_error;
};

reports::Dia DayOf(const std::string& text) {
  Date day;
  if (!Date::TryParse(text, day) || reports::SemData(day))
    throw WrongWords("«" + text + "» não é uma data. Escreva-a assim: 2026-01-31.");
  return day.days();
}

int NumberIn(const std::string& text, std::size_t from, std::size_t digits) {
  if (from + digits > text.size() || text.find_first_not_of("0123456789", from) < from + digits) return -1;
  return std::stoi(text.substr(from, digits));
}

/// "2026", "2026-T1", "2026-01" or "12meses".
Periodo PeriodNamed(const std::string& name) {
  if (name == "12meses") return Periodo::Ultimos12Meses(platform::Today());
  const int year = NumberIn(name, 0, 4);
  const int quarter = name.size() == 7 && name[5] == 'T' ? NumberIn(name, 6, 1) : -1;
  const int month = name.size() == 7 && quarter < 0 ? NumberIn(name, 5, 2) : -1;
  if (year >= 1753 && name.size() == 4) return Periodo::Ano(year);
  if (year >= 1753 && name[4] == '-' && quarter >= 1 && quarter <= 4)
    return Periodo::Trimestre(year, quarter);
  if (year >= 1753 && name[4] == '-' && month >= 1 && month <= 12) return Periodo::Mes(year, month);
  throw WrongWords("«" + name + "» não é um período. Pode ser 2026, 2026-T1, 2026-01 ou 12meses.");
}

Periodo PeriodOf(const ReportOptions& options) {
  Periodo period =
      options.period.empty() ? Periodo::Ano(platform::Today().year()) : PeriodNamed(options.period);
  if (!options.from.empty()) period.de = DayOf(options.from);
  if (!options.to.empty()) period.ate = DayOf(options.to);
  return period;
}

Pedido RequestOf(const ReportOptions& options) {
  Pedido request = options.request;
  request.periodo = PeriodOf(options);
  for (const reports::PalavraDeGrupo& group : reports::Grupos())
    if (options.by == group.chave) request.por = group.por;
  request.coluna = options.columns == "ano"         ? reports::Coluna::kAno
                   : options.columns == "trimestre" ? reports::Coluna::kTrimestre
                                                    : reports::Coluna::kMes;
  request.premiosRepartidos = options.premiums != "inicio";
  request.comRendas = options.rents != "nao";
  return request;
}

/// A finding by name: "regra:tabela:id".
struct Finding {
  std::string rule, table;
  std::int32_t id = 0;
};

Finding FindingNamed(const std::string& name) {
  const std::size_t first = name.find(':');
  const std::size_t second = first == std::string::npos ? first : name.find(':', first + 1);
  const std::string id = second == std::string::npos ? "" : name.substr(second + 1);
  if (id.empty() || id.size() > 9 || id.find_first_not_of("0123456789") != std::string::npos)
    throw WrongWords("«" + name +
                     "» não é uma excepção. Escreva regra:tabela:id, por exemplo "
                     "consumo:zor_PV_Gastos:12.");
  return {name.substr(0, first), name.substr(first + 1, second - first - 1), std::stoi(id)};
}

void Mark(const zorCrmParvel::DataAccessRef& database, const ReportOptions& options) {
  std::vector<Finding> marked, unmarked;
  for (const std::string& name : options.mark) marked.push_back(FindingNamed(name));
  for (const std::string& name : options.unmark) unmarked.push_back(FindingNamed(name));
  for (const Finding& f : marked) reports::MarcarVisto(database, f.rule, f.table, f.id, options.note);
  for (const Finding& f : unmarked) reports::DesmarcarVisto(database, f.rule, f.table, f.id);
}

/// Whether a finding that nobody has looked at is among the rows.
bool AnyOpen(const reports::Tabela& findings) {
  std::size_t seen = 0;
  while (findings.colunas[seen].chave != "visto") ++seen;
  for (const reports::LinhaDaTabela& row : findings.linhas)
    if (row.celulas[seen] == reports::Celula(false)) return true;
  return false;
}

/// To the file that is named, or to the terminal.
void Write(const Calls& calls, const reports::Relatorio& report, const ReportOptions& options) {
  const reports::Tabela& table = report.tabelas.front();
  if (options.file.empty())
    return PrintReport(calls.out, report,
                       options.json  ? Output::kJson
                       : options.csv ? Output::kCsv
                                     : Output::kTable);
  exchange::WriteTable(exchange::ExportTableOf(table, report.titulo), options.file,
                       exchange::ExportFormat::kXlsx);
  calls.out << (table.Quantas() == 1 ? "1 linha" : std::to_string(table.Quantas()) + " linhas") << " em "
            << options.file << ".\n";
}

int Report(const Calls& calls, TipoDeRelatorio kind, const ReportOptions& options) {
  try {
    const Pedido request = RequestOf(options);
    if (const std::string objection = reports::Objeccao(kind, request); !objection.empty())
      throw WrongWords(objection);
    const zorCrmParvel::DataAccessRef database = calls.Open();
    Mark(database, options);
    const reports::Relatorio report = reports::Fazer(database, kind, request, options.seen);
    Write(calls, report, options);
    return kind == TipoDeRelatorio::kExcepcoes && AnyOpen(report.tabelas.front()) ? kDue : kDone;
  } catch (const WrongWords& error) {
    calls.err << error.what() << '\n';
    return kUsage;
  }
}

CLI::Option* OneOf(CLI::App& command, const char* name, std::string& into, std::vector<std::string> words,
                   const std::string& text) {
  return command.add_option(name, into, text)
      ->type_name("NOME")
      ->check(CLI::Validator(CLI::IsMember(std::move(words))).description(""));
}

void AddFilters(CLI::App& command, ReportOptions& options) {
  Pedido& request = options.request;
  command.add_option("--de", options.from, "Primeiro dia; sem ele, o do ano corrente.")->type_name("DIA");
  command.add_option("--ate", options.to, "Último dia.")->type_name("DIA");
  command.add_option("--periodo", options.period, "Em vez dos dias: 2026, 2026-T1, 2026-01 ou 12meses.")
      ->type_name("NOME");
  const std::tuple<const char*, const char*, std::vector<std::string>*> lists[] = {
      {"viatura", "Só esta ", &request.viaturas},
      {"departamento", "Só este ", &request.departamentos},
      {"categoria", "Só esta ", &request.categorias},
      {"marca", "Só esta ", &request.marcas},
      {"motorista", "Só este ", &request.motoristas}};
  for (const auto& [name, only, list] : lists)
    command.add_option(std::string("--") + name, *list, std::string(only) + name + "; pode repetir-se.")
        ->type_name("CÓDIGO")
        ->allow_extra_args(false);
  command
      .add_option("--combustivel", request.combustiveis,
                  "Só viaturas deste combustível: 0 Diesel, 1 Gasolina, 2 GPL, 3 Eléctrico.")
      ->type_name("NÚMERO")
      ->allow_extra_args(false);
  auto* active = command.add_flag("--activas", request.soActivas, "Só viaturas ao serviço.");
  command.add_flag("--inactivas", request.soInactivas, "Só viaturas fora de serviço.")->excludes(active);
}

void AddShape(CLI::App& command, const reports::TextosDoRelatorio& report, ReportOptions& options) {
  std::vector<std::string> groups;
  for (const reports::PalavraDeGrupo& group : reports::Grupos()) groups.emplace_back(group.chave);
  std::string possible;
  for (const reports::Por por : report.por)
    possible += (possible.empty() ? "" : ", ") + std::string(reports::TextosDe(por).chave);
  OneOf(command, "--por", options.by, groups, "Agrupa por: " + possible + ".");
  OneOf(command, "--coluna", options.columns, {"mes", "trimestre", "ano"},
        report.colunas ? "Colunas por mes, trimestre ou ano." : "Sem efeito neste relatório.");
  if (report.tipo == TipoDeRelatorio::kCustos || report.tipo == TipoDeRelatorio::kTotal) {
    OneOf(command, "--premios", options.premiums, {"repartidos", "inicio"},
          "Prémios das apólices repartidos pelos dias (o habitual), ou inteiros no início.");
    OneOf(command, "--rendas", options.rents, {"sim", "nao"}, "Conta as mensalidades (o habitual), ou não.");
  }
  if (report.tipo == TipoDeRelatorio::kExcepcoes) {
    command.add_flag("--vistos", options.seen, "Mostra também o que já foi visto.");
    command.add_option("--visto", options.mark, "Dá uma excepção por vista: regra:tabela:id.")
        ->type_name("EXCEPÇÃO")
        ->allow_extra_args(false);
    command.add_option("--nota", options.note, "Nota para o que se dá por visto.")->type_name("TEXTO");
    command.add_option("--por-ver", options.unmark, "Torna a pôr uma excepção na lista.")
        ->type_name("EXCEPÇÃO")
        ->allow_extra_args(false);
  }
  auto* csv = command.add_flag("--csv", options.csv, "Em CSV, separado por ponto e vírgula.");
  auto* json = command.add_flag("--json", options.json, "Em JSON.")->excludes(csv);
  command.add_option("--xlsx", options.file, "Para este ficheiro, em XLSX.")
      ->type_name("FICHEIRO")
      ->excludes(csv)
      ->excludes(json);
}

struct SettingOptions {
  std::string what;
  std::vector<std::string> words;  // keys, then Coluna=valor
  bool remove = false;
};

/// A number as it is typed in a call: "2.68" as well as "2,68".
std::string WithComma(const reports::Definicao& setting, const std::string& column, std::string value) {
  using Kind = reports::Definicao::Campo::Genero;
  for (const auto& field : setting.valores) {
    if (field.coluna != column || field.tipo != Kind::kNumero) continue;
    const std::size_t point = value.find('.');
    if (point == std::string::npos || value.find(',') != std::string::npos) continue;
    if (value.size() - point == 4 || value.find('.', point + 1) != std::string::npos)
      throw WrongWords("«" + value +
                       "» pode ler-se de duas maneiras. Escreva os decimais com vírgula e os "
                       "milhares sem ponto.");
    value[point] = ',';
  }
  return value;
}

int Settings(const Calls& calls, const SettingOptions& options) {
  const reports::Definicao* const setting = reports::DefinicaoDe(options.what);
  if (setting == nullptr) {
    if (!options.what.empty()) calls.err << "Não há a definição «" << options.what << "». Há:\n";
    for (const reports::Definicao& each : reports::Definicoes())
      (options.what.empty() ? calls.out : calls.err) << each.chave << ": " << each.titulo << '\n';
    return options.what.empty() ? kDone : kUsage;
  }
  try {
    std::vector<std::string> keys;
    std::map<std::string, std::string> values;
    for (const std::string& word : options.words) {
      const std::size_t equal = word.find('=');
      if (equal == std::string::npos)
        keys.push_back(word);
      else
        values[word.substr(0, equal)] = WithComma(*setting, word.substr(0, equal), word.substr(equal + 1));
    }
    const auto database = calls.Open();
    if (keys.empty() && values.empty() && !options.remove) {
      PrintReportTable(calls.out, reports::Ver(database, *setting));
    } else if (options.remove) {
      reports::Remover(database, *setting, keys);
    } else {
      reports::Gravar(database, *setting, keys, values);
    }
    return kDone;
  } catch (const WrongWords& error) {
    calls.err << error.what() << '\n';
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidCall) throw;
    calls.err << error.description() << '\n';
  }
  return kUsage;
}

}  // namespace

void AddReportCalls(Calls& calls) {
  auto& relatorio =
      calls.Add("relatorio", "Figuras da frota ao longo do tempo; sem nome, os relatórios que há.", [&calls] {
        for (const reports::TextosDoRelatorio& report : reports::Relatorios())
          calls.out << report.chave << ": " << report.texto << '\n';
        return kDone;
      });
  for (const reports::TextosDoRelatorio& report : reports::Relatorios()) {
    const auto options = std::make_shared<ReportOptions>();
    auto& command =
        calls.AddBelow(relatorio, report.chave, report.texto,
                       [&calls, kind = report.tipo, options] { return Report(calls, kind, *options); });
    AddFilters(command, *options);
    AddShape(command, report, *options);
  }
  const auto options = std::make_shared<SettingOptions>();
  auto& definicoes = calls.Add("definicoes", "Mostra ou muda o que os relatórios precisam de saber.",
                               [&calls, options] { return Settings(calls, *options); });
  definicoes.add_option("qual", options->what, "Sem nome, as que há.")->type_name("");
  definicoes.add_option("valores", options->words, "Chaves, e depois Coluna=valor; sem nada, mostra tudo.")
      ->type_name("");
  definicoes.add_flag("--remover", options->remove, "Tira a linha destas chaves.");
}

}  // namespace console
