#pragma once

#include <string>

#include "host/data_access.h"
#include "host/row.h"

namespace zorCrmParvel {

/// What tells one code table from another: its table, and the texts and widths of its lookup and report.
struct TabelaDeCodigos {
  const char* tabela;
  const char* tituloLista;
  const char* tituloMapa;
  bool escolheCodigo = false;  // the lookup is shown by EscolheCodigo
  float larguraNome = 3000;    // of the lookup's second column, in twips
};

/// A code table's entity: one current record of a code and a name, read, walked, written, removed, picked and
/// printed. `bd` is set before any call that reaches the database; its failures go to the caller.
class CodeTable {
 public:
  explicit CodeTable(const TabelaDeCodigos& tabela) : tabela_(tabela) {}
  virtual ~CodeTable() = default;

  std::string Codigo;
  std::string Descrição;
  DataAccessRef bd;

  /// False, and the name cleared, when no row has the code.
  virtual bool Ler();
  // The record before, after, first or last in the order of codes. False when there is none: the code stays
  // and the name is cleared.
  bool LerPrimeiro();
  bool LerAnterior();
  bool LerProximo();
  bool LerUltimo();
  /// Inserts or updates; texts are cut to the columns' widths. Always true.
  bool Escrever();
  /// False when the database refused; a code that has no row is no failure.
  virtual bool Anular();
  /// The code that the user picks, empty when none.
  std::string MostraLista();
  /// Prints the table. Always false.
  bool MostraMapa();
  /// The name of its table, in the database.
  const char* tabela() const { return tabela_.tabela; }

 protected:
  platform::Ref<platform::Connection> Ligacao() const;
  /// The statement of `Ler` and `Escrever`.
  virtual Statement Seleccao() const;
  /// Writes the columns beside the key.
  virtual void EscreverCampos(Row& row) const;

 private:
  bool Navegar(const Statement& statement);

  const TabelaDeCodigos& tabela_;
};

/// A code table whose entity has `ListaDeCarros`, which never lists anything.
class CodeTableWithList : public CodeTable {
 public:
  using CodeTable::CodeTable;
  RecordsetRef ListaDeCarros() { return {}; }
};

class clCategorias : public CodeTableWithList {
 public:
  clCategorias();
};

class clCompanhias : public CodeTableWithList {
 public:
  clCompanhias();
};

class clDepartamentos : public CodeTableWithList {
 public:
  clDepartamentos();
};

class clMarcas : public CodeTableWithList {
 public:
  clMarcas();
};

class clModelos : public CodeTableWithList {
 public:
  clModelos();
};

class clTiposAcessorios : public CodeTableWithList {
 public:
  clTiposAcessorios();
};

class clTiposManut : public CodeTableWithList {
 public:
  clTiposManut();
};

class clTiposSeguros : public CodeTableWithList {
 public:
  clTiposSeguros();
};

class clViagens : public CodeTable {
 public:
  clViagens();
};

}  // namespace zorCrmParvel
