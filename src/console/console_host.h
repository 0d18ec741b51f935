#pragma once

#include <iosfwd>
#include <string>

#include "platform/host.h"

namespace console {

/// The terminal as a host: it shows texts and declines whatever is asked, for nobody sits before it.
class ConsoleHost : public platform::Host {
 public:
  explicit ConsoleHost(std::ostream& messages) : messages_(messages) {}
  /// Takes the temporary folder away.
  ~ConsoleHost() override;
  ConsoleHost(const ConsoleHost&) = delete;
  ConsoleHost& operator=(const ConsoleHost&) = delete;

  int MsgBox(const std::string& text, int style, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  std::optional<std::string> OpenFile(const platform::FileDialog& dialog) override;
  /// A form can't be shown: error 438.
  void ShowModal(platform::Form& form, platform::Form* owner) override;
  std::string ShowLookup(platform::ListaPesquisa& list) override;
  void ShowReport(platform::MapaListagem& report) override;
  void OpenDocument(const std::string& path) override;
  /// Nobody else can look into it. Error 75 when it can't be made.
  std::string TemporaryFolder() override;
  platform::Date Now() override;

 private:
  std::ostream& messages_;
  std::string folder_;
};

}  // namespace console
