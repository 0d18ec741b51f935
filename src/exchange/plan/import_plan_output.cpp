// What a plan gives: values for the eye, rows for the database, refused rows for the sender.

#include <algorithm>
#include <ostream>

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

RowState ImportPlan::StateOf(std::size_t number) const {
  const PlanRow& row = data_->table.rows[number];
  return row.leader < 0 ? row.state : data_->table.rows[static_cast<std::size_t>(row.leader)].state;
}

ImportRow ImportPlan::Read(std::size_t row) const {
  std::vector<TableCell> cells;
  const SourceRow source = data_->Source(row, cells);
  MappedRow mapped{.row = ImportRow(columns()), .refusal = {}, .warning = {}, .transaction = {}};
  data_->mapper->Map(source, mapped);
  for (std::size_t i = 0; i < columns().size(); ++i) {
    ImportRow::Field& field = mapped.row.at(i);
    if (!field.number && !field.date && field.text.empty())
      field.text = data_->mapper->TextOf(columns()[i].name, source);
  }
  return std::move(mapped.row);
}

std::vector<std::string> ImportPlan::Values(std::size_t row) const {
  ImportRow read = Read(row);
  std::vector<std::string> values;
  for (std::size_t i = 0; i < columns().size(); ++i) {
    const ImportRow::Field& field = read.at(i);
    values.push_back(field.number ? field.number->ToText() : field.date ? field.date->ToText() : field.text);
  }
  return values;
}

std::vector<std::size_t> ImportPlan::ColumnsInUse() const {
  std::vector<std::size_t> used;
  for (std::size_t i = 0; i < columns().size(); ++i)
    if (columns()[i].required || profile().Find(columns()[i].name) != nullptr) used.push_back(i);
  return used;
}

std::vector<std::string> ImportPlan::Cells(std::size_t row) const {
  std::vector<TableCell> cells;
  data_->UnpackInto(row, cells);
  std::vector<std::string> texts;
  texts.reserve(cells.size());
  for (const TableCell& cell : cells) texts.push_back(cell.text);
  return texts;
}

StoredImport ImportPlan::Store(const std::string& file, const std::string& checksum, const std::string& who,
                               const Progress& progress, const BeforeCommit& beforeCommit) {
  RequireAnswers();
  PlanData& data = *data_;
  zorCrmParvel::LargeBatch batch(*data.bd);
  ImportLog log(data.bd, {.when = platform::Host::Current().Now(),
                          .who = who,
                          .kind = data.kind.name,
                          .file = file,
                          .profile = data.profile.name,
                          .checksum = checksum,
                          .takenBack = {}});
  StoredRows rows(data.bd, data.kind, log);
  PlanRun run(data, rows.through(), PlanRun::Purpose::kStore);
  run.CreateCodes();
  for (const NewCode& code : data.created) rows.AddByKey(code.table, code.code);
  std::vector<bool> touched(data.owners.size());
  run.OnStored([&](std::size_t row, const std::string& key, const std::string& transaction) {
    rows.Add(key, data.table.rows[row].line, transaction);
    touched[data.table.rows[row].owner] = true;
  });
  run.Expect(order_);
  for (std::size_t i = 0; i < order_.size(); ++i) {
    Step(progress, i, order_.size());
    run.Row(order_[i]);
  }
  rows.Finish();
  run.Finish();
  log.Finish();
  if (!data.profile.name.empty()) SaveProfile(data.bd, data.profile);
  if (progress && !progress(order_.size(), order_.size())) throw Cancelled();
  const long number = data.bd->NumberGiven("parvel_importacoes", log.number());
  if (beforeCommit) beforeCommit(number, log.rows());
  batch.Commit();
  StoredImport result{.number = number, .rows = Sums(), .vehicles = {}};
  if (std::string_view(data.kind.owner) == "Matricula")
    for (std::size_t i = 0; i < touched.size(); ++i)
      if (touched[i]) result.vehicles.push_back(data.owners[i]);
  std::sort(result.vehicles.begin(), result.vehicles.end());
  return result;
}

/// Of the file's sum rows, the one that states the whole: by itself or, of sections, all together.
std::optional<platform::Currency> ImportPlan::DeclaredTotal(platform::Currency sum) const {
  std::optional<platform::Currency> last;
  platform::Currency together;
  for (const PlanRow& row : data_->table.rows) {
    if (!row.total || row.amount == 0) continue;
    if (row.amount == sum) return sum;
    together += row.amount;
    last = row.amount;
  }
  return last && together == sum ? sum : last;
}

Reconciliation ImportPlan::Sums() const {
  Reconciliation sums;
  const auto add = [](Tally& tally, const PlanRow& row) {
    ++tally.rows;
    tally.amount += row.amount;
  };
  for (std::size_t i = 0; i < size(); ++i) {
    const PlanRow& row = data_->table.rows[i];
    if (!row.counts) continue;
    add(sums.file, row);
    const RowState state = StateOf(i);
    if (state == RowState::kNew || state == RowState::kWarning) add(sums.stored, row);
    if (state == RowState::kWarning) add(sums.warned, row);
    if (state == RowState::kKnown) add(sums.known, row);
    if (state == RowState::kAside) add(sums.aside, row);
    if (state == RowState::kAside && row.credit) add(sums.credits, row);
    if (state == RowState::kRefused) add(sums.refused, row);
  }
  sums.declared = DeclaredTotal(sums.file.amount);
  return sums;
}

void ImportPlan::WriteRefused(std::ostream& out) const {
  const auto write = [&](const std::vector<TableCell>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) out << (i == 0 ? "" : ";") << CsvField(cells[i].text);
    out << '\n';
  };
  for (const TableRow& row : data_->table.above) write(row.cells);
  std::vector<TableCell> cells;
  std::uint32_t section = 0;  // written last
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    const PlanRow& row = data_->table.rows[i];
    if (StateOf(i) != RowState::kRefused) continue;
    if (row.section != section) out << CsvField(data_->table.sections[row.section]) << '\n';
    section = row.section;
    data_->UnpackInto(i, cells);
    write(cells);
  }
}

}  // namespace exchange
