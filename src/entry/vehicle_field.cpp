#include "entry/vehicle_field.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "vehicles/viaturas.h"

namespace entry {
namespace {

using zorCrmParvel::clViaturas;
using zorCrmParvel::DataAccessRef;

constexpr std::size_t kNameLimit = 40;

std::string ValueOf(const clViaturas& vehicle, VehicleField field) {
  if (field == VehicleField::kDepartment) return vehicle.Departamento;
  if (field == VehicleField::kResponsible)
    return vehicle.Responsavel.IsNull() ? std::string() : vehicle.Responsavel.ToText();
  return vehicle.Inactiva == 1 ? "1" : "0";
}

void Set(clViaturas& vehicle, VehicleField field, const std::string& value) {
  if (field == VehicleField::kDepartment)
    vehicle.Departamento = value;
  else if (field == VehicleField::kResponsible)
    vehicle.Responsavel = value;
  else
    vehicle.Inactiva = value == "1" ? 1 : 0;
}

void Check(const DataAccessRef& bd, VehicleField field, const std::string& value) {
  const auto refuse = [](const std::string& why) {
    throw platform::RuntimeError(platform::kInvalidCall, "Viaturas", why);
  };
  if (field == VehicleField::kResponsible && platform::Length(value) > kNameLimit)
    refuse("O nome do responsável tem mais de 40 caracteres. Encurte-o.");
  if (field != VehicleField::kDepartment || value.empty()) return;
  const auto departments = Departments(bd);
  const bool known = std::any_of(departments.begin(), departments.end(),
                                 [&value](const auto& one) { return one.first == value; });
  if (!known) refuse("O departamento «" + value + "» não existe. Escolha um dos que há.");
}

}  // namespace

std::vector<std::pair<std::string, std::string>> Departments(const DataAccessRef& bd) {
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("", "SELECT Codigo, Nome FROM zor_PV_Departamentos ORDER BY Codigo", rows);
  std::vector<std::pair<std::string, std::string>> departments;
  for (; !rows->Eof(); rows->MoveNext()) {
    const platform::Variant name = rows->Fields("Nome").Value();
    departments.emplace_back(rows->Fields("Codigo").Value().ToText(),
                             name.IsNull() ? std::string() : name.ToText());
  }
  return departments;
}

std::vector<VehicleValue> ValuesOf(const DataAccessRef& bd, const std::vector<std::string>& plates,
                                   VehicleField field) {
  const zorCrmParvel::Snapshot snapshot(bd);
  std::vector<VehicleValue> values;
  for (const std::string& plate : plates) {
    clViaturas vehicle;
    vehicle.bd = bd;
    vehicle.Matricula = plate;
    if (vehicle.Ler()) values.push_back({plate, ValueOf(vehicle, field)});
  }
  return values;
}

std::size_t SetField(const DataAccessRef& bd, const std::vector<VehicleValue>& vehicles, VehicleField field,
                     const std::string& value) {
  Check(bd, field, value);
  std::size_t changed = 0;
  for (const VehicleValue& one : vehicles) {
    clViaturas vehicle;
    vehicle.bd = bd;
    vehicle.Matricula = one.plate;
    if (!vehicle.Ler() || ValueOf(vehicle, field) == value) continue;
    Set(vehicle, field, value);
    vehicle.Escrever();
    ++changed;
  }
  return changed;
}

}  // namespace entry
