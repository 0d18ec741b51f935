 SELECT      zor_PV_Viaturas.Matricula 
            ,zor_PV_Marcas.Nome as Marca 
            ,zor_PV_Viaturas.Dataselo AS Data 
            ,CASE 
                 WHEN DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataSelo) > 0  AND 
                      DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DataSelo) < 30 AND 
                      COALESCE(zor_PV_Viaturas.SeloPago,0) =0 
                         THEN 'Pagamento do Selo deve ser efectuado durante o mês corrente' 
                 WHEN DATEDIFF(d, GETDATE(),zor_PV_Viaturas.DataSelo) < 0 
                         THEN 'Data de Pagamento do Selo ultrapassada!' 
             END AS Notas 
            ,DATEDIFF(d, GETDATE(), zor_PV_Viaturas.Dataselo) AS DiasSelo 
            ,100 as DiasTac 
  FROM      zor_PV_Viaturas 
                 INNER JOIN zor_PV_Marcas 
                    ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo 
  WHERE     (DateDiff(d, GETDATE(), zor_PV_Viaturas.DataSelo) < 30) and Inactiva=0 AND COALESCE(zor_PV_Viaturas.SeloPago,0) = 0 
  Union  SELECT     zor_PV_Viaturas.Matricula, zor_PV_Marcas.Nome as Marca, zor_PV_Viaturas.DtDescarga AS Data, CASE WHEN DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DtDescarga) > 0 AND  DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DtDescarga) < 10 THEN 'Data de Descarga do Tacógrafo deve ser actualizada' WHEN DATEDIFF(d, GETDATE(),  zor_PV_Viaturas.DtDescarga) < 0 THEN 'Data de Descarga do Tacógrafo ultrapassada!' END AS Notas, 100 as DiasSelo,DATEDIFF(d, GETDATE(), zor_PV_Viaturas.DtDescarga) AS DiasTac  FROM         zor_PV_Viaturas INNER JOIN  zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo  Where (DateDiff(d, GETDATE(), zor_PV_Viaturas.DtDescarga) < 10) and Inactiva=0 and tacografo=1  order by matricula