#include "exchange/assistant/import_session.h"

#include <algorithm>
#include <cctype>

#include "exchange/import.h"
#include "exchange/profile/profile_store.h"
#include "exchange/shape/profile_guess.h"
#include "exchange/shape/table_shape.h"

namespace exchange {
namespace {

constexpr std::size_t kFirstRows = 200;
constexpr char kUsualKind[] = "gastos";

}  // namespace

ImportSession::ImportSession(platform::Ref<zorCrmParvel::Store> bd, std::string file)
    : bd_(std::move(bd)), file_(std::move(file)), reader_(OpenTable(file_)) {
  const auto& all = reader_->Sheets();
  const auto shown = std::find_if(all.begin(), all.end(), [](const SheetInfo& info) { return !info.hidden; });
  OpenSheet(shown == all.end() ? 0 : static_cast<std::size_t>(shown - all.begin()));
}

std::string ImportSession::Facts() const {
  const TableFacts& facts = reader_->Facts();
  std::string text = facts.format;
  if (facts.separator) {
    const bool visible =
        std::isprint(static_cast<unsigned char>(*facts.separator)) != 0 && *facts.separator != ' ';
    text += ", separado por " +
            (visible ? "«" + std::string(1, *facts.separator) + "»" : std::string("tabulações"));
  }
  if (facts.encoding) text += ", " + NameOf(*facts.encoding);
  return text;
}

void ImportSession::OpenSheet(std::size_t sheet) {
  sheet_ = sheet;
  reader_->Open(sheet);
  first_.clear();
  for (TableRow row; first_.size() < kFirstRows && reader_->Next(row);) first_.push_back(row);
  const TableShape shape = FindShape(first_);
  header_ = shape.header;
  below_ = shape.before + shape.headerRows;
  width_ = header_.size();
  for (std::size_t i = below_; i < first_.size(); ++i) width_ = std::max(width_, first_[i].cells.size());
  known_ = ProfilesFor(bd_, header_);
  const ImportKind* guessed = GuessKind(header_);
  Choose(guessed != nullptr ? *guessed : *KindOf(kUsualKind));
  if (!known_.empty()) profile_ = known_.front();
}

void ImportSession::Choose(const ImportKind& kind) {
  profile_ = GuessProfile(kind, first_);
  if (sheet_ != 0) profile_.sheet = sheets()[sheet_].name;
}

std::string ImportSession::Heading(std::size_t column) const {
  const bool named = column < header_.size() && !header_[column].empty();
  return named ? header_[column] : "Coluna " + std::to_string(column + 1);
}

std::vector<std::string> ImportSession::Samples(std::size_t column, std::size_t count) const {
  std::vector<std::string> samples;
  for (std::size_t i = below_; i < first_.size() && samples.size() < count; ++i)
    samples.push_back(column < first_[i].cells.size() ? first_[i].cells[column].text : std::string());
  return samples;
}

bool ImportSession::IsHidden(std::size_t column) const {
  const std::vector<bool>& hidden = reader_->HiddenColumns();
  return column < hidden.size() && hidden[column];
}

bool ImportSession::Reads(const Piece& piece, std::size_t column) const {
  return piece.position >= 0 && PlaceOf(piece, header_) == static_cast<int>(column);
}

std::string ImportSession::TargetOf(std::size_t column) const {
  for (const ColumnMapping& mapping : profile_.columns)
    for (const Piece& piece : mapping.pieces)
      if (Reads(piece, column)) return mapping.target;
  return {};
}

void ImportSession::Drop(std::size_t column) {
  for (ColumnMapping& mapping : profile_.columns)
    std::erase_if(mapping.pieces, [&](const Piece& piece) { return Reads(piece, column); });
  std::erase_if(profile_.columns, [](const ColumnMapping& mapping) { return mapping.pieces.empty(); });
}

void ImportSession::Map(std::size_t column, const std::string& target) {
  Drop(column);
  if (target.empty()) return;
  const std::string heading = column < header_.size() ? header_[column] : std::string();
  profile_.At(target).pieces.push_back({.header = heading, .position = static_cast<int>(column)});
}

std::string ImportSession::ConstantOf(const std::string& target) const {
  const ColumnMapping* mapping = profile_.Find(target);
  if (mapping != nullptr)
    for (const Piece& piece : mapping->pieces)
      if (piece.position < 0 && !piece.section) return piece.constant;
  return {};
}

void ImportSession::SetConstant(const std::string& target, const std::string& text) {
  std::erase_if(profile_.At(target).pieces,
                [](const Piece& piece) { return piece.position < 0 && !piece.section; });
  if (!text.empty()) profile_.At(target).pieces.push_back({.header = {}, .constant = text});
  std::erase_if(profile_.columns, [](const ColumnMapping& mapping) { return mapping.pieces.empty(); });
}

std::vector<std::string> ImportSession::Missing() const {
  std::vector<std::string> missing;
  for (const ImportColumn& column : ColumnsOfKind(profile_.kind))
    if (column.required && profile_.Find(column.name) == nullptr) missing.emplace_back(column.name);
  return missing;
}

std::unique_ptr<ImportPlan> ImportSession::Plan(const Progress& progress) {
  auto plan = std::make_unique<ImportPlan>(bd_, profile_);
  plan->Load(*reader_, progress);
  return plan;
}

}  // namespace exchange
