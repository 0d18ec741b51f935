#include "drivers/motoristas_list.h"

#include "drivers/motoristas_form.h"

namespace zorCrmParvel {

RecordsetRef VwLstMotoristas::AbrirLinhas() {
  RecordsetRef linhas;
  mybd->AbrirLeitura("",
                     " SELECT zor_Funcionarios.Codigo AS Codigo, zor_Funcionarios.Nome AS Nome"
                     "  FROM zor_Funcionarios"
                     " Order by zor_Funcionarios.Codigo",
                     linhas);
  return linhas;
}

const std::vector<ColunaDeLista>& VwLstMotoristas::Colunas() const {
  static const std::vector<ColunaDeLista> colunas = {{"Codigo", 2500, "Código"}, {"Nome", 4500, "Nome"}};
  return colunas;
}

std::unique_ptr<Ficha> VwLstMotoristas::FichaNova() {
  auto ficha = Pronta(std::make_unique<Motoristas>());
  ficha->Edicao(false);
  return ficha;
}

std::unique_ptr<Ficha> VwLstMotoristas::FichaDe(const std::string& codigo, const GridRow& /*row*/) {
  auto ficha = Pronta(std::make_unique<Motoristas>());
  ficha->Edicao(true);
  ficha->CarregaFicha(codigo);
  return ficha;
}

void VwLstMotoristas::AnularRegisto(const std::string& codigo) {
  clMotoristas motorista;
  motorista.bd = mybd;
  motorista.Codigo = codigo;
  motorista.Anular();
}

}  // namespace zorCrmParvel
