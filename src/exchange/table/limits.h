#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace exchange {

/// What a file may ask for; beyond that it is refused.
constexpr std::uint64_t kUnpackedLimit = 300ULL * 1024 * 1024;  // bytes of a file when it is unpacked
constexpr std::uint64_t kDeliveredLimit =
    4 * kUnpackedLimit;                      // bytes of all its cells, repetitions written out
constexpr std::size_t kCellLimit = 131068;   // bytes of one cell, the most that a spreadsheet takes
constexpr std::size_t kColumnLimit = 16384;  // columns of a row
constexpr long kRowLimit = 1048576;          // rows of a sheet
constexpr double kFirstRowSeconds = 5;       // work until the first row
constexpr std::size_t kReadBlock = 16384;    // bytes that are read at once

/// The errors of which a file of any kind is refused.
inline std::runtime_error BrokenFile(const std::string& detail) {
  return std::runtime_error(
      "O ficheiro está incompleto ou danificado (" + detail +
      "). Peça-o de novo a quem o enviou, ou abra-o numa folha de cálculo e guarde-o outra vez.");
}
inline std::runtime_error ProtectedFile() {
  return std::runtime_error(
      "O ficheiro está protegido por palavra-passe. Abra-o numa folha de cálculo, guarde-o sem palavra-passe "
      "e tente de "
      "novo.");
}
inline std::runtime_error TooLarge(const std::string& detail) {
  return std::runtime_error("O ficheiro é grande demais para ser lido (" + detail +
                            "). Divida-o em ficheiros mais pequenos, ou guarde-o como CSV.");
}
inline std::runtime_error NoTable(const std::string& detail) {
  return std::runtime_error("O ficheiro não é uma tabela: " + detail +
                            ". Guarde-o como XLSX, ODS ou CSV e tente de novo.");
}

}  // namespace exchange
