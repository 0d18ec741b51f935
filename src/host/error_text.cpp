#include "host/error_text.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/text.h"

namespace zorCrmParvel {
namespace {

using platform::RuntimeError;

constexpr int kRowVanished = -2147217864;
constexpr std::string_view kAnyField = "Um dos campos";

/// "%" stands for the name that the words or the source give.
struct Meaning {
  int number;
  const char* named;    // null when there is never a name
  const char* unnamed;  // the sentence without a name
};

constexpr const char* kOfTheProgram =
    "O programa não conseguiu concluir a operação. Tente de novo; se voltar a acontecer, comunique os "
    "pormenores a quem cuida do programa.";

constexpr std::array kOfNumbers{
    Meaning{platform::kOverflow, "%, que é um número grande de mais. Corrija-o e tente de novo.",
            "Um número, ou o resultado de uma conta, é grande de mais. Corrija-o e tente de novo."},
    Meaning{platform::kDivisionByZero, nullptr,
            "Uma conta divide por zero. Veja se falta um valor, como os quilómetros, e tente de novo."},
    Meaning{platform::kTypeMismatch,
            "%, que não é o número ou a data que devia ser. Corrija-o e tente de novo.",
            "Um dos campos não tem o número ou a data que devia ter. Corrija-o e tente de novo."},
    Meaning{platform::kFileNotFound,
            "O ficheiro «%» não existe ou não se consegue ler. Confirme o nome e tente de novo.",
            "O ficheiro não existe ou não se consegue ler. Confirme o nome e tente de novo."},
    Meaning{platform::kPathAccess,
            "Não foi possível escrever «%». Verifique a pasta, as permissões e o espaço no disco.",
            "Não foi possível escrever o ficheiro. Verifique a pasta, as permissões e o espaço no disco."},
    Meaning{platform::kInvalidUseOfNull, nullptr,
            "Falta um valor num dos registos lidos. Abra a ficha desse registo, preencha o que falta e tente "
            "de novo."},
    Meaning{platform::kKeyInUse, nullptr, "Já existe. Escolha outro nome ou código e tente de novo."},
    Meaning{platform::kNoCurrentRecord, nullptr,
            "O registo já não existe. Abra de novo a lista e repita a operação."},
    Meaning{platform::kNotUpdatable, nullptr, "Estes registos só se podem ler, e nada foi gravado."},
    Meaning{kRowVanished, nullptr,
            "O registo foi entretanto alterado ou removido por outro utilizador, e nada foi gravado. Abra-o "
            "de novo e repita."},
    Meaning{platform::kInvalidColumn, "Falta a coluna «%» na base de dados. Avise quem cuida dela.",
            "Falta uma coluna na base de dados. Avise quem cuida dela."},
    Meaning{platform::kInvalidObject,
            "Falta a tabela «%» na base de dados. Confirme que a base de dados é a deste programa.",
            "Falta uma tabela na base de dados. Confirme que a base de dados é a deste programa."},
    Meaning{
        platform::kMultipleStep,
        "O valor de «%» não cabe na sua coluna ou falta, e nada foi gravado. Encurte o texto, ou preencha "
        "o campo, e tente de novo.",
        "Um valor não cabe na sua coluna ou falta, e nada foi gravado. Encurte o texto, ou preencha o "
        "campo, e tente de novo."},
    Meaning{
        platform::kConstraint, nullptr,
        "A base de dados recusou o registo, que não respeita as suas regras, e nada foi gravado. Corrija-o "
        "e tente de novo."},
    Meaning{platform::kEngineFailure, nullptr,
            "A base de dados não concluiu a operação. Tente de novo; se voltar a acontecer, comunique os "
            "pormenores a quem cuida dela."},
    Meaning{platform::kStatementRefused, nullptr,
            "A base de dados recusou o pedido. Se mudou algum texto, veja se está bem escrito; se voltar a "
            "acontecer, comunique os pormenores a quem cuida do programa."},
};

/// What a server says, by words that its sentence begins with or holds; the first row that fits counts.
struct Words {
  std::string_view words;
  const char* named;  // "%" stands for the first name in apostrophes
  const char* unnamed;
};

constexpr const char* kApostrophe =
    "A base de dados não entende um dos textos. Retire os apóstrofos (') dos campos e tente de novo.";
constexpr const char* kTooLong =
    "Um texto é mais comprido do que o campo permite, e nada foi gravado. Encurte-o e tente de novo.";
constexpr const char* kTooLarge =
    "Um número é grande de mais para a base de dados. Corrija-o e tente de novo.";
constexpr const char* kDuplicate =
    "Já há um registo com o mesmo código, e nada foi gravado. Escolha outro código, ou abra o registo que já "
    "existe.";
constexpr const char* kTooComplex = "O pedido é grande de mais para a base de dados. Peça menos de cada vez.";
constexpr const char* kNotReadable =
    "A base de dados não consegue ler um dos textos como número ou data. Corrija-o e tente de novo.";

constexpr std::array kOfServer{
    Words{"Incorrect syntax near", nullptr, kApostrophe},
    Words{"Unclosed quotation mark", nullptr, kApostrophe},
    Words{"String or binary data would be truncated", nullptr, kTooLong},
    Words{
        "out-of-range value", nullptr,
        "Uma data está fora do que a base de dados guarda, de 01-01-1753 a 31-12-9999. Corrija-a e tente de "
        "novo."},
    Words{"Arithmetic overflow", nullptr, kTooLarge},
    Words{"Divide by zero", nullptr,
          "Uma conta da base de dados divide por zero. Veja se falta um valor e tente de novo."},
    Words{"Conversion failed", nullptr, kNotReadable},
    Words{"Cannot convert a char value", nullptr, kNotReadable},
    Words{"Error converting data type", nullptr, kNotReadable},
    Words{"Cannot insert the value NULL into column",
          "Falta o valor de «%», e nada foi gravado. Preencha-o e "
          "tente de novo.",
          "Falta um valor obrigatório, e nada foi gravado. Preencha-o e tente de novo."},
    Words{"Cannot insert duplicate key", nullptr, kDuplicate},
    Words{"DELETE statement conflicted", nullptr,
          "Há outros registos que usam este, e por isso não foi removido. Remova-os primeiro."},
    Words{"statement conflicted with", nullptr,
          "O registo indica um código que não existe, e nada foi gravado. Escolha um dos que existem."},
    Words{"nested too deeply", nullptr, kTooComplex},
    Words{"ran out of internal resources", nullptr, kTooComplex},
    Words{"exceeds the maximum allowed number", nullptr, kTooComplex},
    Words{"attempt to write a readonly database", nullptr,
          "A base de dados só permite leitura e nada foi gravado. Verifique as permissões do ficheiro e da "
          "pasta."},
};

/// The text with what stands between quotes, which may be anything, made blank byte for byte.
std::string WithoutQuoted(std::string text) {
  struct Pair {
    std::string_view open;
    std::string_view close;
  };
  constexpr std::array kPairs{Pair{"'", "'"}, Pair{"\"", "\""}, Pair{"«", "»"}};
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto pair = std::find_if(kPairs.begin(), kPairs.end(), [&](const Pair& each) {
      return std::string_view(text).substr(at).starts_with(each.open);
    });
    if (pair == kPairs.end()) continue;
    const auto close = text.find(pair->close, at + pair->open.size());
    if (close == std::string::npos) continue;
    const std::size_t end = close + pair->close.size();
    std::fill(text.begin() + static_cast<std::ptrdiff_t>(at), text.begin() + static_cast<std::ptrdiff_t>(end),
              '_');
    at = end - 1;
  }
  return text;
}

/// True for words of this program: an accented letter, or a small word that English lacks.
bool IsPortuguese(std::string_view sentence) {
  const std::string words = " " + std::string(sentence) + " ";
  const bool accented =
      std::any_of(words.begin(), words.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  constexpr std::array<std::string_view, 8> kSmall{" e ",  " o ",   " de ",  " da ",
                                                   " em ", " com ", " que ", " um "};
  return accented || std::any_of(kSmall.begin(), kSmall.end(), [&](std::string_view small) {
           return words.find(small) != std::string::npos;
         });
}

/// Where the first Portuguese sentence begins: an advice may follow a server's words. npos without one.
std::size_t BeginOfPortuguese(const std::string& text) {
  const std::string bare = WithoutQuoted(text);
  for (std::size_t at = 0; at < bare.size();) {
    const std::size_t end = std::min(bare.find(". ", at), bare.size());
    if (IsPortuguese(std::string_view(bare).substr(at, end - at))) return at;
    at = end + 2;
  }
  return std::string::npos;
}

/// Where the brackets open that end a text; npos when it doesn't end in brackets.
std::size_t BeginOfLastBrackets(std::string_view text) {
  int open = 0;
  for (std::size_t at = text.size(); text.ends_with(')') && at-- > 0;) {
    open += text[at] == ')' ? 1 : text[at] == '(' ? -1 : 0;
    if (open == 0) return at;
  }
  return std::string_view::npos;
}

std::string Filled(const char* named, const char* unnamed, std::string_view name) {
  if (named == nullptr || name.empty()) return unnamed;
  std::string text = named;
  return text.replace(text.find('%'), 1, name);
}

/// The first name in apostrophes.
std::string_view NameIn(std::string_view words) {
  const auto begin = words.find('\'');
  const auto end = begin == std::string_view::npos ? begin : words.find('\'', begin + 1);
  return end == std::string_view::npos ? std::string_view{} : words.substr(begin + 1, end - begin - 1);
}

/// What the source says of the file, the field or the text that an error is about; empty for the name of a
/// routine.
std::string_view NameFor(const RuntimeError& error) {
  const std::string_view source = error.source();
  switch (error.number()) {
    case platform::kOverflow:
    case platform::kTypeMismatch:
      return source.ends_with("»") ? source : std::string_view{};
    case platform::kFileNotFound:
    case platform::kPathAccess:
    case platform::kMultipleStep:
      return source.find("::") == std::string_view::npos ? source : std::string_view{};
    default:
      return {};
  }
}

template <typename Fits>
std::string OfServer(std::string_view words, Fits&& fits) {
  const auto known =
      std::find_if(kOfServer.begin(), kOfServer.end(), [&](const Words& each) { return fits(each.words); });
  return known == kOfServer.end() ? std::string() : Filled(known->named, known->unnamed, NameIn(words));
}

std::string OfNumber(const RuntimeError& error, std::string_view name) {
  const auto known = std::find_if(kOfNumbers.begin(), kOfNumbers.end(),
                                  [&](const Meaning& each) { return each.number == error.number(); });
  return known == kOfNumbers.end() ? kOfTheProgram : Filled(known->named, known->unnamed, name);
}

std::string DetailsOf(const RuntimeError& error, const std::string& words) {
  std::string details = "Erro " + std::to_string(error.number());
  if (!words.empty()) details += ": " + words;
  if (!error.source().empty()) details += "\nOrigem: " + error.source();
  return details;
}

/// A text of this program; the words of a server stand behind it in brackets, those of SQLite in the source.
ErrorText OwnText(const RuntimeError& error) {
  const std::string text = error.description();
  const std::size_t begin = BeginOfLastBrackets(text);
  const std::string inner = begin < text.size() ? text.substr(begin + 1, text.size() - begin - 2) : "";
  if (begin > 0 && !inner.empty() && !IsPortuguese(WithoutQuoted(inner)))
    return {platform::Trim(text.substr(0, begin)), DetailsOf(error, inner)};
  const bool more = error.source().starts_with("SQLite");
  return {text, more ? DetailsOf({error.number(), "", ""}, error.source()) : ""};
}

}  // namespace

ErrorText TextOf(const RuntimeError& error) {
  const std::string words = error.description();
  const auto shown = [&](const std::string& message) { return ErrorText{message, DetailsOf(error, words)}; };
  if (!words.empty() && words == RuntimeError::StandardText(error.number()))
    return shown(OfNumber(error, NameFor(error)));
  std::string message = OfServer(words, [&](std::string_view known) { return words.starts_with(known); });
  if (!message.empty()) return shown(message);
  const std::size_t own = BeginOfPortuguese(words);
  if (own == 0) return OwnText(error);
  if (own != std::string::npos) return {words.substr(own), DetailsOf(error, words.substr(0, own - 1))};
  message = OfServer(words, [&](std::string_view known) { return words.find(known) != std::string::npos; });
  return shown(message.empty() ? OfNumber(error, NameIn(words)) : message);
}

std::string SourceInField(const std::string& caption, const std::string& text) {
  const std::string field = caption.empty() ? std::string(kAnyField) : "O campo «" + caption + "»";
  return field + " tem «" + text + "»";
}

}  // namespace zorCrmParvel
