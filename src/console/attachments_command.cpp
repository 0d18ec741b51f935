#include "console/attachments_command.h"

#include <filesystem>
#include <ostream>

#include "documents/attach.h"
#include "host/row.h"

namespace console {

namespace {

zorCrmParvel::clAttach Of(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code) {
  zorCrmParvel::clAttach attach;
  attach.mybd = bd;
  attach.Codigo = code;
  attach.Tipo = kind;
  return attach;
}

}  // namespace

void Attach(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code,
            const std::string& file) {
  zorCrmParvel::clAttach attach = Of(bd, kind, code);
  attach.Fx = std::filesystem::absolute(file).lexically_normal().string();
  attach.Escrever();
}

void PrintAttachments(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code,
                      std::ostream& out) {
  zorCrmParvel::clAttach attach = Of(bd, kind, code);
  const zorCrmParvel::RecordsetRef rows = attach.LerDocs();
  if (rows->Eof()) out << "Sem ficheiros anexados.\n";
  const zorCrmParvel::Row row(*rows);
  for (; !rows->Eof(); rows->MoveNext()) out << row.text("Fx") << '\n';
  rows->Close();
}

}  // namespace console
