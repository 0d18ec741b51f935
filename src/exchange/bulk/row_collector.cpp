#include "exchange/bulk/row_collector.h"

#include "exchange/imports/row_mark.h"

namespace exchange {

using platform::FieldInfo;
using platform::Variant;
using zorCrmParvel::RecordsetRef;

namespace {

constexpr std::size_t kMostHeld = 1000;

}  // namespace

/// A new row of the table, on its way into the collector.
class RowCollector::Row : public platform::Recordset {
 public:
  Row(RowCollector& collector, const std::vector<FieldInfo>& fields) : collector_(collector) {
    Opened(fields);
  }

 protected:
  bool Reach(std::size_t row) override { return row < store().rows(); }
  std::size_t Count() override { return store().rows(); }
  void Insert(const Assignments& values) override {
    collector_.Take(fields_, values);
    store().AddRow();
  }

 private:
  RowCollector& collector_;
};

RowCollector::RowCollector(zorCrmParvel::DataAccessRef bd, std::string table, std::string number, Sent sent)
    : bd_(std::move(bd)),
      newRow_("SELECT *  From " + table + " WHERE     (" + number + " = N'0')"),
      held_{.table = std::move(table), .number = std::move(number), .columns = {}, .rows = {}},
      sent_(std::move(sent)) {}

void RowCollector::Take(const std::vector<FieldInfo>& fields,
                        const std::vector<std::optional<Variant>>& values) {
  if (held_.rows.size() == kMostHeld) Flush();
  std::vector<Variant> row;
  std::size_t same = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!values[i]) continue;
    if (same == row.size() && same < held_.columns.size() && held_.columns[same] == fields[i].name) ++same;
    row.push_back(*values[i]);
  }
  if (same != row.size() || same != held_.columns.size()) {
    Flush();
    held_.columns.clear();
    for (std::size_t i = 0; i < fields.size(); ++i)
      if (values[i]) held_.columns.push_back(fields[i].name);
  }
  marks_.push_back(MarkOf(fields, values, held_.number));
  held_.rows.push_back(std::move(row));
}

void RowCollector::Flush() {
  if (held_.rows.empty()) return;
  const std::vector<std::int32_t> numbers = AddRows(bd_, held_);
  for (std::size_t i = 0; i < numbers.size(); ++i) sent_(numbers[i], std::move(marks_[i]));
  held_.rows.clear();
  marks_.clear();
}

void RowCollector::FlushBefore(std::string_view statement) {
  if (!held_.rows.empty() && statement.find(held_.table) != std::string_view::npos) Flush();
}

bool RowCollector::ObterLigacao(platform::Ref<platform::Connection>& connection) {
  Flush();
  return bd_->ObterLigacao(connection);
}

bool RowCollector::Execute(const std::string& statement) {
  FlushBefore(statement);
  return bd_->ExecutarSql("", {zorCrmParvel::fixed(statement)});
}

RecordsetRef RowCollector::OpenForEditing(const std::string& statement) {
  RecordsetRef rows;
  if (statement != newRow_ || fields_.empty()) {
    FlushBefore(statement);
    bd_->AbrirEdicao({zorCrmParvel::fixed(statement)}, rows);
    if (statement != newRow_) return rows;
    fields_ = rows->FieldList();
    rows->Close();
  }
  return RecordsetRef(std::make_shared<Row>(*this, fields_));
}

RecordsetRef RowCollector::OpenForReading(const std::string& statement) {
  FlushBefore(statement);
  RecordsetRef rows;
  bd_->AbrirLeitura("", {zorCrmParvel::fixed(statement)}, rows);
  return rows;
}

}  // namespace exchange
