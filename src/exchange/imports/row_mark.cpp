#include "exchange/imports/row_mark.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>

namespace exchange {

std::string Checksum::ToText() const {
  std::string text(16, '0');
  for (std::size_t i = 0; i < text.size(); ++i) text[i] = "0123456789abcdef"[sum_ >> (60 - 4 * i) & 15U];
  return text;
}

std::string ChecksumOfFile(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  Checksum sum;
  std::array<char, 65536> block{};
  while (in.read(block.data(), block.size()) || in.gcount() > 0)
    sum.Add({block.data(), static_cast<std::size_t>(in.gcount())});
  if (!in.eof()) throw std::runtime_error("Não é possível ler o ficheiro " + file);
  return sum.ToText();
}

std::string MarkOf(platform::Recordset& rows, std::string_view numberedKey) {
  static constexpr std::array<std::string_view, 5> kFigures = {"KmActual", "CustoMedioKmC", "CustoMedioKmT",
                                                               "CustoTotal", "Media"};
  const bool vehicle = rows.FindField("CustoMedioKmT").has_value();
  Checksum sum;
  for (std::size_t i = 0; i < rows.FieldList().size(); ++i) {
    const std::string& name = rows.FieldList()[i].name;
    if (name == numberedKey) continue;
    if (vehicle && std::find(kFigures.begin(), kFigures.end(), name) != kFigures.end()) continue;
    const platform::Variant value = rows.Fields(i).Value();
    if (const auto* money = value.As<platform::Currency>()) {
      sum.Add(std::to_string(money->tenThousandths()));
    } else if (const auto* date = value.As<platform::Date>()) {
      sum.Add(std::to_string(date->seconds()));
    } else if (const auto* text = value.As<std::string>()) {
      sum.Add(*text);
    } else if (!value.IsNull()) {
      sum.Add(value.ToText());
    } else {
      sum.Add("\x1E");
    }
    sum.Add("\x1F");
  }
  return sum.ToText();
}

}  // namespace exchange
