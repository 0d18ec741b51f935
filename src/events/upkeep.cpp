#include "events/upkeep.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kRevisoes{
    .tabela = "zor_PV_Revisoes",
    .id = "Manu_Id",
    .data = "Data",
    .tituloLista = "Revisões",
    .sqlLista =
        " SELECT zor_PV_Revisoes.Manu_Id as ' ',zor_PV_Revisoes.Matricula AS Matrícula, "
        "zor_PV_TiposManut.Nome AS 'Tipo Revisão',Data as Data  "
        "FROM zor_PV_Revisoes "
        "INNER JOIN zor_PV_TiposManut ON zor_PV_Revisoes.TipoManut = zor_PV_TiposManut.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 2000, 1500},
    .tituloMapa = "Listagem de Revisões",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Revisoes order by Codigo",
};

const TabelaDeEventos kInspecoes{
    .tabela = "zor_PV_Inspecoes",
    .id = "Insp_Id",
    .data = "Data",
    .tituloLista = "Inspecções",
    .sqlLista =
        " SELECT zor_PV_Inspecoes.Insp_Id as ' ',zor_PV_Inspecoes.Matricula AS Matrícula,"
        "zor_PV_Inspecoes.Data AS Data  "
        "FROM zor_PV_Inspecoes",
    .listaPorViatura = true,
    .larguraLista = 2900,
    .colunasLista = {1000, 1200, 1200},
    .tituloMapa = "Listagem de Inspecções",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Inspecoes order by Codigo",
    .fimDoUltimo = " ",
};

const TabelaDeEventos kAcessorios{
    .tabela = "zor_PV_Acessorios",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Acessórios",
    .sqlLista =
        " SELECT zor_PV_Acessorios.Id as ' ',zor_PV_Acessorios.Matricula AS Matrícula, "
        "zor_PV_TiposAcessorios.Nome AS 'Tipo Acessório', zor_PV_Acessorios.Marca "
        "FROM zor_PV_Acessorios "
        "INNER JOIN zor_PV_TiposAcessorios ON zor_PV_Acessorios.TipoAcessorio = "
        "zor_PV_TiposAcessorios.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 1000, 2500},
    .tituloMapa = "Listagem de Acessórios",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Acessorios order by Codigo",
};

}  // namespace

void VisitaDaViatura::LerCampos(const Row& row) {
  Obs = row.text("Obs");
  Data = row.date("Data");
  Km = row.currency("Km");
  Custo = row.currency("Custo");
  Codigo = row.text("Matricula");
}

void VisitaDaViatura::EscreverCampos(Row& row) const {
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.put("Km", Km);
  row.put("Custo", Custo);
}

clRevisoes::clRevisoes() : VisitaDaViatura(kRevisoes) {}

void clRevisoes::LerCampos(const Row& row) {
  TipoManut = row.text("TipoManut");
  VisitaDaViatura::LerCampos(row);
}

void clRevisoes::EscreverCampos(Row& row) const {
  row.cut("TipoManut", TipoManut);
  VisitaDaViatura::EscreverCampos(row);
}

RecordsetRef clRevisoes::LerRevisoes() { return LerDaViaturaOuTodos(" Order by Matricula "); }

clInspecoes::clInspecoes() : VisitaDaViatura(kInspecoes) {}

void clInspecoes::LerCampos(const Row& row) {
  VisitaDaViatura::LerCampos(row);
  Insp_Id = row.number("Insp_Id");
}

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

RecordsetRef clAcessorios::LerTodosAcessorios() { return Abrir("SELECT *  From zor_PV_Acessorios"); }

}  // namespace zorCrmParvel
