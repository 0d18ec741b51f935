#pragma once

#include <string>

#include "host/data_access.h"

namespace zorCrmParvel {

/// The digital archive: documents kept in the database against a record of the module, by the record's code
/// and its kind (a number).
class Cl_ArquivoDigital {
 public:
  DataAccessRef bd;

  /// The database's word on the removal.
  bool RemoverDocumento(std::int32_t numero);
  /// Asks for a new title. True when one was given, else empty. An apostrophe in it raises the server's
  /// error.
  platform::Variant MudaNomeDocumento(std::int32_t numero);
  /// Stores a file: a new document for `nReg` 0. The title is the file's name when `Designacao` is empty.
  /// False when anything failed; nothing is stored then.
  bool Add(const std::string& NomeFicheiro, const std::string& NumeroFicha, std::int16_t TipoEntidade,
           std::int32_t nReg, const std::string& Designacao);
  /// Writes a document into the folder `percurso` (which ends with its separator) and opens it. The window's
  /// handle is the system's business. Error 94, and no file, when the row holds no document.
  platform::Variant VisalizarDocumento(std::int32_t numero, long IdDaJanela, const std::string& percurso);
  /// Numbers and titles of a record's documents. The caller closes the rows.
  RecordsetRef ListaDeDocumentos(const std::string& NumeroDeFicha, std::int16_t TipoDeEntidade);

 private:
  void Guardar(const std::string& NomeFicheiro, const std::string& NumeroFicha, std::int16_t TipoEntidade,
               std::int32_t nReg, const std::string& Designacao);
};

}  // namespace zorCrmParvel
