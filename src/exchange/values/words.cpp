#include "exchange/values/words.h"

#include <algorithm>
#include <array>

#include "drivers/licence_classes.h"
#include "exchange/values/fold.h"
#include "platform/text.h"

namespace exchange {
namespace {

struct Words {
  WordSet set;
  int number;
  std::string_view folded;  // "|" stands before and after each
};

constexpr std::array kWords = {
    Words{WordSet::kTruth, 1, "|sim|s|yes|y|si|oui|o|true|verdadeiro|verdade|vrai|x|v|activo|ativo|ok|on|1|"},
    Words{WordSet::kTruth, 0, "|nao|n|no|non|false|falso|faux|inactivo|inativo|off|0|"},
    Words{WordSet::kFuel, 0, "|gasoleo|gasoil|gasoleo simples|gasoleo aditivado|diesel|gasol|gazole|go|d|0|"},
    Words{WordSet::kFuel, 1,
          "|gasolina|gasolina 95|gasolina 98|gasolina sem chumbo|petrol|gasoline|gas|essence|sp95|sp98|g|"
          "unleaded|super|1|"},
    Words{WordSet::kFuel, 2, "|gpl|glp|lpg|gas de petroleo liquefeito|autogas|2|"},
    Words{WordSet::kFuel, 3,
          "|electrico|eletrico|electric|electrica|eletrica|electrique|ev|bev|e|electricidade|3|"},
    Words{WordSet::kPayment, 0, "|anual|yearly|annual|annuel|annuelle|ano|0|"},
    Words{WordSet::kPayment, 1, "|semestral|half yearly|semestriel|semestrielle|semestre|1|"}};

/// The class alone: "C1+E" of "C1   - Pesados Mercadorias".
std::string ClassOf(std::string_view text) {
  std::string name;
  for (const char c : text.substr(0, text.find(" -")))
    if (c != ' ' && c != '+') name += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return name;
}

std::optional<int> LicenceClass(std::string_view word) {
  const std::string stripped = Stripped(word);
  if (stripped.size() == 1 && stripped[0] >= '0' && stripped[0] <= '9') return stripped[0] - '0';
  const std::string name = ClassOf(stripped);
  const auto& classes = zorCrmParvel::TiposCarta();
  for (std::size_t i = 0; i < classes.size(); ++i)
    if (name == ClassOf(classes[i])) return static_cast<int>(i);
  return std::nullopt;
}

}  // namespace

std::optional<int> NumberOfWord(WordSet set, std::string_view word) {
  if (set == WordSet::kLicence) return LicenceClass(word);
  const std::string wanted = "|" + Folded(word) + "|";
  for (const Words& words : kWords)
    if (words.set == set && words.folded.find(wanted) != std::string_view::npos) return words.number;
  return std::nullopt;
}

std::vector<std::string> LicencesIn(std::string_view cell) {
  std::vector<std::string> classes;
  std::string one;
  const auto end = [&] {
    const std::string word = Folded(one);
    if (!word.empty() && word != "e" && word != "and" && word != "y" && word != "et")
      classes.push_back(Stripped(one));
    one.clear();
  };
  // The name of a class is written as the ficha shows it, with its explanation.
  if (LicenceClass(cell)) return {Stripped(cell)};
  for (const char c : cell) {
    if (std::string_view(",;/| ").find(c) != std::string_view::npos)
      end();
    else
      one += c;
  }
  end();
  return classes;
}

}  // namespace exchange
