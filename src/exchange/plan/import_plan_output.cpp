// What a plan gives: values for the eye, rows for the database, refused rows for the sender.

#include <algorithm>
#include <ostream>
#include <set>

#include "exchange/csv_text.h"
#include "exchange/imports/import_log.h"
#include "exchange/imports/row_mark.h"
#include "exchange/imports/stored_rows.h"
#include "exchange/plan/import_plan.h"
#include "exchange/plan/plan_run.h"
#include "exchange/plan/source_row.h"
#include "exchange/profile/profile_store.h"
#include "platform/host.h"

namespace exchange {

std::vector<std::string> ImportPlan::Values(std::size_t row) const {
  std::vector<TableCell> cells;
  const SourceRow source = data_->Source(row, cells);
  MappedRow mapped{.row = ImportRow(columns()), .refusal = {}, .warning = {}, .transaction = {}};
  data_->mapper->Map(source, mapped);
  std::vector<std::string> values;
  for (std::size_t i = 0; i < columns().size(); ++i) {
    const ImportRow::Field& field = mapped.row.at(i);
    values.push_back(field.number ? field.number->ToText() : field.date ? field.date->ToText() : field.text);
    if (values.back().empty()) values.back() = data_->mapper->TextOf(columns()[i].name, source);
  }
  return values;
}

std::vector<std::string> ImportPlan::Cells(std::size_t row) const {
  std::vector<TableCell> cells;
  data_->UnpackInto(row, cells);
  std::vector<std::string> texts;
  for (const TableCell& cell : cells) texts.push_back(cell.text);
  return texts;
}

StoredImport ImportPlan::Store(const std::string& file, const std::string& checksum, const std::string& who,
                               const Progress& progress) {
  RequireAnswers();
  PlanData& data = *data_;
  zorCrmParvel::Batch batch(*data.bd);
  StoredRows after(data.bd, data.kind);
  PlanRun run(data);
  run.CreateCodes();
  for (std::size_t i = 0; i < order_.size(); ++i) {
    Step(progress, i, order_.size());
    run.Row(order_[i]);
  }
  run.Finish();
  ImportLog log(data.bd, {.when = platform::Host::Current().Now(),
                          .who = who,
                          .kind = data.kind.name,
                          .file = file,
                          .profile = data.profile.name,
                          .checksum = checksum,
                          .takenBack = {}});
  for (const NewCode& code : data.created) after.AddByKey(log, code.table, code.code);
  StoredImport result;
  std::set<std::string> vehicles;
  after.Begin();
  for (const PlanRun::Stored& stored : run.stored()) {
    const PlanRow& row = data.table.rows[stored.row];
    after.Add(log,
              {.key = stored.key, .date = row.date, .line = row.line, .transaction = stored.transaction});
    if (std::string_view(data.kind.owner) == "Matricula") vehicles.insert(data.owners[row.owner]);
  }
  log.Finish();
  if (!data.profile.name.empty()) SaveProfile(data.bd, data.profile);
  if (progress && !progress(order_.size(), order_.size())) throw Cancelled();
  batch.Commit();
  result.number = log.number();
  result.rows = Sums();
  result.vehicles.assign(vehicles.begin(), vehicles.end());
  return result;
}

void ImportPlan::WriteRefused(std::ostream& out) const {
  const auto write = [&](const std::vector<TableCell>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) out << (i == 0 ? "" : ";") << CsvField(cells[i].text);
    out << '\n';
  };
  for (const TableRow& row : data_->table.above) write(row.cells);
  std::vector<TableCell> cells;
  std::uint32_t section = 0;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    const PlanRow& row = data_->table.rows[i];
    const PlanRow& fate = row.leader >= 0 ? data_->table.rows[static_cast<std::size_t>(row.leader)] : row;
    if (fate.state != RowState::kRefused) continue;
    if (row.section != section) out << CsvField(data_->table.sections[row.section]) << '\n';
    section = row.section;
    data_->UnpackInto(i, cells);
    write(cells);
  }
}

}  // namespace exchange
