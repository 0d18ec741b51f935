#pragma once

#include <memory>
#include <span>
#include <string>

#include "host/ficha.h"
#include "masterdata/code_table.h"

namespace zorCrmParvel {

/// A field of a ficha that holds a code of another table: a label says what the code stands for, a button
/// lists the codes, and the key for it opens the code's own ficha.
struct Referencia {
  int campo;
  int lista;   // its list button
  int titulo;  // its label
  const char* dicaLista;
  const char* ficha;  // its name in the catalogue of fichas; null: the field opens none
  std::unique_ptr<CodeTable> (*nova)();
  const char* inexistente;    // the message for an unknown code
  bool opcional = false;      // an empty field isn't looked at
  bool caixaSimples = false;  // the message comes in a box without a title
};

template <typename Entity>
std::unique_ptr<CodeTable> NovaEntidade() {
  return std::make_unique<Entity>();
}

/// What all fichas of records do alike: keys in the fields, picks from lists, codes of other tables, and the
/// buttons of `BotoesDaFicha`.
class RecordForm : public Ficha {
 public:
  platform::ControlArray<platform::zor_input> Campo;     // the fields; the key is 0
  platform::ControlArray<platform::PushButton> btLista;  // what fields can be filled from
  platform::ControlArray<platform::Label> Titulo;        // texts beside the fields

 protected:
  /// What `referencias` shows must outlive the ficha.
  explicit RecordForm(std::span<const Referencia> referencias = {}) : referencias_(referencias) {}

  // What the buttons do; the one that leaves unloads the ficha.
  virtual void btConf_Click() = 0;
  virtual void btCancelar_Click() = 0;
  virtual void btAnular_Click() = 0;
  virtual void btNavega_Click(int indice) = 0;
  void LigarBotoes(BotoesDaFicha& botoes);
  /// A button that opens a list; its click goes to `btLista_Click`.
  platform::PushButton& NovaLista(int indice, const char* dica);
  virtual void btLista_Click(int indice) = 0;

  /// What Escape does in every field: it goes a field back, and from the key out of the ficha. True when the
  /// key was Escape, which is then swallowed.
  bool Recuar(int indice, int& keyCode);
  /// Puts a code that was picked into a field, as if it had been typed there, and leaves the field, so that
  /// its rules run. Without a code the field just gets the focus.
  void Tomar(int campo, const std::string& codigo);
  /// Moves a code as an arrow says: to that of the first (0), previous (1), next (2) or last (3) record; it
  /// stays where there is none. Another index looks for nothing, and the code becomes that of the record in
  /// hand. `chave` is the entity's key.
  template <typename Entity>
  void Mover(Entity& entidade, std::string& chave, int indice, std::string& codigo) const {
    if (indice >= 0 && indice <= 3) {
      chave = codigo;
      entidade.bd = mybd;
      LerPelaSeta(entidade, indice);
    }
    codigo = chave;
  }
  /// True when the user goes on after a message of two sentences.
  static bool Continuar(const char* primeira, const char* segunda);
  /// What a picker holds; the zero date for one that is unticked.
  static platform::Date DataOuZero(const platform::DTPicker& data);
  /// Today in the place of no date.
  static platform::Date HojeSeZero(platform::Date data);

  std::span<const Referencia> Referencias() const { return referencias_; }
  /// Null when the field holds no code.
  const Referencia* ReferenciaDoCampo(int campo) const;
  /// The code that the user picks for a field, empty when none.
  std::string Escolher(const Referencia& referencia) const;
  /// Says what the code on the screen stands for, or nothing.
  void MostrarReferencia(const Referencia& referencia);
  /// The rule of a code: it must exist. Else tells so and keeps the focus.
  void ValidarReferencia(const Referencia& referencia, bool& cancel);
  /// After a code was read, to be shown or to be checked; the entity is blank when it wasn't found.
  virtual void ReferenciaLida(const Referencia& /*referencia*/, CodeTable& /*entidade*/, bool /*aoValidar*/) {
  }
  /// Opens another ficha on the code of a field, by the routine that loads a record there.
  void AbrirFicha(const char* nome, const char* rotina, int campo);

 private:
  std::span<const Referencia> referencias_;
};

}  // namespace zorCrmParvel
