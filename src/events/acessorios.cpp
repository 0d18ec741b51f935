#include "events/acessorios.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kAcessorios{
    .tabela = "zor_PV_Acessorios",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Acessórios",
    .sqlLista =
        " SELECT zor_PV_Acessorios.Id as ' ',zor_PV_Acessorios.Matricula AS Matrícula, "
        "zor_PV_TiposAcessorios.Nome AS 'Tipo Acessório', zor_PV_Acessorios.Marca FROM zor_PV_Acessorios "
        "INNER "
        "JOIN zor_PV_TiposAcessorios ON zor_PV_Acessorios.TipoAcessorio = zor_PV_TiposAcessorios.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 1000, 2500},
    .tituloMapa = "Listagem de Acessórios",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Acessorios order by Codigo",
};

}  // namespace

clAcessorios::clAcessorios() : EventEntity(kAcessorios) {}

void clAcessorios::LerCampos(const Row& row) {
  Codigo = row.text("Matricula");
  TipoAcessorio = row.text("TipoAcessorio");
  Obs = row.text("Obs");
  Data = row.date("Data");
  Marca = row.text("Marca");
  Modelo = row.text("Modelo");
  KmInicial = row.currency("KmInicial");
  KmFinal = row.currency("KmFinal");
  Qtd = row.currency("Qtd");
  Custo = row.currency("Custo");
  DataVal = row.dateOrZero("DataVal");
}

void clAcessorios::EscreverCampos(Row& row) const {
  row.cut("TipoAcessorio", TipoAcessorio);
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.cut("Marca", Marca);
  row.cut("Modelo", Modelo);
  row.put("KmInicial", KmInicial);
  row.put("KmFinal", KmFinal);
  row.put("Qtd", Qtd);
  row.put("Custo", Custo);
  row.putDateOrNull("DataVal", DataVal);
}

RecordsetRef clAcessorios::LerAcessorios() {
  return Abrir({"SELECT *  From zor_PV_Acessorios WHERE     (Matricula = N'", value(Codigo), "')"});
}

RecordsetRef clAcessorios::LerTodosAcessorios() { return Abrir("SELECT *  From zor_PV_Acessorios"); }

}  // namespace zorCrmParvel
