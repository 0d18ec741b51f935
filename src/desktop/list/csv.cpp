#include "desktop/list/csv.h"

#include <utility>

#include "desktop/look/text.h"
#include "desktop/shell/save_file.h"
#include "exchange/csv_text.h"
#include "platform/runtime_error.h"

namespace desktop {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

/// A cell as it is shown; one that holds a text is kept from being taken for a formula.
std::string Cell(const TableSource& source, long row, std::size_t column) {
  std::string text = FromQt(source.Text(row, column));
  const bool is_text = source.Value(row, column).As<std::string>() != nullptr;
  return exchange::CsvField(is_text ? exchange::Guarded(std::move(text)) : std::move(text));
}

template <typename FieldOf>
void WriteLine(QSaveFile& file, const std::vector<std::size_t>& columns, const FieldOf& field_of) {
  std::string line;
  for (std::size_t column : columns) line += (column == columns.front() ? "" : ";") + field_of(column);
  line += "\r\n";
  file.write(line.data(), static_cast<qint64>(line.size()));
}

}  // namespace

void WriteCsv(const QString& name, const TableSource& source, const std::vector<long>& rows) {
  QSaveFile file(name);
  const std::vector<std::size_t> columns = source.VisibleColumns();
  if (file.open(QIODevice::WriteOnly)) {
    file.write(kByteOrderMark);
    WriteLine(file, columns, [&](std::size_t column) {
      return exchange::CsvField(FromQt(source.Columns()[column].caption));
    });
    for (long row : rows)
      WriteLine(file, columns, [&](std::size_t column) { return Cell(source, row, column); });
  }
  if (!Keep(file))
    throw platform::RuntimeError(
        platform::kEngineFailure, "Exportar",
        FromQt(QStringLiteral("Não foi possível escrever o ficheiro %1 (%2). Veja se o disco está cheio, ou "
                              "escolha outra pasta.")
                   .arg(name, file.errorString())));
}

}  // namespace desktop
