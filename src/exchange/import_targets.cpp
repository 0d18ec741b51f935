#include "exchange/import_targets.h"

#include <array>

namespace exchange {
namespace {

struct Kind {
  const char* name;
  std::unique_ptr<ImportTarget> (*make)(const zorCrmParvel::DataAccessRef&);
};

constexpr std::array kKinds = {
    Kind{"viaturas", &MakeVehicleImport},    Kind{"motoristas", &MakeDriverImport},
    Kind{"gastos", &MakeExpenseImport},      Kind{"apolices", &MakePolicyImport},
    Kind{"revisoes", &MakeRevisionImport},   Kind{"inspecoes", &MakeInspectionImport},
    Kind{"multas", &MakeFineImport},         Kind{"sinistros", &MakeAccidentImport},
    Kind{"acessorios", &MakeAccessoryImport}};

}  // namespace

std::unique_ptr<ImportTarget> MakeImportTarget(const std::string& what,
                                               const zorCrmParvel::DataAccessRef& bd) {
  for (const Kind& kind : kKinds)
    if (what == kind.name) return kind.make(bd);
  return nullptr;
}

std::string ImportTargetNames() {
  std::string names;
  for (const Kind& kind : kKinds) names += (names.empty() ? "" : ", ") + std::string(kind.name);
  return names;
}

}  // namespace exchange
