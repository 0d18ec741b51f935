#include "entry/warnings.h"

#include <algorithm>

#include "entry/expense_fields.h"
#include "host/tools.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "reports/rules/excepcoes.h"

namespace entry {
namespace {

using platform::Currency;
using platform::Date;
using reports::Especie;
using reports::Evento;
using zorCrmParvel::Gastos;

/// How far back what a vehicle did is looked at.
constexpr int kDaysBack = 400;
/// The id of an expense that has none yet.
constexpr std::int32_t kNew = -1;

Currency NumberIn(const Gastos& ficha, int field) {
  try {
    return ficha.Campo[field].Text.empty() ? Currency() : Currency::Parse(ficha.Campo[field].Text);
  } catch (const platform::RuntimeError&) {
    return {};
  }
}

template <typename Record, typename Key>
std::int32_t Find(const std::vector<Record>& records, const std::string& code, const Key& key) {
  const std::string wanted = reports::Dobrado(code);
  for (std::size_t i = 0; i < records.size(); ++i)
    if (reports::Dobrado(key(records[i])) == wanted) return static_cast<std::int32_t>(i);
  return -1;
}

/// The expense as it stands; its vehicle is -1 when it can't be judged yet.
Evento ExpenseOn(const Gastos& ficha, const reports::Frota& fleet, Date date) {
  Evento expense;
  expense.viatura = Find(fleet.viaturas, ficha.Campo[kPlate].Text, [](const auto& v) { return v.matricula; });
  expense.tipo = Find(fleet.tipos, ficha.Campo[kType].Text, [](const auto& t) { return t.codigo; });
  expense.motorista =
      Find(fleet.motoristas, ficha.Campo[kDriver].Text, [](const auto& m) { return m.codigo; });
  expense.id = ficha.Seg_Id == 0 ? kNew : ficha.Seg_Id;
  expense.data = date;
  expense.qtd = NumberIn(ficha, kQuantity);
  expense.km = NumberIn(ficha, kKm);
  expense.valorUn = NumberIn(ficha, kPrice);
  expense.custo = NumberIn(ficha, kCost);
  return expense;
}

/// Rules that say nothing of an expense whose kilometres aren't written yet.
bool NeedsKm(reports::Regra rule) {
  return rule == reports::Regra::kConsumo || rule == reports::Regra::kKmRecua ||
         rule == reports::Regra::kKmPorDia;
}

}  // namespace

void ExpenseWarnings::Forget() {
  kept_.reset();
  judged_.clear();
}

const ExpenseWarnings::Kept& ExpenseWarnings::Read(const zorCrmParvel::DataAccessRef& bd, Date date) {
  if (kept_ && kept_->day == date.days()) return *kept_;
  reports::Necessidade wanted;
  wanted.motoristas = true;
  wanted.De(Especie::kGasto) = {.le = true, .de = date.days() - kDaysBack, .ate = date.days()};
  kept_ =
      std::make_unique<Kept>(Kept{reports::Carregar(bd, wanted), reports::CarregarAjustes(bd), date.days()});
  return *kept_;
}

std::vector<std::string> ExpenseWarnings::Of(const platform::Form& form) {
  const auto* ficha = dynamic_cast<const Gastos*>(&form);
  if (ficha == nullptr || ficha->mybd == zorCrmParvel::DataAccessRef()) return {};
  std::string record = std::to_string(ficha->Seg_Id) + "\n" + ficha->DTPicker1.Value.ToText();
  for (int field : {kPlate, kDriver, kType, kQuantity, kCost, kPrice, kKm})
    record += "\n" + ficha->Campo[field].Text;
  if (record == judged_) return said_;
  judged_ = record;
  said_.clear();
  if (platform::Trim(ficha->Campo[kPlate].Text).empty() || platform::Trim(ficha->Campo[kType].Text).empty())
    return said_;
  const Date date = ficha->DTPicker1.Value.ToDate();
  const Kept& kept = Read(ficha->mybd, date);
  const Evento expense = ExpenseOn(*ficha, kept.fleet, date);
  if (expense.viatura < 0 || expense.tipo < 0 || expense.custo == 0) return said_;

  reports::Frota fleet = kept.fleet;
  std::erase_if(fleet.eventos, [&](const Evento& event) {
    return event.especie == Especie::kGasto && event.id == expense.id;
  });
  fleet.eventos.push_back(expense);
  fleet.Ordenar();
  reports::Pedido request;
  request.periodo = {date.days(), date.days()};
  request.viaturas = {fleet.ViaturaDe(expense).matricula};
  for (const reports::Achado& finding : reports::Excepcoes(fleet, request, kept.rules))
    if (finding.evento->id == expense.id && (expense.km != 0 || !NeedsKm(finding.regra)))
      said_.push_back(finding.texto);
  return said_;
}

}  // namespace entry
