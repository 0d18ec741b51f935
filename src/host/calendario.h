#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace zorCrmParvel {

/// The host's calendar, as far as the module listens to it: what happens to an entry, by its identifier. It
/// has any number of listeners, the host's own among them, and none knows of another.
class Calendario {
 public:
  /// What one listener does; an event that is left empty isn't listened to.
  struct Ouvinte {
    std::function<void(std::int32_t)> AfterAlterar;
    std::function<void(std::int32_t)> AfterInserir;
    std::function<void(std::int32_t)> AfterRemover;
  };
  /// Held by who listens: it ends with the last copy, and may outlive the calendar.
  using Assinatura = std::shared_ptr<const Ouvinte>;

  [[nodiscard]] Assinatura Ouvir(Ouvinte ouvinte);

  // The host tells what has happened. The listeners hear it in the order in which they came.
  void AfterAlterar(std::int32_t id) { Dizer(&Ouvinte::AfterAlterar, id); }
  void AfterInserir(std::int32_t id) { Dizer(&Ouvinte::AfterInserir, id); }
  void AfterRemover(std::int32_t id) { Dizer(&Ouvinte::AfterRemover, id); }

 private:
  void Dizer(std::function<void(std::int32_t)> Ouvinte::*evento, std::int32_t id);

  std::vector<std::weak_ptr<const Ouvinte>> ouvintes_;
};

}  // namespace zorCrmParvel
