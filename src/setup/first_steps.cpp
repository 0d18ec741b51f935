#include "setup/first_steps.h"

namespace setup {

std::set<Step> StepsDone(const zorCrmParvel::DataAccessRef& bd) {
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("",
                   "SELECT TOP 1 0 AS Passo FROM zor_PV_TiposGastos WHERE Combustivel = 1 "
                   "UNION SELECT TOP 1 1 AS Passo FROM zor_PV_Viaturas "
                   "UNION SELECT TOP 1 2 AS Passo FROM zor_Funcionarios "
                   "UNION SELECT TOP 1 3 AS Passo FROM zor_PV_Gastos "
                   "UNION SELECT TOP 1 4 AS Passo FROM zor_PV_Seguros "
                   "UNION SELECT TOP 1 4 AS Passo FROM zor_PV_Inspecoes",
                   rows);
  std::set<Step> done;
  for (; !rows->Eof(); rows->MoveNext())
    done.insert(static_cast<Step>(rows->Fields("Passo").Value().ToLong()));
  return done;
}

}  // namespace setup
