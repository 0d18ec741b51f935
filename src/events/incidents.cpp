#include "events/incidents.h"

namespace zorCrmParvel {

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

clMultas::clMultas() : Incidente(kTabelaDeMultas) {}

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

clSinistros::clSinistros() : Incidente(kTabelaDeSinistros) {}

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
