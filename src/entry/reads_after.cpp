#include "entry/reads_after.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "events/cost_sums.h"
#include "events/gastos.h"
#include "host/data_access.h"
#include "vehicles/viaturas.h"

namespace entry {
namespace {

using namespace zorCrmParvel;

/// Ends a read once its statement is known.
struct Known {};

/// Takes down what is read and answers nothing.
class Listener : public DataAccess {
 public:
  std::vector<std::string> heard;

  bool ObterLigacao(platform::Ref<platform::Connection>&) override { throw Known(); }

 protected:
  bool Execute(const std::string&) override { throw Known(); }
  RecordsetRef OpenForEditing(const std::string&) override { throw Known(); }
  RecordsetRef OpenForReading(const std::string& statement) override {
    heard.push_back(statement);
    throw Known();
  }
};

using Read = void (*)(const DataAccessRef& bd, const std::string& plate);

void Expenses(const DataAccessRef& bd, const std::string& plate) {
  clGastos expense;
  expense.bd = bd;
  expense.Codigo = plate;
  expense.LerGastos();
}

void Vehicle(const DataAccessRef& bd, const std::string& plate) {
  clViaturas vehicle;
  vehicle.bd = bd;
  vehicle.Matricula = plate;
  vehicle.Ler();
}

template <platform::Currency (*Sum)(const DataAccessRef&, const std::string&)>
void Costs(const DataAccessRef& bd, const std::string& plate) {
  Sum(bd, plate);
}

constexpr std::array<Read, 5> kReads = {&Expenses, &Vehicle, &Costs<&Tools::SomaCustoAcessorios>,
                                        &Costs<&Tools::SomaCustoInspecoes>,
                                        &Costs<&Tools::SomaCustoRevisoes>};

/// How many of the reads follow, by the table.
constexpr std::array<std::pair<std::string_view, std::size_t>, 4> kAfter = {
    {{"zor_PV_Gastos", 4}, {"zor_PV_Acessorios", 4}, {"zor_PV_Inspecoes", 4}, {"zor_PV_Revisoes", 5}}};

}  // namespace

std::vector<std::string> ReadsAfterEvent(const std::string& table, const store::WrittenValue& value) {
  const auto after =
      std::find_if(kAfter.begin(), kAfter.end(), [&](const auto& each) { return table == each.first; });
  const std::string plate = after == kAfter.end() ? std::string() : value("Matricula");
  if (plate.empty()) return {};
  const auto listener = platform::MakeRef<Listener>();
  const DataAccessRef bd(listener);
  for (std::size_t i = 0; i < after->second; ++i) try {
      kReads[i](bd, plate);
    } catch (const Known&) {
      // all that was wanted of it
    }
  return listener->heard;
}

}  // namespace entry
