#include "manual/pages.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "manual/page_files.h"

namespace manual {
namespace {

constexpr std::string_view kSubjects = "<!-- assuntos:";
constexpr std::string_view kEndOfComment = "-->";
constexpr std::string_view kHeading = "# ";

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

/// The first line may name the subjects, which nobody reads.
Page Read(const PageFile& file) {
  Page page{.name = file.name, .title = {}, .text = {}, .subjects = {}};
  std::string_view rest = file.text;
  if (rest.substr(0, kSubjects.size()) == kSubjects) {
    std::string_view line = TakeLine(rest).substr(kSubjects.size());
    std::istringstream words(std::string(line.substr(0, line.find(kEndOfComment))));
    for (std::string word; words >> word;) page.subjects.push_back(word);
    while (!rest.empty() && rest.front() == '\n') rest.remove_prefix(1);
  }
  page.text = rest;
  const std::string_view title = TakeLine(rest);
  page.title = title.substr(title.substr(0, kHeading.size()) == kHeading ? kHeading.size() : 0);
  return page;
}

std::vector<Page> ReadAll() {
  std::vector<Page> unread;
  for (const PageFile& file : PageFiles()) unread.push_back(Read(file));
  std::vector<Page> pages;
  const auto take = [&](std::string_view name) {
    const auto found =
        std::find_if(unread.begin(), unread.end(), [&](const Page& page) { return page.name == name; });
    if (found == unread.end()) return;
    pages.push_back(std::move(*found));
    unread.erase(found);
  };
  take(kIndex);
  const std::vector<std::string> order = pages.empty() ? std::vector<std::string>() : LinksOf(pages.front());
  for (const std::string& link : order) take(link.substr(0, link.rfind(".md")));
  std::move(unread.begin(), unread.end(), std::back_inserter(pages));
  return pages;
}

}  // namespace

const std::vector<Page>& Pages() {
  static const std::vector<Page> pages = ReadAll();
  return pages;
}

const Page* FindPage(std::string_view name) {
  for (const Page& page : Pages())
    if (page.name == name) return &page;
  return nullptr;
}

const Page& PageAbout(std::string_view subject) {
  for (const Page& page : Pages())
    if (std::find(page.subjects.begin(), page.subjects.end(), subject) != page.subjects.end()) return page;
  return Pages().front();
}

std::vector<std::string> LinksOf(const Page& page) {
  constexpr std::string_view kBegin = "](";
  std::vector<std::string> links;
  for (std::size_t at = page.text.find(kBegin); at != std::string::npos; at = page.text.find(kBegin, at)) {
    at += kBegin.size();
    links.push_back(page.text.substr(at, page.text.find(')', at) - at));
  }
  return links;
}

}  // namespace manual
