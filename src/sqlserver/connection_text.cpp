#include "sqlserver/connection_text.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sqlserver/secret.h"

namespace sqlserver {
namespace {

using platform::EqualsIgnoringCase;

[[noreturn]] void Fail(const std::string& description) {
  throw platform::RuntimeError(platform::kEngineFailure, "Ligação", description);
}

/// Takes "{…}" off the front, doubled closing braces made single.
std::string TakeBraced(std::string_view& rest) {
  std::string value;
  rest.remove_prefix(1);
  while (true) {
    const auto close = rest.find('}');
    if (close == std::string_view::npos) Fail("Na ligação falta fechar uma chaveta: «}».");
    value += rest.substr(0, close);
    rest.remove_prefix(close + 1);
    if (!rest.starts_with('}')) return value;
    value += '}';
    rest.remove_prefix(1);
  }
}

std::string TakeValue(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  if (rest.starts_with('{')) return TakeBraced(rest);
  const auto end = std::min(rest.find(';'), rest.size());
  std::string value = platform::Trim(rest.substr(0, end));
  rest.remove_prefix(end);
  return value;
}

bool IsPlain(std::string_view value) {
  return value.find(';') == std::string_view::npos && !value.starts_with('{') &&
         platform::Trim(value) == value;
}

/// In braces only where nothing else will do: not every driver makes a doubled brace single again.
std::string Written(std::string_view value) {
  if (IsPlain(value)) return std::string(value);
  std::string braced = "{";
  for (const char c : value) braced += c == '}' ? std::string("}}") : std::string(1, c);
  return braced + "}";
}

bool IsPassword(std::string_view key) {
  return EqualsIgnoringCase(key, "PWD") || EqualsIgnoringCase(key, "Password");
}

}  // namespace

ConnectionText::ConnectionText(std::string_view text) {
  if (platform::Trim(text).empty()) Fail("A ligação ao servidor está vazia.");
  if (text.find('=') == std::string_view::npos) {
    pairs_.emplace_back("DSN", platform::Trim(text));
    return;
  }
  for (std::string_view rest = text; !rest.empty();) {
    const auto separator = rest.find_first_of("=;");
    const std::string key = platform::Trim(rest.substr(0, separator));
    rest.remove_prefix(std::min(separator, rest.size()));
    if (rest.starts_with('=')) {
      rest.remove_prefix(1);
      if (IsPassword(key))
        Fail(
            "A senha não vai na ligação, onde outros a podem ver. Tire-a de lá e dê-a na variável "
            "PARVEL_SENHA, num ficheiro só seu (--senha-ficheiro) ou quando for pedida.");
      std::string value = TakeValue(rest);
      pairs_.emplace_back(EqualsIgnoringCase(key, "User") ? "UID" : key, std::move(value));
    } else if (!key.empty()) {
      Fail("Na ligação não se entende «" + key + "»: cada parte é NOME=VALOR.");
    }
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    if (rest.starts_with(';')) {
      rest.remove_prefix(1);
    } else if (!rest.empty()) {
      Fail("Na ligação falta um ponto e vírgula depois de «" + key + "».");
    }
  }
}

std::string ConnectionText::Get(std::string_view key) const {
  for (const auto& [name, value] : pairs_)
    if (EqualsIgnoringCase(name, key)) return value;
  return {};
}

void ConnectionText::Set(std::string_view key, std::string value) {
  const auto found = std::find_if(pairs_.begin(), pairs_.end(),
                                  [key](const auto& pair) { return EqualsIgnoringCase(pair.first, key); });
  if (value.empty()) {
    if (found != pairs_.end()) pairs_.erase(found);
  } else if (found != pairs_.end()) {
    found->second = std::move(value);
  } else {
    pairs_.emplace_back(key, std::move(value));
  }
}

std::string ConnectionText::Place() const {
  std::string server;
  for (const char* key : {"Server", "Servername", "Address", "DSN", "Driver"})
    if (server.empty()) server = Get(key);
  const std::string database = Get("Database");
  return database.empty() ? server : database + " em " + server;
}

std::string ConnectionText::ToText() const {
  std::string text;
  for (const auto& [name, value] : pairs_) text += name + "=" + Written(value) + ";";
  return text;
}

bool ConnectionText::DoublesBraces(std::string_view password) {
  return !IsPlain(password) && password.find('}') != std::string_view::npos;
}

std::string ConnectionText::WithPassword(std::string_view password) const {
  std::string text = ToText();
  if (password.empty()) return text;
  std::string written = Written(password);
  text.reserve(text.size() + written.size() + std::string_view("PWD=;").size());  // leaves no copy behind
  text.append("PWD=").append(written).append(";");
  Wipe(written);
  return text;
}

}  // namespace sqlserver
