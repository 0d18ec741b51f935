#include "history/journal.h"

#include <algorithm>

#include "history/digest.h"
#include "history/json.h"
#include "history/settings.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Variant;
using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;

constexpr std::size_t kMostPending = 4000;           // rows
constexpr std::size_t kMostPendingBytes = 4U << 20;  // of JSON
constexpr std::size_t kFewRows = 8;                  // as many rows of one kind stand alone
constexpr std::size_t kMostTogether = 500;           // rows in one of the history's
constexpr std::size_t kMostStored = 200;             // through one recordset
constexpr const char* kSeveral = "*";                // the key of several rows

/// What people call the record by: the plate or the code, whichever of these columns the row has first.
std::string RecordOf(const tsql::Table& table, const Image& image) {
  for (const char* name :
       {"Matricula", "Codigo", "Motorista", "zor_Fotos_Entidade", "zor_ArquivoDigital_Entidade"})
    for (std::size_t i = 0; i < image.size(); ++i)
      if (image[i] && !image[i]->IsNull() && platform::EqualsIgnoringCase(table.columns[i].name, name))
        return image[i]->ToText();
  return KeyText(table, image);
}

/// The columns of the second image that differ from the first.
Image Differing(const tsql::Table& table, const Image& before, const Image& after) {
  Image differing(after.size());
  for (std::size_t i = 0; i < after.size(); ++i)
    if (after[i] && (!before[i] || !SameValue(table.columns[i], *before[i], *after[i])))
      differing[i] = after[i];
  return differing;
}

bool IsEmpty(const Image& image) {
  for (const auto& value : image)
    if (value) return false;
  return true;
}

std::string Joined(const std::vector<Alteration>& rows, std::size_t from, std::size_t to,
                   std::string Alteration::*side) {
  if ((rows[from].*side).empty()) return {};
  std::string json = "[";
  for (std::size_t i = from; i < to; ++i) json += (i == from ? "" : ",\n") + rows[i].*side;
  return json + "]";
}

/// Does what writes to the history's tables. Where the server does not allow it, the user is told what the
/// change was refused for.
template <typename Work>
void Allowed(const Work& work) {
  try {
    work();
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kStatementRefused) throw;
    throw platform::RuntimeError(
        error.number(), "Histórico",
        error.description() +
            " A alteração não ficou gravada, porque o histórico não a podia lembrar: é preciso poder ler e "
            "gravar em parvel_historico e parvel_conteudos, ou desligar o histórico com «parvel historico "
            "opcoes --desligar».");
  }
}

bool Alike(const Alteration& a, const Alteration& b) {
  const auto kind = [](const Alteration& each) { return std::pair(each.before.empty(), each.after.empty()); };
  return a.table == b.table && b.rows == 1 && kind(a) == kind(b) && kind(a) != std::pair(false, false);
}

}  // namespace

const std::array<const char*, Journal::kAfter + 1> Journal::kColumns = {
    "Id",    "Operacao", "Momento", "Operador", "Posto", "Texto", "Registo",
    "Anula", "Tabela",   "Chave",   "Linhas",   "Antes", "Depois"};

Journal::Journal(std::shared_ptr<zorCrmParvel::Store> store, Who who, std::function<platform::Date()> clock)
    : store_(std::move(store)), who_(std::move(who)), clock_(std::move(clock)) {
  Look();
}

void Journal::Look() {
  std::string names;
  for (const char* name : kColumns) names += (names.empty() ? "" : ", ") + std::string(name);
  bool there = true;
  exists_ = true;
  try {
    RecordsetRef rows;
    store_->AbrirLeitura("", ("SELECT " + names + " FROM parvel_historico WHERE Id = 0").c_str(), rows);
    rows->Close();
  } catch (const platform::RuntimeError& error) {
    there = error.number() == platform::kStatementRefused;
    if (!there && error.number() != platform::kInvalidObject && error.number() != platform::kInvalidColumn)
      throw;
    exists_ = false;
  }
  keeps_ = there && ReadSettings(zorCrmParvel::DataAccessRef(store_)).records;
}

void Journal::Add(ActRecord& act, const tsql::Table& table, const Image* before, const Image* after) {
  Alteration row{&table, {}, {}, {}, 1};
  const Image& known = before != nullptr ? *before : *after;
  if (before != nullptr && after != nullptr) {
    const Image differing = Differing(table, *before, *after);
    if (IsEmpty(differing)) return;
    Image lost(before->size());
    for (std::size_t i = 0; i < lost.size(); ++i)
      if (differing[i] || !HoldsBytes(table.columns[i])) lost[i] = (*before)[i];
    KeepContents(table, lost);
    row.before = ToJson(table, lost);
    row.after = ToJson(table, differing);
  } else if (before != nullptr) {
    KeepContents(table, *before);
    row.before = ToJson(table, *before);
  } else {
    row.after = ToJson(table, *after);
  }
  row.key = KeyText(table, known);
  if (act.about.empty()) act.about = RecordOf(table, known);
  Collect(act, std::move(row));
}

void Journal::AddRemoved(ActRecord& act, const tsql::Table& table, platform::Recordset& rows) {
  const Places places = PlacesOf(table, rows);
  const bool bytes = std::any_of(table.columns.begin(), table.columns.end(), HoldsBytes);
  const std::size_t count = rows.RowsAtHand();
  JsonList list(table);
  for (std::size_t row = 0; row < count; ++row) {
    if (bytes || count <= kFewRows || act.about.empty()) {
      const Image before = ImageAt(table, rows, row, places);
      Add(act, table, &before, nullptr);
      continue;
    }
    list.Add(rows, row, places);
    if (list.rows() == kMostTogether) CollectList(act, table, list, &Alteration::before);
  }
  if (list.rows() > 0) CollectList(act, table, list, &Alteration::before);
}

void Journal::AddAdded(ActRecord& act, const tsql::Table& table, const Places& places,
                       const std::vector<const zorCrmParvel::RowValues*>& rows) {
  JsonList list(table);
  for (const zorCrmParvel::RowValues* row : rows) {
    if (rows.size() <= kFewRows || act.about.empty()) {
      const Image after = ImageOf(places, *row);
      Add(act, table, nullptr, &after);
      continue;
    }
    list.Add(*row, places);
    if (list.rows() == kMostTogether) CollectList(act, table, list, &Alteration::after);
  }
  if (list.rows() > 0) CollectList(act, table, list, &Alteration::after);
}

void Journal::CollectList(ActRecord& act, const tsql::Table& table, JsonList& list,
                          std::string Alteration::*side) {
  Alteration rows{&table, kSeveral, {}, {}, static_cast<long>(list.rows())};
  rows.*side = list.Take();
  Collect(act, std::move(rows));
}

void Journal::Collect(ActRecord& act, Alteration row) {
  pendingBytes_ += row.before.size() + row.after.size();
  pending_.push_back(std::move(row));
  if (pending_.size() >= kMostPending || pendingBytes_ >= kMostPendingBytes) Flush(act);
}

/// Bytes that a write takes away, once for each content.
void Journal::KeepContents(const tsql::Table& table, const Image& image) {
  for (std::size_t i = 0; i < image.size(); ++i) {
    if (!image[i] || !HoldsBytes(table.columns[i]) || image[i]->IsNull()) continue;
    Allowed([&] { KeepContent(Digest(image[i]->ToBytes()), *image[i]); });
  }
}

void Journal::KeepContent(const std::string& digest, const Variant& content) {
  RecordsetRef rows;
  store_->AbrirEdicao({"SELECT Resumo FROM parvel_conteudos WHERE Resumo = '", fixed(digest), "'"}, rows);
  const bool known = !rows->Eof();
  rows->Close();
  if (known) return;
  store_->AbrirEdicao("SELECT Resumo, Conteudo FROM parvel_conteudos WHERE 1 = 0", rows);
  rows->AddNew();
  rows->Fields("Resumo").SetValue(digest);
  rows->Fields("Conteudo").SetValue(content);
  rows->Update();
  rows->Close();
}

void Journal::Flush(ActRecord& act) {
  if (pending_.empty()) return;
  Allowed([&] { StorePending(act); });
  pending_.clear();
  pendingBytes_ = 0;
}

void Journal::StorePending(ActRecord& act) {
  for (std::size_t from = 0; from < pending_.size();) {
    std::size_t to = from + 1;
    Alteration& first = pending_[from];
    if (first.rows == 1)
      while (to < pending_.size() && to - from < kMostTogether && Alike(first, pending_[to])) ++to;
    if (to - from <= kFewRows) {
      Store(act, *first.table, first.key, first.rows, std::move(first.before), std::move(first.after));
      to = from + 1;
    } else {
      Store(act, *first.table, kSeveral, static_cast<long>(to - from),
            Joined(pending_, from, to, &Alteration::before), Joined(pending_, from, to, &Alteration::after));
    }
    from = to;
  }
}

void Journal::Forget() {
  pending_.clear();
  pendingBytes_ = 0;
  rows_.reset();
}

void Journal::Open() {
  store_->AbrirEdicao("SELECT * FROM parvel_historico WHERE Id = 0", rows_);
  for (std::size_t i = 0; i < kColumns.size(); ++i) places_.at(i) = rows_->FindField(kColumns.at(i)).value();
  stored_ = 0;
}

void Journal::Put(Column column, Variant value) { FieldOf(column).SetValue(std::move(value)); }

void Journal::Cut(Column column, const std::string& text) {
  auto field = FieldOf(column);
  field.SetValue(platform::Left(text, static_cast<std::size_t>(field.DefinedSize())));
}

void Journal::PutHead(const std::string& words, const std::string& about, long undoes) {
  Put(kMoment, clock_());
  Cut(kWho, who_.operador);
  Cut(kWhere, who_.posto);
  const bool named = about.empty() || undoes != 0;  // an undoing bears the words of what it undoes
  Cut(kWords, named ? words : words + ", " + about);
  Cut(kAbout, about);
  if (undoes != 0) Put(kUndoes, static_cast<std::int32_t>(undoes));
}

/// The first row of an act tells of the act as well.
void Journal::Store(ActRecord& act, const tsql::Table& table, const std::string& key, long rows,
                    std::string before, std::string after) {
  if (!rows_ || stored_ == kMostStored) Open();
  ++stored_;
  rows_->AddNew();
  if (act.head != 0)
    Put(kHead, static_cast<std::int32_t>(act.head));
  else
    PutHead(act.words, act.about, act.undoes);
  Put(kTable, table.name);
  Cut(kKey, key);
  Put(kRows, static_cast<std::int32_t>(rows));
  if (!before.empty()) Put(kBefore, std::move(before));
  if (!after.empty()) Put(kAfter, std::move(after));
  rows_->Update();
  if (act.head == 0) act.head = FieldOf(kId).Value().ToLong();
}

long Journal::Note(const std::string& words, long undoes, const std::string& table, const std::string& key) {
  Open();
  rows_->AddNew();
  PutHead(words, {}, undoes);
  if (!table.empty()) {
    Put(kTable, table);
    Cut(kKey, key);
  }
  Put(kRows, std::int32_t{0});
  rows_->Update();
  const long number = FieldOf(kId).Value().ToLong();
  rows_.reset();
  return number;
}

}  // namespace history
