#include "history/drivers/driver_tables.h"

#include "history/rows.h"
#include "platform/text.h"

namespace history {
namespace {

/// The kinds under which photos, archived documents and attached files of drivers are stored.
constexpr int kKinds[] = {20, 320};

std::optional<long> KindIn(const tsql::Table& table, const Image& image) {
  for (std::size_t i = 0; i < image.size(); ++i)
    for (const char* name : {"zor_Fotos_TipoEntidade", "zor_ArquivoDigital_TipoEntidade", "Tipo"})
      if (platform::EqualsIgnoringCase(table.columns[i].name, name) && image[i] && !image[i]->IsNull())
        return image[i]->ToLong();
  return {};
}

}  // namespace

const std::vector<DriverTable>& DriverTables() {
  static const std::vector<DriverTable> tables = {
      {"motorista", "Ficha", "zor_Funcionarios", "Codigo", "", true},
      {"cartas", "Classes da carta", "zor_CartasCond", "Motorista", "", true},
      {"gastos", "Gastos", "zor_PV_Gastos", "Motorista", "", false},
      {"multas", "Multas", "zor_PV_Multas", "Motorista", "", false},
      {"sinistros", "Sinistros", "zor_PV_Sinistros", "Motorista", "", false},
      {"fotografias", "Fotografia", "zor_Fotos", "zor_Fotos_Entidade", "zor_Fotos_TipoEntidade IN (20, 320)",
       true},
      {"arquivo", "Arquivo digital", "zor_ArquivoDigital", "zor_ArquivoDigital_Entidade",
       "zor_ArquivoDigital_TipoEntidade IN (20, 320)", true},
      {"anexos", "Ficheiros anexados", "zor_PV_Attach", "Codigo", "Tipo IN (20, 320)", true}};
  return tables;
}

std::vector<Image> ReadDriverRows(KeepingStore& store, const DriverTable& from, const std::string& code) {
  const tsql::Table& table = store.catalog().Get(from.table);
  std::string statement =
      "SELECT * FROM " + Bracketed(table.name) + " WHERE " + from.column + " = " + TextLiteral(code);
  if (*from.condition != '\0') statement += std::string(" AND ") + from.condition;
  return ImagesOf(table, *OpenRows(store, statement));
}

bool IsOf(const DriverTable& from, const tsql::Table& table, const Image& image, const std::string& code) {
  if (*from.condition != '\0')
    if (const auto kind = KindIn(table, image); kind && *kind != kKinds[0] && *kind != kKinds[1])
      return false;
  for (std::size_t i = 0; i < image.size(); ++i)
    if (platform::EqualsIgnoringCase(table.columns[i].name, from.column) && image[i] && !image[i]->IsNull())
      return SameCode(image[i]->ToText(), code);
  return false;
}

bool SameCode(std::string a, std::string b) {
  for (std::string* text : {&a, &b}) text->erase(text->find_last_not_of(' ') + 1);
  return platform::EqualsIgnoringCase(a, b);
}

}  // namespace history
