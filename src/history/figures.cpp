#include "history/figures.h"

#include <algorithm>
#include <array>

#include "events/cost_sums.h"
#include "events/expense_figures.h"
#include "history/act.h"
#include "history/rows.h"
#include "history/view/life.h"
#include "platform/text.h"

namespace history {
namespace {

constexpr std::array kFigures{"KmActual", "CustoMedioKmC", "Media", "CustoTotal", "CustoMedioKmT"};
constexpr const char* kVehicles = "zor_PV_Viaturas";

std::vector<std::string> Plates(KeepingStore& store) {
  std::vector<std::string> plates;
  const auto rows = OpenRows(store, "SELECT Matricula FROM zor_PV_Viaturas ORDER BY Matricula");
  for (; !rows->Eof(); rows->MoveNext()) plates.push_back(TextIn(*rows, "Matricula"));
  rows->Close();
  return plates;
}

bool HasExpenses(KeepingStore& store, const std::string& plate) {
  return !OpenRows(store, "SELECT TOP 1 Gst_Id FROM zor_PV_Gastos WHERE Matricula = " + TextLiteral(plate))
              ->Eof();
}

Image FiguresOf(KeepingStore& store, const tsql::Table& vehicles, const std::string& plate) {
  std::string names;
  for (const char* name : kFigures) names += (names.empty() ? "" : ", ") + std::string(name);
  const auto rows =
      OpenRows(store, "SELECT " + names + " FROM zor_PV_Viaturas WHERE Matricula = " + TextLiteral(plate));
  return ImageAt(vehicles, *rows, 0, PlacesOf(vehicles, *rows));
}

/// Recalculates the vehicle's figures. What differed from them, line by line.
std::vector<std::string> Recalculate(KeepingStore& store, const zorCrmParvel::DataAccessRef& bd,
                                     const tsql::Table& vehicles, const std::string& plate) {
  const Image before = FiguresOf(store, vehicles, plate);
  const auto differing = [&] {
    const Image after = FiguresOf(store, vehicles, plate);
    return Describe(vehicles, &before, &after);
  };
  zorCrmParvel::RecalcularViatura(bd, plate);
  if (differing().empty()) return {};
  // A total that a revision's ficha stored counts revisions, and is as right.
  zorCrmParvel::GuardarCustoTotal(bd, plate, zorCrmParvel::Tools::SomaCustoComRevisoes(bd, plate));
  if (differing().empty()) return {};
  zorCrmParvel::RecalcularViatura(bd, plate);
  return differing();
}

}  // namespace

bool IsFigure(const tsql::Table& table, const tsql::Column& column) {
  return platform::EqualsIgnoringCase(table.name, kVehicles) &&
         std::any_of(kFigures.begin(), kFigures.end(),
                     [&](const char* name) { return platform::EqualsIgnoringCase(column.name, name); });
}

std::vector<WrongFigures> CheckFigures(const std::shared_ptr<KeepingStore>& store, bool correct) {
  const tsql::Table& vehicles = store->catalog().Get(kVehicles);
  const zorCrmParvel::DataAccessRef bd(store);
  std::vector<WrongFigures> wrong;
  // Each vehicle in a unit of its own: nobody waits for the whole fleet, and what is not to be kept is not.
  for (const std::string& plate : Plates(*store)) {
    if (!HasExpenses(*store, plate)) continue;
    store->BeginAct("Verificar: figuras");
    std::vector<std::string> lines;
    try {
      store->Within([&] { lines = Recalculate(*store, bd, vehicles, plate); });
    } catch (...) {
      store->AbandonAct();
      throw;
    }
    if (lines.empty() || !correct)
      store->AbandonAct();
    else
      store->EndAct();
    if (!lines.empty()) wrong.push_back({plate, std::move(lines)});
  }
  return wrong;
}

}  // namespace history
