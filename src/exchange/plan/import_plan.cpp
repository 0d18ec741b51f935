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
  UnpackCells(table.cells.At(table.rows[row].cells), cells);
}

ImportPlan::ImportPlan(platform::Ref<zorCrmParvel::Store> bd, Profile profile) {
  const ImportKind& kind = KnownKind(profile.kind);
  CodeFinder codes(bd);
  data_ = std::make_unique<PlanData>(PlanData{.bd = std::move(bd),
                                              .profile = std::move(profile),
                                              .kind = kind,
                                              .table = LoadedTable(),
                                              .reading = {},
                                              .codes = std::move(codes),
                                              .mapper = {},
                                              .corrections = {},
                                              .added = {},
                                              .ownerOf = {},
                                              .created = {}});
}

ImportPlan::~ImportPlan() = default;

void ImportPlan::Load(TableReader& reader, const Progress& progress) {
  data_->table = LoadTable(reader, data_->profile, progress);
  if (reader.Facts().calendar1904) data_->profile.calendar1904 = true;
  SplitLicences();
  Prepare(progress);
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
void ImportPlan::Prepare(const Progress& progress) {
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
  LookAtAll(progress);
  Arrange();
}

/// Which rows are one event, and in which order they are stored.
void ImportPlan::Arrange() {
  if (data_->profile.document) JoinDocuments();
  Order();
}

void ImportPlan::LookAtAll(const Progress& progress) {
  data_->owners = {""};
  data_->ownerOf.clear();
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    Step(progress, i, data_->table.rows.size());
    Look(i, cells);
  }
}

/// What the order of the rows and their sums follow from.
void ImportPlan::Look(std::size_t number, std::vector<TableCell>& cells) {
  PlanRow& row = data_->table.rows[number];
  if (!row.counts && !row.total) return;
  const SourceRow source = data_->Source(number, cells);
  row.amount = data_->mapper->AmountOf(source).value_or(Currency());
  if (row.total) return;
  row.date = data_->mapper->DateOf(source).value_or(Date());
  row.owner = OwnerOf(data_->mapper->TextOf(data_->kind.owner, source));
  if (row.credit) {
    row.credit = false;
    row.state = RowState::kUnchecked;
    data_->table.SetWhy(number, {});
  }
  if (row.byHand || row.state == RowState::kAside || row.amount >= 0 || data_->profile.creditNotes) return;
  row.state = RowState::kAside;
  row.credit = true;
  data_->table.SetWhy(number, {.column = {}, .reason = kCredit});
}

std::uint32_t ImportPlan::OwnerOf(const std::string& text) {
  const auto [place, fresh] =
      data_->ownerOf.try_emplace(text, static_cast<std::uint32_t>(data_->owners.size()));
  if (fresh) data_->owners.push_back(text);
  return place->second;
}

void ImportPlan::JoinDocuments() {
  data_->added.clear();
  const int place = PlaceOf(*data_->profile.document, data_->table.header);
  std::unordered_map<std::string, std::size_t> first;
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    PlanRow& row = data_->table.rows[i];
    if (row.leader >= 0 && row.state != RowState::kAside) data_->table.SetWhy(i, {});
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
    const std::string line = std::to_string(data_->table.rows[leader->second].line);
    data_->table.SetWhy(i, {.column = {}, .reason = "Soma-se à linha " + line + "."});
  }
}

/// Several classes in one cell are a row each.
void ImportPlan::SplitLicences() {
  if (std::string_view(data_->kind.name) != "cartas") return;
  data_->mapper =
      std::make_unique<RowMapper>(data_->profile, data_->kind, data_->table.header, Reading{}, data_->codes);
  std::vector<PlanRow> rows;
  std::unordered_map<std::size_t, Corrections> classes;
  std::unordered_map<std::uint32_t, Why> whys;
  const auto add = [&](std::size_t row) {
    if (const Why& why = data_->table.WhyOf(row); !why.reason.empty())
      whys.emplace(static_cast<std::uint32_t>(rows.size()), why);
    rows.push_back(data_->table.rows[row]);
  };
  std::vector<TableCell> cells;
  for (std::size_t i = 0; i < data_->table.rows.size(); ++i) {
    const auto several = LicencesIn(data_->mapper->TextOf("TipoCarta", data_->Source(i, cells)));
    for (const std::string& one : several) {
      if (several.size() > 1) classes[rows.size()]["TipoCarta"] = one;
      add(i);
    }
    if (several.empty()) add(i);
  }
  data_->table.whys = std::move(whys);
  data_->table.rows = std::move(rows);
  data_->corrections = std::move(classes);
}

/// Oldest first.
void ImportPlan::Order() {
  const std::vector<PlanRow>& rows = data_->table.rows;
  order_.clear();
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].counts && rows[i].leader < 0) order_.push_back(static_cast<std::uint32_t>(i));
  std::stable_sort(order_.begin(), order_.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return rows[a].date < rows[b].date; });
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

/// Rows that are judged by what is written are written, and what was written is given up.
std::unique_ptr<zorCrmParvel::LargeBatch> ImportPlan::BatchToCheck(const PlanRun& run) const {
  if (run.JudgesAlone() && data_->created.empty()) return nullptr;
  return std::make_unique<zorCrmParvel::LargeBatch>(*data_->bd);
}

void ImportPlan::Check(const Progress& progress) {
  RequireAnswers();
  CheckRows(order_, progress);
}

void ImportPlan::CheckOwner(std::uint32_t owner) {
  if (!questions_.empty()) return;
  std::vector<std::uint32_t> rows;
  for (const std::uint32_t row : order_)
    if (data_->table.rows[row].owner == owner) rows.push_back(row);
  CheckRows(rows, {});
}

void ImportPlan::CheckRows(const std::vector<std::uint32_t>& rows, const Progress& progress) {
  PlanRun run(*data_, data_->bd, PlanRun::Purpose::kCheck);
  const auto batch = BatchToCheck(run);
  run.CreateCodes();
  run.Expect(rows);
  Plausibility plausibility(*data_);
  if (data_->kind.figures == Figures::kExpenses) run.AddTo(plausibility);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Step(progress, i, rows.size());
    run.Row(rows[i]);
  }
  plausibility.Warn();
}

void ImportPlan::Correct(std::size_t row, const std::string& column, const std::string& text) {
  const std::uint32_t before = data_->table.rows[row].owner;
  data_->corrections[row][column] = text;
  std::vector<TableCell> cells;
  Look(row, cells);
  Arrange();
  CheckOwner(before);
  if (data_->table.rows[row].owner != before) CheckOwner(data_->table.rows[row].owner);
}

void ImportPlan::SetAside(std::size_t number, bool aside) {
  PlanRow& row = data_->table.rows[number];
  if (!row.counts || (row.state == RowState::kAside && !row.byHand && !aside && !row.credit)) return;
  row.byHand = true;
  row.credit = false;
  row.state = aside ? RowState::kAside : RowState::kUnchecked;
  data_->table.SetWhy(number, {.column = {}, .reason = aside ? "Pelo operador." : ""});
  Arrange();
  CheckOwner(row.owner);
}

void ImportPlan::Learn(const std::string& column, const std::string& text, const std::string& code) {
  data_->profile.learned[column][Folded(text)] = code;
  data_->codes.Forget();
  LookAtAll();
  Arrange();
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
  LookAtAll();
  Arrange();
}

}  // namespace exchange
