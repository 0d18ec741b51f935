#pragma once

#include <cstdint>
#include <functional>

namespace zorCrmParvel {

/// The host's calendar, as far as the module listens to it: what happens to an entry, by its identifier.
class Calendario {
 public:
  std::function<void(std::int32_t)> AfterAlterar;
  std::function<void(std::int32_t)> AfterInserir;
  std::function<void(std::int32_t)> AfterRemover;
};

}  // namespace zorCrmParvel
