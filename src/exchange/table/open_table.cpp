#include <stdexcept>

#include "exchange/table/table_reader.h"
#include "exchange/table/text_table.h"
#include "platform/files.h"

namespace exchange {

std::unique_ptr<TableReader> OpenTable(const std::string& file, const TableOptions& options) {
  if (!platform::FileExists(file))
    throw std::runtime_error("O ficheiro \"" + file + "\" não existe ou não pode ser lido.");
  if (platform::FileInUse::Covers(file))
    throw std::runtime_error("O ficheiro \"" + file +
                             "\" é a base de dados que está aberta; não pode ser importado.");
  return OpenTextTable(file, options);
}

}  // namespace exchange
