#include "events/upkeep.h"

namespace zorCrmParvel {

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

clRevisoes::clRevisoes() : VisitaDaViatura(kTabelaDeRevisoes) {}

void clRevisoes::LerCampos(const Row& row) {
  TipoManut = row.text("TipoManut");
  VisitaDaViatura::LerCampos(row);
}

void clRevisoes::EscreverCampos(Row& row) const {
  row.cut("TipoManut", TipoManut);
  VisitaDaViatura::EscreverCampos(row);
}

RecordsetRef clRevisoes::LerRevisoes() { return LerDaViaturaOuTodos(" Order by Matricula "); }

clInspecoes::clInspecoes() : VisitaDaViatura(kTabelaDeInspecoes) {}

void clInspecoes::LerCampos(const Row& row) {
  VisitaDaViatura::LerCampos(row);
  Insp_Id = row.number("Insp_Id");
}

clAcessorios::clAcessorios() : EventEntity(kTabelaDeAcessorios) {}

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
