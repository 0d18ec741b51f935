#include "exchange/plan/plausibility.h"

#include <algorithm>
#include <unordered_map>

#include "reports/carregar.h"
#include "reports/rules/excepcoes.h"

namespace exchange {
namespace {

constexpr int kDaysBefore = 400;  // what is usual for a vehicle

/// Where things stand, by their code as the database compares it.
template <typename Thing>
std::unordered_map<std::string, std::int32_t> Places(const std::vector<Thing>& things,
                                                     std::string Thing::*code) {
  std::unordered_map<std::string, std::int32_t> places;
  for (std::size_t i = 0; i < things.size(); ++i)
    places.emplace(reports::Dobrado(things[i].*code), static_cast<std::int32_t>(i));
  return places;
}

std::int32_t PlaceOf(const std::unordered_map<std::string, std::int32_t>& places, const std::string& code) {
  const auto found = places.find(reports::Dobrado(code));
  return found == places.end() ? -1 : found->second;
}

}  // namespace

void Plausibility::Add(std::size_t row, const ImportRow& values) {
  if (expenses_.size() > kMostRows) return;
  const auto number = [&](const char* column) {
    return values.number(column).value_or(platform::Currency());
  };
  expenses_.push_back({.row = row,
                       .plate = values.text("Matricula"),
                       .type = values.text("TipoGasto"),
                       .driver = values.text("Motorista"),
                       .date = plan_.table.rows[row].date,
                       .quantity = number("Qtd"),
                       .km = number("Km"),
                       .price = number("ValorUn"),
                       .cost = number("Custo")});
}

void Plausibility::Warn() {
  if (expenses_.empty() || expenses_.size() > kMostRows) return;
  const auto [first, last] = std::minmax_element(
      expenses_.begin(), expenses_.end(), [](const Expense& a, const Expense& b) { return a.date < b.date; });
  reports::Pedido asked;
  asked.periodo = {.de = first->date.days(), .ate = last->date.days()};
  reports::Necessidade needed;
  needed.De(reports::Especie::kGasto) = {
      .le = true,
      .de = std::max(reports::Leitura::kPrimeiroDia, first->date.days() - kDaysBefore),
      .ate = last->date.days()};
  needed.motoristas = needed.precos = true;
  reports::Frota fleet = reports::Carregar(plan_.bd, needed);
  const auto vehicles = Places(fleet.viaturas, &reports::Viatura::matricula);
  const auto types = Places(fleet.tipos, &reports::Tipo::codigo);
  const auto drivers = Places(fleet.motoristas, &reports::Motorista::codigo);
  for (std::size_t i = 0; i < expenses_.size(); ++i) {
    const Expense& expense = expenses_[i];
    const std::int32_t vehicle = PlaceOf(vehicles, expense.plate);
    if (vehicle < 0) continue;
    reports::Evento event;
    event.data = expense.date;
    event.qtd = expense.quantity;
    event.km = expense.km;
    event.valorUn = expense.price;
    event.custo = expense.cost;
    event.id = -1 - static_cast<std::int32_t>(i);  // of none that is stored
    event.viatura = vehicle;
    event.tipo = PlaceOf(types, expense.type);
    event.motorista = PlaceOf(drivers, expense.driver);
    fleet.eventos.push_back(event);
  }
  fleet.Ordenar();
  for (const reports::Achado& found : reports::Excepcoes(fleet, asked, reports::CarregarAjustes(plan_.bd))) {
    if (found.evento->id >= 0) continue;
    const std::size_t row = expenses_[static_cast<std::size_t>(-1 - found.evento->id)].row;
    Why why = plan_.table.WhyOf(row);
    // Of two rows of the file neither has a number yet.
    const bool again = found.regra == reports::Regra::kRepetido;
    why.reason += (why.reason.empty() ? "" : " ") + (again ? "Outro gasto igual no mesmo dia." : found.texto);
    plan_.table.SetWhy(row, std::move(why));
    plan_.table.rows[row].state = RowState::kWarning;
  }
}

}  // namespace exchange
