#include "console/attachments_command.h"

#include <filesystem>
#include <ostream>

#include "documents/attach.h"
#include "host/row.h"

namespace console {

void PrintAttachments(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code,
                      const std::string& file, std::ostream& out) {
  zorCrmParvel::clAttach attach;
  attach.mybd = bd;
  attach.Codigo = code;
  attach.Tipo = kind;
  if (!file.empty()) {
    attach.Fx = std::filesystem::absolute(file).lexically_normal().string();
    attach.Escrever();
  }
  const zorCrmParvel::RecordsetRef rows = attach.LerDocs();
  if (rows->Eof()) out << "Sem ficheiros anexados.\n";
  const zorCrmParvel::Row row(*rows);
  for (; !rows->Eof(); rows->MoveNext()) out << row.text("Fx") << '\n';
  rows->Close();
}

}  // namespace console
