#pragma once

#include <map>
#include <string>

#include "platform/recordset.h"

namespace platform {

/// A column of a lookup or report: what the caller sets before it is shown.
struct DialogColumn {
  float Width = 1500;   // twips
  bool Option = false;  // set on the key column of the event lists, which is then not shown
};

/// What a lookup and a report share: a statement, a title, and columns counted from 1. The caller sets the
/// first three members, may load it to set its columns, and shows it.
class ListDialog {
 public:
  Ref<Connection> Ligacao;
  std::string Titulo;
  std::string Sql;

  /// Runs the statement. The columns take the recordset's fields, and lose what was set before. Error 91
  /// without a connection.
  void Carrega();
  /// Error 9 for a column that the loaded statement doesn't have.
  DialogColumn& Coluna(int index);
  /// Unset until loaded.
  const RecordsetRef& Linhas() const { return rows_; }

 private:
  RecordsetRef rows_;
  std::map<int, DialogColumn> columns_;
};

/// The lookup list: shows the rows of a statement and gives back the first column of the row chosen.
class ListaPesquisa : public ListDialog {
 public:
  long Largura = 4500;  // twips

  /// Shows the list modally; the key chosen, empty when none was.
  std::string Escolhe();
  std::string EscolheCodigo() { return Escolhe(); }
};

/// The report: the rows of a statement on paper.
class MapaListagem : public ListDialog {
 public:
  int Opcao = 0;
  void Mostra();
};

}  // namespace platform
