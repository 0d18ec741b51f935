#include "exchange/plan/import_plan.h"

#include <algorithm>
#include <numeric>

#include "exchange/plan/new_codes.h"
#include "exchange/plan/plan_run.h"
#include "exchange/plan/source_row.h"
#include "exchange/shape/profile_guess.h"
#include "exchange/values/fold.h"

namespace exchange {
namespace {

using platform::Currency;
using platform::Date;

constexpr const char* kCredit = "Nota de crédito.";

const ImportKind& KnownKind(const std::string& name) {
  if (const ImportKind* kind = KindOf(name)) return *kind;
  throw std::runtime_error("O perfil é de um tipo que não se conhece: «" + name + "».");
}

}  // namespace

void PlanData::UnpackInto(std::size_t row, std::vector<TableCell>& cells) const {
  UnpackCells(table.rows[row].cells, cells);
}

ImportPlan::ImportPlan(platform::Ref<zorCrmParvel::Store> bd, Profile profile) {
  const ImportKind& kind = KnownKind(profile.kind);
  data_ = std::unique_ptr<PlanData>(new PlanData{.bd = bd,
                                                 .profile = std::move(profile),
                                                 .kind = kind,
                                                 .table = {},
                                                 .reading = {},
                                                 .codes = CodeFinder(bd),
                                                 .mapper = {},
                                                 .corrections = {},
                                                 .added = {},
                                                 .created = {}});
}

ImportPlan::~ImportPlan() = default;

void ImportPlan::Load(TableReader& reader, const Progress& progress) {
  data_->table = LoadTable(reader, data_->profile, progress);
  if (reader.Facts().calendar1904) data_->profile.calendar1904 = true;
  SplitLicences();
  Prepare();
}

void ImportPlan::Answer(DateOrder order) {
  data_->profile.dateOrder = order;
  Prepare();
}

void ImportPlan::Answer(char decimal) {
  data_->profile.decimal = decimal;
  Prepare();
}

/// What depends on how values are read: the order of the rows, credit notes, documents.
void ImportPlan::Prepare() {
  PlanData& data = *data_;
  questions_.clear();
  const auto order = data.profile.dateOrder ? data.profile.dateOrder : data.table.orders.Found();
  if (!order) questions_.push_back({Question::About::kDateOrder, data.table.orders.Doubt()});
  const auto decimal = !data.profile.decimal.empty() ? data.profile.decimal[0] : data.table.marks.Found();
  if (!decimal) questions_.push_back({Question::About::kDecimal, data.table.marks.Doubt()});
  data.reading = {.decimal = decimal.value_or(','),
                  .order = order.value_or(DateOrder::kDayFirst),
                  .calendar1904 = data.profile.calendar1904};
  data.mapper =
      std::make_unique<RowMapper>(data.profile, data.kind, data.table.header, data.reading, data.codes);
  SetCreditsAside();
  if (data.profile.document) JoinDocuments();
  Order();
}

void ImportPlan::SetCreditsAside() {
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    PlanRow& row = data_->table.rows[i];
    if (!row.counts) continue;
    if (row.reason == kCredit) row.state = RowState::kUnchecked;
    row.amount = data_->mapper->AmountOf(data_->Source(i, cells)).value_or(Currency());
    if (row.state == RowState::kAside || row.amount >= 0 || data_->profile.creditNotes) continue;
    row.state = RowState::kAside;
    row.reason = kCredit;
  }
}

void ImportPlan::JoinDocuments() {
  data_->added.clear();
  const int place = PlaceOf(*data_->profile.document, data_->table.header);
  std::unordered_map<std::string, std::size_t> first;
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    PlanRow& row = data_->table.rows[i];
    row.leader = -1;
    if (row.state == RowState::kAside || place < 0) continue;
    const SourceRow source = data_->Source(i, cells);
    const auto at = static_cast<std::size_t>(place);
    std::string key = at < cells.size() ? Stripped(cells[at].text) : "";
    if (key.empty()) continue;
    key += "\x1F" + data_->mapper->TextOf(data_->kind.owner, source);
    if (data_->kind.figures == Figures::kExpenses) key += "\x1F" + data_->mapper->TextOf("TipoGasto", source);
    const auto [leader, fresh] = first.try_emplace(key, i);
    if (fresh) continue;
    row.leader = static_cast<std::int32_t>(leader->second);
    data_->added[leader->second].push_back(i);
  }
}

/// Several classes in one cell are a row each.
void ImportPlan::SplitLicences() {
  if (std::string_view(data_->kind.name) != "cartas") return;
  data_->mapper =
      std::make_unique<RowMapper>(data_->profile, data_->kind, data_->table.header, Reading{}, data_->codes);
  std::vector<PlanRow> rows;
  std::unordered_map<std::size_t, Corrections> classes;
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    const auto several = LicencesIn(data_->mapper->TextOf("TipoCarta", data_->Source(i, cells)));
    for (const std::string& one : several) {
      if (several.size() > 1) classes[rows.size()]["TipoCarta"] = one;
      rows.push_back(data_->table.rows[i]);
    }
    if (several.empty()) rows.push_back(std::move(data_->table.rows[i]));
  }
  data_->table.rows = std::move(rows);
  data_->corrections = std::move(classes);
}

/// Oldest first, each with its owner.
void ImportPlan::Order() {
  PlanData& data = *data_;
  std::unordered_map<std::string, std::uint32_t> known;
  data.owners = {""};
  order_.clear();
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data.table.rows.size(); ++i) {
    PlanRow& row = data.table.rows[i];
    if (!row.counts) continue;
    const SourceRow source = data.Source(i, cells);
    row.date = data.mapper->DateOf(source).value_or(Date());
    const std::string owner = data.mapper->TextOf(data.kind.owner, source);
    const auto [place, fresh] = known.try_emplace(owner, static_cast<std::uint32_t>(data.owners.size()));
    if (fresh) data.owners.push_back(owner);
    row.owner = place->second;
    if (row.leader < 0) order_.push_back(i);
  }
  std::stable_sort(order_.begin(), order_.end(), [&](std::size_t a, std::size_t b) {
    return data.table.rows[a].date < data.table.rows[b].date;
  });
}

void ImportPlan::RequireAnswers() const {
  if (questions_.empty()) return;
  const Question& question = questions_.front();
  if (question.about == Question::About::kDateOrder)
    throw std::runtime_error("As datas do ficheiro podem ler-se de duas maneiras («" + question.example +
                             "»): diga no perfil se o dia vem antes do mês.");
  throw std::runtime_error("Os números do ficheiro podem ler-se de duas maneiras («" + question.example +
                           "»): diga no perfil qual é o sinal dos decimais.");
}

void ImportPlan::Check(const Progress& progress) {
  RequireAnswers();
  zorCrmParvel::Batch batch(*data_->bd);  // never kept
  PlanRun run(*data_);
  run.CreateCodes();
  for (std::size_t i = 0; i < order_.size(); ++i) {
    Step(progress, i, order_.size());
    run.Row(order_[i]);
  }
}

void ImportPlan::CheckOwner(std::uint32_t owner) {
  if (!questions_.empty()) return;
  zorCrmParvel::Batch batch(*data_->bd);  // never kept
  PlanRun run(*data_);
  run.CreateCodes();
  for (const std::size_t row : order_)
    if (data_->table.rows[row].owner == owner) run.Row(row);
}

void ImportPlan::Correct(std::size_t row, const std::string& column, const std::string& text) {
  const std::uint32_t before = data_->table.rows[row].owner;
  data_->corrections[row][column] = text;
  Order();
  CheckOwner(before);
  if (data_->table.rows[row].owner != before) CheckOwner(data_->table.rows[row].owner);
}

void ImportPlan::SetAside(std::size_t number, bool aside) {
  PlanRow& row = data_->table.rows[number];
  if (!row.counts || (row.state == RowState::kAside && !row.byHand && !aside && row.reason != kCredit))
    return;
  row.byHand = aside;
  row.state = aside ? RowState::kAside : RowState::kUnchecked;
  row.column.clear();
  row.reason = aside ? "Pelo operador." : "";
  CheckOwner(row.owner);
}

void ImportPlan::Learn(const std::string& column, const std::string& text, const std::string& code) {
  data_->profile.learned[column][Folded(text)] = code;
  data_->codes.Forget();
  Order();
}

std::vector<NewCode> ImportPlan::UnknownCodes() { return FindUnknownCodes(*data_); }

void ImportPlan::SettleUnknownCodes() {
  std::vector<NewCode> missing;
  for (NewCode& code : UnknownCodes()) {
    if (code.similar.size() != 1) {
      missing.push_back(std::move(code));
      continue;
    }
    for (const std::string& text : code.texts) Learn(code.column, text, code.similar.front().code);
  }
  Create(std::move(missing));
}

void ImportPlan::Create(std::vector<NewCode> codes) {
  for (NewCode& code : codes) {
    data_->codes.Add(code.table, {code.code, code.name});
    for (const CodeColumn& column : data_->kind.codes)
      if (code.table == column.table)
        for (const std::string& text : code.texts)
          data_->profile.learned[column.column][Folded(text)] = code.code;
    data_->created.push_back(std::move(code));
  }
  data_->codes.Forget();
  Order();
}

Reconciliation ImportPlan::Sums() const {
  Reconciliation sums;
  const auto add = [](Tally& tally, const PlanRow& row) {
    ++tally.rows;
    tally.amount += row.amount;
  };
  for (const PlanRow& row : data_->table.rows) {
    if (!row.counts) continue;
    add(sums.file, row);
    // A row that was added into another shares its fate.
    const PlanRow& fate = row.leader >= 0 ? data_->table.rows[static_cast<std::size_t>(row.leader)] : row;
    if (fate.state == RowState::kNew || fate.state == RowState::kWarning) add(sums.stored, row);
    if (fate.state == RowState::kWarning) add(sums.warned, row);
    if (fate.state == RowState::kKnown) add(sums.known, row);
    if (fate.state == RowState::kAside) add(sums.aside, row);
    if (fate.state == RowState::kAside && row.reason == kCredit) add(sums.credits, row);
    if (fate.state == RowState::kRefused) add(sums.refused, row);
  }
  return sums;
}

}  // namespace exchange
