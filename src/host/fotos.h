#pragma once

#include <cstdint>
#include <string>

#include "host/data_access.h"

/// The photo of a record: one image in zor_Fotos, by the record's key and kind. It has a life of its own: it
/// is written at once, may come before its record and stays when that is removed.
namespace zorCrmParvel::Fotos {

/// What tells the photos of one kind of record from another's; each room whose records have one holds its
/// own.
struct Tipo {
  std::int16_t tipo;  // zor_Fotos_TipoEntidade
  bool numerada;      // a new row gets the number 1
  const char* emAdd;  // where an error of Foto_Add is said to have been
  const char* emDel;  // likewise, of Foto_Del
};

/// Stores an image file, over the photo that there is. Always false, whatever came of it; a missing file does
/// nothing, any other failure is shown in a box.
bool Foto_Add(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade,
              const std::string& ficheiro);
/// Removes the photo. True when the database did so, had there been one or not; a failure is shown in a box.
bool Foto_Del(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade);
/// The path of a temporary copy of the photo, which nobody removes; empty when there is none. Failures go to
/// the caller.
std::string Foto_Get(const Tipo& tipo, const DataAccessRef& bd, const std::string& entidade);

}  // namespace zorCrmParvel::Fotos
