#include "history/drivers/driver_export.h"

#include <filesystem>
#include <nlohmann/json.hpp>

#include "history/drivers/driver_tables.h"
#include "history/json.h"
#include "history/view/browser.h"
#include "history/view/life.h"
#include "platform/files.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

namespace fs = std::filesystem;
using nlohmann::ordered_json;
using platform::RuntimeError;

/// A name that every system takes, below the folder.
std::string SafeName(const std::string& name) {
  std::string safe;
  for (const char c : platform::FileNameOf(name))
    safe += static_cast<unsigned char>(c) < 0x20 ||
                    std::string_view("<>:\"|?*/\\").find(c) != std::string_view::npos
                ? '_'
                : c;
  return safe.empty() || safe == "." || safe == ".." ? "ficheiro" : safe;
}

const char* EndingOf(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xD8")) return ".jpg";
  if (bytes.starts_with("\x89PNG")) return ".png";
  if (bytes.starts_with("BM")) return ".bmp";
  return bytes.starts_with("GIF8") ? ".gif" : ".bin";
}

std::string Escaped(const std::string& text) {
  std::string html;
  for (const char c : text)
    html += c == '<'    ? "&lt;"
            : c == '>'  ? "&gt;"
            : c == '&'  ? "&amp;"
            : c == '\n' ? "<br>"
                        : std::string(1, c);
  return html;
}

std::string TextOf(const tsql::Table& table, const Image& image, std::string_view column) {
  for (std::size_t i = 0; i < image.size(); ++i)
    if (platform::EqualsIgnoringCase(table.columns[i].name, column) && image[i] && !image[i]->IsNull())
      return image[i]->ToText();
  return {};
}

class Export {
 public:
  Export(KeepingStore& store, std::string code, std::string folder)
      : store_(store), code_(std::move(code)), folder_(std::move(folder)) {}

  long Run() {
    const std::vector<Image> record = ReadDriverRows(store_, DriverTables().front(), code_);
    if (record.empty())
      throw RuntimeError(platform::kInvalidCall, "Motoristas",
                         "Não há motorista com o código «" + code_ + "».");
    MakeFolder();
    for (const DriverTable& each : DriverTables()) Add(each);
    AddHistory();
    const std::string title = TextOf(store_.catalog().Get("zor_Funcionarios"), record.front(), "Nome");
    Write("motorista.json", json_.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n");
    Write("motorista.html",
          "<!DOCTYPE html>\n<html lang=\"pt\"><meta charset=\"utf-8\"><title>" +
              Escaped(code_ + " " + title) +
              "</title>\n<style>body{font-family:sans-serif;margin:2em}table{border-collapse:collapse}"
              "td,th{border:1px solid #bbb;padding:.2em "
              ".5em;text-align:left;vertical-align:top}</style>\n<h1>" +
              Escaped(code_ + " " + title) + "</h1>\n" + page_ + "</html>\n");
    return files_;
  }

 private:
  void MakeFolder() {
    std::error_code error;
    if (fs::exists(folder_, error) && !(fs::is_directory(folder_, error) && fs::is_empty(folder_, error)))
      throw RuntimeError(platform::kInvalidCall, "Motoristas",
                         "A pasta " + folder_ + " já tem ficheiros. Escolha uma pasta nova ou vazia.");
    fs::create_directories(folder_, error);
    fs::permissions(folder_, fs::perms::owner_all, error);
    if (error)
      throw RuntimeError(platform::kPathAccess, "Motoristas",
                         "Não foi possível criar a pasta " + folder_ + ".");
  }

  /// The name under which it stands, beside others of the same name.
  std::string Write(const std::string& name, std::string_view data) {
    std::string free = name;
    for (int copy = 2; fs::exists(fs::path(folder_) / free); ++copy) free = std::to_string(copy) + " " + name;
    platform::WritePrivateFile((fs::path(folder_) / free).string(), data);
    ++files_;
    return free;
  }

  void Add(const DriverTable& from) {
    const tsql::Table& table = store_.catalog().Get(from.table);
    const std::vector<Image> rows = ReadDriverRows(store_, from, code_);
    ordered_json list = ordered_json::array();
    for (const Image& row : rows) {
      ordered_json object = ordered_json::parse(ToJson(table, row));
      const std::string file = FileOf(table, row);
      if (!file.empty()) object["Ficheiro"] = file;
      for (std::size_t i = 0; i < row.size(); ++i)
        if (HoldsBytes(table.columns[i])) object.erase(table.columns[i].name);
      list.push_back(std::move(object));
    }
    if (!rows.empty()) AddToPage(from.title, list);
    json_[from.word] = std::move(list);
  }

  /// Writes what a row holds or points to; the file's name.
  std::string FileOf(const tsql::Table& table, const Image& row) {
    const std::string path = TextOf(table, row, "Fx");
    if (!path.empty())
      return platform::FileExists(path) ? Write(SafeName(path), Chars(platform::ReadFile(path)))
                                        : std::string();
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (!HoldsBytes(table.columns[i]) || !row[i] || row[i]->IsNull()) continue;
      const platform::Bytes bytes = row[i]->ToBytes();
      const std::string name = TextOf(table, row, "zor_ArquivoDigital_NomeFicheiro");
      return Write(name.empty() ? std::string("fotografia") + EndingOf(Chars(bytes)) : SafeName(name),
                   Chars(bytes));
    }
    return {};
  }

  static std::string Chars(const platform::Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

  void AddHistory() {
    ordered_json list = ordered_json::array();
    for (const DriverTable& from : DriverTables()) {
      if (!from.own) continue;
      const tsql::Table& table = store_.catalog().Get(from.table);
      for (const Image& row : ReadDriverRows(store_, from, code_))
        for (const Change& change : ReadLife(store_, table, KeyText(table, row)))
          list.push_back({{"Quando", ShownMoment(change.operation.moment)},
                          {"Quem", change.operation.operador},
                          {"O que se fez", ShownWords(change.operation)},
                          {"O que mudou", change.words}});
    }
    if (!list.empty()) AddToPage("Histórico", list);
    json_["historico"] = std::move(list);
  }

  static std::string Cell(const ordered_json& value) {
    if (value.is_null()) return {};
    return Escaped(value.is_string() ? value.get<std::string>() : value.dump());
  }

  /// One row is told from top to bottom, several side by side.
  void AddToPage(const std::string& title, const ordered_json& list) {
    page_ += "<h2>" + Escaped(title) + "</h2>\n<table>\n";
    if (list.size() == 1) {
      for (const auto& [name, value] : list.front().items())
        if (!value.is_null()) page_ += "<tr><th>" + Escaped(name) + "<td>" + Cell(value) + "\n";
    } else {
      ordered_json all;  // a row may lack the file
      for (const ordered_json& row : list) all.update(row);
      page_ += "<tr>";
      for (const auto& [name, value] : all.items()) page_ += "<th>" + Escaped(name);
      for (const ordered_json& row : list) {
        page_ += "\n<tr>";
        for (const auto& [name, value] : all.items())
          page_ += "<td>" + (row.contains(name) ? Cell(row[name]) : std::string());
      }
    }
    page_ += "\n</table>\n";
  }

  KeepingStore& store_;
  std::string code_;
  std::string folder_;
  ordered_json json_;
  std::string page_;
  long files_ = 0;
};

}  // namespace

long ExportDriver(KeepingStore& store, const std::string& code, const std::string& folder) {
  return Export(store, code, folder).Run();
}

}  // namespace history
