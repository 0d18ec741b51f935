#pragma once

#include <string>

#include "drivers/motoristas.h"
#include "masterdata/photo_form.h"

namespace zorCrmParvel {

/// The ficha of a driver: five tabs, the grid of licence classes, a photo. A move to another driver saves the
/// one that is left, changed or not; every button that ends a record empties the screen for the next.
class Motoristas : public PhotoForm {
 public:
  Motoristas();

  /// True: opened for one given driver, whose code can't be changed.
  void Edicao(bool valor) { Edicao_ = valor; }
  void CarregaFicha(const std::string& codigo) override;
  /// Moves the code given to the first (0), previous (1), next (2) or last (3) driver; it stays where there
  /// is none. Another index looks for nothing, and the code becomes that of the record in hand.
  void Navega(int indice, std::string& codigo);
  /// Always false: this ficha saves without a look at what was there before.
  bool ComparaValores() const { return false; }
  void Definir(std::string_view membro, const platform::Variant& valor) override;

  DataAccessRef bdSal;      // the personnel database, read when `UsaPessoal` is on
  bool UsaPessoal = false;  // the personnel link

  platform::ControlArray<platform::Label> Legenda;
  platform::ControlArray<platform::Frame> Frame5;
  platform::TabControl SSTab1;
  platform::ControlArray<platform::DTPicker> DTPicker1;
  platform::ComboBox Combo1;  // licence class of the record
  platform::CheckBox Check1;  // out of service
  platform::SGGrid Grelha;    // the licence classes with their dates
  platform::MonthView MonthView1;
  platform::PushButton btArquivo;
  BotoesDaFicha botoes;

 protected:
  void Form_Load() override;
  RegistoComFoto& RegistoDoEcra() override;

 private:
  // Putting the screen together.
  platform::LayoutField NovoCampo(int indice, int separador);
  platform::LayoutField NovaData(int indice, int separador);
  platform::LayoutField ComLegenda(platform::Control& controlo, const char* legenda);
  void DisporIdentificacao();
  void DisporDocumentos();
  void LigarEventos();

  // The record.
  bool LerTudo();
  void LerFicha();
  void Gravar();
  void Limparform();
  void Anular();
  void Recomecar();
  void FixarCodigo();

  // The licence classes.
  void Act_Grelha();
  void LerCartas();
  void GravarCartas();
  void GravarCarta(int tipo);
  void ValidarDataDaCarta(const std::string& texto, bool& cancel);
  void MostrarCalendario();
  void EscolherDataDaCarta(platform::Date data, const char* recusa);
  void LigarGrelha();

  void Campo_Validate(int indice, bool& cancel);
  void SSTab1_Click();
  void MostrarSeparador(int indice);
  void btConf_Click() override;
  void btCancelar_Click() override { Recomecar(); }
  void btAnular_Click() override;
  void btNavega_Click(int indice) override;
  void btLista_Click(int indice) override;

  clMotoristas motorista_;
  bool Edicao_ = false;
};

}  // namespace zorCrmParvel
