#include "vehicles/viaturas_list.h"

#include "vehicles/vehicle_events.h"
#include "vehicles/viaturas.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {
namespace {

constexpr AvisosDeAnulacao kAvisos = {
    "Existem Acessórios associados à Viatura!", "Existem Apólices associados à Viatura!",
    "Existem Sinistros associados à Viatura!",  "Existem Multas associados à Viatura!",
    "Existem Revisões associados à Viatura!",   "Existem Gastos associados à Viatura!",
    "Existem Inspecções associados à Viatura!",
};

}  // namespace

RecordsetRef VwLstViaturas::AbrirLinhas() {
  RecordsetRef linhas;
  mybd->AbrirLeitura(
      "",
      " SELECT zor_PV_Viaturas.Matricula AS Matricula, zor_PV_Marcas.Nome AS Marca, zor_PV_Modelos.Nome AS "
      "Modelo,"
      " Responsavel as Responsavel, zor_PV_Departamentos.Nome as Departamento"
      "  FROM         zor_PV_Viaturas LEFT OUTER JOIN"
      "  zor_PV_Modelos ON zor_PV_Viaturas.Modelo = zor_PV_Modelos.Codigo LEFT OUTER JOIN"
      "  zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo"
      " LEFT OUTER join zor_PV_Departamentos ON zor_PV_Departamentos.Codigo=zor_PV_Viaturas.Departamento"
      " Order by zor_PV_Viaturas.Matricula",
      linhas);
  return linhas;
}

const std::vector<ColunaDeLista>& VwLstViaturas::Colunas() const {
  static const std::vector<ColunaDeLista> colunas = {{"Matricula", 1500, "Matrícula"},
                                                     {"Marca", 2500, nullptr},
                                                     {"Modelo", 2500, nullptr},
                                                     {"Responsavel", 2500, "Responsável"},
                                                     {"Departamento", 2500, nullptr}};
  return colunas;
}

std::unique_ptr<Ficha> VwLstViaturas::FichaNova() { return Pronta(std::make_unique<Viaturas>()); }

std::unique_ptr<Ficha> VwLstViaturas::FichaDe(const std::string& matricula, const GridRow& /*row*/) {
  auto ficha = Pronta(std::make_unique<Viaturas>());
  ficha->Edicao = true;
  ficha->CarregaViatura(matricula);
  return ficha;
}

void VwLstViaturas::AnularViatura(const std::string& matricula) {
  if (AvisarDosEventos(mybd, matricula, kAvisos) == RespostaAosAvisos::kRecusados) return;
  clViaturas viatura;
  viatura.bd = mybd;
  viatura.Matricula = matricula;
  viatura.Anular();
}

}  // namespace zorCrmParvel
