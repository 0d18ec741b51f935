#include "store/near_store.h"

#include <optional>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "store/copied_rows.h"
#include "tsql/lexer.h"
#include "tsql/parser.h"

namespace store {
namespace {

using zorCrmParvel::RecordsetRef;

/// The statement with a mark in the place of each literal; nothing when it asks for the server's clock.
std::optional<std::string> ShapeOf(const std::string& statement) {
  std::string shape;
  tsql::Lexer lexer(statement);
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    if (platform::EqualsIgnoringCase(token.text, "getdate")) return {};
    const bool literal = token.kind != tsql::TokenKind::kName && token.kind != tsql::TokenKind::kSymbol;
    shape.append(literal ? "?" : token.text).append(" ");
  }
  return shape;
}

/// The tables of a read whose rows both engines give alike; empty for any other read.
std::vector<std::string> PlainTables(const tsql::Select& select) {
  if (select.cores.size() != 1 || !select.orderBy.empty()) return {};
  const tsql::SelectCore& core = select.cores.front();
  if (!core.from || core.top || !core.where) return {};
  std::vector<std::string> tables{core.from->name};
  for (const tsql::Join& join : core.joins) tables.push_back(join.table.name);
  return tables;
}

/// Names the rows that a read is about, when they are those of one table that have one text in one column;
/// empty for any other.
std::string PartOf(const tsql::Select& select) {
  const std::vector<std::string> tables = PlainTables(select);
  if (tables.size() != 1) return {};
  const auto* equal = std::get_if<tsql::Binary>(&select.cores.front().where->node);
  if (equal == nullptr || equal->op != tsql::Operator::kEqual) return {};
  const auto* column = std::get_if<tsql::ColumnRef>(&equal->left->node);
  const auto* literal = std::get_if<tsql::Literal>(&equal->right->node);
  if (column == nullptr || literal == nullptr) return {};
  if (literal->kind != tsql::Literal::Kind::kString && literal->kind != tsql::Literal::Kind::kNationalString)
    return {};
  std::string value = literal->value;
  value.erase(value.find_last_not_of(' ') + 1);  // as texts are compared
  return tables.front() + '\x1F' + column->name + '\x1F' + value;
}

}  // namespace

NearStore::NearStore(std::shared_ptr<zorCrmParvel::Store> server, std::string schema, std::size_t mostRows,
                     ApplyChanges apply)
    : ForwardingStore(std::move(server)),
      schema_(std::move(schema)),
      mostRows_(mostRows),
      apply_(std::move(apply)) {}

std::function<std::shared_ptr<zorCrmParvel::Store>()> NearStore::Opener() const {
  const auto server = inner().Opener();
  if (!server) return {};
  return [server, schema = schema_, most = mostRows_] {
    return std::make_shared<NearStore>(server(), schema, most);
  };
}

void NearStore::Forget() {
  asked_.clear();
  parts_.clear();
  kept_ = 0;
  shapes_.clear();
  tables_.reset();
}

void NearStore::Written() {
  over_ = snapshots_ > 0;
  Forget();
}

void NearStore::BeginBatch() {
  Written();
  ForwardingStore::BeginBatch();
  batch_ = true;
}

void NearStore::BeginLargeBatch() {
  if (!apply_) return BeginBatch();
  Written();
  given_.clear();
  large_ = std::make_unique<FarBatch>(inner(), schema_);
}

/// Brings what was done in memory to the server, within a batch of the server's that goes on.
void NearStore::SendLarge() {
  const std::unique_ptr<FarBatch> large = std::move(large_);
  ForwardingStore::BeginBatch();
  batch_ = true;
  given_ = large->Send(apply_);
}

void NearStore::CommitBatch() {
  if (large_) SendLarge();
  ForwardingStore::CommitBatch();
  batch_ = false;
}

void NearStore::AbandonBatch() {
  large_.reset();
  if (std::exchange(batch_, false)) ForwardingStore::AbandonBatch();
}

long NearStore::NumberGiven(const std::string& table, long number) {
  if (large_) SendLarge();
  const auto numbers = given_.find(table);
  if (numbers == given_.end()) return number;
  const auto found = numbers->second.find(number);
  return found == numbers->second.end() ? number : found->second;
}

void NearStore::AddRows(const std::string& table, const std::vector<std::string>& columns,
                        const std::vector<const zorCrmParvel::RowValues*>& rows) {
  if (large_) SendLarge();
  Written();
  ForwardingStore::AddRows(table, columns, rows);
}

/// True while a large batch runs a statement in memory. One that it can't take makes all of the batch the
/// server's.
bool NearStore::InMemory(const std::string& statement) {
  if (!large_) return false;
  if (large_->Covers(statement)) return true;
  SendLarge();
  return false;
}

void NearStore::EndSnapshot() noexcept {
  if (--snapshots_ > 0) return;
  over_ = false;
  Forget();
}

bool NearStore::Execute(const std::string& statement) {
  if (InMemory(statement)) {
    large_->Written(statement);
    return large_->memory().ExecutarSql("", statement.c_str());
  }
  Written();
  return ForwardingStore::Execute(statement);
}

RecordsetRef NearStore::OpenForEditing(const std::string& statement) {
  if (InMemory(statement)) {
    large_->Written(statement);
    RecordsetRef rows;
    large_->memory().AbrirEdicao(statement.c_str(), rows);
    return rows;
  }
  Written();
  return ForwardingStore::OpenForEditing(statement);
}

RecordsetRef NearStore::OpenForReading(const std::string& statement) {
  if (InMemory(statement)) {
    RecordsetRef rows;
    large_->memory().AbrirLeitura("", statement.c_str(), rows);
    return rows;
  }
  return snapshots_ == 0 || over_ ? ForwardingStore::OpenForReading(statement) : Near(statement);
}

RecordsetRef NearStore::Near(const std::string& statement) {
  if (const auto asked = asked_.find(statement); asked != asked_.end())
    return platform::MakeRef<CopiedRows>(*asked->second);
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  const auto* select = std::get_if<tsql::Select>(&node);
  if (select == nullptr) {
    Written();
    return ForwardingStore::OpenForReading(statement);
  }
  try {
    if (RecordsetRef rows = OfMemory(*select, statement)) return rows;
  } catch (const platform::RuntimeError&) {
    // The server says what is wrong with it, in its own words.
  }
  return OfServer(*select, statement);
}

/// Null when memory can't answer it.
RecordsetRef NearStore::OfMemory(const tsql::Select& select, const std::string& statement) {
  const std::vector<std::string> tables = PlainTables(select);
  const auto shape = ShapeOf(statement);
  if (tables.empty() || !shape) return {};
  if (++shapes_[*shape] > 1) {
    if (!tables_) tables_ = std::make_unique<NearTables>(inner(), schema_, mostRows_);
    return tables_->Take(tables) ? tables_->Open(statement) : RecordsetRef();
  }
  const auto part = parts_.find(PartOf(select));
  if (part == parts_.end()) return {};
  NearTables only(inner(), schema_, mostRows_);
  return only.TakeOnly(tables.front(), *part->second) ? only.Open(statement) : RecordsetRef();
}

RecordsetRef NearStore::OfServer(const tsql::Select& select, const std::string& statement) {
  RecordsetRef rows = ForwardingStore::OpenForReading(statement);
  kept_ += static_cast<std::size_t>(rows->RecordCount()) + 1;
  if (kept_ > kMostKept) return rows;
  asked_.emplace(statement, rows);
  const tsql::SelectCore& core = select.cores.front();
  if (std::string part = PartOf(select); !part.empty() && core.items.size() == 1 && core.items.front().star)
    parts_.emplace(std::move(part), rows);
  return platform::MakeRef<CopiedRows>(*rows);
}

}  // namespace store
