#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/host.h"

namespace testing_support {

/// A host whose clock, answers and user a test sets. A box that nobody expected fails the test, and so does
/// an expected box, lookup or form that never came.
class ScriptedHost : public platform::Host {
 public:
  ScriptedHost();
  ~ScriptedHost() override;

  platform::Date clock = platform::Date::FromParts(2024, 3, 15, 10, 30, 0);
  std::string temporaryFolder;

  /// The next message box must have this text; it is answered so.
  void ExpectBox(std::string text, int answer = platform::kOk);
  /// The next input box gets this answer, empty for Cancel.
  void AnswerInput(std::string answer) { inputs_.push_back(std::move(answer)); }
  void AnswerFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
  /// The user of the next form that is shown; the form is closed afterwards if the script left it open.
  void NextForm(std::function<void(platform::Form&)> user) { users_.push_back(std::move(user)); }
  /// The next lookup chooses this key; an empty one gives up.
  void NextLookup(std::string key) { lookups_.push_back(std::move(key)); }

  struct Box {
    std::string text;
    int style;
    std::string title;
  };
  struct Table {
    std::string title;
    std::string sql;
    std::vector<std::vector<std::string>> rows;
    std::vector<float> widths;
    long width;
  };
  struct Dialog {
    std::string text;  // the prompt of an input box, the filter of a file dialog
    std::string title;
  };
  std::vector<Dialog> dialogs;  // shown so far
  std::vector<Box> boxes;       // shown so far
  std::vector<Table> lookups;   // shown so far
  std::vector<Table> reports;   // shown so far
  std::vector<std::string> opened;
  std::vector<platform::Form*> owners;  // of the forms shown so far

  int MsgBox(const std::string& text, int style, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  std::optional<std::string> OpenFile(const platform::FileDialog& dialog) override;
  void ShowModal(platform::Form& form, platform::Form* owner) override;
  std::string ShowLookup(platform::ListaPesquisa& list) override;
  void ShowReport(platform::MapaListagem& report) override;
  void OpenDocument(const std::string& path) override { opened.push_back(path); }
  std::string TemporaryFolder() override { return temporaryFolder; }
  platform::Date Now() override { return clock; }

 private:
  struct Expected {
    std::string text;
    int answer;
  };
  std::deque<Expected> expected_;
  std::deque<std::string> inputs_;
  std::deque<std::optional<std::string>> files_;
  std::deque<std::function<void(platform::Form&)>> users_;
  std::deque<std::string> lookups_;
  platform::HostInstallation installation_;
};

/// The user types a text into a field that has, or gets, the focus.
void Type(platform::zor_input& field, const std::string& text);
/// The same, and leaves it by the Tab key.
void Enter(platform::zor_input& field, const std::string& text);
void Press(platform::PushButton& button);

}  // namespace testing_support
