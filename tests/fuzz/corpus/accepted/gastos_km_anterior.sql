SELECT   TOP(1) G.Km 
FROM     zor_PV_Gastos AS G 
             INNER JOIN zor_PV_TiposGastos AS TP
                 ON TP.Codigo = G.TipoGasto 
WHERE    (G.Matricula='12-AB-34') AND 
         (G.Data < '2024.05.17 08:30:00' ) AND 
         (TP.Combustivel=1 )
ORDER BY  G.Data DESC 
