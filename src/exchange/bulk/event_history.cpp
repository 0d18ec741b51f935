#include "exchange/bulk/event_history.h"

#include <algorithm>

#include "platform/format.h"

namespace exchange {

using platform::Currency;
using platform::Date;
using zorCrmParvel::fixed;
using zorCrmParvel::value;

namespace {

constexpr std::size_t kPlatesAtOnce = 50;
constexpr int kDaysBefore = 120;  // in which a vehicle in use was filled
constexpr char kEnd = '\x1F';

/// As a statement has it; the databases hold no day before 1753.
std::string Moment(Date date) {
  return platform::FormatDate(std::max(date, Date::FromParts(1753, 1, 1)), "yyyy.mm.dd hh:mm:ss");
}

}  // namespace

EventHistory::EventHistory(zorCrmParvel::DataAccessRef bd, const char* table, const char* date,
                           std::vector<const char*> same,
                           std::function<void(const std::string&, platform::Recordset&)> seen)
    : bd_(std::move(bd)), table_(table), date_(date), same_(std::move(same)), seen_(std::move(seen)) {}

void EventHistory::Expect(const std::vector<std::string>& plates, Date oldest, Date newest) {
  expected_ = plates;
  oldest_ = oldest;
  newest_ = newest;
}

std::string EventHistory::KeyOf(std::string_view plate) {
  while (!plate.empty() && plate.back() == ' ') plate.remove_suffix(1);
  std::string key(plate);
  for (char& c : key)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return key;
}

void EventHistory::Join(std::string& values, const std::string& text) {
  values += KeyOf(text);
  values += kEnd;
}

void EventHistory::Join(std::string& values, Currency number) {
  values += std::to_string(number.tenThousandths());
  values += kEnd;
}

std::uint64_t EventHistory::Hash(const std::string& key, Date moment, const std::string& values) const {
  return std::hash<std::string>{}(key + kEnd + std::to_string(moment.seconds()) + kEnd + values);
}

void EventHistory::Know(const std::string& plate) {
  if (known_.contains(KeyOf(plate))) return;
  std::vector<std::string> together = {plate};
  known_.insert(KeyOf(plate));
  for (; next_ < expected_.size() && together.size() < kPlatesAtOnce; ++next_) {
    // A plate that no statement carries is the row's fault, and told there.
    const std::string& more = expected_[next_];
    if (!more.empty() && more.find('\'') == std::string::npos && known_.insert(KeyOf(more)).second)
      together.push_back(more);
  }
  Read(together);
}

void EventHistory::Read(const std::vector<std::string>& plates) {
  zorCrmParvel::Statement statement{"SELECT * FROM ", fixed(table_), " WHERE Matricula IN ("};
  for (std::size_t i = 0; i < plates.size(); ++i)
    statement << (i == 0 ? "N'" : ",N'") << value(plates[i]) << "'";
  statement << ")";
  if (!oldest_.IsZero()) {
    statement << " and " << fixed(date_) << ">='" << value(Moment(oldest_.AddDays(-kDaysBefore))) << "' and "
              << fixed(date_) << "<='" << value(Moment(newest_)) << "'";
  }
  zorCrmParvel::RecordsetRef rows;
  bd_->AbrirLeitura("", statement, rows);
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string plate = KeyOf(rows->Fields("Matricula").Value().ToText());
    const platform::Variant date = rows->Fields(date_).Value();
    if (date.IsNull()) continue;
    std::string values;
    for (const char* column : same_) {
      const auto field = rows->Fields(column);
      const platform::Variant held = field.Value();
      if (field.info().type == platform::FieldType::kCurrency)
        Join(values, held.IsNull() ? Currency() : held.ToCurrency());
      else
        Join(values, held.IsNull() ? std::string() : held.ToText());
    }
    ++left_[Hash(plate, date.ToDate(), values)];
    if (seen_) seen_(plate, *rows);
  }
  rows->Close();
}

bool EventHistory::Stand(const std::string& plate, Date moment, const std::string& values) {
  Know(plate);
  const auto left = left_.find(Hash(KeyOf(plate), moment, values));
  if (left == left_.end() || left->second == 0) return false;
  --left->second;
  return true;
}

}  // namespace exchange
