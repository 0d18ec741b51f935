#pragma once

#include <string>

namespace zorCrmParvel {

/// A record with a photo, which is kept by the record's key from the moment that it is added, saved record or
/// not. See host/fotos.h for what the three answer.
class RegistoComFoto {
 public:
  RegistoComFoto() = default;
  RegistoComFoto(const RegistoComFoto&) = default;
  RegistoComFoto& operator=(const RegistoComFoto&) = default;
  virtual ~RegistoComFoto() = default;

  virtual bool Foto_Add(const std::string& ficheiro) = 0;
  virtual bool Foto_Del() = 0;
  virtual std::string Foto_Get() = 0;
};

}  // namespace zorCrmParvel
