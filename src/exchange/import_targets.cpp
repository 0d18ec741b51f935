#include "exchange/import_targets.h"

#include <array>
#include <map>
#include <mutex>

#include "exchange/profile/import_kinds.h"

namespace exchange {
namespace {

struct Kind {
  const char* name;
  std::unique_ptr<ImportTarget> (*make)(const zorCrmParvel::DataAccessRef&);
};

constexpr std::array kKinds = {
    Kind{"viaturas", &MakeVehicleImport},     Kind{"motoristas", &MakeDriverImport},
    Kind{"gastos", &MakeExpenseImport},       Kind{"apolices", &MakePolicyImport},
    Kind{"revisoes", &MakeRevisionImport},    Kind{"inspecoes", &MakeInspectionImport},
    Kind{"multas", &MakeFineImport},          Kind{"sinistros", &MakeAccidentImport},
    Kind{"acessorios", &MakeAccessoryImport}, Kind{"cartas", &MakeLicenceImport}};

}  // namespace

std::unique_ptr<ImportTarget> MakeImportTarget(const std::string& what,
                                               const zorCrmParvel::DataAccessRef& bd) {
  for (const Kind& kind : kKinds)
    if (what == kind.name) return kind.make(bd);
  return MakeCodeImport(what, bd);
}

const std::vector<ImportColumn>& ColumnsOfKind(const std::string& what) {
  static std::map<std::string, std::vector<ImportColumn>> known;
  static std::mutex one;
  const std::lock_guard lock(one);
  const auto [place, fresh] = known.try_emplace(what);
  if (fresh) place->second = MakeImportTarget(what, {})->Columns();
  return place->second;
}

std::string ImportTargetNames() {
  std::string names;
  for (const ImportKind& kind : ImportKinds()) names += (names.empty() ? "" : ", ") + std::string(kind.name);
  return names;
}

}  // namespace exchange
