#include "exchange/plan/plan_row.h"

namespace exchange {

const char* NameOf(RowState state) {
  static constexpr const char* kNames[] = {"por verificar", "nova",     "repetida",
                                           "aviso",         "recusada", "posta de parte"};
  return kNames[static_cast<std::size_t>(state)];
}

void Step(const Progress& progress, std::size_t done, std::size_t total) {
  constexpr std::size_t kEvery = 256;
  if (progress && done % kEvery == 0 && !progress(done, total)) throw Cancelled();
}

}  // namespace exchange
