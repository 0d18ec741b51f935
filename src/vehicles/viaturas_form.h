#pragma once

#include <memory>
#include <string>

#include "masterdata/photo_form.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {

struct Detalhe;
struct SeparadorDeEventos;

/// The ficha of a vehicle: eleven tabs, the vehicle's own columns and, kind by kind, its events. A move to
/// another vehicle saves the one that is left, changed or not. A save, a removal and a cancel all empty the
/// screen for the next vehicle; only `btSair` and Escape in the plate close it.
class Viaturas : public PhotoForm {
 public:
  Viaturas();

  bool Edicao = false;  // opened for one given vehicle, whose plate can't be changed; set after `Load`

  /// Shows a vehicle with its events and its photo. An unknown plate stands in its field, and nothing else
  /// changes.
  void CarregaViatura(const std::string& matricula);
  /// Moves the plate given to the first (0), previous (1), next (2) or last (3) vehicle; it stays where there
  /// is none. Another index looks for nothing, and the plate becomes that of the record in hand.
  void Navega(int indice, std::string& matricula);
  /// Always false: this ficha saves without a look at what was there before.
  bool ComparaValores() const { return false; }
  /// Shows the vehicle that was read last, without its events.
  void LerFicha();
  /// Writes what is on the screen, computed figures included, and empties the screen but for the plate. Error
  /// 13 for a text that is no number, and nothing is written.
  void Gravar();
  void Limparform();
  /// Removes the vehicle after a warning for each kind of event that it has. Without events it isn't removed:
  /// it is cleared from the screen and that is all.
  void Anular();
  /// Shows the last day for the road tax, and unticks it as paid, unless that is the day on the screen
  /// already.
  void CalculaDataSelo();
  /// Shows the next inspection by the plain rule of ages, which looks at neither category nor last
  /// inspection.
  void ProximaInspTeste();

  // One kind of event, by its tab.
  void Act_Grelha(const SeparadorDeEventos& separador);  // sets the grid up from nothing, empty
  void Ler(const SeparadorDeEventos& separador);         // fills the grid with the vehicle's events
  void Dados(const SeparadorDeEventos& separador, std::int32_t id);  // shows one event's details
  void Limpar(const SeparadorDeEventos& separador);                  // empties the details
  /// Shows the next inspection by category, age and the last inspection done. Error 13 where the rule has no
  /// month to give.
  void MostrarProximaInspecao();

  /// Members by name: `Edicao`, `CarregaViatura`.
  void Definir(std::string_view membro, const platform::Variant& valor) override;
  void Chamar(std::string_view rotina, const platform::Variant& argumento) override;

  /// The vehicle as it was last read.
  const clViaturas& viatura() const { return viatura_; }

  platform::ControlArray<platform::Label> Legenda;    // captions of the fields
  platform::ControlArray<platform::Frame> Separador;  // one a tab, under its own name
  platform::ControlArray<platform::PushButton> btArquivo;
  platform::ControlArray<platform::DTPicker> DTPicker1;
  platform::TabControl SSTab1;
  platform::ComboBox Combo1;  // "Anual", "Semestral", of a policy
  platform::ComboBox Combo2;  // fuel
  platform::CheckBox Check1;  // out of service
  platform::CheckBox Check2;  // digital tachograph
  platform::CheckBox chkBxSeloPago;
  platform::SGGrid Grelha;  // policies
  platform::SGGrid GrelhaManut;
  platform::SGGrid GrelhaInsp;
  platform::SGGrid GrelhaAces;
  platform::SGGrid GrelhaGst;
  platform::SGGrid GrelhaSin;
  platform::SGGrid GrelhaMul;
  platform::PushButton zorBotao1;    // edit a policy
  platform::PushButton zorBotao2;    // an accessory
  platform::PushButton zorBotao3;    // an expense
  platform::PushButton zorBotao4;    // an inspection
  platform::PushButton zorBotao5;    // a revision
  platform::PushButton PushButton1;  // an accident
  platform::PushButton PushButton2;  // a fine
  BotoesDaFicha botoes;

 protected:
  void Form_Load() override;
  RegistoComFoto& RegistoDoEcra() override;

 private:
  // Putting the screen together.
  platform::LayoutField Colocar(platform::Control& controlo, const char* legenda, int separador);
  platform::LayoutField NovoCampo(int indice, int separador);
  platform::LayoutField NovaData(int indice, int separador);
  void DisporCabeca();
  void DisporViatura();
  void DisporEventos();
  platform::LayoutField NovoDetalhe(const Detalhe& detalhe, int separador);
  void DisporDetalhes(const SeparadorDeEventos& separador);
  void LigarCampos();
  void LigarEventos();
  void LigarSeparador(const SeparadorDeEventos& separador);

  void LerTudo();
  void MostrarValores();
  void FixarMatricula();
  void MostrarSeparador(int indice);
  void SSTab1_Click();
  void Recomecar();

  void Campo_Validate(int indice, bool& cancel);
  void ValidarAno(bool& cancel);
  void CopiarKmIniciais();
  void Campo_PedidoFicha(int indice);
  void btConf_Click() override;
  void btCancelar_Click() override { Recomecar(); }
  void btAnular_Click() override;
  void btNavega_Click(int indice) override;
  void btLista_Click(int indice) override;
  void btArquivo_Click(int indice);
  void LinhaEscolhida(const SeparadorDeEventos& separador, long linha);
  void Editar(const SeparadorDeEventos& separador);

  clViaturas viatura_;
  bool aRegressar_ = false;  // an event's ficha has closed and its grid is getting the focus back
};

}  // namespace zorCrmParvel
