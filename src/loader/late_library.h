#pragma once

#include <string>

namespace loader {

/// A shared library that few runs of the program need. The system loads it when a function of it is first
/// asked for, not when the program starts; it stays until the program ends.
class LateLibrary {
 public:
  /// `file` is the name under which the system's loader finds it, as "libz.so.1". Throws std::runtime_error
  /// with a text for the operator when it can't be loaded.
  explicit LateLibrary(const char* file);

  /// A function by its name in the library, where it must be; `Function` is its type. Throws
  /// std::runtime_error.
  template <typename Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(Address(name));
  }

 private:
  void* Address(const char* name) const;

  std::string file_;
  void* handle_;
};

}  // namespace loader
