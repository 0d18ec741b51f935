#include "history/keeping_store.h"

#include <algorithm>
#include <utility>

#include "embedded/database.h"
#include "history/kept_rows.h"
#include "history/outside.h"
#include "history/rows.h"
#include "history/rows_by_key.h"
#include "platform/runtime_error.h"
#include "tsql/parser.h"

namespace schema {
extern const char* const kTables;
}

namespace history {
namespace {

using platform::RuntimeError;
using zorCrmParvel::RecordsetRef;

constexpr int kShort = 8;  // writes

std::vector<KeepingStore*>& Stores() {
  static std::vector<KeepingStore*> stores;
  return stores;
}

}  // namespace

const std::vector<KeepingStore*>& OpenStores() { return Stores(); }

std::unique_ptr<KeepingStore> Beside(std::shared_ptr<zorCrmParvel::Store> store) {
  Options options;
  options.beside = true;
  return std::make_unique<KeepingStore>(std::move(store), std::move(options));
}

KeepingStore::KeepingStore(std::shared_ptr<Store> inner, Options options)
    : inner_(std::move(inner)),
      past_(std::move(options.past)),
      file_(options.file ? std::move(options.file) : std::dynamic_pointer_cast<embedded::Database>(inner_)),
      who_(std::move(options.who)),
      beside_(options.beside),
      catalog_(tsql::ParseSchema(options.schema.empty() ? schema::kTables : options.schema.c_str())),
      journal_(inner_, who_, std::move(options.clock)) {
  if (!beside_) Stores().push_back(this);
}

KeepingStore::~KeepingStore() {
  if (!beside_) std::erase(Stores(), this);
  if (open_) inner_->AbandonBatch();
}

bool KeepingStore::ObterLigacao(platform::Ref<platform::Connection>& connection) {
  return inner_->ObterLigacao(connection);
}

void KeepingStore::BeginAct(const std::string& words, long undoes, bool loads) {
  if (act_.depth++ > 0 || batch_) return;
  act_.record = {.words = words, .undoes = undoes, .head = 0, .about = {}};
  act_.wrote = false;
  act_.marked = !loads;
  last_ = 0;
}

void KeepingStore::EndAct() {
  if (act_.depth == 0 || --act_.depth > 0 || batch_) return;
  Pause();
  last_ = act_.record.head;
}

void KeepingStore::AbandonAct() {
  act_.depth = 0;
  if (open_ && !batch_) Abandon();
}

void KeepingStore::Pause() {
  if (open_ && !batch_) Keep();
}

/// A unit begins with the first write, or, where the act has written before, with whatever it does next: it
/// goes on from what it reads.
void KeepingStore::Need() {
  if (open_) return;
  inner_->BeginBatch();
  open_ = true;
  writes_ = 0;
  unitHead_ = act_.record.head;
  ++units_;
}

/// Once an act, before its first read. Within a unit nobody else writes.
void KeepingStore::SetMark() {
  if (act_.depth == 0 || act_.marked || open_ || !Keeps() || !HasHistory()) return;
  act_.marked = true;
  mark_ = NewestNumber(*this);
}

void KeepingStore::Keep() {
  try {
    journal_.Flush(act_.record);
    inner_->CommitBatch();
  } catch (...) {
    Abandon();
    throw;
  }
  open_ = batch_ = false;
  act_.wrote = true;
  if (act_.record.head == 0) return;
  own_.insert(act_.record.head);
  if (act_.record.undoes == 0)
    newest_ = act_.record;
  else if (act_.record.undoes == newest_.head)
    newest_ = {};
}

void KeepingStore::Abandon() {
  open_ = batch_ = false;
  act_.record.head = unitHead_;
  journal_.Forget();
  inner_->AbandonBatch();
}

void KeepingStore::BeginBatch() {
  Pause();
  if (act_.depth == 0) {
    act_ = {};
    act_.record.words = "Gravação em conjunto";
  }
  Need();
  batch_ = true;
}

void KeepingStore::CommitBatch() {
  Keep();
  if (act_.depth == 0) last_ = act_.record.head;
}

void KeepingStore::AbandonBatch() {
  if (open_) Abandon();
}

void KeepingStore::Note(const std::string& words, const std::string& table, const std::string& key) {
  if (Keeps()) last_ = journal_.Note(words, 0, table, key);
}

void KeepingStore::NoteUndone(const std::string& words, const std::string& table, const std::string& key) {
  if (Keeps()) last_ = journal_.Note(words, OperationThatNoted(*this, table, key), table, key);
}

/// What a short act writes goes to the disk at once, its record with it, though it is kept only at the end: a
/// disk that is full is told while the ficha still shows what was to be written.
void KeepingStore::WriteThrough() {
  if (batch_ || file_ == nullptr || ++writes_ > kShort) return;
  journal_.Flush(act_.record);
  file_->WriteThrough();
}

void KeepingStore::Within(const std::function<void()>& write) {
  if (act_.depth > 0 || batch_) {
    Need();
    write();
    return WriteThrough();
  }
  BeginAct("Gravação");
  try {
    Need();
    write();
  } catch (...) {
    AbandonAct();
    throw;
  }
  EndAct();
}

void KeepingStore::Changed(const tsql::Table& table, const Image* before, const Image* after) {
  journal_.Add(act_.record, table, before, after);
}

bool KeepingStore::Execute(const std::string& statement) {
  const auto target = WriteTarget::Of(statement, catalog_);
  if (!target) {
    inner_->ExecutarSql("", statement.c_str());
    return true;
  }
  if (target->table == nullptr || !Keeps()) {
    if (act_.depth > 0 || batch_) Need();
    inner_->ExecutarSql("", statement.c_str());
    return true;
  }
  Within([&] { Run(*target, statement); });
  return true;
}

void KeepingStore::Run(const WriteTarget& target, const std::string& statement) {
  if (target.kind == WriteTarget::Kind::kInsert) return Insert(*target.table, statement);
  const RecordsetRef rows = Read(target);
  if (target.kind == WriteTarget::Kind::kDelete) {
    while (rows->FetchMore(kRowsATime)) continue;
    inner_->ExecutarSql("", statement.c_str());
    return journal_.AddRemoved(act_.record, *target.table, *rows);
  }
  const std::vector<Image> before = ImagesOf(*target.table, *rows);
  inner_->ExecutarSql("", statement.c_str());
  std::vector<const Image*> keys;
  keys.reserve(before.size());
  for (const Image& row : before) keys.push_back(&row);
  const std::map<std::string, Image> after = RowsByKey(*this, *target.table, keys);
  for (const Image& row : before)
    if (const auto found = after.find(FoldedKey(*target.table, row)); found != after.end())
      Changed(*target.table, &row, &found->second);
}

/// The rows that a statement is about to write. Bytes that it leaves alone are not read.
RecordsetRef KeepingStore::Read(const WriteTarget& target) {
  std::vector<const tsql::Column*> columns;
  for (const tsql::Column& column : target.table->columns) {
    const bool assigned = std::any_of(target.assigned.begin(), target.assigned.end(),
                                      [&](const auto& name) { return target.table->Find(name) == &column; });
    if (target.kind == WriteTarget::Kind::kDelete || assigned || !HoldsBytes(column))
      columns.push_back(&column);
  }
  RecordsetRef rows;
  inner_->AbrirLeitura(
      "", ("SELECT " + NamesOf(columns) + " FROM " + Bracketed(target.name) + target.condition).c_str(),
      rows);
  return rows;
}

/// A row that a statement puts in is found by the number that it gets; without numbers nothing is written.
void KeepingStore::Insert(const tsql::Table& table, const std::string& statement) {
  const auto number = std::find_if(table.columns.begin(), table.columns.end(),
                                   [](const tsql::Column& column) { return column.identity; });
  if (number == table.columns.end())
    throw RuntimeError(platform::kStatementRefused, table.name,
                       "Em " + table.name + " os registos novos entram por uma selecção aberta para edição.");
  inner_->ExecutarSql("", statement.c_str());
  RecordsetRef rows;
  inner_->AbrirLeitura(
      "",
      ("SELECT TOP 1 * FROM " + Bracketed(table.name) + " ORDER BY " + Bracketed(number->name) + " DESC")
          .c_str(),
      rows);
  const Image after = ImageAt(table, *rows, 0, PlacesOf(table, *rows));
  rows->Close();
  Changed(table, nullptr, &after);
}

RecordsetRef KeepingStore::OpenForEditing(const std::string& statement) {
  const tsql::Table* table = Keeps() ? EditedTable(statement, catalog_) : nullptr;
  SetMark();
  if (act_.depth > 0 || batch_) Need();
  RecordsetRef rows;
  inner_->AbrirEdicao(statement.c_str(), rows);
  if (table == nullptr) return rows;
  return platform::MakeRef<KeptRows>(*this, *table, rows);
}

void KeepingStore::AddRows(const std::string& table, const std::vector<std::string>& columns,
                           const std::vector<const zorCrmParvel::RowValues*>& rows) {
  const tsql::Table* recorded = Keeps() ? Recorded(table, catalog_) : nullptr;
  Within([&] {
    inner_->AddRows(table, columns, rows);
    if (recorded == nullptr) return;
    journal_.AddAdded(act_.record, *recorded, PlacesOf(*recorded, columns), rows);
  });
}

RecordsetRef KeepingStore::OpenForReading(const std::string& statement) {
  SetMark();
  if (act_.depth > 0 && act_.wrote) Need();
  RecordsetRef rows;
  inner_->AbrirLeitura("", statement.c_str(), rows);
  return rows;
}

KeepingStore::Aside::Aside(KeepingStore& store) : store_(store) {
  store_.Pause();
  act_ = std::exchange(store_.act_, {});
}

KeepingStore::Aside::~Aside() { store_.act_ = act_; }

}  // namespace history
