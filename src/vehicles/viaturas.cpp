#include "vehicles/viaturas.h"

#include "host/fotos.h"
#include "host/one_row.h"
#include "platform/screen/dialogs.h"

namespace zorCrmParvel {
namespace {

constexpr Fotos::Tipo kFoto{30, true, "Foto_Add do cl_Viaturas", "Foto_Del do Viaturas"};

}  // namespace

Statement clViaturas::Seleccao() const {
  return {"SELECT *", " From zor_PV_Viaturas", " WHERE     (Matricula = N'", value(Matricula), "')"};
}

bool clViaturas::Ler() {
  return LerLinha(bd, Seleccao(), [this](const Row& row) { LerCampos(row); });
}

void clViaturas::LerCampos(const Row& row) {
  Marca = row.text("Marca");
  Modelo = row.text("Modelo");
  Responsavel = row.value("Responsavel");
  Categoria = row.text("Categoria");
  Departamento = row.text("Departamento");
  KmInicial = row.currency("KmInicial");
  KmActual = row.currency("KmActual");
  DataKmInicial = row.date("DataKmInicial");
  CustoMedioKmC = row.currency("CustoMedioKmC");
  DataMatricula = row.date("DataMatricula");
  AnoMatricula = row.integer("AnoMatricula");
  NoMotor = row.text("NoMotor");
  Cilindrada = row.text("Cilindrada");
  CompLeasing = row.text("CompLeasing");
  NoContrato = row.text("NoContrato");
  ValContrato = row.dateOrZero("ValContrato");
  ValorInicial = row.currency("ValorInicial");
  ValorResidual = row.currency("ValorResidual");
  Mensalidade = row.currency("Mensalidade");
  CustoMedioKmT = row.currency("CustoMedioKmT");
  QtdInicial = row.currency("QtdInicial");
  CustoTotal = row.currency("CustoTotal");
  Obs = row.text("Obs");
  Media = row.currency("Media");
  NoChassis = row.text("NoChassis");
  Combustivel = row.integer("Combustivel");
  DataPrxRev = row.dateOrZero("DataPrxRev");
  DataPrxInsp = row.dateOrZero("DataPrxInsp");
  KmPrxRev = row.currency("KmPrxRev");
  Inactiva = row.integer("Inactiva");
  Tacografo = row.integer("Tacografo");
  DtDescarga = row.date("DtDescarga");
  DataSelo = row.dateOrZero("DataSelo");
  const platform::Variant pago = row.value("SeloPago");
  SeloPago = !pago.IsNull() && pago.ToBool();
}

bool clViaturas::Escrever() {
  EscreverLinha(bd, Seleccao(), "Matricula", Matricula, [this](Row& row) { EscreverCampos(row); });
  return true;
}

void clViaturas::EscreverCampos(Row& row) const {
  row.cut("Marca", Marca);
  row.cut("Modelo", Modelo);
  if (Responsavel.IsNull())
    row.put("Responsavel", Responsavel);
  else
    row.cut("Responsavel", Responsavel.ToText());
  row.cut("Categoria", Categoria);
  row.cut("Departamento", Departamento);
  row.put("KmInicial", KmInicial);
  row.put("KmActual", KmActual);
  row.put("DataKmInicial", DataKmInicial);
  row.put("CustoMedioKmC", CustoMedioKmC);
  row.put("DataMatricula", DataMatricula);
  row.put("AnoMatricula", AnoMatricula);
  row.cut("NoMotor", NoMotor);
  row.cut("Cilindrada", Cilindrada);
  row.cut("CompLeasing", CompLeasing);
  row.cut("NoContrato", NoContrato);
  row.putDateOrNull("ValContrato", ValContrato);
  row.put("ValorInicial", ValorInicial);
  row.put("ValorResidual", ValorResidual);
  row.put("Mensalidade", Mensalidade);
  row.put("CustoMedioKmT", CustoMedioKmT);
  row.put("QtdInicial", QtdInicial);
  row.put("CustoTotal", CustoTotal);
  row.cut("Obs", Obs);
  row.put("Media", Media);
  row.cut("NoChassis", NoChassis);
  row.put("Combustivel", Combustivel);
  row.putDateOrNull("DataPrxRev", DataPrxRev);
  row.putDateOrNull("DataPrxInsp", DataPrxInsp);
  row.put("KmPrxRev", KmPrxRev);
  row.put("Inactiva", Inactiva);
  row.put("Tacografo", Tacografo);
  row.put("DtDescarga", DtDescarga);
  row.put("DataSelo", DataSelo);
  row.put("SeloPago", static_cast<std::int16_t>(SeloPago ? -1 : 0));
}

bool clViaturas::EscreverMedia() {
  RecordsetRef rs;
  bd->AbrirEdicao(Seleccao(), rs);
  Row row(*rs);
  row.put("KmActual", KmActual);
  row.put("CustoMedioKmC", CustoMedioKmC);
  row.put("Media", Media);
  rs->Update();
  rs->Close();
  return true;
}

bool clViaturas::Anular() {
  for (const char* tabela : {"zor_PV_Viaturas", "zor_PV_Acessorios", "zor_PV_Seguros", "zor_PV_Multas",
                             "zor_PV_Sinistros", "zor_PV_Revisoes", "zor_PV_Gastos", "zor_PV_Inspecoes"})
    bd->ExecutarSql("",
                    {"Delete  From ", fixed(tabela), " ", " WHERE (Matricula ='", value(Matricula), "' )"});
  return true;
}

bool clViaturas::Navegar(const Statement& statement) {
  return LerLinha(bd, statement, [this](const Row& row) { Matricula = row.text("Matricula"); });
}

bool clViaturas::LerPrimeiro() {
  return Navegar("SELECT Top 1 *  From zor_PV_Viaturas WHERE     (Matricula > '') order by Matricula ");
}

bool clViaturas::LerUltimo() {
  return Navegar(
      "SELECT Top 1 *  From zor_PV_Viaturas WHERE     (Matricula < 'zzzzzzzzzzzz') order by Matricula desc");
}

bool clViaturas::LerProximo() {
  return Navegar({"SELECT Top 1 *", " From zor_PV_Viaturas", " WHERE     (Matricula > '", value(Matricula),
                  "')", " order by Matricula"});
}

bool clViaturas::LerAnterior() {
  return Navegar({"SELECT Top 1 * ", " From zor_PV_Viaturas", " WHERE     (Matricula < '", value(Matricula),
                  "')", " order by Matricula desc"});
}

RecordsetRef clViaturas::LerViaturas() {
  RecordsetRef rs;
  bd->AbrirLeitura("", "SELECT *  From zor_PV_Viaturas", rs);
  return rs;
}

std::string clViaturas::MostraLista() {
  platform::ListaPesquisa lista;
  bd->ObterLigacao(lista.Ligacao);
  lista.Titulo = "Viaturas";
  lista.Sql =
      " SELECT zor_PV_Viaturas.Matricula AS Matrícula, "
      "zor_PV_Marcas.Nome AS Marca, zor_PV_Modelos.Nome AS Modelo"
      "  FROM         zor_PV_Viaturas"
      " INNER JOIN  zor_PV_Modelos ON zor_PV_Viaturas.Modelo = zor_PV_Modelos.Codigo"
      " INNER JOIN  zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo";
  lista.Carrega();
  lista.Largura = 4500;
  lista.Coluna(1).Width = 1000;
  lista.Coluna(2).Width = 2500;
  lista.Coluna(3).Width = 2500;
  return lista.Escolhe();
}

bool clViaturas::Foto_Add(const std::string& ficheiro) {
  return Fotos::Foto_Add(kFoto, bd, Matricula, ficheiro);
}

bool clViaturas::Foto_Del() { return Fotos::Foto_Del(kFoto, bd, Matricula); }

std::string clViaturas::Foto_Get() { return Fotos::Foto_Get(kFoto, bd, Matricula); }

}  // namespace zorCrmParvel
