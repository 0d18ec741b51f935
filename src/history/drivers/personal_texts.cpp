#include "history/drivers/personal_texts.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/text.h"

namespace history {
namespace {

constexpr std::size_t kShortest = 4;  // characters; what is shorter tells nobody
constexpr const char* kGone = "(apagado)";
constexpr const char* kName = "Nome";
constexpr const char* kColumns[] = {
    kName,   "Morada",     "NIF",       "BI",        "Telefone",        "Telemovel",
    "Email", "Passaporte", "CartaoCid", "CartaCond", "NoCartaoCondutor"};

/// Small letters, those of Latin with accents as well; as many bytes as before.
std::string Folded(std::string text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    const auto before = i > 0 ? static_cast<unsigned char>(text[i - 1]) : 0;
    if (c >= 'A' && c <= 'Z') text[i] = static_cast<char>(c + 0x20);
    if (before == 0xC3 && c >= 0x80 && c <= 0x9E) text[i] = static_cast<char>(c + 0x20);
  }
  return text;
}

std::string AsJson(const std::string& text) {
  const std::string quoted =
      nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  return quoted.substr(1, quoted.size() - 2);
}

}  // namespace

void PersonalTexts::Learn(const tsql::Table& drivers, const Image& record) {
  for (std::size_t i = 0; i < record.size(); ++i) {
    if (!record[i] || record[i]->IsNull()) continue;
    for (const char* column : kColumns) {
      if (!platform::EqualsIgnoringCase(drivers.columns[i].name, column)) continue;
      const std::string text = platform::Trim(record[i]->ToText());
      if (platform::Length(text) < kShortest) continue;
      for (const std::string& spelled : {text, AsJson(text)}) {
        texts_.insert(spelled);
        if (column == kName) names_.insert(spelled);
      }
    }
  }
}

std::string PersonalTexts::Cleared(const std::string& text) const {
  std::string cleared = text;
  // The longest first: one may stand in another.
  std::vector<std::string> texts(texts_.begin(), texts_.end());
  std::sort(texts.begin(), texts.end(), [](const auto& a, const auto& b) { return a.size() > b.size(); });
  for (const std::string& each : texts) {
    const std::string with = names_.contains(each) ? code_ : kGone;
    const std::string wanted = Folded(each);
    for (std::size_t at = 0; (at = Folded(cleared).find(wanted, at)) != std::string::npos; at += with.size())
      cleared.replace(at, wanted.size(), with);
  }
  return cleared;
}

}  // namespace history
