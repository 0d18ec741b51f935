#include "history/undo.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>

#include "events/expense_figures.h"
#include "history/act.h"
#include "history/figures.h"
#include "history/net_rows.h"
#include "history/outside.h"
#include "history/reader.h"
#include "history/rows_by_key.h"
#include "history/view/life.h"
#include "platform/runtime_error.h"

namespace history {
namespace {

using platform::RuntimeError;
using platform::Variant;
using zorCrmParvel::RecordsetRef;

constexpr std::size_t kMostBytes = 4U << 20;  // of documents put back in one go

/// One operation on its way back.
class Undoing {
 public:
  Undoing(KeepingStore& store, long operation) : store_(store), nets_(NetOf(store, operation)) {
    for (const auto& [table, nets] : nets_) {
      std::vector<const Image*> keys;
      for (const auto& [key, net] : nets) keys.push_back(net.before ? &*net.before : &*net.after);
      now_.push_back(RowsByKey(store, *table, keys));
    }
  }

  std::vector<Conflict> Conflicts() {
    std::vector<Conflict> conflicts;
    Each([&](const tsql::Table& table, const Net& net, const Image* now) {
      Compare(table, net, now, conflicts);
    });
    return conflicts;
  }

  void Run(const zorCrmParvel::DataAccessRef& bd) {
    // What was put in goes first, the last of all tables first; then what was there comes back.
    for (std::size_t i = nets_.size(); i-- > 0;) Remove(i);
    for (std::size_t i = nets_.size(); i-- > 0;) {
      ChangeBack(i);
      PutBack(i);
    }
    for (const std::string& plate : recompute_) zorCrmParvel::RecalcularViatura(bd, plate);
  }

 private:
  template <typename Visit>
  void Each(const Visit& visit) {
    for (std::size_t i = 0; i < nets_.size(); ++i)
      for (const auto& [key, net] : nets_[i].second) visit(*nets_[i].first, net, Now(i, key));
  }
  const Image* Now(std::size_t table, const std::string& key) const {
    const auto found = now_[table].find(key);
    return found == now_[table].end() ? nullptr : &found->second;
  }

  static void Compare(const tsql::Table& table, const Net& net, const Image* now,
                      std::vector<Conflict>& conflicts) {
    const std::string key = KeyText(table, net.before ? *net.before : *net.after);
    const auto shown = [](const tsql::Column& column, const std::optional<Image>& image, std::size_t i) {
      return image && (*image)[i] ? Shown(column, *(*image)[i]) : std::string();
    };
    if (now == nullptr) {
      if (net.before && net.after) conflicts.push_back({table.name, key, "", "(removido)", "", ""});
      return;
    }
    for (std::size_t i = 0; i < now->size(); ++i) {
      const tsql::Column& column = table.columns[i];
      const bool touched = !net.before || !net.after || Differs(column, *net.before, *net.after, i);
      // A row that was taken away and stands again is in the way with whatever it holds.
      const Image* written = net.after ? &*net.after : &*net.before;
      if (!touched || !(*now)[i] || !(*written)[i]) continue;
      if (SameValue(column, *(*now)[i], *(*written)[i]) ||
          (net.before && net.after && IsFigure(table, column)))
        continue;
      conflicts.push_back({table.name, key, column.name, Shown(column, *(*now)[i]),
                           shown(column, net.after, i), shown(column, net.before, i)});
    }
    if (!net.after && (conflicts.empty() || conflicts.back().key != key))
      conflicts.push_back({table.name, key, "", "(já existe)", "", ""});
  }

  static bool Differs(const tsql::Column& column, const Image& a, const Image& b, std::size_t i) {
    return b[i] && (!a[i] || !SameValue(column, *a[i], *b[i]));
  }

  void Remove(std::size_t place) {
    const auto& [table, nets] = nets_[place];
    std::vector<const Image*> rows;
    for (const auto& [key, net] : nets)
      if (!net.before && Now(place, key) != nullptr) rows.push_back(&*net.after);
    DeleteRows(store_, *table, rows);
  }

  void ChangeBack(std::size_t place) {
    const tsql::Table& table = *nets_[place].first;
    for (const auto& [key, net] : nets_[place].second) {
      const Image* now = Now(place, key);
      if (!net.before || now == nullptr) continue;
      Image back(now->size());
      for (std::size_t i = 0; i < back.size(); ++i) {
        const bool touched = !net.after || Differs(table.columns[i], *net.before, *net.after, i);
        if (!touched || !(*net.before)[i] || SameValue(table.columns[i], *(*now)[i], *(*net.before)[i]))
          continue;
        const bool foreign = net.after && !SameValue(table.columns[i], *(*now)[i], *(*net.after)[i]);
        if (foreign && IsFigure(table, table.columns[i]))
          recompute_.insert(KeyText(table, *net.before));
        else
          back[i] = (*net.before)[i];
      }
      WriteRow(table, *net.before, back);
    }
  }

  /// Rows that are gone come back whole, under their own numbers.
  void PutBack(std::size_t place) {
    const tsql::Table& table = *nets_[place].first;
    std::vector<const Image*> rows;
    for (const auto& [key, net] : nets_[place].second)
      if (net.before && Now(place, key) == nullptr) rows.push_back(&*net.before);
    if (rows.empty()) return;
    std::vector<std::string> names;
    for (const tsql::Column& column : table.columns) names.push_back(column.name);
    if (std::none_of(table.columns.begin(), table.columns.end(), &HoldsBytes))
      return store_.AddRows(table.name, names, rows);
    std::deque<Image> whole;
    std::vector<const Image*> together;
    std::size_t size = 0;
    const auto add = [&] {
      store_.AddRows(table.name, names, together);
      whole.clear();
      together.clear();
      size = 0;
    };
    for (const Image* row : rows) {
      whole.push_back(WithContents(table, *row));
      together.push_back(&whole.back());
      size += BytesIn(whole.back());
      if (size > kMostBytes) add();
    }
    if (!together.empty()) add();
  }

  static std::size_t BytesIn(const Image& row) {
    std::size_t size = 0;
    for (const auto& value : row)
      if (const auto* bytes = value ? value->As<platform::Bytes>() : nullptr) size += bytes->size();
    return size;
  }

  Image WithContents(const tsql::Table& table, Image row) {
    for (std::size_t i = 0; i < row.size(); ++i)
      if (row[i] && HoldsBytes(table.columns[i]) && !row[i]->IsNull()) row[i] = Content(row[i]->ToText());
    return row;
  }

  void WriteRow(const tsql::Table& table, const Image& key, const Image& values) {
    if (std::none_of(values.begin(), values.end(), [](const auto& value) { return value.has_value(); }))
      return;
    RecordsetRef rows;
    store_.AbrirEdicao(
        ("SELECT * FROM " + Bracketed(table.name) + " WHERE " + KeyCondition(table, key)).c_str(), rows);
    const Places places = PlacesOf(table, *rows);
    const Image whole = WithContents(table, values);
    for (std::size_t i = 0; i < whole.size(); ++i)
      if (whole[i] && places[i]) rows->Fields(*places[i]).SetValue(*whole[i]);
    rows->Update();
    rows->Close();
  }

  Variant Content(const std::string& digest) {
    RecordsetRef rows;
    store_.inner()->AbrirLeitura(
        "", ("SELECT Conteudo FROM parvel_conteudos WHERE Resumo = '" + digest + "'").c_str(), rows);
    if (rows->Eof())
      throw RuntimeError(
          platform::kEngineFailure, "Histórico",
          "O conteúdo de um documento ou fotografia já não está guardado no histórico: a operação "
          "não se pode anular.");
    Variant content = rows->Fields("Conteudo").Value();
    rows->Close();
    return content;
  }

  KeepingStore& store_;
  NetsOfTables nets_;
  std::vector<std::map<std::string, Image>> now_;  // the rows as they are, beside `nets_`
  std::set<std::string> recompute_;
};

Operation ToUndo(KeepingStore& store, long number) {
  const auto operation = ReadOperation(store, number);
  if (!operation)
    throw RuntimeError(platform::kInvalidCall, "Histórico",
                       "Não há no histórico uma operação com o número " + std::to_string(number) + ".");
  if (operation->undoneBy != 0)
    throw RuntimeError(platform::kInvalidCall, "Histórico",
                       "A operação " + std::to_string(number) + " já foi anulada, pela operação " +
                           std::to_string(operation->undoneBy) + ".");
  if (operation->emptied)
    throw RuntimeError(platform::kInvalidCall, "Histórico",
                       "O que a operação " + std::to_string(number) +
                           " escreveu já não está guardado no histórico: não se pode anular.");
  return *operation;
}

}  // namespace

std::vector<Conflict> Conflicts(KeepingStore& store, long operation) {
  ToUndo(store, operation);
  return Undoing(store, operation).Conflicts();
}

long Undo(const std::shared_ptr<KeepingStore>& store, long operation, std::vector<std::string>* kept) {
  const Operation undone = ToUndo(*store, operation);
  if (const auto noted = NotedBy(*store, operation)) {
    if (undone.undoes != 0)
      throw RuntimeError(platform::kInvalidCall, "Histórico",
                         "O que foi tirado não se põe de novo por aqui: importe outra vez o ficheiro.");
    const std::vector<std::string> lines = UndoNoted(*store, *noted);
    if (kept != nullptr) *kept = lines;
    return store->LastOperation();
  }
  store->BeginAct("Anular: " + undone.words, operation);
  try {
    store->Within([&] { Undoing(*store, operation).Run(zorCrmParvel::DataAccessRef(store)); });
  } catch (...) {
    store->AbandonAct();
    throw;
  }
  store->EndAct();
  return store->LastOperation();
}

}  // namespace history
