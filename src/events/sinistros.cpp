#include "events/sinistros.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kSinistros{
    .tabela = "zor_PV_Sinistros",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Sinistros",
    .sqlLista =
        " SELECT zor_PV_Sinistros.Id as ' ', zor_PV_Sinistros.Matricula AS Matrícula, zor_Funcionarios.Nome "
        "AS "
        "Motorista, zor_PV_Sinistros.Data as Data FROM         zor_PV_Sinistros INNER JOIN zor_Funcionarios "
        "ON "
        "zor_PV_Sinistros.Motorista = zor_Funcionarios.Codigo order by Matricula",
    .listaPorViatura = false,
    .larguraLista = 5500,
    .colunasLista = {1000, 3000, 1000},
    .tituloMapa = "Listagem de Sinistros",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Sinistros order by Codigo",
};

}  // namespace

clSinistros::clSinistros() : EventEntity(kSinistros) {}

void clSinistros::LerCampos(const Row& row) {
  Motorista = row.text("Motorista");
  Obs = row.text("Obs");
  Data = row.date("Data");
  LocalAc = row.text("LocalAc");
  Responsavel = row.integer("Responsavel");
  Custo = row.currency("Custo");
  Codigo = row.text("Matricula");
}

void clSinistros::EscreverCampos(Row& row) const {
  row.cut("Motorista", Motorista);
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.put("LocalAc", LocalAc);
  row.put("Responsavel", Responsavel);
  row.put("Custo", Custo);
}

RecordsetRef clSinistros::LerSinistros() {
  return Abrir({"SELECT *  From zor_PV_Sinistros WHERE     (Matricula = N'", value(Codigo), "')"});
}

}  // namespace zorCrmParvel
