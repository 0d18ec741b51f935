#pragma once

#include <cstddef>

#include "reports/soma.h"

namespace reports {

/// An odometer, followed from reading to reading.
class Contador {
 public:
  enum class Leitura {
    kAvanca,        // above the highest so far
    kIgual,         // the highest once more
    kRecuo,         // below it
    kNovaContagem,  // the third of three ascending lower ones in a row: the odometer was changed
  };

  explicit Contador(Currency base) : base_(base), maximo_(base) {}

  /// Takes the next one; `posicao` is the caller's own mark of it.
  Leitura Le(Currency km, std::size_t posicao);

  Currency maximo() const { return maximo_; }
  /// Kilometres over all counts.
  Soma distancia() const;
  /// After a new count: the marks of its first and second reading, and their kilometres.
  std::size_t posicaoDaPrimeira() const { return primeira_.posicao; }
  std::size_t posicaoDaSegunda() const { return segunda_.posicao; }
  Currency kmDaPrimeira() const { return primeira_.km; }
  Currency kmDaSegunda() const { return segunda_.km; }

 private:
  struct Marca {
    Currency km;
    std::size_t posicao = 0;
  };

  Currency base_;
  Currency maximo_;
  Soma contagensAnteriores_;
  int corrida_ = 0;  // lower readings in a row, each above the one before it
  Marca primeira_, segunda_;
};

}  // namespace reports
