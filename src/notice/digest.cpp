#include "notice/digest.h"

#include <cstdlib>

#include "platform/format.h"
#include "platform/host.h"

namespace notice {
namespace {

constexpr std::int64_t kDaysBetweenReminders = 7;

std::string WhenOf(const DueDate& due) {
  if (!due.days)
    return due.kilometres < 0 ? "passou há " + std::to_string(-due.kilometres) + " km"
                              : "faltam " + std::to_string(due.kilometres) + " km";
  const std::int32_t days = *due.days;
  const std::string count = std::to_string(std::abs(days)) + (std::abs(days) == 1 ? " dia" : " dias");
  return platform::FormatDate(due.day, "dd-mm-yyyy") + (days < 0    ? " (há " + count + ")"
                                                        : days == 0 ? " (hoje)"
                                                                    : " (faltam " + count + ")");
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    if (letter == '&')
      escaped += "&amp;";
    else if (letter == '<')
      escaped += "&lt;";
    else if (letter == '>')
      escaped += "&gt;";
    else if (letter == '\n')
      escaped += "<br>";
    else
      escaped += letter;
  }
  return escaped;
}

struct Section {
  const char* title;
  const char* color;
  bool (*holds)(const NewsItem& item);
};

constexpr Section kSections[] = {
    {"Vencido", "#b3261e", [](const NewsItem& item) { return !item.odd && item.stage == Stage::kOverdue; }},
    {"A vencer", "#8a5a00", [](const NewsItem& item) { return !item.odd && item.stage != Stage::kOverdue; }},
    {"Estranho", "#1b5e83", [](const NewsItem& item) { return item.odd; }},
};

void AddSection(const Section& section, const std::vector<NewsItem>& items, Digest& digest) {
  std::string text;
  std::string rows;
  int count = 0;
  for (const NewsItem& item : items) {
    if (!section.holds(item)) continue;
    ++count;
    text += "- " + item.text + "\n";
    for (std::size_t begin = 0; begin < item.notes.size();) {
      const std::size_t end = std::min(item.notes.find('\n', begin), item.notes.size());
      text += "  " + item.notes.substr(begin, end - begin) + "\n";
      begin = end + 1;
    }
    rows += "<li>" + Escaped(item.text) +
            (item.notes.empty() ? "" : "<br><small>" + Escaped(item.notes) + "</small>") + "</li>\n";
  }
  if (count == 0) return;
  const std::string title = std::string(section.title) + " (" + std::to_string(count) + ")";
  digest.text += title + "\n" + text + "\n";
  digest.html += "<h2 style=\"font-size:1.1em;color:" + std::string(section.color) + "\">" + title +
                 "</h2>\n<ul>\n" + rows + "</ul>\n";
}

}  // namespace

NewsItem NewsOf(const DueDate& due) {
  return {due.thing + (due.days ? "" : "-km"), due.summary + ", " + WhenOf(due), due.notes,
          due.Overdue() ? Stage::kOverdue : Stage::kSoon, false};
}

std::vector<NewsItem> NotYetTold(const std::vector<NewsItem>& items, const std::map<std::string, Told>& told,
                                 platform::Date now) {
  std::vector<NewsItem> news;
  for (const NewsItem& item : items) {
    const auto before = told.find(item.uid);
    const bool isNew = before == told.end() || before->second.stage < item.stage;
    const bool again = !isNew && !item.odd && item.stage == Stage::kOverdue &&
                       platform::DaysBetween(before->second.when, now) >= kDaysBetweenReminders;
    if (isNew || again) news.push_back(item);
  }
  return news;
}

Digest WriteDigest(const std::vector<NewsItem>& items, const Recipient& recipient, const std::string& place) {
  std::size_t overdue = 0;
  for (const NewsItem& item : items) overdue += kSections[0].holds(item) ? 1 : 0;
  Digest digest;
  digest.subject =
      "Frota: " + std::to_string(items.size()) + (items.size() == 1 ? " aviso" : " avisos") +
      (overdue == 0 ? "" : ", " + std::to_string(overdue) + (overdue == 1 ? " vencido" : " vencidos"));
  const std::string greeting = recipient.name.empty() ? "Bom dia." : "Bom dia, " + recipient.name + ".";
  digest.text = greeting + "\n\n";
  digest.html = "<!DOCTYPE html>\n<html lang=\"pt\"><body style=\"font-family:sans-serif\">\n<p>" +
                Escaped(greeting) + "</p>\n";
  for (const Section& section : kSections) AddSection(section, items, digest);
  const std::string foot = "Da frota em " + place + ". Não responda a esta mensagem.";
  digest.text += foot + "\n";
  digest.html += "<p><small>" + Escaped(foot) + "</small></p>\n</body></html>\n";
  return digest;
}

}  // namespace notice
