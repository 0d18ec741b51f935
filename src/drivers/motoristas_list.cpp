#include "drivers/motoristas_list.h"

#include "drivers/motoristas_form.h"

namespace zorCrmParvel {
namespace {

constexpr const char* kChave = "Codigo";

}  // namespace

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

void VwLstMotoristas::ICrmVwList_Novo() {
  Executar("Novo", [&] {
    Motoristas ficha;
    ficha.Load();
    ficha.Edicao(false);
    ficha.mybd = mybd;
    ficha.ShowModal();
    ICrmVwList_Iniciar();
  });
}

void VwLstMotoristas::ICrmVwList_Editar(GridRow* row) {
  Executar("Editar", [&] {
    const auto codigo = Chave(row, kChave);
    if (!codigo) return;
    Motoristas ficha;
    ficha.Load();
    ficha.mybd = mybd;
    ficha.Edicao(true);
    ficha.CarregaFicha(*codigo);
    ficha.ShowModal();
    ICrmVwList_Iniciar();
  });
}

void VwLstMotoristas::ICrmVwList_Remover(GridRow* row) {
  Executar("Remover", [&] {
    const auto codigo = Chave(row, kChave);
    if (!codigo) return;
    AnularRegisto(*codigo);
    ICrmVwList_Iniciar();
  });
}

void VwLstMotoristas::AnularRegisto(const std::string& codigo) {
  clMotoristas motorista;
  motorista.bd = mybd;
  motorista.Codigo = codigo;
  motorista.Anular();
}

}  // namespace zorCrmParvel
