#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace desktop {

/// What of a table goes on paper.
struct PaperTable {
  /// A line among the rows with texts of its own: of a group, or of all rows at the end.
  struct Heading {
    long before = 0;    // the place of the row that follows
    QStringList texts;  // one for each column of the source; the first runs on over those that are empty
  };

  std::optional<std::vector<long>> rows = {};  // all rows of the source when they aren't said
  QStringList notes = {};                      // a line each, below the title
  std::vector<Heading> headings = {};          // in order
  std::optional<long> counted = {};  // rows that the foot of the page tells of, when not those printed
};

}  // namespace desktop
