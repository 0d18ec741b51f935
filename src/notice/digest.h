#pragma once

#include <map>
#include <string>
#include <vector>

#include "notice/due_dates.h"
#include "notice/recipients.h"

namespace notice {

/// Something that a recipient is told of.
struct NewsItem {
  std::string uid;    // of the thing, not of its date: some dates move with the day
  std::string text;   // "Apólice: 1234 10-GJ-10, 12-11-2026 (há 13 dias)"
  std::string notes;  // each on a line
  Stage stage = Stage::kSoon;
  bool odd = false;  // about an event, and not a date
};

NewsItem NewsOf(const DueDate& due);

/// Those that the recipient hasn't been told of yet: when they come near, when they are past, and from then
/// on once a week. What is odd is told once.
std::vector<NewsItem> NotYetTold(const std::vector<NewsItem>& items, const std::map<std::string, Told>& told,
                                 platform::Date now);

/// A message's words.
struct Digest {
  std::string subject;
  std::string text;
  std::string html;
};

/// `place` says which fleet it is.
Digest WriteDigest(const std::vector<NewsItem>& items, const Recipient& recipient, const std::string& place);

}  // namespace notice
