#include "exchange/plan/code_finder.h"

#include <algorithm>
#include <cstring>

#include "exchange/values/fold.h"
#include "exchange/values/plates.h"

namespace exchange {
namespace {

constexpr const char* kVehicles = "zor_PV_Viaturas";
constexpr const char* kDrivers = "zor_Funcionarios";

/// A code for comparing: a number without the zeros before it.
std::string CodeKey(const std::string& code) {
  std::string key = FoldedTight(code);
  if (key.find_first_not_of("0123456789") == std::string::npos)
    key.erase(0, std::min(key.find_first_not_of('0'), key.size() - (key.empty() ? 0 : 1)));
  return key;
}

/// A name for comparing: of a person the words in any order.
std::string NameKey(const std::string& table, const std::string& name) {
  if (table != kDrivers) return Folded(name);
  std::vector<std::string> words = FoldedWords(name);
  std::sort(words.begin(), words.end());
  std::string key;
  for (const std::string& word : words) key += word + " ";
  return key;
}

/// True when all words of a shorter name stand in the longer one, first and last among them.
bool NamesPerson(const std::string& shorter, const std::string& longer) {
  const auto few = FoldedWords(shorter);
  const auto many = FoldedWords(longer);
  if (few.size() < 2 || few.size() >= many.size()) return false;
  return std::all_of(few.begin(), few.end(), [&](const std::string& word) {
    return std::find(many.begin(), many.end(), word) != many.end();
  });
}

}  // namespace

CodeFinder::Table& CodeFinder::TableOf(const std::string& name) {
  Table& table = tables_[name];
  if (table.read) return table;
  table.read = true;
  const bool plates = name == kVehicles;
  zorCrmParvel::RecordsetRef rows;
  bd_->AbrirLeitura("",
                    {"SELECT ", zorCrmParvel::fixed(plates ? "Matricula" : "Codigo"), " AS Codigo",
                     zorCrmParvel::fixed(plates ? "" : ", Nome"), " FROM ", zorCrmParvel::fixed(name)},
                    rows);
  for (; !rows->Eof(); rows->MoveNext()) {
    const platform::Variant text = plates ? platform::Variant("") : rows->Fields("Nome").Value();
    Enter(table, name, {rows->Fields("Codigo").Value().ToText(), text.IsNull() ? "" : text.ToText()});
  }
  rows->Close();
  return table;
}

void CodeFinder::Enter(Table& table, const std::string& name, NamedCode code) {
  table.byCode.emplace(CodeKey(code.code), table.codes.size());
  if (!code.name.empty()) table.byName.emplace(NameKey(name, code.name), table.codes.size());
  table.codes.push_back(std::move(code));
}

void CodeFinder::Add(const std::string& table, const NamedCode& code) {
  Enter(TableOf(table), table, code);
  found_.clear();
}

bool CodeFinder::Hyphens() {
  std::size_t with = 0;
  std::size_t without = 0;
  for (const NamedCode& vehicle : TableOf(kVehicles).codes)
    if (IsPortuguesePlate(vehicle.code)) ++(vehicle.code.find('-') != std::string::npos ? with : without);
  return with >= without;
}

FoundCode CodeFinder::Look(const std::string& name, const std::string& text) {
  Table& table = TableOf(name);
  FoundCode found;
  found.code = name == kVehicles ? WrittenPlate(text, Hyphens()) : text;
  const auto take = [&](const std::unordered_multimap<std::string, std::size_t>& by, const std::string& key) {
    const auto [begin, end] = by.equal_range(key);
    for (auto place = begin; place != end; ++place)
      found.candidates.push_back(table.codes[place->second].code);
  };
  for (const NamedCode& code : table.codes)
    if (code.code == text) found.candidates = {text};
  if (found.candidates.empty()) take(table.byCode, CodeKey(text));
  if (found.candidates.empty()) take(table.byName, NameKey(name, text));
  if (found.candidates.empty() && name == kDrivers)
    for (const NamedCode& driver : table.codes)
      if (NamesPerson(text, driver.name) || NamesPerson(driver.name, text))
        found.candidates.push_back(driver.code);
  if (found.candidates.size() == 1) {
    found.how = FoundCode::How::kFound;
    found.code = found.candidates.front();
    found.candidates.clear();
  } else if (!found.candidates.empty()) {
    found.how = FoundCode::How::kSeveral;
  }
  return found;
}

const FoundCode& CodeFinder::Find(const std::string& table, const std::string& column,
                                  const std::string& text, const Profile& profile) {
  const auto [place, fresh] = found_.try_emplace(column + ":" + text);
  if (!fresh) return place->second;
  std::string meant = text;
  if (const auto learned = profile.learned.find(column); learned != profile.learned.end())
    if (const auto word = learned->second.find(Folded(text)); word != learned->second.end())
      meant = word->second;
  place->second = Look(table, meant);
  return place->second;
}

}  // namespace exchange
