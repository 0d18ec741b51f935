#include "drivers/motoristas.h"

#include "host/fotos.h"
#include "host/one_row.h"

namespace zorCrmParvel {
namespace {

constexpr TabelaDeCodigos kMotoristas{"zor_Funcionarios", "Motoristas", "Listagem de Motoristas", true};
constexpr Fotos::Tipo kFoto{20, false, "Foto_Add do cl_Motoristas", "Foto_Del da cl_Motoristas"};

}  // namespace

clMotoristas::clMotoristas() : CodeTableWithList(kMotoristas) {}

Statement clMotoristas::Seleccao() const {
  return {"SELECT *", " From zor_Funcionarios", " WHERE     (Codigo = N'", value(Codigo), "')"};
}

/// The statement of a read; a write has one blank less.
Statement clMotoristas::Leitura() const {
  return {"SELECT *", "  From zor_Funcionarios", " WHERE     (Codigo = N'", value(Codigo), "')"};
}

bool clMotoristas::Ler() {
  LeuPV = false;
  return LerSal ? LerDoPessoal() : LerDaFrota();
}

bool clMotoristas::LerDaFrota() {
  return LerLinha(bd, Leitura(), [this](const Row& row) { LerCampos(row); });
}

bool clMotoristas::LerDoPessoal() {
  return LerLinha(bdSal, {"SELECT *", "  From Func1", " WHERE     (Nfunc = N'", value(Codigo), "')"},
                  [this](const Row& pessoal) {
                    LerDadosPessoais(pessoal);
                    LeuPV = LerLinha(bd, Leitura(), [this](const Row& frota) { LerDadosDaFrota(frota); });
                  });
}

void clMotoristas::LerCampos(const Row& row) {
  Descrição = row.text("Nome");
  Morada = row.text("Morada");
  Localidade = row.text("Localidade");
  CodPostal = row.text("CodPostal");
  NIF = row.text("NIF");
  DataNasc = row.date("DataNasc");
  BI = row.text("BI");
  DataBI = row.dateOrZero("DataBI");
  EmissaoBI = row.textOrEmpty("EmissaoBI");
  Telefone = row.text("Telefone");
  Telemovel = row.text("Telemovel");
  Email = row.text("Email");
  Passaporte = row.text("Passaporte");
  DataPassa = row.dateOrZero("DataPassa");
  ValidadePassa = row.dateOrZero("ValidadePassa");
  CartaoCid = row.text("CartaoCid");
  DataCartaoCid = row.dateOrZero("DataCartaoCid");
  ValCartaoCid = row.dateOrZero("ValCartaoCid");
  CartaCond = row.text("CartaCond");
  DataCartaCond = row.dateOrZero("DataCartaCond");
  ValCartaCond = row.dateOrZero("ValCartaCond");
  TipoCartaCond = row.integerOrZero("TipoCartaCond");
  DGV = row.text("DGV");
  LocalPassa = row.textOrEmpty("LocalPassa");
  Obs = row.text("Obs");
  LocalCid = row.textOrEmpty("LocalCid");
  DataValBI = row.dateOrZero("DataValBI");
  LerCartaoCondutor(row);
  Inactivo = row.integer("Inactivo");
}

void clMotoristas::LerDadosPessoais(const Row& row) {
  Descrição = row.text("Nome");
  Morada = row.text("Morada");
  Localidade = row.text("Localid");
  CodPostal = row.text("CdPostal");
  NIF = row.text("NFiscal");
  DataNasc = row.date("DtNasc");
  BI = row.text("BI");
  if (const platform::Variant emitido = row.value("DtBI"); !emitido.IsNull()) DataBI = emitido.ToDate();
  EmissaoBI = row.text("Emissao");
  Telefone = row.text("Telefone");
  Telemovel = row.text("Telemove");
  Email = row.text("Email");
  Passaporte = row.text("Passpo");
  CartaoCid = row.text("NUMERO_CARTAO_CIDADAO");
}

/// What the personnel application doesn't hold. `DataValBI` keeps what the object had.
void clMotoristas::LerDadosDaFrota(const Row& row) {
  DataPassa = row.dateOrZero("DataPassa");
  ValidadePassa = row.dateOrZero("ValidadePassa");
  DataCartaoCid = row.dateOrZero("DataCartaoCid");
  ValCartaoCid = row.dateOrZero("ValCartaoCid");
  CartaCond = row.text("CartaCond");
  DataCartaCond = row.dateOrZero("DataCartaCond");
  ValCartaCond = row.dateOrZero("ValCartaCond");
  DGV = row.text("DGV");
  LocalPassa = row.textOrEmpty("LocalPassa");
  Obs = row.text("Obs");
  LocalCid = row.textOrEmpty("LocalCid");
  TipoCartaCond = row.integerOrZero("TipoCartaCond");
  LerCartaoCondutor(row);
  Inactivo = row.integer("Inactivo");
}

void clMotoristas::LerCartaoCondutor(const Row& row) {
  DtInicioCartaoCondutor = row.dateOrZero("DtInicioCartaoCondutor");
  DtFimCartaoCondutor = row.dateOrZero("DtFimCartaoCondutor");
  DtDescarga = row.dateOrZero("DtDescarga");
  NoCartaoCondutor = row.textOrEmpty("NoCartaoCondutor");
  EmissoraCartaoCondutor = row.textOrEmpty("EmissoraCartaoCondutor");
}

void clMotoristas::EscreverCampos(Row& row) const {
  row.cut("Nome", Descrição);
  row.cut("Morada", Morada);
  row.cut("Localidade", Localidade);
  row.cut("CodPostal", CodPostal);
  row.cut("NIF", NIF);
  row.put("DataNasc", DataNasc);
  row.cut("BI", BI);
  row.put("DataBI", DataBI);
  row.cut("EmissaoBI", EmissaoBI);
  row.cut("Telefone", Telefone);
  row.cut("Telemovel", Telemovel);
  row.cut("email", Email);
  row.cut("Passaporte", Passaporte);
  row.putDateOrNull("DataPassa", DataPassa);
  row.putDateOrNull("ValidadePassa", ValidadePassa);
  row.cut("CartaoCid", CartaoCid);
  row.put("DataCartaoCid", DataCartaoCid);
  row.put("ValCartaoCid", ValCartaoCid);
  row.cut("CartaCond", CartaCond);
  row.put("DataCartaCond", DataCartaCond);
  row.put("ValCartaCond", ValCartaCond);
  row.cut("DGV", DGV);
  row.cut("LocalPassa", LocalPassa);
  row.cut("Obs", Obs);
  row.cut("LocalCid", LocalCid);
  row.put("TipoCartaCond", TipoCartaCond);
  row.put("DataValBI", DataValBI);
  row.put("DtInicioCartaoCondutor", DtInicioCartaoCondutor);
  row.put("DtFimCartaoCondutor", DtFimCartaoCondutor);
  row.put("DtDescarga", DtDescarga);
  row.put("Inactivo", Inactivo);
  row.cut("NoCartaoCondutor", NoCartaoCondutor);
  row.cut("EmissoraCartaoCondutor", EmissoraCartaoCondutor);
}

bool clMotoristas::Anular() {
  return Remover(bd, {"Delete  From zor_Funcionarios ", " WHERE (Codigo ='", value(Codigo), "' )"}) &&
         Remover(bd, {"Delete  From zor_CartasCond ", " WHERE (Motorista ='", value(Codigo), "' )"});
}

RecordsetRef clMotoristas::LerMotoristas() {
  RecordsetRef rs;
  bd->AbrirLeitura("", "SELECT *  From zor_Funcionarios", rs);
  return rs;
}

bool clMotoristas::Foto_Add(const std::string& ficheiro) {
  return Fotos::Foto_Add(kFoto, bd, Codigo, ficheiro);
}

bool clMotoristas::Foto_Del() { return Fotos::Foto_Del(kFoto, bd, Codigo); }

std::string clMotoristas::Foto_Get() { return Fotos::Foto_Get(kFoto, bd, Codigo); }

}  // namespace zorCrmParvel
