#include "loader/late_library.h"

#include <dlfcn.h>

#include <stdexcept>

namespace loader {

LateLibrary::LateLibrary(const char* file) : file_(file), handle_(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr)
    throw std::runtime_error("Falta a biblioteca " + file_ + ", ou não se consegue carregar: " + dlerror() +
                             "\nInstale de novo o programa, ou o pacote dessa biblioteca.");
}

void* LateLibrary::Address(const char* name) const {
  void* const address = dlsym(handle_, name);
  if (address == nullptr)
    throw std::runtime_error("A biblioteca " + file_ + " não tem a função " + name +
                             ". Instale a versão que o programa pede.");
  return address;
}

}  // namespace loader
