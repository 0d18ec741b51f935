#include "events/gastos.h"

#include "platform/format.h"

namespace zorCrmParvel {

clGastos::clGastos() : EventEntity(kTabelaDeGastos) {}

void clGastos::LerCampos(const Row& row) {
  Motorista = row.text("Motorista");
  Obs = row.text("Obs");
  Data = row.date("Data");
  Viagem = row.text("Viagem");
  Km = row.currency("Km");
  ValorUn = row.currency("ValorUn");
  Qtd = row.currency("Qtd");
  Codigo = row.text("Matricula");
  Custo = row.currency("Custo");
  TipoGasto = row.text("TipoGasto");
  Gst_Id = row.number("Gst_Id");
}

void clGastos::EscreverCampos(Row& row) const {
  row.cut("Motorista", Motorista);
  row.cut("Obs", Obs);
  row.put("Data", Data);
  row.cut("Viagem", Viagem);
  row.put("Qtd", Qtd);
  row.put("Km", Km);
  row.put("ValorUn", ValorUn);
  row.put("Custo", Custo);
  row.put("TipoGasto", TipoGasto);
}

RecordsetRef clGastos::LerGastos() {
  return Abrir(
      {"SELECT *  From zor_PV_Gastos "
       "INNER Join zor_PV_TiposGastos ON  zor_PV_TiposGastos.Codigo=zor_PV_Gastos.TipoGasto "
       "WHERE     (Matricula = N'",
       value(Codigo), "') Order by Data desc"});
}

platform::Currency clGastos::KmAnterior(const DataAccessRef& bd, const std::string& matricula,
                                        platform::Date data) {
  RecordsetRef rs;
  bd->AbrirLeitura("",
                   {"SELECT   TOP(1) G.Km \r\n"
                    "FROM     zor_PV_Gastos AS G \r\n"
                    "             INNER JOIN zor_PV_TiposGastos AS TP\r\n"
                    "                 ON TP.Codigo = G.TipoGasto \r\n"
                    "WHERE    (G.Matricula='",
                    value(matricula),
                    "') AND \r\n"
                    "         (G.Data < '",
                    value(platform::FormatDate(data, "yyyy.mm.dd hh:mm:ss")),
                    "' ) AND \r\n"
                    "         (TP.Combustivel=1 )\r\n"
                    "ORDER BY  G.Data DESC \r\n"},
                   rs);
  platform::Currency km;
  if (!rs->Eof())
    if (const platform::Variant lido = rs->Fields("Km").Value(); !lido.IsNull()) km = lido.ToCurrency();
  rs->Close();
  return km;
}

}  // namespace zorCrmParvel
