#include "desktop/csv.h"

#include <QSaveFile>

#include "desktop/text.h"
#include "platform/runtime_error.h"

namespace desktop {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

QString Quoted(const QString& text) {
  const bool plain = !text.contains(QLatin1Char(';')) && !text.contains(QLatin1Char('"')) &&
                     !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'));
  if (plain) return text;
  QString quoted = text;
  quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
  return QLatin1Char('"') + quoted + QLatin1Char('"');
}

template <typename TextOf>
void WriteLine(QSaveFile& file, const std::vector<std::size_t>& columns, const TextOf& text_of) {
  QStringList cells;
  for (std::size_t column : columns) cells << Quoted(text_of(column));
  file.write((cells.join(QLatin1Char(';')) + QLatin1String("\r\n")).toUtf8());
}

}  // namespace

void WriteCsv(const QString& name, const TableSource& source, const RowOrder& order) {
  QSaveFile file(name);
  const std::vector<std::size_t> columns = source.VisibleColumns();
  if (file.open(QIODevice::WriteOnly)) {
    file.write(kByteOrderMark);
    WriteLine(file, columns, [&](std::size_t column) { return source.Columns()[column].caption; });
    for (long place = 0; place < order.Count(); ++place)
      WriteLine(file, columns, [&](std::size_t column) { return source.Text(order.RowAt(place), column); });
  }
  if (!file.commit())
    throw platform::RuntimeError(
        platform::kEngineFailure, "Exportar",
        FromQt(QStringLiteral("Não foi possível escrever o ficheiro %1.").arg(name)));
}

}  // namespace desktop
