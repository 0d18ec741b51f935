#include "exchange/plan/plan_run.h"

#include <algorithm>

#include "exchange/imports/import_log.h"
#include "exchange/plan/new_codes.h"
#include "exchange/plan/source_row.h"
#include "exchange/values/fold.h"
#include "host/row.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace exchange {

using platform::Currency;

namespace {

constexpr const char* kProposed = "[km propostos]";
constexpr std::size_t kNotes = 150;  // characters of Obs

std::size_t PlaceIn(const std::vector<ImportColumn>& columns, std::string_view name) {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const ImportColumn& column) { return name == column.name; });
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace

PlanRun::PlanRun(PlanData& plan, const zorCrmParvel::DataAccessRef& bd, Purpose purpose)
    : plan_(plan),
      target_(MakeImportTarget(plan.kind.name, bd)),
      proposals_(plan),
      expenses_(std::string_view(plan.kind.name) == "gastos"),
      writes_(purpose == Purpose::kStore || !target_->JudgesAlone()) {
  mapped_.row = ImportRow(plan.mapper->columns());
  other_.row = ImportRow(plan.mapper->columns());
  if (plan.profile.transaction) transactions_ = KnownTransactions(plan.bd, plan.profile.name);
}

void PlanRun::CreateCodes() {
  for (const NewCode& code : plan_.created) {
    const auto kind = std::find_if(ImportKinds().begin(), ImportKinds().end(),
                                   [&](const ImportKind& one) { return code.table == one.table; });
    const auto target = MakeImportTarget(kind->name, plan_.bd);
    ImportRow row(target->Columns());
    row.at(0).text = code.code;
    row.at(1).text = platform::Left(code.name, static_cast<std::size_t>(target->Columns()[1].limit));
    if (code.fuel) row.at(PlaceIn(target->Columns(), "Combustivel")).number = 1;
    target->Store(row);
  }
}

void PlanRun::Expect(const std::vector<std::uint32_t>& rows) {
  if (plan_.kind.date == nullptr || std::string_view(plan_.kind.owner) != "Matricula") return;
  std::vector<std::string> plates;
  std::vector<bool> named(plan_.owners.size());
  platform::Date oldest;
  platform::Date newest;
  for (const std::uint32_t number : rows) {
    const PlanRow& row = plan_.table.rows[number];
    if (row.state == RowState::kAside || row.date.IsZero()) continue;
    if (oldest.IsZero()) oldest = row.date;
    newest = row.date;
    if (!named[row.owner]) plates.push_back(plan_.owners[row.owner]);
    named[row.owner] = true;
  }
  if (!plates.empty()) target_->Expect(plates, oldest, newest);
}

void PlanRun::Row(std::size_t number) {
  PlanRow& row = plan_.table.rows[number];
  if (row.state == RowState::kAside) return;
  Why why;
  plan_.mapper->Map(plan_.Source(number, cells_), mapped_);
  if (!plan_.added.empty()) AddOthers(number);
  try {
    if (mapped_.refusal) throw Refusal(*mapped_.refusal);
    if (expenses_) SettlePrice();
    if (!SettleCode()) {
      row.state = RowState::kKnown;
    } else {
      if (plan_.profile.proposeKm && expenses_) ProposeKm(row);
      why.reason = Decide(number);
      if (row.hidden && mapped_.warning.empty()) mapped_.warning = "O ficheiro esconde esta linha.";
      if (mapped_.warning.empty()) mapped_.warning = StoredUnsaid();
      if (row.state == RowState::kNew && !mapped_.warning.empty()) row.state = RowState::kWarning;
      if (row.state == RowState::kWarning) why.reason = mapped_.warning;
    }
  } catch (const Refusal& refusal) {
    row.state = RowState::kRefused;
    why = {refusal.column, refusal.reason};
    if (expenses_ && refusal.column == "Km") why.reason += RefusalOfKm(row);
  } catch (const platform::RuntimeError& error) {
    // A value that no statement can carry, or a number too large for its column.
    if (error.number() != platform::kStatementRefused && error.number() != platform::kOverflow) throw;
    row.state = RowState::kRefused;
    why.reason = "Um valor da linha não se pode gravar: " + error.description();
  }
  plan_.table.SetWhy(number, std::move(why));
}

/// The code of a record whose file has none. False when a record of the same name stands already.
bool PlanRun::SettleCode() {
  if (std::string_view(plan_.kind.owner) != "Codigo") return true;
  std::string& code = mapped_.row.at(0).text;
  const std::string& name = mapped_.row.text("Nome");
  if (!code.empty()) return true;
  if (name.empty()) throw Refusal{"Nome", "Campo obrigatório!"};
  const auto& known = plan_.codes.Codes(plan_.kind.table);
  if (std::any_of(known.begin(), known.end(),
                  [&](const NamedCode& one) { return Folded(one.name) == Folded(name); }))
    return false;
  if (codes_.empty())
    for (const NamedCode& one : known) codes_.insert(one.code);
  code = ProposedCode(plan_.kind.table, name, codes_);
  return true;
}

/// Quantities and costs of the rows that belong to one event with this one.
void PlanRun::AddOthers(std::size_t number) {
  const auto others = plan_.added.find(number);
  if (others == plan_.added.end()) return;
  const auto& columns = plan_.mapper->columns();
  for (const std::size_t other : others->second) {
    plan_.mapper->Map(plan_.Source(other, cells_), other_);
    if (other_.refusal && !mapped_.refusal) mapped_.refusal = other_.refusal;
    for (const char* name : {"Qtd", plan_.kind.amount}) {
      const std::size_t place = name != nullptr ? PlaceIn(columns, name) : columns.size();
      if (place == columns.size()) continue;
      auto& sum = mapped_.row.at(place).number;
      if (const auto more = other_.row.at(place).number) sum = sum.value_or(Currency()) + *more;
    }
  }
  if (expenses_) mapped_.row.at(PlaceIn(columns, "ValorUn")).number.reset();
}

/// Without a unit value it is the cost's share of the quantity, never the type's price.
void PlanRun::SettlePrice() {
  auto& price = mapped_.row.at(PlaceIn(plan_.mapper->columns(), "ValorUn")).number;
  if (price) return;
  const Currency quantity = mapped_.row.number("Qtd").value_or(Currency());
  const Currency cost = mapped_.row.number("Custo").value_or(Currency());
  price = quantity == 0 ? Currency() : Currency::FromDouble(cost.ToDouble() / quantity.ToDouble());
}

void PlanRun::ProposeKm(const PlanRow& row) {
  const auto& columns = plan_.mapper->columns();
  auto& km = mapped_.row.at(PlaceIn(columns, "Km")).number;
  if ((km && *km > 0) || row.date.IsZero() || !proposals_.IsFuel(mapped_.row.text("TipoGasto"))) return;
  const auto proposed = proposals_.Propose(mapped_.row.text("Matricula"), row.date);
  if (!proposed) return;
  if (!plan_.acceptProposals)
    throw Refusal{"Km", "Sem quilómetros; propõem-se " + proposed->ToText() + ", que ninguém viu ainda."};
  km = proposed;
  std::string& notes = mapped_.row.at(PlaceIn(columns, "Obs")).text;
  notes = platform::Left(notes, kNotes - std::string_view(kProposed).size() - 1);
  notes += (notes.empty() ? "" : " ") + std::string(kProposed);
  mapped_.warning = "Km propostos: " + proposed->ToText() + ".";
}

/// The date that a vehicle is stored with though its file doesn't tell it: a wrong alert is seen coming.
const char* PlanRun::StoredUnsaid() const {
  const bool vehicle = std::string_view(plan_.kind.name) == "viaturas";
  if (!vehicle || mapped_.row.given("DataMatricula") || mapped_.row.given("DataSelo")) return "";
  return "Sem data de matrícula: fica a de hoje, e dela conta o selo.";
}

/// What there is to say of it.
std::string PlanRun::Decide(std::size_t number) {
  PlanRow& row = plan_.table.rows[number];
  mapped_.row.numbered = !mapped_.transaction.empty();
  if (mapped_.row.numbered && transactions_.contains(mapped_.transaction)) {
    row.state = RowState::kKnown;
    return "O número " + mapped_.transaction + " já foi importado.";
  }
  const Outcome outcome = writes_ ? target_->Store(mapped_.row) : target_->Judge(mapped_.row);
  row.state = outcome == Outcome::kAdded ? RowState::kNew : RowState::kKnown;
  if (row.state == RowState::kNew) Remember(number);
  return {};
}

void PlanRun::Remember(std::size_t number) {
  if (mapped_.row.numbered) transactions_.insert(mapped_.transaction);
  const std::string& owner = mapped_.row.text(plan_.kind.owner);
  if (expenses_)
    if (const auto km = mapped_.row.number("Km"); km && *km > 0) {
      const PlanRow& row = plan_.table.rows[number];
      Fills& fills = fills_[owner];
      if (fills.last.date < row.date) fills.before = fills.last;
      fills.last = {row.date, *km, row.line};
    }
  if (plausibility_ != nullptr) plausibility_->Add(number, mapped_.row);
  if (!stored_) return;
  std::string key = owner;
  if (std::string_view(plan_.kind.name) == "cartas")
    key += "|" + std::to_string(mapped_.row.integer("TipoCarta"));
  stored_(number, key, mapped_.transaction);
}

/// Where the higher kilometres stand: in the file, or stored before.
std::string PlanRun::RefusalOfKm(const PlanRow& row) const {
  const auto km = mapped_.row.number("Km");
  if (!km || *km <= 0) return {};
  const std::string& plate = mapped_.row.text("Matricula");
  const auto told = [](Currency higher, platform::Date date, const std::string& where) {
    return " (" + where + ": " + higher.ToText() + " km em " + date.ToText() + ")";
  };
  if (const auto fills = fills_.find(plate); fills != fills_.end()) {
    const Fill& latest = fills->second.last.date < row.date ? fills->second.last : fills->second.before;
    if (latest.line > 0 && latest.km > *km)
      return told(latest.km, latest.date, "linha " + std::to_string(latest.line));
  }
  zorCrmParvel::RecordsetRef rows;
  plan_.bd->AbrirLeitura("",
                         {"SELECT TOP 1 G.Data, G.Km FROM zor_PV_Gastos G INNER JOIN zor_PV_TiposGastos T ON "
                          "T.Codigo=G.TipoGasto WHERE G.Matricula=N'",
                          zorCrmParvel::value(plate), "' and T.Combustivel=1 and G.Km>",
                          zorCrmParvel::value(km->ToText('.')), " ORDER BY G.Data"},
                         rows);
  std::string where;
  if (!rows->Eof())
    where =
        told(rows->Fields("Km").Value().ToCurrency(), rows->Fields("Data").Value().ToDate(), "já gravado");
  rows->Close();
  return where;
}

}  // namespace exchange
