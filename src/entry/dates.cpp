#include "entry/dates.h"

#include "drivers/motoristas_fields.h"
#include "drivers/motoristas_form.h"
#include "platform/host.h"
#include "platform/text.h"
#include "vehicles/viaturas_fields.h"
#include "vehicles/viaturas_form.h"

namespace entry {
namespace {

using zorCrmParvel::clMotoristas;
using zorCrmParvel::clViaturas;
using zorCrmParvel::Motoristas;
using zorCrmParvel::Viaturas;

constexpr int kRevisionKm = 53;
constexpr int kRegistration = 3;  // among the dates
constexpr char kNoRevision[] = "9999999";

/// What the driver's dates are called here: on the ficha several are called alike.
const char* NameOfDriversDate(std::size_t place) {
  switch (place) {
    case 5:
      return "emissão do passaporte";
    case 6:
      return "validade do passaporte";
    case 8:
      return "início do cartão de condutor";
    case 9:
      return "fim do cartão de condutor";
    default:
      return "próxima descarga";
  }
}

/// The vehicle's, by their places: some captions say nothing without what stands beside them.
const char* NameOfVehiclesDate(int index) {
  switch (index) {
    case 0:
      return "fim do contrato";
    case 8:
      return "próxima revisão";
    case 9:
      return "próxima inspecção";
    default:
      return "próxima descarga";
  }
}

std::vector<UnsetDate> EmptyOf(Motoristas& ficha) {
  clMotoristas driver;
  driver.bd = ficha.mybd;
  driver.Codigo = ficha.Campo[0].Text;
  driver.Ler();
  std::vector<UnsetDate> empty;
  for (std::size_t i = 0; i < zorCrmParvel::kDatasDoMotorista.size(); ++i) {
    const auto& date = zorCrmParvel::kDatasDoMotorista[i];
    if (date.opcional && (driver.*date.propriedade).IsZero())
      empty.push_back({&ficha.DTPicker1[static_cast<int>(i)], NameOfDriversDate(i)});
  }
  return empty;
}

std::vector<UnsetDate> EmptyOf(Viaturas& ficha, bool& is_new) {
  clViaturas vehicle;
  vehicle.bd = ficha.mybd;
  vehicle.Matricula = ficha.Campo[0].Text;
  is_new = !vehicle.Ler();
  std::vector<UnsetDate> empty;
  for (const auto& date : zorCrmParvel::kDatasDaViatura)
    if (date.opcional && (vehicle.*date.propriedade).IsZero())
      empty.push_back({&ficha.DTPicker1[date.indice], NameOfVehiclesDate(date.indice)});
  return empty;
}

bool IsToday(const platform::DTPicker& picker) {
  return !picker.Value.IsNull() && picker.Value.ToDate().DayOnly() == platform::Today();
}

}  // namespace

std::vector<UnsetDate> UnsetDates::Of(platform::Form& form) {
  auto* driver = dynamic_cast<Motoristas*>(&form);
  auto* vehicle = dynamic_cast<Viaturas*>(&form);
  if (driver == nullptr && vehicle == nullptr) return {};
  const std::string key = platform::Trim(driver != nullptr ? driver->Campo[0].Text : vehicle->Campo[0].Text);
  if (key.empty()) return {};
  if (!known_ || key != key_) empty_ = driver != nullptr ? EmptyOf(*driver) : EmptyOf(*vehicle, new_vehicle_);
  known_ = true;
  key_ = key;
  std::vector<UnsetDate> unset;
  for (const UnsetDate& date : empty_)
    if (IsToday(*date.picker)) unset.push_back(date);
  return unset;
}

bool UnsetDates::RegistersToday(const platform::Form& form) const {
  const auto* vehicle = dynamic_cast<const Viaturas*>(&form);
  return vehicle != nullptr && known_ && new_vehicle_ && !key_.empty() &&
         IsToday(vehicle->DTPicker1[kRegistration]);
}

bool UnsetDates::LacksRevision(const platform::Form& form) {
  const auto* vehicle = dynamic_cast<const Viaturas*>(&form);
  if (vehicle == nullptr || platform::Trim(vehicle->Campo[0].Text).empty()) return false;
  return vehicle->Campo[kRevisionKm].Text.find_first_of("123456789") == std::string::npos;
}

void UnsetDates::LeaveWithout(platform::Form& form, const std::vector<UnsetDate>& dates) {
  if (LacksRevision(form)) form.UserTypes(dynamic_cast<Viaturas&>(form).Campo[kRevisionKm], kNoRevision);
  for (const UnsetDate& date : dates) {
    date.picker->Value = platform::Variant::Null{};
    if (date.picker->Change) date.picker->Change();
  }
}

}  // namespace entry
