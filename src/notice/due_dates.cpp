#include "notice/due_dates.h"

#include <algorithm>
#include <map>

#include "host/sistema.h"
#include "platform/format.h"
#include "platform/host.h"

namespace notice {
namespace {

using platform::SGGrid;
using platform::Variant;

constexpr std::int32_t kKilometresAhead = 1000;  // as the alert list counts them

/// Holds a grid that nobody draws.
class UnseenForm : public platform::Form {
 public:
  SGGrid Grelha{*this, "Grelha"};
};

std::string Cells(const SGGrid& grid, long row, const std::vector<const char*>& columns,
                  const char* between) {
  std::string text;
  for (const char* column : columns) text += between + grid.CellText(row, grid.ColumnIndex(column));
  return text;
}

/// The dates of one list by their identifiers, in the order of its rows.
class Gathering {
 public:
  Gathering(const AlertFamily& family, const SGGrid& grid, const due::Handlings& handlings)
      : family_(family), grid_(grid), handlings_(handlings) {}

  void Add(long row, const Term& term, std::int32_t days) {
    const platform::Date day = platform::Today().AddDays(days);
    DueDate& due = Entry(row, term, platform::FormatDate(day, "yyyymmdd"));
    due.days = days;
    due.day = day;
  }

  void AddByKilometres(long row, const Term& term, std::int32_t kilometres) {
    Entry(row, term, "km").kilometres = kilometres;
  }

  std::vector<DueDate> Take() { return std::move(all_); }

 private:
  DueDate& Entry(long row, const Term& term, const std::string& when) {
    const std::string thing =
        std::string(family_.list) + "-" + term.column + Cells(grid_, row, family_.identity, "-");
    const std::string uid = thing + "-" + when + "@parvel";
    const auto [place, isNew] = places_.emplace(uid, all_.size());
    if (isNew) {
      all_.emplace_back();
      all_.back().uid = uid;
      all_.back().thing = thing;
      all_.back().family = &family_;
      all_.back().summary = std::string(term.name) + ":" + Cells(grid_, row, family_.summary, " ");
      all_.back().plate = Text(row, family_.plate);
      all_.back().driver = Text(row, family_.driver);
      all_.back().handled = true;
    }
    DueDate& due = all_[place->second];
    due.handled = due.handled && IsHandled(row);
    const std::string notes = grid_.CellText(row, grid_.ColumnIndex("Notas"));
    if (!notes.empty() && due.notes.find(notes) == std::string::npos)
      due.notes += (due.notes.empty() ? "" : "\n") + notes;
    return due;
  }

  std::string Text(long row, const char* column) const {
    return column == nullptr ? "" : grid_.CellText(row, grid_.ColumnIndex(column));
  }

  bool IsHandled(long row) const {
    std::vector<std::string> texts;
    for (const char* column : due::AlertColumns(family_.list)) texts.push_back(Text(row, column));
    return handlings_.count(due::AlertOf(texts)) != 0;
  }

  const AlertFamily& family_;
  const SGGrid& grid_;
  const due::Handlings& handlings_;
  std::vector<DueDate> all_;
  std::map<std::string, std::size_t> places_;
};

bool MoreUrgent(const DueDate& left, const DueDate& right) {
  return left.days.value_or(0) < right.days.value_or(0);
}

}  // namespace

const std::vector<AlertFamily>& AlertFamilies() {
  static const std::vector<AlertFamily> families = {
      {"viaturas",
       "AlertasViat",
       {{"DiasSelo", "Selo"}, {"DiasTac", "Descarga do tacógrafo"}},
       {"Matricula"},
       {"Matricula", "Marca"},
       "Matricula"},
      {"apolices",
       "AlertasAp",
       {{"Dias", "Apólice"}},
       {"Matricula", "Apolice"},
       {"Apolice", "Matricula"},
       "Matricula"},
      {"revisoes",
       "AlertasRev",
       {{"Dias", "Revisão"}},
       {"Matricula"},
       {"Matricula", "Nome"},
       "Matricula",
       nullptr,
       "Km"},
      {"inspeccoes", "AlertasInsp", {{"Dias", "Inspecção"}}, {"Matricula"}, {"Matricula"}, "Matricula"},
      {"motoristas",
       "AlertasMot",
       {{"Dias", "Motorista"}},
       {"Codigo", "Documento"},
       {"Documento", "Motorista"},
       nullptr,
       "Codigo"},
      {"acessorios",
       "AlertasAcess",
       {{"Dias", "Acessório"}},
       {"Id"},
       {"Acessorio", "Marca", "Matricula"},
       "Matricula"}};
  return families;
}

std::vector<DueDate> DueDatesIn(const AlertFamily& family, const SGGrid& grid, std::int32_t within,
                                const due::Handlings& handlings) {
  Gathering gathering(family, grid, handlings);
  for (long row = 0; row < grid.RowCount(); ++row) {
    for (const Term& term : family.terms)
      if (const Variant days = grid.CellValue(row, grid.ColumnIndex(term.column));
          !days.IsNull() && days.ToLong() <= within)
        gathering.Add(row, term, days.ToLong());
    if (family.kilometres == nullptr) continue;
    if (const Variant left = grid.CellValue(row, grid.ColumnIndex(family.kilometres));
        !left.IsNull() && left.ToLong() <= kKilometresAhead)
      gathering.AddByKilometres(row, family.terms.front(), left.ToLong());
  }
  return gathering.Take();
}

std::vector<DueDate> DueDatesOf(const zorCrmParvel::DataAccessRef& bd, std::int32_t within) {
  zorCrmParvel::Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = bd;
  const zorCrmParvel::Snapshot snapshot(bd);
  std::vector<DueDate> all;
  for (const AlertFamily& family : AlertFamilies()) {
    const auto list = sistema.MostraListas(family.list);
    UnseenForm form;
    list->ICrmVwList_GridMaster(&form.Grelha);
    list->ICrmVwList_Iniciar();
    const due::Handlings handlings = due::HandlingsOf(bd, family.list, platform::Today());
    for (DueDate& due : DueDatesIn(family, form.Grelha, within, handlings)) all.push_back(std::move(due));
    list->ICrmVwList_Terminar();
  }
  std::stable_sort(all.begin(), all.end(), MoreUrgent);
  return all;
}

std::vector<exchange::CalendarEntry> CalendarOf(const std::vector<DueDate>& dates) {
  std::vector<exchange::CalendarEntry> entries;
  for (const DueDate& due : dates)
    if (due.days) entries.push_back({due.uid, due.day, due.summary, due.notes});
  std::sort(entries.begin(), entries.end(),
            [](const exchange::CalendarEntry& left, const exchange::CalendarEntry& right) {
              return left.uid < right.uid;
            });
  return entries;
}

}  // namespace notice
