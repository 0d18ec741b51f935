#pragma once

#include <array>
#include <string>

#include "drivers/motoristas.h"

namespace zorCrmParvel {

/// A field of the driver's ficha, by its place in `Campo`, with the property that it shows and fills.
struct CampoDoMotorista {
  const char* legenda;
  const char* dica;
  int maxlength;  // characters
  std::string clMotoristas::*propriedade;
};

extern const std::array<CampoDoMotorista, 20> kCamposDoMotorista;

/// A date of the ficha, by its place in `DTPicker1`.
struct DataDoMotorista {
  const char* legenda;
  const char* dica;
  platform::Date clMotoristas::*propriedade;
  bool opcional = false;  // may be without a date, which shows as today
};

extern const std::array<DataDoMotorista, 11> kDatasDoMotorista;

}  // namespace zorCrmParvel
