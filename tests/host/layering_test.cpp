#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

/// What each room may include beside itself. The two floors of `host` and of `store` are told apart by file.
const std::map<std::string, std::set<std::string>> kBelow = {
    {"platform", {}},
    {"tsql", {"platform"}},
    {"host", {"platform", "tsql"}},
    {"host/sistema",
     {"platform", "host", "masterdata", "vehicles", "drivers", "events", "alerts", "documents"}},
    {"masterdata", {"platform", "host"}},
    {"vehicles", {"platform", "host", "masterdata", "drivers", "events"}},
    {"drivers", {"platform", "host", "masterdata"}},
    {"events", {"platform", "host", "masterdata", "vehicles", "drivers", "documents"}},
    {"documents", {"platform", "host"}},
    {"alerts", {"platform", "host", "masterdata", "vehicles", "drivers", "events"}},
    {"store/store", {"platform", "host"}},
    {"embedded", {"platform", "tsql", "host", "store/store"}},
    {"sqlserver", {"platform", "tsql", "host", "store/store"}},
    {"store", {"platform", "tsql", "host", "store/store", "embedded", "sqlserver"}},
    {"loader", {}},
    {"history",
     {"platform", "tsql", "host", "store/store", "embedded", "loader", "vehicles", "drivers", "events"}},
    {"exchange",
     {"platform", "host", "store/store", "loader", "masterdata", "vehicles", "drivers", "events", "alerts",
      "reports"}},
    {"reports", {"platform", "host", "store/store"}},
    {"notice", {"platform", "host", "host/sistema", "store/store", "alerts", "due", "exchange", "reports"}},
    {"lists", {"platform", "host"}},
    {"due", {"platform", "host"}},
    {"entry",
     {"platform", "host", "store/store", "masterdata", "vehicles", "drivers", "events", "reports", "lists"}},
    {"setup", {"platform", "host", "masterdata"}},
    {"manual", {}},
    {"demo",
     {"platform", "host", "setup", "store/store", "masterdata", "vehicles", "drivers", "events",
      "documents"}},
    {"console", {"platform", "tsql",    "host",      "host/sistema", "masterdata",  "vehicles", "drivers",
                 "events",   "alerts",  "documents", "store",        "store/store", "embedded", "sqlserver",
                 "exchange", "reports", "notice",    "setup",        "demo",        "history"}},
    {"desktop", {"platform", "host",        "host/sistema", "vehicles",  "drivers",  "events",  "alerts",
                 "store",    "store/store", "embedded",     "sqlserver", "exchange", "reports", "lists",
                 "entry",    "due",         "setup",        "demo",      "history",  "manual",  "notice"}},
};

std::string RoomOf(const std::string& path) {
  for (const char* floor : {"host/sistema", "store/store"})
    if (path.rfind(floor, 0) == 0) return floor;
  return path.substr(0, path.find('/'));
}

TEST(Layering, NoRoomIncludesWhatLiesAboveIt) {
  const fs::path src = fs::path(PARVEL_SOURCE_DIR) / "src";
  const std::regex include("^\\s*#\\s*include\\s+\"([^\"]+)\"");
  const std::set<std::string> module = {"platform", "tsql",    "host",   "host/sistema", "masterdata",
                                        "vehicles", "drivers", "events", "alerts",       "documents"};
  const std::regex foreign("^\\s*#\\s*include\\s+<(Q[A-Z]|sqlite3|sql|unicode/|nlohmann|CLI/)");
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(src)) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    const std::string path = fs::relative(entry.path(), src).generic_string();
    const std::string room = RoomOf(path);
    ASSERT_TRUE(kBelow.count(room)) << "a room that the layering doesn't know: " << path;
    ++files;
    std::ifstream in(entry.path());
    std::smatch match;
    for (std::string line; std::getline(in, line);) {
      EXPECT_FALSE(module.count(room) && std::regex_search(line, foreign)) << path << ": " << line;
      if (!std::regex_search(line, match, include)) continue;
      const std::string target = RoomOf(match[1]);
      EXPECT_TRUE(target == room || (room == "host/sistema" && target == "host") ||
                  kBelow.at(room).count(target))
          << path << " includes " << match[1];
    }
  }
  EXPECT_GT(files, 50);
}

}  // namespace
