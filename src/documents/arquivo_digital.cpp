#include "documents/arquivo_digital.h"

#include <exception>

#include "host/row.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/text.h"

namespace zorCrmParvel {

using platform::Variant;

bool Cl_ArquivoDigital::RemoverDocumento(std::int32_t numero) {
  return bd->ExecutarSql(
      "", {" DELETE FROM zor_ArquivoDigital Where (zor_ArquivoDigital_Id =", value(numero), ")"});
}

Variant Cl_ArquivoDigital::MudaNomeDocumento(std::int32_t numero) {
  const std::string titulo =
      platform::Host::Current().InputBox("Introduza o novo título do documento", "Renomear Documentos", "");
  if (titulo.empty()) return {};
  bd->ExecutarSql("", {"UPDATE    zor_ArquivoDigital Set zor_ArquivoDigital_Titulo = N'", value(titulo),
                       " ' Where (zor_ArquivoDigital_Id =", value(numero), ")"});
  return true;
}

bool Cl_ArquivoDigital::Add(const std::string& NomeFicheiro, const std::string& NumeroFicha,
                            std::int16_t TipoEntidade, std::int32_t nReg, const std::string& Designacao) {
  try {
    Guardar(NomeFicheiro, NumeroFicha, TipoEntidade, nReg, Designacao);
    return true;
  } catch (const std::exception&) {  // a file that memory can't hold, too
    return false;                    // the screen keeps what was typed
  }
}

void Cl_ArquivoDigital::Guardar(const std::string& NomeFicheiro, const std::string& NumeroFicha,
                                std::int16_t TipoEntidade, std::int32_t nReg, const std::string& Designacao) {
  RecordsetRef rs;
  bd->AbrirEdicao({"SELECT  zor_ArquivoDigital_Entidade, "
                   " zor_ArquivoDigital_TipoEntidade, "
                   " zor_ArquivoDigital_Documento, "
                   " zor_ArquivoDigital_NomeFicheiro, "
                   " zor_ArquivoDigital_Id, "
                   " zor_ArquivoDigital_Titulo"
                   " From zor_ArquivoDigital"
                   " WHERE     (zor_ArquivoDigital_Id = ",
                   value(nReg), ")"},
                  rs);
  platform::Bytes documento = platform::ReadFile(NomeFicheiro);
  Row row(*rs);
  if (rs->Eof()) {
    rs->AddNew();
    row.put("zor_ArquivoDigital_Entidade", NumeroFicha);
    row.put("zor_ArquivoDigital_TipoEntidade", TipoEntidade);
  }
  const std::string nome = platform::FileNameOf(NomeFicheiro);
  auto campoNome = rs->Fields("zor_ArquivoDigital_NomeFicheiro");
  campoNome.SetValue(platform::Right(nome, static_cast<std::size_t>(campoNome.DefinedSize())));
  rs->Fields("zor_ArquivoDigital_Documento").SetValue(std::move(documento));
  row.cut("zor_ArquivoDigital_Titulo", Designacao.empty() ? nome : Designacao);
  rs->Update();
  rs->Close();
}

Variant Cl_ArquivoDigital::VisalizarDocumento(std::int32_t numero, long /*IdDaJanela*/,
                                              const std::string& percurso) {
  RecordsetRef rs;
  bd->AbrirLeitura("",
                   {"SELECT     zor_ArquivoDigital_NomeFicheiro, zor_ArquivoDigital_Documento"
                    " From zor_ArquivoDigital"
                    " WHERE     (zor_ArquivoDigital_Id = ",
                    value(numero), ")"},
                   rs);
  std::string ficheiro;
  if (!rs->Eof()) {
    const platform::Cell& documento = rs->CellAt(0, *rs->FindField("zor_ArquivoDigital_Documento"));
    if (documento.IsNull())
      throw platform::RuntimeError(platform::kInvalidUseOfNull, "VisalizarDocumento",
                                   "Este documento não tem conteúdo: só o título foi guardado. Anexe o "
                                   "ficheiro de novo e apague este título.");
    ficheiro = percurso + platform::FileNameOf(Row(*rs).text("zor_ArquivoDigital_NomeFicheiro"));
    platform::WritePrivateFile(ficheiro, documento.block());
  }
  rs->Close();
  if (platform::FileExists(ficheiro)) platform::Host::Current().OpenDocument(ficheiro);
  return {};
}

RecordsetRef Cl_ArquivoDigital::ListaDeDocumentos(const std::string& NumeroDeFicha,
                                                  std::int16_t TipoDeEntidade) {
  RecordsetRef rs;
  bd->AbrirLeitura("",
                   {"SELECT     zor_ArquivoDigital_Id as Numero, zor_ArquivoDigital_Titulo as Titulo"
                    " From zor_ArquivoDigital"
                    " WHERE     (zor_ArquivoDigital_Entidade = N'",
                    value(NumeroDeFicha),
                    "') "
                    " AND (zor_ArquivoDigital_TipoEntidade = ",
                    value(TipoDeEntidade), ")"},
                   rs);
  return rs;
}

}  // namespace zorCrmParvel
