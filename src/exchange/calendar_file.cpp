#include "exchange/calendar_file.h"

#include <ctime>
#include <string_view>

#include "platform/format.h"

namespace exchange {
namespace {

using platform::Date;

constexpr std::size_t kLineOctets = 75;
constexpr const char* kAlarm = "-P6DT15H";  // at nine, a week before

/// Adds one content line, folded: lines that follow begin with a blank. A character isn't split.
void AddLine(std::string& file, std::string_view line) {
  std::size_t room = kLineOctets;
  while (line.size() > room) {
    std::size_t cut = room;
    while ((static_cast<unsigned char>(line[cut]) & 0xC0U) == 0x80U) --cut;
    file.append(line.substr(0, cut)).append("\r\n ");
    line.remove_prefix(cut);
    room = kLineOctets - 1;
  }
  file.append(line).append("\r\n");
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (char c : text) {
    if (c == '\\' || c == ';' || c == ',') escaped += '\\';
    if (c == '\n')
      escaped += "\\n";
    else if (static_cast<unsigned char>(c) >= ' ' || c == '\t')
      escaped += c;
  }
  return escaped;
}

std::string Utc(Date local) {
  std::tm parts{};
  parts.tm_year = local.year() - 1900;
  parts.tm_mon = local.month() - 1;
  parts.tm_mday = local.day();
  parts.tm_hour = local.hour();
  parts.tm_min = local.minute();
  parts.tm_sec = local.second();
  parts.tm_isdst = -1;
  const std::time_t moment = std::mktime(&parts);
  gmtime_r(&moment, &parts);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y%m%dT%H%M%SZ", &parts)};
}

}  // namespace

std::string WriteCalendar(const std::vector<CalendarEntry>& entries, Date stamp) {
  std::string file;
  AddLine(file, "BEGIN:VCALENDAR");
  AddLine(file, "VERSION:2.0");
  AddLine(file, "PRODID:-//Parvel//Alertas da frota//PT");
  const std::string dtstamp = "DTSTAMP:" + Utc(stamp);
  for (const CalendarEntry& entry : entries) {
    AddLine(file, "BEGIN:VEVENT");
    AddLine(file, "UID:" + Escaped(entry.uid));
    AddLine(file, dtstamp);
    AddLine(file, "DTSTART;VALUE=DATE:" + platform::FormatDate(entry.day, "yyyymmdd"));
    AddLine(file, "SUMMARY:" + Escaped(entry.summary));
    if (!entry.description.empty()) AddLine(file, "DESCRIPTION:" + Escaped(entry.description));
    AddLine(file, "TRANSP:TRANSPARENT");
    AddLine(file, "BEGIN:VALARM");
    AddLine(file, "ACTION:DISPLAY");
    AddLine(file, "DESCRIPTION:" + Escaped(entry.summary));
    AddLine(file, "TRIGGER:" + std::string(kAlarm));
    AddLine(file, "END:VALARM");
    AddLine(file, "END:VEVENT");
  }
  AddLine(file, "END:VCALENDAR");
  return file;
}

}  // namespace exchange
