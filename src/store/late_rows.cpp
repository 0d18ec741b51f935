#include "store/late_rows.h"

#include <algorithm>
#include <utility>

#include "tsql/parser.h"

namespace store {
namespace {

using platform::Connection;
using zorCrmParvel::RecordsetRef;

/// How many columns a statement gives; 0 where that isn't told by itself alone.
std::size_t ColumnsOf(const std::string& statement) {
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  const auto* select = std::get_if<tsql::Select>(&node);
  if (select == nullptr) return 0;
  const std::vector<tsql::SelectItem>& items = select->cores.front().items;
  const bool whole = std::any_of(items.begin(), items.end(), [](const auto& item) { return item.star; });
  return whole ? 0 : items.size();
}

class LateConnection : public Connection {
 public:
  explicit LateConnection(platform::Ref<Connection> inner) : inner_(std::move(inner)) {}
  RecordsetRef Execute(const std::string& statement) override {
    const std::size_t columns = ColumnsOf(statement);
    if (columns == 0) return inner_->Execute(statement);
    return platform::MakeRef<LateRows>(columns, statement,
                                       [inner = inner_, statement] { return inner->Execute(statement); });
  }

 private:
  platform::Ref<Connection> inner_;
};

}  // namespace

LateRows::LateRows(std::size_t columns, std::string statement, Read read)
    : statement_(std::move(statement)), read_(std::move(read)) {
  Opened(std::vector<platform::FieldInfo>(columns));
}

void LateRows::Bring(platform::Recordset& rows) {
  if (!std::exchange(waiting_, false)) return;
  Opened(rows.FieldList());
  for (std::size_t row = 0; row < rows.RowsAtHand() || rows.FetchMore(1); ++row) {
    store().AddRow();
    for (std::size_t i = 0; i < fields_.size(); ++i) store().Put(row, i, rows.CellAt(row, i));
  }
}

std::size_t LateRows::Count() {
  if (waiting_) Bring(*read_());
  return store().rows();
}

bool LateLookups::ObterLigacao(platform::Ref<platform::Connection>& connection) {
  const bool open = ForwardingStore::ObterLigacao(connection);
  if (open) connection = platform::MakeRef<LateConnection>(connection);
  return open;
}

}  // namespace store
