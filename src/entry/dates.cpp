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

std::vector<UnsetDate> EmptyOf(Viaturas& ficha) {
  clViaturas vehicle;
  vehicle.bd = ficha.mybd;
  vehicle.Matricula = ficha.Campo[0].Text;
  vehicle.Ler();
  std::vector<UnsetDate> empty;
  for (const auto& date : zorCrmParvel::kDatasDaViatura)
    if (date.opcional && (vehicle.*date.propriedade).IsZero())
      empty.push_back({&ficha.DTPicker1[date.indice], platform::Trim(date.legenda)});
  return empty;
}

}  // namespace

std::vector<UnsetDate> UnsetDates::Of(platform::Form& form) {
  auto* driver = dynamic_cast<Motoristas*>(&form);
  auto* vehicle = dynamic_cast<Viaturas*>(&form);
  if (driver == nullptr && vehicle == nullptr) return {};
  const std::string key = platform::Trim(driver != nullptr ? driver->Campo[0].Text : vehicle->Campo[0].Text);
  if (key.empty()) return {};
  if (!known_ || key != key_) empty_ = driver != nullptr ? EmptyOf(*driver) : EmptyOf(*vehicle);
  known_ = true;
  key_ = key;
  std::vector<UnsetDate> unset;
  for (const UnsetDate& date : empty_)
    if (!date.picker->Value.IsNull() && date.picker->Value.ToDate().DayOnly() == platform::Today())
      unset.push_back(date);
  return unset;
}

void UnsetDates::LeaveWithout(const std::vector<UnsetDate>& dates) {
  for (const UnsetDate& date : dates) {
    date.picker->Value = platform::Variant::Null{};
    if (date.picker->Change) date.picker->Change();
  }
}

}  // namespace entry
