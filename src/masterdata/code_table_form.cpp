#include "masterdata/code_table_form.h"

#include "platform/text.h"

namespace zorCrmParvel {

using platform::zor_input;

CodeTableForm::CodeTableForm(const TextosDaFicha& textos, std::unique_ptr<CodeTable> entidade)
    : botoes(*this), textos_(textos), entidade_(std::move(entidade)) {
  Name = textos.nome;
  Caption = textos.legenda;
  TabBefore(NovaLista(0, textos.dicaLista), botoes.btConf);
  NovoCampo(0, "Código", 10).ToolTipText = textos.dicaCodigo;
  NovoCampo(1, "Nome", 50).ToolTipText = textos.dicaNome;
  layout.head.rows[0][0].list = &btLista[0];
  Campo[0].PedidoLista = [this] { btLista_Click(0); };
  botoes.Dispor(layout);
  LigarBotoes(botoes);
}

zor_input& CodeTableForm::NovoCampo(int index, const char* titulo, int maxlength) {
  Titulo.Add(*this, "Titulo", index).Caption = titulo;
  zor_input& campo = Campo.Add(*this, "Campo", index);
  campo.maxlength = maxlength;
  TabBefore(campo, botoes.btConf);
  layout.head.rows.push_back({{.caption = &Titulo[index], .field = &campo}});
  campo.Validate = [this, index](bool& cancel) { Campo_Validate(index, cancel); };
  campo.KeyPress = [this, index](int& keyCode) { Recuar(index, keyCode); };
  campo.PedidoMapa = [this] {
    entidade_->bd = mybd;
    entidade_->MostraMapa();
  };
  return campo;
}

void CodeTableForm::Form_Load() { Limparform(); }

void CodeTableForm::CarregaFicha(const std::string& codigo) {
  Campo[0].Text = codigo;
  entidade_->Codigo = codigo;
  entidade_->bd = mybd;
  if (entidade_->Ler()) LerFicha();
}

void CodeTableForm::LerFicha() {
  Campo[1].Text = entidade_->Descrição;
  descriçãoGuardada_ = entidade_->Descrição;
}

void CodeTableForm::Limparform() {
  Campo[0].Text.clear();
  Campo[1].Text.clear();
}

bool CodeTableForm::ComparaValores() const {
  return !Campo[0].Text.empty() && Campo[1].Text != descriçãoGuardada_;
}

void CodeTableForm::Campo_Validate(int index, bool& cancel) {
  if (index != 0) return;
  if (platform::Trim(Campo[0].Text).empty()) {
    cancel = true;
    return;
  }
  entidade_->Codigo = Campo[0].Text;
  entidade_->bd = mybd;
  if (entidade_->Ler()) LerFicha();
  cancel = false;
}

void CodeTableForm::LevarCampos() {
  entidade_->Codigo = Campo[0].Text;
  entidade_->Descrição = Campo[1].Text;
}

void CodeTableForm::Gravar() {
  LevarCampos();
  entidade_->bd = mybd;
  entidade_->Escrever();
  Campo[0].SetFocus();
}

void CodeTableForm::Navega(int index, std::string& codigo) {
  Mover(*entidade_, entidade_->Codigo, index, codigo);
}

void CodeTableForm::Anular() {
  entidade_->bd = mybd;
  entidade_->Codigo = Campo[0].Text;
  if (!entidade_->Anular()) return;
  Limparform();
  Campo[0].SetFocus();
}

void CodeTableForm::btConf_Click() {
  Gravar();
  Limparform();
}

void CodeTableForm::btCancelar_Click() {
  Limparform();
  Campo[0].SetFocus();
}

void CodeTableForm::btAnular_Click() {
  if (Continuar(textos_.perguntaAnular, "Pretende continuar?")) Anular();
}

void CodeTableForm::btNavega_Click(int index) {
  std::string codigo = Campo[0].Text;
  Navega(index, codigo);
  if (ComparaValores() && Continuar(textos_.mensagemAlterada, "Pretende gravar?")) Gravar();
  Campo[0].Text = codigo;
  Campo[0].SetFocus();
  SendKeys("{TAB}");  // leaving the code reads and shows the record
}

void CodeTableForm::btLista_Click(int) {
  entidade_->bd = mybd;
  Tomar(0, entidade_->MostraLista());
}

namespace {

constexpr TextosDaFicha kCategorias{"Categorias",
                                    "Categorias",
                                    "Vai proceder à anulação da Categoria!",
                                    "A informação relativa à Categoria foi alterada.",
                                    "Código da Categoria.",
                                    "Designação da Categoria.",
                                    "Lista de Categorias."};
constexpr TextosDaFicha kMarcas{"Marcas",
                                "Marcas",
                                "Vai proceder à anulação da Marca!",
                                "A informação relativa à Marca foi alterada.",
                                "Código da Marca.",
                                "Designação da Marca.",
                                "Lista de Marcas."};
constexpr TextosDaFicha kModelos{"Modelos",
                                 "Modelos",
                                 "Vai proceder à anulação do Modelo!",
                                 "A informação relativa ao Modelo foi alterada.",
                                 "Código do Modelo.",
                                 "Designação do Modelo.",
                                 "Lista de Modelos."};
constexpr TextosDaFicha kCompanhias{"Companhias",
                                    "Companhias",
                                    "Vai proceder à anulação da Companhia!",
                                    "A informação relativa à Companhia foi alterada.",
                                    "Código da Companhia.",
                                    "Designação da Companhia.",
                                    "Lista de Companhias."};
constexpr TextosDaFicha kDepartamentos{"Departamentos",
                                       "Departamentos",
                                       "Vai proceder à anulação do Departamento!",
                                       "A informação relativa ao Departamento foi alterada.",
                                       "Código do Departamento.",
                                       "Designação do Departamento.",
                                       "Lista de Departamentos."};
constexpr TextosDaFicha kViagens{"Viagens",
                                 "Viagens",
                                 "Vai proceder à anulação da Viagem!",
                                 "A informação relativa à Viagem foi alterada.",
                                 "Código da Viagem.",
                                 "Designação da Viagem.",
                                 "Lista de Viagens."};
constexpr TextosDaFicha kTiposSeguro{"TiposSeguro",
                                     "Tipos Apólice",
                                     "Vai proceder à anulação do Tipo de Apólice!",
                                     "A informação relativa ao Tipo de Apólice foi alterada.",
                                     "Código do Tipo de Apólice.",
                                     "Designação do Tipo de Apólice.",
                                     "Lista de Tipos de Apólice."};
// One table under two names: offices say "revisão" when they remove and "manutenção" when they save.
constexpr TextosDaFicha kTiposManut{"TiposManut",
                                    "Tipos de Revisões",
                                    "Vai proceder à anulação do Tipo de Revisão!",
                                    "A informação relativa ao Tipo de Manutenção foi alterada.",
                                    "Código do Tipo de Manutenção.",
                                    "Designação do Tipo de Manutenção.",
                                    "Lista de Tipos de Manutenção."};
constexpr TextosDaFicha kTiposAcessorios{"TiposAcessorios",
                                         "Tipos de Acessórios",
                                         "Vai proceder à anulação do Tipo de Acessório!",
                                         "A informação relativa ao Tipo de Acessório foi alterada.",
                                         "Código do Tipo de Acessório.",
                                         "Designação do Tipo de Acessório.",
                                         "Lista de Tipos de Acessórios."};

}  // namespace

Categorias::Categorias() : CodeTableForm(kCategorias, std::make_unique<clCategorias>()) {}
Marcas::Marcas() : CodeTableForm(kMarcas, std::make_unique<clMarcas>()) {}
Modelos::Modelos() : CodeTableForm(kModelos, std::make_unique<clModelos>()) {}
Companhias::Companhias() : CodeTableForm(kCompanhias, std::make_unique<clCompanhias>()) {}
Departamentos::Departamentos() : CodeTableForm(kDepartamentos, std::make_unique<clDepartamentos>()) {}
Viagens::Viagens() : CodeTableForm(kViagens, std::make_unique<clViagens>()) {}
TiposSeguro::TiposSeguro() : CodeTableForm(kTiposSeguro, std::make_unique<clTiposSeguros>()) {}
TiposManut::TiposManut() : CodeTableForm(kTiposManut, std::make_unique<clTiposManut>()) {}
TiposAcessorios::TiposAcessorios() : CodeTableForm(kTiposAcessorios, std::make_unique<clTiposAcessorios>()) {}

}  // namespace zorCrmParvel
