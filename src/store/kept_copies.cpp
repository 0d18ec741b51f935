#include "store/kept_copies.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>

#include "embedded/database.h"
#include "store/paths.h"

namespace store {
namespace {

namespace fs = std::filesystem;
using platform::Date;

constexpr int kDays = 7;
constexpr int kWeeks = 4;
constexpr int kMonths = 12;
constexpr char kEnding[] = ".db";

/// Weeks and months counted from a beginning that is the same for all days.
std::int64_t WeekOf(Date day) { return (day.days() + 5) / 7; }  // the zero date was a Saturday
std::int64_t MonthOf(Date day) { return std::int64_t{day.year()} * 12 + day.month(); }

std::string DayText(Date day) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", day.year(), day.month(), day.day());
  return text.data();
}

/// Tells databases of one name in different folders apart, the same in every run.
std::string MarkOf(const std::string& path) {
  std::uint32_t mark = 2166136261U;
  for (const char c : path) mark = (mark ^ static_cast<unsigned char>(c)) * 16777619U;
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%08x", mark);
  return text.data();
}

std::string Counted(std::int64_t count, const char* one, const char* many) {
  return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

}  // namespace

std::set<Date> DaysThatStay(const std::vector<Date>& days, Date today) {
  std::map<std::int64_t, Date> last_of_week;
  std::map<std::int64_t, Date> last_of_month;
  std::set<Date> stay;
  for (const Date& day : days) {
    if (today.days() - day.days() < kDays) stay.insert(day);
    if (WeekOf(today) - WeekOf(day) < kWeeks)
      last_of_week[WeekOf(day)] = std::max(last_of_week[WeekOf(day)], day);
    if (MonthOf(today) - MonthOf(day) < kMonths)
      last_of_month[MonthOf(day)] = std::max(last_of_month[MonthOf(day)], day);
  }
  for (const auto* last : {&last_of_week, &last_of_month})
    for (const auto& [number, day] : *last) stay.insert(day);
  return stay;
}

KeptCopies::KeptCopies(std::string database, const std::string& chosen) : database_(std::move(database)) {
  const fs::path file = fs::absolute(database_);
  folder_ = chosen.empty()
                ? (file.parent_path() / "copias").string()
                : (fs::path(chosen) / (file.stem().string() + '-' + MarkOf(file.string()))).string();
}

std::string KeptCopies::FileOf(Date day) const {
  return (fs::path(folder_) / (fs::path(database_).stem().string() + '-' + DayText(day) + kEnding)).string();
}

std::vector<KeptCopy> KeptCopies::All() const {
  std::vector<KeptCopy> copies;
  std::error_code failure;
  const std::size_t length = DayText({}).size();
  for (const auto& entry : fs::directory_iterator(folder_, failure)) {
    const std::string stem = entry.path().stem().string();
    Date day;
    if (stem.size() > length && Date::TryParse(stem.substr(stem.size() - length), day) &&
        entry.path().string() == FileOf(day))
      copies.push_back({entry.path().string(), day});
  }
  std::sort(copies.begin(), copies.end(), [](const KeptCopy& a, const KeptCopy& b) { return a.day > b.day; });
  return copies;
}

bool KeptCopies::Keep(Date today) const {
  const Date day = today.DayOnly();
  const std::string file = FileOf(day);
  if (fs::exists(file)) return false;
  CreatePrivateFolders(folder_);
  embedded::Database::Open(database_)->CopyTo(file);
  std::vector<Date> days;
  const std::vector<KeptCopy> copies = All();
  days.reserve(copies.size());
  for (const KeptCopy& copy : copies) days.push_back(copy.day);
  const std::set<Date> stay = DaysThatStay(days, day);
  for (const KeptCopy& copy : copies)
    if (stay.count(copy.day) == 0) fs::remove(copy.file);
  return true;
}

std::string Holdings(const std::string& file) {
  const std::map<std::string, std::int64_t> rows = embedded::Database::Rows(file);
  const auto in = [&](const char* table) {
    const auto found = rows.find(table);
    return found == rows.end() ? 0 : found->second;
  };
  std::int64_t events = 0;
  for (const char* table : {"zor_PV_Gastos", "zor_PV_Seguros", "zor_PV_Revisoes", "zor_PV_Inspecoes",
                            "zor_PV_Multas", "zor_PV_Sinistros", "zor_PV_Acessorios"})
    events += in(table);
  return Counted(in("zor_PV_Viaturas"), "viatura", "viaturas") + ", " +
         Counted(in("zor_Funcionarios"), "motorista", "motoristas") + ", " +
         Counted(events, "evento", "eventos");
}

}  // namespace store
