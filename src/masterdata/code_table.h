#pragma once

#include <string>

#include "host/data_access.h"
#include "host/member_of.h"
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

extern const TabelaDeCodigos kTabelaDeCategorias;
extern const TabelaDeCodigos kTabelaDeCompanhias;
extern const TabelaDeCodigos kTabelaDeDepartamentos;
extern const TabelaDeCodigos kTabelaDeMarcas;
extern const TabelaDeCodigos kTabelaDeModelos;
extern const TabelaDeCodigos kTabelaDeTiposAcessorios;
extern const TabelaDeCodigos kTabelaDeTiposManut;
extern const TabelaDeCodigos kTabelaDeTiposSeguro;
extern const TabelaDeCodigos kTabelaDeViagens;

using clCategorias = MemberOf<CodeTableWithList, kTabelaDeCategorias>;
using clCompanhias = MemberOf<CodeTableWithList, kTabelaDeCompanhias>;
using clDepartamentos = MemberOf<CodeTableWithList, kTabelaDeDepartamentos>;
using clMarcas = MemberOf<CodeTableWithList, kTabelaDeMarcas>;
using clModelos = MemberOf<CodeTableWithList, kTabelaDeModelos>;
using clTiposAcessorios = MemberOf<CodeTableWithList, kTabelaDeTiposAcessorios>;
using clTiposManut = MemberOf<CodeTableWithList, kTabelaDeTiposManut>;
using clTiposSeguros = MemberOf<CodeTableWithList, kTabelaDeTiposSeguro>;
using clViagens = MemberOf<CodeTable, kTabelaDeViagens>;

}  // namespace zorCrmParvel
