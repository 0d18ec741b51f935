#include "events/revisoes.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kRevisoes{
    .tabela = "zor_PV_Revisoes",
    .id = "Manu_Id",
    .data = "Data",
    .tituloLista = "Revisões",
    .sqlLista =
        " SELECT zor_PV_Revisoes.Manu_Id as ' ',zor_PV_Revisoes.Matricula AS Matrícula, "
        "zor_PV_TiposManut.Nome "
        "AS 'Tipo Revisão',Data as Data  FROM zor_PV_Revisoes INNER JOIN zor_PV_TiposManut ON "
        "zor_PV_Revisoes.TipoManut = zor_PV_TiposManut.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 2000, 1500},
    .tituloMapa = "Listagem de Revisões",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Revisoes order by Codigo",
};

}  // namespace

clRevisoes::clRevisoes() : EventEntity(kRevisoes) {}

void clRevisoes::LerCampos(const Row& row) {
  TipoManut = row.text("TipoManut");
  Obs = row.text("Obs");
  Data = row.date("Data");
  Km = row.currency("Km");
  Custo = row.currency("Custo");
  Codigo = row.text("Matricula");
}

void clRevisoes::EscreverCampos(Row& row) const {
  row.cut("TipoManut", TipoManut);
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.put("Km", Km);
  row.put("Custo", Custo);
}

RecordsetRef clRevisoes::LerRevisoes() {
  Statement statement = "SELECT *  From zor_PV_Revisoes";
  if (!Codigo.empty()) statement << " WHERE     (Matricula = N'" << value(Codigo) << "')";
  statement << " Order by Matricula ";
  return Abrir(statement);
}

}  // namespace zorCrmParvel
