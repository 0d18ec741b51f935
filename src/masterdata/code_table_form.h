#pragma once

#include <memory>
#include <string>

#include "masterdata/record_form.h"

namespace zorCrmParvel {

/// What tells one code-table ficha from another: its texts.
struct TextosDaFicha {
  const char* nome;
  const char* legenda;
  const char* perguntaAnular;    // first sentence of the question before a removal
  const char* mensagemAlterada;  // first sentence of the question on navigation
  const char* dicaCodigo;
  const char* dicaNome;
  const char* dicaLista;
};

/// The ficha of a code table. It has no mode: it writes the record of the code typed, new or not, and
/// everything that shows a record goes through the leave validation of the code.
class CodeTableForm : public RecordForm {
 public:
  void CarregaFicha(const std::string& codigo) override;

  BotoesDaFicha botoes;

 protected:
  CodeTableForm(const TextosDaFicha& textos, std::unique_ptr<CodeTable> entidade);

  void Form_Load() override;
  /// Shows the entity's record.
  virtual void LerFicha();
  /// Takes what is on the screen into the entity, before it is written.
  virtual void LevarCampos();
  virtual void Limparform();
  /// Adds a numbered field with its label below the others.
  platform::zor_input& NovoCampo(int index, const char* titulo, int maxlength);

  CodeTable& entidade() const { return *entidade_; }

 private:
  void Campo_Validate(int index, bool& cancel);
  void btConf_Click() override;
  void btCancelar_Click() override;
  void btAnular_Click() override;
  void btNavega_Click(int index) override;
  void btLista_Click(int index) override;

  bool ComparaValores() const;
  void Gravar();
  void Navega(int index, std::string& codigo);
  void Anular();

  const TextosDaFicha& textos_;
  std::unique_ptr<CodeTable> entidade_;
  std::string descriçãoGuardada_;  // the name as the last record was shown
};

class Categorias : public CodeTableForm {
 public:
  Categorias();
};

class Marcas : public CodeTableForm {
 public:
  Marcas();
};

class Modelos : public CodeTableForm {
 public:
  Modelos();
};

class Companhias : public CodeTableForm {
 public:
  Companhias();
};

class Departamentos : public CodeTableForm {
 public:
  Departamentos();
};

class Viagens : public CodeTableForm {
 public:
  Viagens();
};

class TiposSeguro : public CodeTableForm {
 public:
  TiposSeguro();
};

class TiposManut : public CodeTableForm {
 public:
  TiposManut();
};

class TiposAcessorios : public CodeTableForm {
 public:
  TiposAcessorios();
};

}  // namespace zorCrmParvel
