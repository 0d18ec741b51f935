#include "alerts/alert_statements.h"

namespace zorCrmParvel::Tools {

const char* SqlAlertasApolices() {
  return " SELECT     zor_PV_Seguros.Matricula, zor_PV_Seguros.Apolice, zor_PV_TiposSeguro.Nome as "
         "TpApol, zor_PV_Seguros.Validade as Data, CASE WHEN datediff(d, "
         "getdate(),zor_PV_Seguros.Validade) >= 10 AND datediff(d, getdate(),zor_PV_Seguros.Validade) < "
         "30 THEN 'Apólice a ser regularizada!' WHEN datediff(d, getdate(),zor_PV_Seguros.Validade) >= 0 "
         "AND datediff(d, getdate(),zor_PV_Seguros.Validade) < 10 THEN 'Data de Pagamento a menos de 10 "
         "dias!' WHEN datediff(d, getdate(),zor_PV_Seguros.Validade) < 0 THEN 'Prazo Pagamento "
         "ultrapassado!' END AS Notas, DATEDIFF(d, getdate(),zor_PV_Seguros.Validade) AS Dias "
         "FROM         zor_PV_Seguros INNER JOIN  zor_PV_TiposSeguro ON zor_PV_Seguros.TipoSeguro = "
         "zor_PV_TiposSeguro.Codigo INNER JOIN zor_PV_Viaturas ON "
         "zor_PV_Viaturas.Matricula=zor_PV_Seguros.Matricula where datediff(d, "
         "getdate(),zor_PV_Seguros.Validade) <=30  and zor_PV_Seguros.Inactiva=0 and "
         "zor_PV_Viaturas.Inactiva=0 order by zor_PV_Seguros.Matricula ";
}

const char* SqlAlertasRevisoes() {
  return " SELECT     zor_PV_Viaturas.Matricula, zor_PV_Marcas.Nome, zor_PV_Viaturas.KmActual, "
         "zor_PV_Viaturas.KmPrxRev, zor_PV_Viaturas.DataPrxRev, CASE WHEN DATEDIFF(d,  GETDATE(), "
         "zor_PV_Viaturas.DataPrxRev) >= 0 AND DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataPrxRev) < 30 "
         "THEN 'Revisão marcada para  ' + convert(nvarchar(10),zor_PV_Viaturas.DataPrxRev,105) WHEN "
         "DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataPrxRev) < 0 THEN 'Data da Revisão ultrapassada!' "
         "END AS Notas, DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataPrxRev) AS Dias, "
         "zor_PV_Viaturas.KmprxRev - zor_PV_Viaturas.KmActual AS Km FROM         zor_PV_Viaturas INNER "
         "JOIN zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo Where DATEDIFF(d, "
         "GETDATE(), zor_PV_Viaturas.DataPrxRev) < 30 and zor_PV_Viaturas.Inactiva=0 Union SELECT     "
         "zor_PV_Viaturas.Matricula, zor_PV_Marcas.Nome, zor_PV_Viaturas.KmActual, "
         "zor_PV_Viaturas.KmPrxRev, zor_PV_Viaturas.DataPrxRev, CASE WHEN zor_PV_Viaturas.KmPrxRev - "
         "zor_PV_Viaturas.KmActual >= 0 AND zor_PV_Viaturas.KmPrxRev - zor_PV_Viaturas.KmActual < 1000 "
         "THEN 'Faltam  ' + cast(zor_PV_Viaturas.KmPrxRev - zor_PV_Viaturas.KmActual as nvarchar(10)) + "
         "' Km para a revisão ' WHEN zor_PV_Viaturas.KmPrxRev - zor_PV_Viaturas.KmActual < 0 THEN 'Km "
         "ultrapassados! ' END AS notas, DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataPrxRev) AS Dias, "
         "zor_PV_Viaturas.KmPrxRev - zor_PV_Viaturas.KmActual AS Km FROM         zor_PV_Viaturas INNER "
         "JOIN zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo where "
         "zor_PV_Viaturas.KmPrxRev - zor_PV_Viaturas.KmActual<1000 and zor_PV_Viaturas.Inactiva=0 order "
         "by Matricula ";
}

const char* SqlAlertasViaturas() {
  return " SELECT      zor_PV_Viaturas.Matricula \r\n"
         "            ,zor_PV_Marcas.Nome as Marca \r\n"
         "            ,zor_PV_Viaturas.Dataselo AS Data \r\n"
         "            ,CASE \r\n"
         "                 WHEN DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataSelo) > 0  AND \r\n"
         "                      DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataSelo) < 30 AND \r\n"
         "                      COALESCE(zor_PV_Viaturas.SeloPago,0) =0 \r\n"
         "                         THEN 'Pagamento do Selo deve ser efectuado durante o mês corrente' \r\n"
         "                 WHEN DATEDIFF(d, GETDATE(),zor_PV_Viaturas.DataSelo) < 0 \r\n"
         "                         THEN 'Data de Pagamento do Selo ultrapassada!' \r\n"
         "             END AS Notas \r\n"
         "            ,DATEDIFF(d, GETDATE(), zor_PV_Viaturas.Dataselo) AS DiasSelo \r\n"
         "            ,100 as DiasTac \r\n"
         "  FROM      zor_PV_Viaturas \r\n"
         "                 INNER JOIN zor_PV_Marcas \r\n"
         "                    ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo \r\n"
         "  WHERE     (DateDiff(d, GETDATE(), zor_PV_Viaturas.DataSelo) < 30) and Inactiva=0 AND "
         "COALESCE(zor_PV_Viaturas.SeloPago,0) = 0 \r\n"
         "  Union"
         "  SELECT     zor_PV_Viaturas.Matricula, zor_PV_Marcas.Nome as Marca, "
         "zor_PV_Viaturas.DtDescarga AS Data, CASE WHEN DATEDIFF(d, GETDATE(), "
         "zor_PV_Viaturas.DtDescarga) > 0 AND"
         "  DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DtDescarga) < 10 THEN 'Data de Descarga do Tacógrafo "
         "deve ser actualizada' WHEN DATEDIFF(d, GETDATE(),"
         "  zor_PV_Viaturas.DtDescarga) < 0 THEN 'Data de Descarga do Tacógrafo ultrapassada!' END AS "
         "Notas, 100 as DiasSelo,DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DtDescarga) AS DiasTac"
         "  FROM         zor_PV_Viaturas INNER JOIN"
         "  zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo"
         "  Where (DateDiff(d, GETDATE(), zor_PV_Viaturas.DtDescarga) < 10) and Inactiva=0 and "
         "tacografo=1"
         "  order by matricula";
}

}  // namespace zorCrmParvel::Tools
