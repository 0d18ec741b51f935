#include "exchange/imports/row_mark.h"

#include <algorithm>
#include <array>
#include <charconv>
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

namespace {

/// What a vehicle's row holds that follows from its events.
bool IsFigure(std::string_view column) {
  static constexpr std::array<std::string_view, 5> kFigures = {"KmActual", "CustoMedioKmC", "CustoMedioKmT",
                                                               "CustoTotal", "Media"};
  return std::find(kFigures.begin(), kFigures.end(), column) != kFigures.end();
}

void AddNumber(Checksum& sum, std::int64_t number) {
  std::array<char, 24> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  sum.Add({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void AddValue(Checksum& sum, const platform::Variant& value) {
  if (const auto* money = value.As<platform::Currency>())
    AddNumber(sum, money->tenThousandths());
  else if (const auto* date = value.As<platform::Date>())
    AddNumber(sum, date->seconds());
  else if (const auto* text = value.As<std::string>())
    sum.Add(*text);
  else
    sum.Add(value.IsNull() ? "\x1E" : value.ToText());
  sum.Add("\x1F");
}

/// `valueOf` gives the value of a field by its place.
template <typename ValueOf>
std::string Mark(const std::vector<platform::FieldInfo>& fields, std::string_view numberedKey,
                 const ValueOf& valueOf) {
  const bool vehicle = std::any_of(fields.begin(), fields.end(), [](const platform::FieldInfo& field) {
    return field.name == "CustoMedioKmT";
  });
  Checksum sum;
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (fields[i].name != numberedKey && !(vehicle && IsFigure(fields[i].name))) AddValue(sum, valueOf(i));
  return sum.ToText();
}

}  // namespace

std::string MarkOf(platform::Recordset& rows, std::string_view numberedKey) {
  return Mark(rows.FieldList(), numberedKey, [&](std::size_t i) { return rows.Fields(i).Value(); });
}

std::string MarkOf(const std::vector<platform::FieldInfo>& fields,
                   const std::vector<std::optional<platform::Variant>>& values,
                   std::string_view numberedKey) {
  static const platform::Variant null{platform::Variant::Null{}};
  return Mark(fields, numberedKey,
              [&](std::size_t i) -> const platform::Variant& { return values[i] ? *values[i] : null; });
}

}  // namespace exchange
