#include "events/seguros.h"

#include "masterdata/code_table.h"

namespace zorCrmParvel {

clSeguros::clSeguros() : EventEntity(kTabelaDeSeguros) {}

void clSeguros::LerCampos(const Row& row) {
  Companhia = row.text("Companhia");
  TipoSeguro = row.text("TipoSeguro");
  Apolice = row.text("Apolice");
  Validade = row.date("Validade");
  Premio = row.currency("Premio");
  Franquia = row.currency("Franquia");
  Modalidade = row.integer("Modalidade");
  Codigo = row.text("Matricula");
  DataInicio = row.date("DataInicio");
  Inactiva = row.integer("Inactiva");
  Coberturas = row.text("Coberturas");
  Seg_Id = row.number("Seg_Id");
}

void clSeguros::EscreverCampos(Row& row) const {
  row.cut("TipoSeguro", TipoSeguro);
  row.cut("Companhia", Companhia);
  row.cut("Apolice", Apolice);
  row.put("Validade", Validade);
  row.put("Premio", Premio);
  row.put("Franquia", Franquia);
  row.put("Modalidade", Modalidade);
  row.put("DataInicio", DataInicio);
  row.put("Inactiva", Inactiva);
  row.put("Coberturas", Coberturas);
}

RecordsetRef clSeguros::LerApolices() {
  return LerDaViaturaOuTodos(" Order by Matricula,Inactiva,Validade ");
}

bool clSeguros::ValidarCompanhia(std::string& Descr) {
  clCompanhias companhia;
  companhia.bd = bd;
  companhia.Codigo = Companhia;
  const bool found = companhia.Ler();
  Descr = companhia.Descrição;
  return found;
}

}  // namespace zorCrmParvel
