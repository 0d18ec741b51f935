#include "reports/contador.h"

namespace reports {

Contador::Leitura Contador::Le(Currency km, std::size_t posicao) {
  if (km >= maximo_) {
    corrida_ = 0;
    const bool igual = km == maximo_;
    maximo_ = km;
    return igual ? Leitura::kIgual : Leitura::kAvanca;
  }
  const Marca esta{km, posicao};
  if (corrida_ == 2 && km > segunda_.km) {
    contagensAnteriores_ += maximo_;
    contagensAnteriores_ -= base_;
    base_ = primeira_.km;
    maximo_ = km;
    corrida_ = 0;
    return Leitura::kNovaContagem;
  }
  if (corrida_ == 1 && km > primeira_.km) {
    segunda_ = esta;
    corrida_ = 2;
  } else {
    primeira_ = esta;
    corrida_ = 1;
  }
  return Leitura::kRecuo;
}

Soma Contador::distancia() const {
  Soma soma = contagensAnteriores_;
  soma += maximo_;
  soma -= base_;
  return soma;
}

}  // namespace reports
