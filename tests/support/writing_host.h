#pragma once

#include <optional>
#include <string>

#include "support/scripted_host.h"
#include "support/temporary_folder.h"

namespace testing_support {

/// A text without the line ends in it, for a text of lines.
std::string OneLine(std::string text);

/// A host that goes on whatever is asked, and writes down what was: boxes, lookups, reports, dialogs, forms.
class WritingHost : public ScriptedHost {
 public:
  WritingHost();

  std::string log;             // a line each, indented
  int answer = platform::kOk;  // of every box
  bool asked = false;          // since it was set to false, by a box with a choice

  int MsgBox(const std::string& text, int style, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title, const std::string&) override;
  std::optional<std::string> OpenFile(const platform::FileDialog& dialog) override;
  void ShowModal(platform::Form& form, platform::Form* owner) override;
  std::string ShowLookup(platform::ListaPesquisa& list) override;
  void ShowReport(platform::MapaListagem& report) override;
  void OpenDocument(const std::string& path) override;

 private:
  void Write(platform::ListDialog& dialog, const std::string& kind);
  const testing_support::TemporaryFolder folder_;
  const std::string file_;  // what a file dialog answers: one that is there
};

}  // namespace testing_support
