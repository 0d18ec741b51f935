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

/// The vehicle is -1 when it is none of the fleet's, and so is the type.
Evento ExpenseOf(const ExpenseDraft& draft, const reports::Frota& fleet) {
  Evento expense;
  expense.viatura = Find(fleet.viaturas, draft.plate, [](const auto& v) { return v.matricula; });
  expense.tipo = Find(fleet.tipos, draft.type, [](const auto& t) { return t.codigo; });
  expense.motorista = Find(fleet.motoristas, draft.driver, [](const auto& m) { return m.codigo; });
  expense.id = draft.id;
  expense.data = draft.date;
  expense.qtd = draft.quantity;
  expense.km = draft.km;
  expense.valorUn = draft.price;
  expense.custo = draft.cost;
  return expense;
}

/// Rules that say nothing of an expense whose kilometres aren't written yet.
bool NeedsKm(reports::Regra rule) {
  return rule == reports::Regra::kConsumo || rule == reports::Regra::kKmRecua ||
         rule == reports::Regra::kKmPorDia;
}

}  // namespace

std::optional<ExpenseDraft> DraftOn(const platform::Form& form) {
  const auto* ficha = dynamic_cast<const Gastos*>(&form);
  if (ficha == nullptr || ficha->mybd == zorCrmParvel::DataAccessRef()) return {};
  ExpenseDraft draft{.id = ficha->Seg_Id == 0 ? kNew : ficha->Seg_Id,
                     .date = ficha->DTPicker1.Value.ToDate(),
                     .plate = ficha->Campo[kPlate].Text,
                     .type = ficha->Campo[kType].Text,
                     .driver = ficha->Campo[kDriver].Text,
                     .quantity = NumberIn(*ficha, kQuantity),
                     .cost = NumberIn(*ficha, kCost),
                     .price = NumberIn(*ficha, kPrice),
                     .km = NumberIn(*ficha, kKm)};
  const bool complete =
      !platform::Trim(draft.plate).empty() && !platform::Trim(draft.type).empty() && draft.cost != 0;
  return complete ? std::optional(std::move(draft)) : std::nullopt;
}

ExpensePast::ExpensePast(const zorCrmParvel::DataAccessRef& bd, Date day) : day_(day.DayOnly()) {
  reports::Necessidade wanted;
  wanted.motoristas = true;
  wanted.De(Especie::kGasto) = {.le = true, .de = day.days() - kDaysBack, .ate = day.days()};
  fleet_ = reports::Carregar(bd, wanted);
  rules_ = reports::CarregarAjustes(bd);
}

std::vector<std::string> ExpensePast::Warnings(const ExpenseDraft& draft) const {
  std::vector<std::string> said;
  const Evento expense = ExpenseOf(draft, fleet_);
  if (expense.viatura < 0 || expense.tipo < 0) return said;
  reports::Frota fleet = fleet_;
  std::erase_if(fleet.eventos, [&](const Evento& event) {
    return event.especie == Especie::kGasto && event.id == expense.id;
  });
  fleet.eventos.push_back(expense);
  fleet.Ordenar();
  reports::Pedido request;
  request.periodo = {day_.days(), day_.days()};
  request.viaturas = {fleet.ViaturaDe(expense).matricula};
  for (const reports::Achado& finding : reports::Excepcoes(fleet, request, rules_))
    if (finding.evento->id == expense.id && (expense.km != 0 || !NeedsKm(finding.regra)))
      said.push_back(finding.texto);
  return said;
}

}  // namespace entry
