#pragma once

#include <string>

#include "host/data_access.h"

namespace zorCrmParvel {

/// A file attached to a record by its path: the file stays where it is. `Codigo` and `Tipo` together name the
/// record. `mybd` is set before a call.
class clAttach {
 public:
  std::int32_t Id = 0;
  std::string Codigo;
  std::string Fx;  // full path of the file
  std::int16_t Tipo = 0;
  DataAccessRef mybd;

  /// False when the database refused.
  bool Anular();
  /// Inserts when no row has the id, else updates everything but the owner's code. A long text is cut to its
  /// column. Always true.
  bool Escrever();
  /// False, and every property as it was, when no row has the id.
  bool Ler();
  /// The files of `Codigo` and `Tipo`. The caller closes the rows.
  RecordsetRef LerDocs();

 private:
  Statement Seleccao() const;
};

}  // namespace zorCrmParvel
