#include "host/calendario.h"

#include <utility>

namespace zorCrmParvel {

Calendario::Assinatura Calendario::Ouvir(Ouvinte ouvinte) {
  std::erase_if(ouvintes_, [](const auto& antigo) { return antigo.expired(); });
  auto assinatura = std::make_shared<const Ouvinte>(std::move(ouvinte));
  ouvintes_.push_back(assinatura);
  return assinatura;
}

void Calendario::Dizer(std::function<void(std::int32_t)> Ouvinte::*evento, std::int32_t id) {
  const auto ouvintes = ouvintes_;  // what is heard may end a subscription or begin one
  for (const auto& ouvinte : ouvintes)
    if (const Assinatura vivo = ouvinte.lock(); vivo && (*vivo).*evento) ((*vivo).*evento)(id);
}

}  // namespace zorCrmParvel
