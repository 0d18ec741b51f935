#include "support/scripted_host.h"

#include <gtest/gtest.h>

namespace testing_support {
namespace {

template <typename T>
T Take(std::deque<T>& queue, T otherwise) {
  if (queue.empty()) return otherwise;
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}

ScriptedHost::Table Read(platform::ListDialog& dialog, long width) {
  ScriptedHost::Table table{dialog.Titulo, dialog.Sql, {}, {}, width};
  auto& rows = *dialog.Linhas();
  const std::size_t columns = rows.FieldList().size();
  for (std::size_t i = 0; i < columns; ++i)
    table.widths.push_back(dialog.Coluna(static_cast<int>(i) + 1).Width);
  for (std::size_t r = 0; r < static_cast<std::size_t>(rows.RecordCount()); ++r) {
    table.rows.emplace_back();
    for (std::size_t c = 0; c < columns; ++c) table.rows.back().push_back(rows.CellAt(r, c).ToText());
  }
  return table;
}

}  // namespace

ScriptedHost::ScriptedHost() : installation_(*this) {}

ScriptedHost::~ScriptedHost() {
  for (const Expected& box : expected_) ADD_FAILURE() << "a box never came: " << box.text;
  EXPECT_TRUE(users_.empty()) << users_.size() << " forms were never shown";
  EXPECT_TRUE(lookups_.empty()) << lookups_.size() << " lookups were never shown";
  EXPECT_TRUE(inputs_.empty() && files_.empty()) << "an input box or file dialog never came";
}

void ScriptedHost::ExpectBox(std::string text, int answer) { expected_.push_back({std::move(text), answer}); }

int ScriptedHost::MsgBox(const std::string& text, int style, const std::string& title) {
  boxes.push_back({text, style, title});
  if (expected_.empty()) {
    ADD_FAILURE() << "a box that nobody expected: " << text;
    return platform::kCancel;
  }
  const Expected box = expected_.front();
  expected_.pop_front();
  EXPECT_EQ(text, box.text);
  return box.answer;
}

std::string ScriptedHost::InputBox(const std::string& prompt, const std::string& title,
                                   const std::string& initial) {
  EXPECT_EQ(initial, "") << "no input box of the module begins with a text";
  dialogs.push_back({prompt, title});
  if (inputs_.empty()) ADD_FAILURE() << "an input box that nobody expected: " << prompt;
  return Take(inputs_, std::string());
}

std::optional<std::string> ScriptedHost::OpenFile(const platform::FileDialog& dialog) {
  dialogs.push_back({dialog.Filter, dialog.Title});
  if (files_.empty()) ADD_FAILURE() << "a file dialog that nobody expected: " << dialog.Filter;
  return Take(files_, std::optional<std::string>());
}

void ScriptedHost::ShowModal(platform::Form& form, platform::Form* owner) {
  owners.push_back(owner);
  if (users_.empty()) {
    ADD_FAILURE() << "a form that nobody expected: " << form.Name;
    return form.UserCloses();
  }
  const auto user = std::move(users_.front());
  users_.pop_front();
  user(form);
  if (!form.IsClosed()) form.UserCloses();
}

std::string ScriptedHost::ShowLookup(platform::ListaPesquisa& list) {
  lookups.push_back(Read(list, list.Largura));
  if (lookups_.empty()) ADD_FAILURE() << "a lookup that nobody expected: " << list.Titulo;
  return Take(lookups_, std::string());
}

void ScriptedHost::ShowReport(platform::MapaListagem& report) { reports.push_back(Read(report, 0)); }

void Type(platform::zor_input& field, const std::string& text) {
  ASSERT_TRUE(field.form().UserGoesTo(field)) << field.Name() << field.Index() << " refused the focus";
  ASSERT_TRUE(field.form().UserTypes(field, text)) << "too long: " << text;
}

void Enter(platform::zor_input& field, const std::string& text) {
  Type(field, text);
  field.form().UserKey(platform::kKeyTab);
}

void Press(platform::PushButton& button) { button.form().UserPresses(button); }

}  // namespace testing_support
