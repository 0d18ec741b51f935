#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace manual {

/// One page of the manual.
struct Page {
  std::string name;                   // of its file, without ".md"
  std::string title;                  // its first heading
  std::string text;                   // Markdown, with the title
  std::vector<std::string> subjects;  // keys of lists, names of fichas and of dialogs that it is about
};

inline constexpr char kIndex[] = "indice";

/// All pages as they are to be read: the index, then those that it links in its order, then the others.
const std::vector<Page>& Pages();
/// Null when no page has this name.
const Page* FindPage(std::string_view name);
/// The page about a list, a ficha or a dialog; the index when there is none.
const Page& PageAbout(std::string_view subject);

/// Where the links and the pictures of a page lead to, as they are written.
std::vector<std::string> LinksOf(const Page& page);

}  // namespace manual
