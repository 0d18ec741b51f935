#include "events/inspecoes.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kInspecoes{
    .tabela = "zor_PV_Inspecoes",
    .id = "Insp_Id",
    .data = "Data",
    .tituloLista = "Inspecções",
    .sqlLista =
        " SELECT zor_PV_Inspecoes.Insp_Id as ' ',zor_PV_Inspecoes.Matricula AS "
        "Matrícula,zor_PV_Inspecoes.Data "
        "AS Data  FROM zor_PV_Inspecoes",
    .listaPorViatura = true,
    .larguraLista = 2900,
    .colunasLista = {1000, 1200, 1200},
    .tituloMapa = "Listagem de Inspecções",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Inspecoes order by Codigo",
    .fimDoUltimo = " ",
};

}  // namespace

clInspecoes::clInspecoes() : EventEntity(kInspecoes) {}

void clInspecoes::LerCampos(const Row& row) {
  Obs = row.text("Obs");
  Data = row.date("Data");
  Km = row.currency("Km");
  Custo = row.currency("Custo");
  Codigo = row.text("Matricula");
  Insp_Id = row.number("Insp_Id");
}

void clInspecoes::EscreverCampos(Row& row) const {
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.put("Km", Km);
  row.put("Custo", Custo);
}

RecordsetRef clInspecoes::LerInspecoes() {
  return Abrir({"SELECT *  From zor_PV_Inspecoes WHERE     (Matricula = N'", value(Codigo), "')"});
}

}  // namespace zorCrmParvel
