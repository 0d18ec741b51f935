#include "history/retention.h"

#include <algorithm>
#include <set>

#include "history/reader.h"
#include "history/rows.h"

namespace history {
namespace {

using platform::Date;

constexpr long kBlock = 5000;  // numbers forgotten in one go

long Count(KeepingStore& store, const std::string& from) {
  return NumberIn(*OpenRows(store, "SELECT COUNT(*) AS Quantos FROM " + from), "Quantos");
}

/// The first operation from a day on: all numbers below it are older, also where a clock went back. 0: there
/// is none.
long FirstFrom(KeepingStore& store, Date day) {
  const auto rows =
      OpenRows(store, "SELECT TOP 1 Id FROM parvel_historico WHERE Operacao IS NULL AND Momento >= " +
                          DayLiteral(day) + " ORDER BY Id");
  return rows->Eof() ? NewestNumber(store) + 1 : NumberIn(*rows, "Id");
}

long Oldest(KeepingStore& store) {
  const auto rows = OpenRows(store, "SELECT TOP 1 Id FROM parvel_historico ORDER BY Id");
  return rows->Eof() ? 0 : NumberIn(*rows, "Id");
}

/// The bytes that operations from a number on took away.
std::set<std::string> NeededFrom(KeepingStore& store, long number) {
  std::set<std::string> digests;
  for (const tsql::Table& table : store.catalog().tables()) {
    if (std::none_of(table.columns.begin(), table.columns.end(), HoldsBytes)) continue;
    const auto rows =
        OpenRows(store, "SELECT Antes FROM parvel_historico WHERE Tabela = " + TextLiteral(table.name) +
                            " AND Antes IS NOT NULL AND Id >= " + std::to_string(number));
    for (; !rows->Eof(); rows->MoveNext())
      for (const Image& image : ImagesOf(table, TextIn(*rows, "Antes")))
        for (std::size_t i = 0; i < image.size(); ++i)
          if (HoldsBytes(table.columns[i]) && image[i] && !image[i]->IsNull())
            digests.insert(image[i]->ToText());
  }
  return digests;
}

long ForgetOperations(KeepingStore& store, long first) {
  long operations = 0;
  for (long from = Oldest(store); from != 0 && from < first;) {
    const long to = std::min(first, from + kBlock);
    const std::string span =
        " parvel_historico WHERE Id >= " + std::to_string(from) + " AND Id < " + std::to_string(to);
    operations += Count(store, span + " AND Operacao IS NULL");
    store.inner()->ExecutarSql("", ("DELETE FROM" + span).c_str());
    from = to;
  }
  return operations;
}

std::optional<Date> OldestMoment(KeepingStore& store) {
  const auto rows =
      OpenRows(store, "SELECT TOP 1 Momento FROM parvel_historico WHERE Operacao IS NULL ORDER BY Id");
  if (rows->Eof() || rows->Fields("Momento").Value().IsNull()) return {};
  return rows->Fields("Momento").Value().ToDate();
}

}  // namespace

long ForgetUnneededDocuments(KeepingStore& store, long from) {
  const std::set<std::string> needed = NeededFrom(store, from);
  std::vector<std::string> gone;
  const auto rows = OpenRows(store, "SELECT Resumo FROM parvel_conteudos");
  for (; !rows->Eof(); rows->MoveNext())
    if (const std::string digest = TextIn(*rows, "Resumo"); !needed.contains(digest)) gone.push_back(digest);
  rows->Close();
  for (const std::string& digest : gone)
    store.inner()->ExecutarSql(
        "", ("DELETE FROM parvel_conteudos WHERE Resumo = " + TextLiteral(digest)).c_str());
  return static_cast<long>(gone.size());
}

const std::vector<std::string>& OwnTables() {
  static const std::vector<std::string> tables = {"parvel_historico", "parvel_conteudos"};
  return tables;
}

Size SizeOf(KeepingStore& store) {
  Size size;
  if (!store.HasHistory()) return size;
  size.rows = Count(store, "parvel_historico");
  size.operations = Count(store, "parvel_historico WHERE Operacao IS NULL");
  size.documents = Count(store, "parvel_conteudos");
  size.oldest = OldestMoment(store);
  return size;
}

std::string ShownSize(const Size& size) {
  if (size.operations == 0) return "O histórico está vazio.";
  std::string text = std::to_string(size.operations) + (size.operations == 1 ? " operação" : " operações");
  if (size.oldest)
    text +=
        " desde " + Date::FromParts(size.oldest->year(), size.oldest->month(), size.oldest->day()).ToText();
  text += ", " + std::to_string(size.rows) + (size.rows == 1 ? " linha" : " linhas");
  if (size.documents > 0)
    text += "; " + std::to_string(size.documents) +
            (size.documents == 1 ? " documento removido ainda se pode repor"
                                 : " documentos removidos ainda se podem repor");
  return text + ".";
}

Cleared ClearBefore(KeepingStore& store, Date day, bool documentsOnly) {
  Cleared cleared;
  if (!store.HasHistory()) return cleared;
  zorCrmParvel::Batch batch(*store.inner());
  const long first = FirstFrom(store, day);
  cleared.documents = ForgetUnneededDocuments(store, first);
  if (!documentsOnly) cleared.operations = ForgetOperations(store, first);
  batch.Commit();
  return cleared;
}

Cleared KeepWithin(KeepingStore& store, const Settings& settings, Date today) {
  const auto yearsAgo = [&](int years) { return today.AddMonths(-12 * years); };
  Cleared cleared;
  if (!store.HasHistory()) return cleared;
  const std::optional<Date> oldest = OldestMoment(store);
  if (settings.documentYears > 0 && oldest && *oldest < yearsAgo(settings.documentYears))
    cleared = ClearBefore(store, yearsAgo(settings.documentYears), true);
  if (settings.years > 0 && oldest && *oldest < yearsAgo(settings.years)) {
    const Cleared more = ClearBefore(store, yearsAgo(settings.years));
    cleared.operations += more.operations;
    cleared.documents += more.documents;
  }
  return cleared;
}

}  // namespace history
