#include "console/console_host.h"

#include <cstdlib>
#include <filesystem>
#include <ostream>

namespace console {

using platform::RuntimeError;

ConsoleHost::~ConsoleHost() {
  std::error_code failure;
  if (!folder_.empty()) std::filesystem::remove_all(folder_, failure);
}

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

std::string ConsoleHost::TemporaryFolder() {
  if (folder_.empty()) {
    std::string name = std::filesystem::temp_directory_path() / "parvel-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
      throw RuntimeError(platform::kPathAccess, name,
                         "Não foi possível criar uma pasta só sua para o documento, e nada foi escrito.");
    folder_ = name + "/";
  }
  return folder_;
}

platform::Date ConsoleHost::Now() { return platform::SystemTime(); }

}  // namespace console
