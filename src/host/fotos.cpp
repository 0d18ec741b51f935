#include "host/fotos.h"

#include "host/row.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/runtime_error.h"

namespace zorCrmParvel::Fotos {
namespace {

using platform::RuntimeError;

void MostrarErro(const RuntimeError& erro, const char* onde) {
  platform::MsgBox("Erro " + std::to_string(erro.number()) + "\r\n(" + erro.description() +
                   ")\r\nNa função " + onde);
}

void Guardar(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade,
             const std::string& ficheiro) {
  RecordsetRef rs;
  bd->AbrirEdicao({" SELECT zor_Fotos_Entidade, zor_Fotos_Imagem, zor_Fotos_TipoEntidade",
                   fixed(tipo.numerada ? ",zor_Fotos_NumeroFoto " : ""), " From zor_Fotos",
                   " WHERE     (zor_Fotos_TipoEntidade = ", value(tipo.tipo), ") AND (zor_Fotos_Entidade = '",
                   value(entidade), "')"},
                  rs);
  Row row(*rs);
  if (rs->Eof()) {
    rs->AddNew();
    if (tipo.numerada) row.put("zor_Fotos_NumeroFoto", std::int16_t{1});
    row.put("zor_Fotos_Entidade", entidade);
    row.put("zor_Fotos_TipoEntidade", tipo.tipo);
  }
  row.put("zor_Fotos_Imagem", platform::ReadFile(ficheiro));
  rs->Update();
  rs->Close();
}

/// A path in the temporary folder at which there is no file yet.
std::string NovoFicheiro() {
  static int ultimo = 0;
  const std::string pasta = platform::Host::Current().TemporaryFolder();
  std::string nome;
  do nome = pasta + "foto" + std::to_string(++ultimo) + ".jpg";
  while (platform::FileExists(nome));
  return nome;
}

}  // namespace

bool Foto_Add(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade,
              const std::string& ficheiro) {
  try {
    if (platform::FileExists(ficheiro)) Guardar(tipo, bd, entidade, ficheiro);
  } catch (const RuntimeError& erro) {
    MostrarErro(erro, tipo.emAdd);
  }
  return false;
}

bool Foto_Del(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade) {
  try {
    return bd->ExecutarSql("", {" Delete zor_Fotos WHERE     (zor_Fotos_TipoEntidade = ", value(tipo.tipo),
                                ") AND (zor_Fotos_Entidade = '", value(entidade), "')"});
  } catch (const RuntimeError& erro) {
    MostrarErro(erro, tipo.emDel);
    return false;
  }
}

std::string Foto_Get(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade) {
  RecordsetRef rs;
  bd->AbrirLeitura("",
                   {" SELECT zor_Fotos_Entidade, zor_Fotos_Imagem, zor_Fotos_TipoEntidade", " From zor_Fotos",
                    " WHERE     (zor_Fotos_TipoEntidade = ", value(tipo.tipo),
                    ") AND (zor_Fotos_Entidade = '", value(entidade), "')"},
                   rs);
  std::string ficheiro;
  if (!rs->Eof()) {
    const platform::Bytes imagem = Row(*rs).value("zor_Fotos_Imagem").ToBytes();
    ficheiro = NovoFicheiro();
    platform::WritePrivateFile(ficheiro, {reinterpret_cast<const char*>(imagem.data()), imagem.size()});
  }
  rs->Close();
  return ficheiro;
}

}  // namespace zorCrmParvel::Fotos
