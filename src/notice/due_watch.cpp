#include "notice/due_watch.h"

#include <algorithm>

#include "notice/digest.h"

namespace notice {
namespace {

constexpr std::size_t kMostLines = 4;

}  // namespace

DueWatch::Nearness DueWatch::NearnessOf(const DueDate& due) {
  if (due.Overdue()) return Nearness::kPast;
  return due.days.value_or(due.kilometres) == 0 ? Nearness::kToday : Nearness::kNear;
}

std::vector<DueDate> DueWatch::Look(const std::vector<DueDate>& dates) {
  std::map<std::string, Nearness> now;
  std::vector<DueDate> news;
  for (const DueDate& due : dates) {
    if (due.handled) continue;
    const std::string thing = NewsOf(due).uid;
    const Nearness nearness = NearnessOf(due);
    const auto [place, first] = now.emplace(thing, nearness);
    if (!first) place->second = std::max(place->second, nearness);
    if (!before_) continue;
    const auto before = before_->find(thing);
    if (before == before_->end() || before->second < nearness) news.push_back(due);
  }
  before_ = std::move(now);
  return news;
}

Announcement Announce(const std::vector<DueDate>& news) {
  Announcement words;
  words.title = "Frota: " + std::to_string(news.size()) + (news.size() == 1 ? " prazo" : " prazos");
  for (std::size_t i = 0; i < std::min(news.size(), kMostLines); ++i)
    words.text += (i == 0 ? "" : "\n") + NewsOf(news[i]).text;
  if (news.size() > kMostLines) words.text += "\n… e mais " + std::to_string(news.size() - kMostLines);
  return words;
}

}  // namespace notice
