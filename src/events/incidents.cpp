#include "events/incidents.h"

namespace zorCrmParvel {
namespace {

const TabelaDeEventos kMultas{
    .tabela = "zor_PV_Multas",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Multas",
    .sqlLista =
        "SELECT id as ' ',Matricula as Matrícula,Data as Data, ValorMulta as Multa "
        "From zor_PV_Multas "
        "ORDER BY Matricula",
    .listaPorViatura = false,
    .larguraLista = 4500,
    .colunasLista = {1000, 1000, 1500, 1500},
    .tituloMapa = "Listagem de Multas",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Multas order by Codigo",
};

const TabelaDeEventos kSinistros{
    .tabela = "zor_PV_Sinistros",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Sinistros",
    .sqlLista =
        " SELECT zor_PV_Sinistros.Id as ' ', zor_PV_Sinistros.Matricula AS Matrícula, "
        "zor_Funcionarios.Nome AS Motorista, zor_PV_Sinistros.Data as Data "
        "FROM         zor_PV_Sinistros "
        "INNER JOIN zor_Funcionarios ON zor_PV_Sinistros.Motorista = zor_Funcionarios.Codigo "
        "order by Matricula",
    .listaPorViatura = false,
    .larguraLista = 5500,
    .colunasLista = {1000, 3000, 1000},
    .tituloMapa = "Listagem de Sinistros",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Sinistros order by Codigo",
};

}  // namespace

void Incidente::LerCampos(const Row& row) {
  Motorista = row.text("Motorista");
  Obs = row.text("Obs");
  Data = row.date("Data");
}

void Incidente::EscreverCampos(Row& row) const {
  row.cut("Motorista", Motorista);
  row.cut("Obs", Obs);
  row.put("Data", Data);
}

clMultas::clMultas() : Incidente(kMultas) {}

void clMultas::LerCampos(const Row& row) {
  Incidente::LerCampos(row);
  Valor = row.currency("ValorMulta");
  Codigo = row.text("Matricula");
  Responsabilidade = row.integer("Responsabilidade");
}

void clMultas::EscreverCampos(Row& row) const {
  Incidente::EscreverCampos(row);
  row.put("ValorMulta", Valor);
  row.put("Responsabilidade", Responsabilidade);
}

clSinistros::clSinistros() : Incidente(kSinistros) {}

void clSinistros::LerCampos(const Row& row) {
  Incidente::LerCampos(row);
  LocalAc = row.text("LocalAc");
  Responsavel = row.integer("Responsavel");
  Custo = row.currency("Custo");
  Codigo = row.text("Matricula");
}

void clSinistros::EscreverCampos(Row& row) const {
  Incidente::EscreverCampos(row);
  row.put("LocalAc", LocalAc);
  row.put("Responsavel", Responsavel);
  row.put("Custo", Custo);
}

}  // namespace zorCrmParvel
