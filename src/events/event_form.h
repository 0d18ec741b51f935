#pragma once

#include <memory>
#include <string>
#include <vector>

#include "events/event_entity.h"
#include "masterdata/record_form.h"

namespace zorCrmParvel {

/// When a plate that is typed becomes the ficha's own.
enum class Adopcao { kLogo, kSeExiste, kNunca };

/// The texts of an event's ficha.
struct TextosDoEvento {
  const char* nome;
  const char* legenda;
  const char* carrega;         // the routine that loads a record, by the name that openers call it
  const char* perguntaAnular;  // first sentence of the question before a removal
  const char* dicaLista;       // of the list of the ficha's own events
};

/// What tells one event ficha from another, beside its fields and what it does after a save or a removal.
struct FichaDeEvento {
  TextosDoEvento textos;
  int classeArquivo;  // document class of the archive
  int listaViaturas;  // the list button of vehicles
  int tituloMarca;    // the label that shows the vehicle's make
  const char* formatoData = "dd-mm-yyyy";
  Adopcao adopcao = Adopcao::kNunca;
  bool esvaziaMarca = false;    // a vehicle with a lost make clears the label
  bool comecaNaData = false;    // the first field after the plate is the date, not `Campo(1)`
  bool regrasComTecla = false;  // fields are checked only after a key was pressed in one
  std::vector<Referencia> referencias = {};
};

/// A field of an event ficha and the property of the record that it shows and fills.
struct CampoDoEvento {
  int indice;
  const char* legenda;
  const char* dica;
  int maxlength;
  std::string* texto = nullptr;
  platform::Currency* numero = nullptr;
  platform::zor_input::FormatoCampo formato = platform::zor_input::kTexto;
  const char* mascara = "";
};

/// The ficha of a vehicle event: opened on its own, from its list, or from the vehicle's ficha for a plate
/// that is then fixed. It writes the record of `Seg_Id`, a new one when that is 0. Failures of the database
/// leave its handlers.
class EventForm : public RecordForm {
 public:
  int TipoMostrar = 0;      // 1: opened from the vehicle's ficha, for the vehicle in `Matricula`
  std::string Matricula;    // the vehicle in hand
  std::int32_t Seg_Id = 0;  // id of the record in hand, 0 for a new one

  /// Shows a record, or prepares a new one for `Matricula` when the id is unknown.
  void Carrega(std::int32_t id);
  /// Removes a record and brings the vehicle's figures up to date. Asks nothing.
  virtual void Anular(std::int32_t id, const std::string& matricula);

  /// Members by name: `TipoMostrar`, `Matricula`, `Seg_Id`, and the routine that loads a record.
  void Definir(std::string_view membro, const platform::Variant& valor) override;
  void Chamar(std::string_view rotina, const platform::Variant& argumento) override;

  platform::ControlArray<platform::Label> Legenda;  // captions of the fields
  platform::DTPicker DTPicker1;
  platform::PushButton btArquivo;
  BotoesDaFicha botoes;

 protected:
  static constexpr int kMatricula = 0;  // the plate's place in `Campo`

  /// `tipo` must outlive the ficha.
  EventForm(const FichaDeEvento& tipo, std::unique_ptr<EventEntity> entidade);

  // Building the screen. A field's property is one of the ficha's own record.
  static CampoDoEvento Texto(int indice, const char* legenda, const char* dica, int maxlength,
                             std::string& propriedade);
  static CampoDoEvento Numero(int indice, const char* legenda, const char* dica,
                              platform::Currency& propriedade, const char* mascara = "###,###.#0");
  static CampoDoEvento Inteiro(int indice, const char* legenda, const char* dica,
                               platform::Currency& propriedade);
  void Linha(const std::vector<CampoDoEvento>& campos);
  /// The row of the plate, which every ficha has first.
  void LinhaDaMatricula();
  void LinhaDaData(platform::DTPicker& data, const char* legenda, const char* dica);
  /// A row with a control of the event's own; a change of it counts as one of the record.
  void LinhaDeControlo(platform::Control& controlo, const char* legenda);

  // What an event does in its own way.
  /// Shows the entity's record, beyond plate, make, date and references: its fields, by themselves.
  virtual void MostrarCampos();
  /// Takes the screen into the entity, beyond plate and date. Error 13 for a text that is no number.
  virtual void LevarCampos();
  /// After the vehicle of the record in hand, or of a new one, was read.
  virtual void GuardarDaViatura(const class clViaturas& /*viatura*/) {}
  virtual void Limparform();
  /// After the record was written. By itself it prepares the next event of a vehicle that is fixed.
  virtual void DepoisDeGravar();
  virtual void DepoisDeAnular() {}
  /// The rule of a field that is neither the plate nor a reference.
  virtual void ValidarCampo(int /*indice*/, bool& /*cancel*/) {}
  void btConf_Click() override;
  void btAnular_Click() override;

  void Form_Load() override { Limparform(); }
  void Gravar();
  const char* perguntaAnular() const { return tipo_.textos.perguntaAnular; }
  /// Today, or now, as far as the ficha's date shows it.
  platform::Date DataDoDia() const;
  /// Empties the screen and goes to the first field, as fichas opened from a vehicle do after a save.
  void LimparParaOMesmoVeiculo();
  EventEntity& entidade() const { return *entidade_; }
  /// Empties the screen for the next record, as the buttons do.
  void Recomecar();

  bool Alterado = false;  // something was changed since the record was shown

 private:
  void LerFicha();
  /// A date as far as the ficha's date shows it.
  platform::Date NoFormatoDaData(platform::Date data) const;
  void MostrarMarca(const std::string& codigo);
  /// What the ficha shows and keeps of the vehicle `Matricula`.
  void MostrarViatura();
  void FixarMatricula();
  platform::Control& PrimeiroCampo();
  void LigarCampo(platform::zor_input& campo);
  void ValidarViatura(bool& cancel);
  void Campo_Validate(int indice, bool& cancel);
  void Campo_KeyPress(int indice, int& keyCode);
  void Campo_PedidoFicha(int indice);
  void btCancelar_Click() override { Recomecar(); }
  void btNavega_Click(int indice) override;
  void btLista_Click(int indice) override;
  void ListaDosEventos();

  const FichaDeEvento& tipo_;
  std::unique_ptr<EventEntity> entidade_;
  std::vector<CampoDoEvento> campos_;
  bool teclado_ = false;  // a key was pressed in a field since the last Escape
};

}  // namespace zorCrmParvel
