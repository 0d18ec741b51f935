#include "console/console_host.h"

#include <ctime>
#include <filesystem>
#include <ostream>

namespace console {

using platform::RuntimeError;

int ConsoleHost::MsgBox(const std::string& text, int style, const std::string& title) {
  messages_ << (title.empty() ? "" : title + ": ") << text << '\n';
  switch (style & 7) {
    case platform::kOkOnly:
      return platform::kOk;
    case platform::kYesNo:
      return platform::kNo;
    default:
      return platform::kCancel;
  }
}

std::string ConsoleHost::InputBox(const std::string&, const std::string&, const std::string&) { return {}; }

std::optional<std::string> ConsoleHost::OpenFile(const platform::FileDialog&) { return std::nullopt; }

void ConsoleHost::ShowModal(platform::Form& form, platform::Form*) {
  throw RuntimeError(platform::kNoSuchMember, form.Name,
                     "Uma ficha não pode ser mostrada no terminal: " + form.Name);
}

std::string ConsoleHost::ShowLookup(platform::ListaPesquisa&) { return {}; }

void ConsoleHost::ShowReport(platform::MapaListagem& report) { messages_ << report.Titulo << '\n'; }

void ConsoleHost::OpenDocument(const std::string& path) { messages_ << path << '\n'; }

std::string ConsoleHost::TemporaryFolder() { return std::filesystem::temp_directory_path().string() + "/"; }

platform::Date ConsoleHost::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return platform::Date::FromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                                   local.tm_min, std::min(local.tm_sec, 59));
}

}  // namespace console
