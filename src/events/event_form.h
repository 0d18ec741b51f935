#pragma once

#include <memory>
#include <string>
#include <vector>

#include "events/event_entity.h"
#include "host/ficha.h"
#include "masterdata/code_table.h"

namespace zorCrmParvel {

/// When a plate that is typed becomes the ficha's own.
enum class Adopcao { kLogo, kSeExiste, kNunca };

/// What tells one event ficha from another, beside its fields.
struct TextosDoEvento {
  const char* nome;
  const char* legenda;
  const char* perguntaAnular;  // first sentence of the question before a removal
  const char* dicaLista;       // of the list of the ficha's own events
  int classeArquivo;           // document class of the archive
  int listaViaturas;           // the list button of vehicles
  int tituloMarca;             // the label that shows the vehicle's make
  const char* formatoData = "dd-mm-yyyy";
  Adopcao adopcao = Adopcao::kNunca;
  bool esvaziaMarca = false;  // a vehicle with a lost make clears the label
};

/// A field of an event ficha.
struct CampoDoEvento {
  int indice;
  const char* legenda;
  const char* dica;
  int maxlength;
  platform::zor_input::FormatoCampo formato = platform::zor_input::kTexto;
  const char* mascara = "";
};

/// A field that holds a code of another table.
struct Referencia {
  int campo;
  int lista;   // its list button
  int titulo;  // the label with what the code stands for
  const char* dicaLista;
  const char* ficha;
  std::unique_ptr<CodeTable> (*nova)();
  const char* inexistente;    // the message for an unknown code
  bool opcional = false;      // an empty field isn't looked at
  bool caixaSimples = false;  // the message comes in a box without a title
};

template <typename Entity>
std::unique_ptr<CodeTable> NovaEntidade() {
  return std::make_unique<Entity>();
}

/// The ficha of a vehicle event: opened on its own, from its list, or from the vehicle's ficha for a plate
/// that is then fixed. It writes the record of `Seg_Id`, a new one when that is 0.
class EventForm : public Ficha {
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
  platform::ControlArray<platform::Label> Titulo;   // what the codes stand for
  platform::ControlArray<platform::zor_input> Campo;
  platform::DTPicker DTPicker1;
  platform::ControlArray<platform::PushButton> btLista;
  platform::PushButton btArquivo;
  BotoesDaFicha botoes;

 protected:
  EventForm(const TextosDoEvento& textos, std::unique_ptr<EventEntity> entidade,
            std::vector<Referencia> referencias);

  // Building the screen.
  void Linha(const std::vector<CampoDoEvento>& campos);
  void LinhaDaData(platform::DTPicker& data, const char* legenda, const char* dica);
  /// A row with a control of the event's own; a change of it counts as one of the record.
  void LinhaDeControlo(platform::Control& controlo, const char* legenda);

  // What an event does in its own way.
  virtual const char* RotinaCarrega() const = 0;
  /// Shows the entity's record, beyond plate, make, date and references.
  virtual void MostrarCampos() = 0;
  /// Takes the screen into the entity, beyond plate and date.
  virtual void LevarCampos() = 0;
  /// After the vehicle of the record in hand, or of a new one, was read.
  virtual void GuardarDaViatura(const class clViaturas& viatura);
  virtual void Limparform();
  /// After the record was written.
  virtual void DepoisDeGravar() = 0;
  virtual void DepoisDeAnular() {}
  /// The rule of a field that is neither the plate nor a reference.
  virtual void ValidarCampo(int indice, bool& cancel);
  /// After a reference was read, to show a record or to check the field; the entity is blank when it wasn't
  /// found.
  virtual void ReferenciaLida(const Referencia& referencia, CodeTable& entidade, bool aoValidar);
  /// True when leaving a field runs its rule.
  virtual bool ComRegras() const { return true; }
  virtual platform::Control& PrimeiroCampo() { return Campo[1]; }
  virtual void btConf_Click();
  virtual void btAnular_Click();

  void Form_Load() override { Limparform(); }
  void Gravar();
  /// True when the user goes on after a message of two sentences.
  static bool Continuar(const char* primeira, const char* segunda);
  const char* perguntaAnular() const { return textos_.perguntaAnular; }
  /// Today, or now, as far as the ficha's date shows it.
  platform::Date DataDoDia() const;
  /// Empties the screen and goes to the first field, as fichas opened from a vehicle do after a save.
  void LimparParaOMesmoVeiculo();
  EventEntity& entidade() const { return *entidade_; }
  /// Empties the screen for the next record, as the buttons do.
  void Recomecar();

  bool Validar = false;   // the rules of `ComRegras` run
  bool Alterado = false;  // something was changed since the record was shown

 private:
  void LerFicha();
  /// A date as far as the ficha's date shows it.
  platform::Date NoFormatoDaData(platform::Date data) const;
  void MostrarMarca(const std::string& codigo);
  /// What the ficha shows and keeps of the vehicle `Matricula`.
  void MostrarViatura();
  void FixarMatricula();
  void Navega(int indice, std::int32_t& id);
  void LigarEventos();
  void LigarCampo(platform::zor_input& campo);
  const Referencia* ReferenciaDoCampo(int indice) const;
  const Referencia* ReferenciaDaLista(int indice) const;
  void MostrarReferencia(const Referencia& referencia);
  void ValidarViatura(bool& cancel);
  void ValidarReferencia(const Referencia& referencia, bool& cancel);
  void Campo_Validate(int indice, bool& cancel);
  void Campo_KeyPress(int indice, int& keyCode);
  void Campo_PedidoFicha(int indice);
  void btNavega_Click(int indice);
  void btLista_Click(int indice);
  void btArquivo_Click();
  void ListaDosEventos();

  const TextosDoEvento& textos_;
  std::unique_ptr<EventEntity> entidade_;
  std::vector<Referencia> referencias_;
};

}  // namespace zorCrmParvel
