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
const char* NameOfDriversDate(int place) {
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

StoredDates DatesOfDriver(const zorCrmParvel::DataAccessRef& bd, const std::string& code) {
  clMotoristas driver;
  driver.bd = bd;
  driver.Codigo = code;
  driver.Ler();
  StoredDates stored;
  for (std::size_t i = 0; i < zorCrmParvel::kDatasDoMotorista.size(); ++i) {
    const auto& date = zorCrmParvel::kDatasDoMotorista[i];
    if (date.opcional && (driver.*date.propriedade).IsZero()) stored.empty.push_back(static_cast<int>(i));
  }
  return stored;
}

StoredDates DatesOfVehicle(const zorCrmParvel::DataAccessRef& bd, const std::string& plate) {
  clViaturas vehicle;
  vehicle.bd = bd;
  vehicle.Matricula = plate;
  StoredDates stored;
  stored.is_new = !vehicle.Ler();
  for (const auto& date : zorCrmParvel::kDatasDaViatura)
    if (date.opcional && (vehicle.*date.propriedade).IsZero()) stored.empty.push_back(date.indice);
  return stored;
}

bool IsToday(const platform::DTPicker& picker) {
  return !picker.Value.IsNull() && picker.Value.ToDate().DayOnly() == platform::Today();
}

}  // namespace

std::optional<DatedRecord> DatedRecordOn(const platform::Form& form) {
  const auto* driver = dynamic_cast<const Motoristas*>(&form);
  const auto* vehicle = dynamic_cast<const Viaturas*>(&form);
  if (driver == nullptr && vehicle == nullptr) return {};
  DatedRecord record{driver != nullptr,
                     platform::Trim(driver != nullptr ? driver->Campo[0].Text : vehicle->Campo[0].Text)};
  return record.key.empty() ? std::nullopt : std::optional(std::move(record));
}

StoredDates StoredDatesOf(const zorCrmParvel::DataAccessRef& bd, const DatedRecord& record) {
  return record.driver ? DatesOfDriver(bd, record.key) : DatesOfVehicle(bd, record.key);
}

std::vector<UnsetDate> UnsetDatesOn(platform::Form& form, const StoredDates& stored) {
  std::vector<UnsetDate> unset;
  auto* driver = dynamic_cast<Motoristas*>(&form);
  auto* vehicle = dynamic_cast<Viaturas*>(&form);
  if (driver == nullptr && vehicle == nullptr) return unset;
  for (const int place : stored.empty) {
    platform::DTPicker& picker = driver != nullptr ? driver->DTPicker1[place] : vehicle->DTPicker1[place];
    const char* name = driver != nullptr ? NameOfDriversDate(place) : NameOfVehiclesDate(place);
    if (IsToday(picker)) unset.push_back({&picker, name});
  }
  return unset;
}

bool RegistersToday(const platform::Form& form, const StoredDates& stored) {
  const auto* vehicle = dynamic_cast<const Viaturas*>(&form);
  return vehicle != nullptr && stored.is_new && IsToday(vehicle->DTPicker1[kRegistration]);
}

bool LacksRevision(const platform::Form& form) {
  const auto* vehicle = dynamic_cast<const Viaturas*>(&form);
  if (vehicle == nullptr || platform::Trim(vehicle->Campo[0].Text).empty()) return false;
  return vehicle->Campo[kRevisionKm].Text.find_first_of("123456789") == std::string::npos;
}

void LeaveWithout(platform::Form& form, const std::vector<UnsetDate>& dates) {
  if (LacksRevision(form)) form.UserTypes(dynamic_cast<Viaturas&>(form).Campo[kRevisionKm], kNoRevision);
  for (const UnsetDate& date : dates) {
    date.picker->Value = platform::Variant::Null{};
    if (date.picker->Change) date.picker->Change();
  }
}

}  // namespace entry
