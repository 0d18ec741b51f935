#include "history/journal.h"

#include "history/digest.h"
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
      if (image[i] && platform::EqualsIgnoringCase(table.columns[i].name, name)) return image[i]->ToText();
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

bool Alike(const Alteration& a, const Alteration& b) {
  const auto kind = [](const Alteration& each) { return std::pair(each.before.empty(), each.after.empty()); };
  return a.table == b.table && kind(a) == kind(b) && kind(a) != std::pair(false, false);
}

}  // namespace

Journal::Journal(std::shared_ptr<zorCrmParvel::Store> store, Who who, std::function<platform::Date()> clock)
    : store_(std::move(store)), who_(std::move(who)), clock_(std::move(clock)) {
  Look();
}

void Journal::Look() {
  try {
    RecordsetRef rows;
    store_->AbrirLeitura(
        "",
        "SELECT Id, Operacao, Momento, Operador, Posto, Texto, Registo, Anula, Tabela, Chave, "
        "Linhas, Antes, Depois FROM parvel_historico WHERE Id = 0",
        rows);
    rows->Close();
    exists_ = true;
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject && error.number() != platform::kInvalidColumn) throw;
    exists_ = false;
  }
  keeps_ = exists_ && ReadSettings(zorCrmParvel::DataAccessRef(store_)).records;
}

void Journal::Add(ActRecord& act, const tsql::Table& table, const Image* before, const Image* after) {
  Alteration row{&table, {}, {}, {}};
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
  pendingBytes_ += row.before.size() + row.after.size();
  pending_.push_back(std::move(row));
  if (pending_.size() >= kMostPending || pendingBytes_ >= kMostPendingBytes) Flush(act);
}

/// Bytes that a write takes away, once for each content.
void Journal::KeepContents(const tsql::Table& table, const Image& image) {
  for (std::size_t i = 0; i < image.size(); ++i) {
    if (!image[i] || !HoldsBytes(table.columns[i]) || image[i]->IsNull()) continue;
    const std::string digest = Digest(image[i]->ToBytes());
    RecordsetRef rows;
    store_->AbrirEdicao({"SELECT Resumo FROM parvel_conteudos WHERE Resumo = '", fixed(digest), "'"}, rows);
    const bool known = !rows->Eof();
    rows->Close();
    if (known) continue;
    store_->AbrirEdicao("SELECT Resumo, Conteudo FROM parvel_conteudos WHERE 1 = 0", rows);
    rows->AddNew();
    rows->Fields("Resumo").SetValue(digest);
    rows->Fields("Conteudo").SetValue(*image[i]);
    rows->Update();
    rows->Close();
  }
}

void Journal::Flush(ActRecord& act) {
  for (std::size_t from = 0; from < pending_.size();) {
    std::size_t to = from + 1;
    while (to < pending_.size() && to - from < kMostTogether && Alike(pending_[from], pending_[to])) ++to;
    const Alteration& first = pending_[from];
    if (to - from <= kFewRows) {
      Store(act, *first.table, first.key, 1, first.before, first.after);
      to = from + 1;
    } else {
      Store(act, *first.table, kSeveral, static_cast<long>(to - from),
            Joined(pending_, from, to, &Alteration::before), Joined(pending_, from, to, &Alteration::after));
    }
    from = to;
  }
  pending_.clear();
  pendingBytes_ = 0;
}

void Journal::Forget() {
  pending_.clear();
  pendingBytes_ = 0;
  rows_.reset();
}

void Journal::Open() {
  store_->AbrirEdicao("SELECT * FROM parvel_historico WHERE Id = 0", rows_);
  stored_ = 0;
}

void Journal::Put(const char* column, const Variant& value) { rows_->Fields(column).SetValue(value); }

void Journal::Cut(const char* column, const std::string& text) {
  auto field = rows_->Fields(column);
  field.SetValue(platform::Left(text, static_cast<std::size_t>(field.DefinedSize())));
}

void Journal::PutHead(const std::string& words, const std::string& about, long undoes) {
  Put("Momento", clock_());
  Cut("Operador", who_.operador);
  Cut("Posto", who_.posto);
  Cut("Texto", words + (about.empty() ? "" : ", " + about));
  Cut("Registo", about);
  if (undoes != 0) Put("Anula", static_cast<std::int32_t>(undoes));
}

/// The first row of an act tells of the act as well.
void Journal::Store(ActRecord& act, const tsql::Table& table, const std::string& key, long rows,
                    const std::string& before, const std::string& after) {
  if (!rows_ || stored_ == kMostStored) Open();
  ++stored_;
  rows_->AddNew();
  if (act.head != 0)
    Put("Operacao", static_cast<std::int32_t>(act.head));
  else
    PutHead(act.words, act.about, act.undoes);
  Put("Tabela", table.name);
  Cut("Chave", key);
  Put("Linhas", static_cast<std::int32_t>(rows));
  if (!before.empty()) Put("Antes", before);
  if (!after.empty()) Put("Depois", after);
  rows_->Update();
  if (act.head == 0) act.head = rows_->Fields("Id").Value().ToLong();
}

long Journal::Note(const std::string& words, long undoes, const std::string& table, const std::string& key) {
  Open();
  rows_->AddNew();
  PutHead(words, {}, undoes);
  if (!table.empty()) {
    Put("Tabela", table);
    Cut("Chave", key);
  }
  Put("Linhas", std::int32_t{0});
  rows_->Update();
  const long number = rows_->Fields("Id").Value().ToLong();
  rows_.reset();
  return number;
}

}  // namespace history
