#pragma once

#include <string>

#include "host/data_access.h"
#include "platform/date.h"

/// Records that many tests begin with, written through the entities.
namespace testing_support {

/// A record of a code and its name.
template <typename Entity>
void AddCode(const zorCrmParvel::DataAccessRef& bd, const std::string& codigo, const std::string& nome) {
  Entity entity;
  entity.bd = bd;
  entity.Codigo = codigo;
  entity.Descrição = nome;
  entity.Escrever();
}

/// An event of a vehicle, to be filled in and written.
template <typename Event>
struct EventOf : Event {
  EventOf(const zorCrmParvel::DataAccessRef& database, const std::string& plate) {
    Event::bd = database;
    Event::Codigo = plate;
  }
};

/// Writes one as it begins.
template <typename Event>
void AddEvent(const zorCrmParvel::DataAccessRef& bd, const std::string& plate) {
  EventOf<Event>(bd, plate).Escrever();
}
/// An event of each of the seven kinds, with the expense types.
void AddEvents(const zorCrmParvel::DataAccessRef& bd, const std::string& plate);

/// A make, a vehicle of it with its initial figures.
void AddVehicle(const zorCrmParvel::DataAccessRef& bd, const std::string& plate, int kmInicial = 0,
                int qtdInicial = 0);
void AddDriver(const zorCrmParvel::DataAccessRef& bd, const std::string& code, const std::string& name);
/// The types GASOLEO (a fuel at 1,659) and PORTAGEM (no fuel).
void AddExpenseTypes(const zorCrmParvel::DataAccessRef& bd);
/// Vehicle 12-AB-34 with its initial kilometres, driver 1 who is Ana, and the expense types.
void AddFleet(const zorCrmParvel::DataAccessRef& bd, int kmInicial);
/// An expense with driver 1; the type's own rules aren't applied.
void AddExpense(const zorCrmParvel::DataAccessRef& bd, const std::string& plate, platform::Date date,
                const std::string& type, const std::string& quantity, const std::string& cost, int km);

}  // namespace testing_support
