#include "exchange/plan/new_codes.h"

#include <algorithm>
#include <map>

#include "exchange/values/fold.h"

namespace exchange {
namespace {

constexpr std::size_t kLongest = 10;
constexpr const char* kDrivers = "zor_Funcionarios";
constexpr const char* kVehicles = "zor_PV_Viaturas";

std::string Upper(std::string text) {
  for (char& c : text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

std::string DigitsOf(const std::string& text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
               [](char c) { return c >= '0' && c <= '9'; });
  return digits;
}

/// The words of a name, each with its share of the room.
std::string Shortened(const std::string& name) {
  const auto words = FoldedWords(name);
  std::string whole;
  for (const std::string& word : words) whole += word;
  if (whole.size() <= kLongest || words.size() < 2) return Upper(whole.substr(0, kLongest));
  std::string code;
  const std::size_t share = std::max<std::size_t>(2, kLongest / words.size());
  for (std::size_t i = 0; i < words.size() && code.size() < kLongest; ++i)
    code += words[i].substr(
        0, std::min(i == 0 ? std::max<std::size_t>(share, 4) : share, kLongest - code.size()));
  return Upper(code);
}

/// The number after the highest that a driver has, as wide.
std::string NextNumber(std::set<std::string>& taken) {
  long highest = 0;
  std::size_t width = 1;
  for (const std::string& code : taken) {
    if (code.empty() || code.size() > 9 || DigitsOf(code) != code) continue;
    highest = std::max(highest, std::stol(code));
    width = std::max(width, code.size());
  }
  std::string next = std::to_string(highest + 1);
  if (highest == 0) width = 4;
  if (next.size() < width) next.insert(0, width - next.size(), '0');
  taken.insert(next);
  return next;
}

bool NamesFuel(const std::string& name) {
  static constexpr const char* kWords[] = {"gasoleo",  "gasoil",  "diesel",       "gasolina", "petrol",
                                           "unleaded", "essence", "gpl",          "lpg",      "glp",
                                           "kwh",      "sp95",    "carregamento", "charging", "recarga",
                                           "recharge", "eletric", "electric"};
  const std::string folded = Folded(name);
  return std::any_of(std::begin(kWords), std::end(kWords),
                     [&](const char* word) { return folded.find(word) != std::string::npos; });
}

}  // namespace

bool AreNearEqual(const std::string& a, const std::string& b) {
  const std::string left = FoldedTight(a);
  const std::string right = FoldedTight(b);
  if (left == right) return true;
  const std::size_t shorter = std::min(left.size(), right.size());
  const std::size_t slips = shorter >= 9 ? 2 : shorter >= 5 ? 1 : 0;
  const std::size_t apart = std::max(left.size(), right.size()) - shorter;
  return apart <= slips && DigitsOf(left) == DigitsOf(right) && EditDistance(left, right) <= slips;
}

std::string ProposedCode(const std::string& name, std::set<std::string>& taken) {
  std::string base = Shortened(name);
  if (base.empty()) base = "X";
  std::string code = base;
  for (int i = 2; !taken.insert(code).second; ++i) {
    const std::string number = std::to_string(i);
    code = base.substr(0, kLongest - number.size()) + number;
  }
  return code;
}

std::string ProposedCode(const std::string& table, const std::string& name, std::set<std::string>& taken) {
  return table == kDrivers ? NextNumber(taken) : ProposedCode(name, taken);
}

std::vector<NewCode> FindUnknownCodes(PlanData& plan) {
  std::vector<NewCode> found;
  std::vector<TableCell> cells;
  for (const CodeColumn& column : plan.kind.codes) {
    if (std::string_view(column.table) == kVehicles) continue;
    std::map<std::string, long> texts;
    for (std::size_t i = 0; i < plan.table.rows.size(); ++i) {
      if (plan.table.rows[i].state == RowState::kAside) continue;
      if (const auto text = plan.mapper->UnknownCode(column.column, plan.Source(i, cells))) ++texts[*text];
    }
    std::set<std::string> taken;
    for (const NamedCode& code : plan.codes.Codes(column.table)) taken.insert(Upper(code.code));
    const std::size_t begin = found.size();
    for (const auto& [text, rows] : texts) {
      const auto same =
          std::find_if(found.begin() + static_cast<std::ptrdiff_t>(begin), found.end(),
                       [&text = text](const NewCode& code) { return AreNearEqual(code.name, text); });
      if (same != found.end()) {
        // The spelling that stands in most rows names the code.
        if (rows > texts[same->name]) same->name = text;
        same->rows += rows;
        same->texts.push_back(text);
        continue;
      }
      NewCode code{.column = column.column,
                   .table = column.table,
                   .code = {},
                   .name = text,
                   .rows = rows,
                   .texts = {text},
                   .similar = {}};
      for (const NamedCode& known : plan.codes.Codes(column.table))
        if (AreNearEqual(known.name, text) || AreNearEqual(known.code, text)) code.similar.push_back(known);
      found.push_back(std::move(code));
    }
    std::stable_sort(found.begin() + static_cast<std::ptrdiff_t>(begin), found.end(),
                     [](const NewCode& a, const NewCode& b) { return a.rows > b.rows; });
    for (std::size_t i = begin; i < found.size(); ++i) {
      found[i].code = ProposedCode(found[i].table, found[i].name, taken);
      found[i].fuel = found[i].table == "zor_PV_TiposGastos" && NamesFuel(found[i].name);
    }
  }
  return found;
}

}  // namespace exchange
