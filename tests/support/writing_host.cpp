#include "support/writing_host.h"

#include <sstream>

#include "platform/files.h"
#include "support/recording_data_access.h"
#include "support/screen.h"

namespace testing_support {

using namespace platform;

namespace {

std::string Numbers(const std::vector<float>& numbers) {
  std::ostringstream text;
  for (const float number : numbers) text << ' ' << number;
  return text.str();
}

}  // namespace

std::string OneLine(std::string text) {
  for (char& c : text)
    if (c == '\n' || c == '\r') c = ' ';
  return text;
}

WritingHost::WritingHost() : file_(folder_.File("x.jpg")) {
  temporaryFolder = folder_.File("");
  WriteFile(file_, "imagem");
}

int WritingHost::MsgBox(const std::string& text, int style, const std::string& title) {
  log += "    caixa «" + OneLine(text) + "» " + std::to_string(style) + " " + title + "\n";
  asked = asked || style % 16 != 0;
  return answer;
}

std::string WritingHost::InputBox(const std::string& prompt, const std::string& title, const std::string&) {
  log += "    pergunta «" + prompt + "» " + title + "\n";
  return "resposta";
}

std::optional<std::string> WritingHost::OpenFile(const FileDialog& dialog) {
  log += "    ficheiro «" + dialog.Filter + "» " + dialog.Title + "\n";
  return file_;
}

void WritingHost::ShowModal(Form& form, Form* owner) {
  log += "    abre " + form.Name + " «" + form.Caption + "»" + (owner == nullptr ? "" : " da janela");
  if (form.ActiveControl() != nullptr) log += " → " + NameOf(*form.ActiveControl());
  for (const auto& [name, shown] : ScreenOf(form))
    if (!shown.empty()) log.append(" ").append(name).append("=").append(shown);
  log += "\n";
  form.UserCloses();
}

void WritingHost::Write(ListDialog& dialog, const std::string& kind) {
  std::vector<float> widths;
  std::string options;
  for (std::size_t i = 0; i < dialog.Linhas()->FieldList().size(); ++i) {
    const DialogColumn& column = dialog.Coluna(static_cast<int>(i) + 1);
    widths.push_back(column.Width);
    options += column.Option ? "o" : "";
  }
  log +=
      "    " + kind + " «" + dialog.Titulo + "»" + Numbers(widths) + " " + options + ": " + dialog.Sql + "\n";
  for (const auto& row : Rows(dialog.Linhas())) {
    log += "      ";
    for (const std::string& cell : row) log += "|" + cell;
    log += "\n";
  }
}

std::string WritingHost::ShowLookup(ListaPesquisa& list) {
  Write(list, "lista" + Numbers({static_cast<float>(list.Largura)}));
  const auto& rows = list.Linhas();
  return rows->RecordCount() == 0 ? "" : rows->CellAt(0, 0).ToText();
}

void WritingHost::ShowReport(MapaListagem& report) { Write(report, "mapa " + std::to_string(report.Opcao)); }

void WritingHost::OpenDocument(const std::string& path) { log += path.empty() ? "" : "    documento\n"; }

}  // namespace testing_support
