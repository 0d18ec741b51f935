#include "store/late_photos.h"

#include <fstream>
#include <iterator>

#include "platform/files.h"
#include "platform/text.h"
#include "tsql/parser.h"

namespace store {
namespace {

using platform::FieldType;
using zorCrmParvel::RecordsetRef;

constexpr char kTable[] = "zor_Fotos";
constexpr char kPhoto[] = "zor_Fotos_Imagem";
/// What stands before the statement; no picture begins like this.
constexpr std::string_view kMark = "fotografia por ler:";

/// The columns of a statement that reads photos; none for any other.
std::vector<std::string> PhotoColumns(const std::string& statement) {
  if (statement.find(kPhoto) == std::string::npos) return {};
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  const auto* select = std::get_if<tsql::Select>(&node);
  if (select == nullptr || select->cores.size() != 1) return {};
  const tsql::SelectCore& core = select->cores.front();
  if (!core.from || !core.joins.empty() || !platform::EqualsIgnoringCase(core.from->name, kTable)) return {};
  std::vector<std::string> columns;
  for (const tsql::SelectItem& item : core.items) {
    const auto* column = item.expression ? std::get_if<tsql::ColumnRef>(&item.expression->node) : nullptr;
    if (column == nullptr) return {};
    columns.push_back(column->name);
  }
  return columns;
}

}  // namespace

RecordsetRef LatePhotos::OpenForReading(const std::string& statement) {
  const std::vector<std::string> columns = PhotoColumns(statement);
  if (columns.empty()) return ForwardingStore::OpenForReading(statement);
  const auto rows = platform::MakeRef<platform::MemoryRecordset>();
  for (const std::string& column : columns)
    rows->Append(column, column == kPhoto ? FieldType::kBytes : FieldType::kText, platform::kUnlimitedSize);
  rows->Open();
  rows->AddNew();
  const std::string mark = std::string(kMark) + statement;
  rows->Fields(kPhoto).SetValue(platform::Bytes(mark.begin(), mark.end()));
  rows->Update();
  return rows;
}

std::optional<std::string> LatePhotoIn(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::string mark(kMark.size(), '\0');
  if (!in.read(mark.data(), static_cast<std::streamsize>(mark.size())) || mark != kMark) return {};
  return std::string(std::istreambuf_iterator<char>(in), {});
}

bool BringPhoto(zorCrmParvel::Store& store, const std::string& statement, const std::string& file) {
  RecordsetRef rows;
  store.AbrirLeitura("", statement.c_str(), rows);
  if (rows->Eof()) return false;
  const platform::Variant photo = rows->Fields(kPhoto).Value();
  if (photo.IsNull()) return false;
  const platform::Bytes& bytes = photo.ToBytes();
  platform::WritePrivateFile(file, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  return true;
}

}  // namespace store
