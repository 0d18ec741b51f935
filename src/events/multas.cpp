#include "events/multas.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kMultas{
    .tabela = "zor_PV_Multas",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Multas",
    .sqlLista =
        "SELECT id as ' ',Matricula as Matrícula,Data as Data, ValorMulta as Multa From zor_PV_Multas ORDER "
        "BY Matricula",
    .listaPorViatura = false,
    .larguraLista = 4500,
    .colunasLista = {1000, 1000, 1500, 1500},
    .tituloMapa = "Listagem de Multas",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Multas order by Codigo",
};

}  // namespace

clMultas::clMultas() : EventEntity(kMultas) {}

void clMultas::LerCampos(const Row& row) {
  Motorista = row.text("Motorista");
  Obs = row.text("Obs");
  Data = row.date("Data");
  Valor = row.currency("ValorMulta");
  Codigo = row.text("Matricula");
  Responsabilidade = row.integer("Responsabilidade");
}

void clMultas::EscreverCampos(Row& row) const {
  row.cut("Motorista", Motorista);
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.put("ValorMulta", Valor);
  row.put("Responsabilidade", Responsabilidade);
}

RecordsetRef clMultas::LerMultas() {
  return Abrir({"SELECT *  From zor_PV_Multas WHERE     (Matricula = N'", value(Codigo), "')"});
}

}  // namespace zorCrmParvel
