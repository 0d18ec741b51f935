#include "exchange/plan/table_loader.h"

#include <algorithm>
#include <stdexcept>

#include "exchange/import.h"
#include "exchange/plan/source_row.h"
#include "exchange/shape/profile_guess.h"
#include "exchange/shape/table_shape.h"
#include "exchange/values/fold.h"

namespace exchange {
namespace {

constexpr std::size_t kSample = 60;  // rows in which the header is looked for

void OpenSheet(TableReader& reader, const std::string& name) {
  const auto& sheets = reader.Sheets();
  std::size_t place = 0;
  if (!name.empty() && sheets.size() > 1) {
    const auto found = std::find_if(sheets.begin(), sheets.end(), [&](const SheetInfo& sheet) {
      return Folded(sheet.name) == Folded(name);
    });
    if (found == sheets.end()) throw std::runtime_error("O ficheiro não tem a folha «" + name + "».");
    place = static_cast<std::size_t>(found - sheets.begin());
  }
  reader.Open(place);
}

class Loader {
 public:
  Loader(TableReader& reader, const Profile& profile) : reader_(reader), profile_(profile) {}

  LoadedTable Load(const Progress& progress) {
    std::vector<TableRow> sample;
    TableRow row;
    while (sample.size() < kSample && reader_.Next(row)) sample.push_back(row);
    const std::size_t begin = FindHeader(sample);
    FindPlaces();
    for (std::size_t i = begin; i < sample.size(); ++i) Take(sample[i]);
    if (sample.size() == kSample)
      while (reader_.Next(row)) {
        Take(row);
        if (progress)
          Step(progress, table_.rows.size(),
               static_cast<std::size_t>(static_cast<double>(table_.rows.size()) /
                                        std::max(reader_.Progress(), 1e-6)));
      }
    return std::move(table_);
  }

 private:
  /// Where the rows below the header begin.
  std::size_t FindHeader(const std::vector<TableRow>& sample) {
    std::size_t before = 0;
    auto rows = static_cast<std::size_t>(std::max(profile_.headerRows, 0));
    if (rows == 0) {
      before = static_cast<std::size_t>(std::max(profile_.headerRow, 0));
    } else if (!FindKnown(sample, rows, before)) {
      const TableShape shape = FindShape(sample);
      before = shape.before;
      rows = shape.headerRows;
    }
    const std::size_t begin = std::min(before + rows, sample.size());
    if (rows > 0) table_.header = HeaderTexts(sample, before, rows);
    table_.above.assign(sample.begin(), sample.begin() + static_cast<std::ptrdiff_t>(begin));
    width_ = table_.header.size();
    for (const TableRow& row : sample) width_ = std::max(width_, row.cells.size());
    return begin;
  }

  bool FindKnown(const std::vector<TableRow>& sample, std::size_t rows, std::size_t& before) const {
    for (before = 0; before + rows <= sample.size(); ++before)
      if (Recognises(profile_, HeaderTexts(sample, before, rows))) return true;
    return false;
  }

  void FindPlaces() {
    // Of a record nothing but the name may be known; an event has always more than one cell.
    hasSections_ = std::string_view(KindOf(profile_.kind)->owner) != "Codigo";
    for (const ImportColumn& column : ColumnsOfKind(profile_.kind)) {
      const ColumnMapping* mapping = profile_.Find(column.name);
      if (mapping == nullptr) continue;
      for (const Piece& piece : mapping->pieces) {
        hasSections_ = hasSections_ || piece.section;
        const int place = PlaceOf(piece, table_.header);
        if (place < 0) continue;
        if (mapping->asAbove) asAbove_.push_back({static_cast<std::size_t>(place), {}});
        if (column.kind == ColumnKind::kDate && &piece == &mapping->pieces.front())
          dates_.push_back(static_cast<std::size_t>(place));
        if (column.kind == ColumnKind::kNumber || column.kind == ColumnKind::kInteger)
          numbers_.push_back(static_cast<std::size_t>(place));
      }
    }
    for (const AsideRule& rule : profile_.aside)
      rules_.emplace_back(PlaceOf(rule.column, table_.header), &rule);
    if (profile_.recordType) recordType_ = PlaceOf(*profile_.recordType, table_.header);
  }

  void Take(TableRow& row) {
    PlanRow taken;
    taken.line = static_cast<std::int32_t>(row.line);
    taken.hidden = row.hidden;
    RowClass what = ClassOf(row, table_.header, width_);
    if (what == RowClass::kSection && !hasSections_) what = RowClass::kData;
    if (what == RowClass::kSection) {
      const auto text = std::find_if(row.cells.begin(), row.cells.end(),
                                     [](const TableCell& cell) { return !Stripped(cell.text).empty(); });
      table_.sections.push_back(Stripped(text->text));
    }
    if (what != RowClass::kData) {
      taken.counts = false;
      taken.total = what == RowClass::kTotal;
      SetAside(taken, what == RowClass::kTotal     ? "Linha de soma ou rodapé."
                      : what == RowClass::kSection ? "Título de secção."
                                                   : "O cabeçalho outra vez.");
    } else {
      for (auto& [place, above] : asAbove_) FillFromAbove(row, place, above);
      if (const std::string why = WhyAside(row); !why.empty())
        SetAside(taken, why);
      else
        Look(row);
    }
    taken.section = static_cast<std::uint32_t>(table_.sections.size() - 1);
    PackCells(row.cells, packed_);
    taken.cells = table_.cells.Add(packed_);
    table_.rows.push_back(taken);
  }

  void SetAside(PlanRow& row, std::string why) {
    row.state = RowState::kAside;
    table_.SetWhy(table_.rows.size(), {.column = {}, .reason = std::move(why)});
  }

  static void FillFromAbove(TableRow& row, std::size_t place, TableCell& above) {
    if (place >= row.cells.size()) row.cells.resize(place + 1);
    if (Stripped(row.cells[place].text).empty())
      row.cells[place] = above;
    else
      above = row.cells[place];
  }

  static std::string FoldedAt(const TableRow& row, int place) {
    const auto at = static_cast<std::size_t>(place);
    return place >= 0 && at < row.cells.size() ? Folded(row.cells[at].text) : "";
  }

  std::string WhyAside(const TableRow& row) const {
    if (recordType_) {
      const std::string type = FoldedAt(row, *recordType_);
      const bool wanted = std::any_of(profile_.recordTypes.begin(), profile_.recordTypes.end(),
                                      [&](const std::string& one) { return Folded(one) == type; });
      if (!wanted) return "Registo de outro tipo.";
    }
    for (const auto& [place, rule] : rules_)
      if (Holds(*rule, FoldedAt(row, place))) return "Regra do perfil.";
    return {};
  }

  static bool Holds(const AsideRule& rule, const std::string& cell) {
    const std::string value = Folded(rule.value);
    switch (rule.test) {
      case AsideRule::Test::kEquals:
        return cell == value;
      case AsideRule::Test::kDiffers:
        return cell != value;
      case AsideRule::Test::kContains:
        return cell.find(value) != std::string::npos;
      case AsideRule::Test::kBegins:
        return cell.starts_with(value);
      case AsideRule::Test::kEmpty:
        return cell.empty();
    }
    return false;
  }

  void Look(const TableRow& row) {
    if (!profile_.dateOrder)
      for (const std::size_t place : dates_)
        if (place < row.cells.size() && row.cells[place].kind == CellKind::kText)
          table_.orders.Look(row.cells[place].text);
    if (profile_.decimal.empty())
      for (const std::size_t place : numbers_)
        if (place < row.cells.size() && row.cells[place].kind == CellKind::kText)
          table_.marks.Look(row.cells[place].text);
  }

  TableReader& reader_;
  const Profile& profile_;
  LoadedTable table_;
  std::size_t width_ = 0;
  bool hasSections_ = true;
  std::vector<std::pair<std::size_t, TableCell>> asAbove_;
  std::vector<std::size_t> dates_;
  std::vector<std::size_t> numbers_;
  std::vector<std::pair<int, const AsideRule*>> rules_;
  std::optional<int> recordType_;
  std::string packed_;
};

}  // namespace

LoadedTable LoadTable(TableReader& reader, const Profile& profile, const Progress& progress) {
  OpenSheet(reader, profile.sheet);
  return Loader(reader, profile).Load(progress);
}

}  // namespace exchange
