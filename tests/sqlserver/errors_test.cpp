// What every number and state of a server means, held against a text.
#include "sqlserver/errors.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "support/errors.h"
#include "support/whole_text.h"

namespace sqlserver_tests {
namespace {

using sqlserver::OdbcFailure;

/// The meanings, each with the diagnostics that have it.
class Meanings {
 public:
  void Ask(const std::string& state, int native) {
    const OdbcFailure failure({{state, native, "Words"}});
    const std::string name = state + "/" + std::to_string(native) + " ";
    const auto add = [&](const char* when, const std::function<void()>& raise) {
      const platform::RuntimeError error = testing_support::FailureOf(raise);
      const std::string meaning = " " + std::to_string(error.number()) + ": " + error.description();
      // What has no number of its own is told by its state, or like any other number of a server.
      if (native != 0 && meaning == told_[state + when]) return;
      if (native > 1 && meaning == told_[when]) return;
      if (native == 0) told_[state + when] = meaning;
      if (native == 1) told_[when] = meaning;
      names_[when + meaning] += name;
    };
    add("ligar", [&] { RaiseNotConnected(failure, "frota"); });
    add("instrução", [&] { RaiseRefused(failure); });
    for (const bool written : {false, true})
      if (native == 0) add(written ? "gravação" : "leitura", [&] { RaiseLost(failure, "frota", written); });
    if (IsConnectionLost(failure)) names_["perdida"] += name;
  }
  std::string ToText() const {
    std::string text;
    for (const auto& [meaning, names] : names_) text.append(meaning).append("\n  ").append(names) += "\n";
    return text;
  }

 private:
  std::map<std::string, std::string> told_;
  std::map<std::string, std::string> names_;
};

TEST(ServerErrors, MeanWhatIsWrittenDown) {
  Meanings meanings;
  for (const char* state : {"HY000", "28000", "IM002", "08001", "08003", "08007", "08S01", "HYT00", "01000",
                            "42S02", "42S22", "42000", "23000", "40001", "22001"})
    meanings.Ask(state, 0);
  for (int native = 1; native <= 21000; ++native) meanings.Ask("HY000", native);
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/sqlserver/errors.txt", meanings.ToText());
}

TEST(ServerErrors, OfSeveralDiagnosticsTheWeightiestTells) {
  using Diagnostics = std::vector<sqlserver::Diagnostic>;
  const auto told = [](const Diagnostics& all, const std::function<void(const OdbcFailure&)>& raise) {
    const platform::RuntimeError error = testing_support::FailureOf([&] { raise(OdbcFailure(all)); });
    return error.source() + " " + error.description();
  };
  const sqlserver::Diagnostic remark{"01000", 5701, "Remark"};
  const sqlserver::Diagnostic ended{"HY000", 3621, "Ended"};
  const sqlserver::Diagnostic key{"23000", 2627, "Key."};
  EXPECT_EQ(told({remark, ended, key}, sqlserver::RaiseRefused), "ODBC 23000/2627 Key.");
  EXPECT_EQ(told({ended, remark}, sqlserver::RaiseRefused), "ODBC HY000/3621 Ended");
  const auto connect = [](const OdbcFailure& failure) { sqlserver::RaiseNotConnected(failure, "frota"); };
  const sqlserver::Diagnostic login{"28000", 18456, "Login"};
  EXPECT_NE(told({login, {"42000", 4060, "Base"}}, connect).find("não existe no servidor"),
            std::string::npos);
  EXPECT_EQ(told({login, remark}, connect).substr(0, 16), "ODBC 28000/18456");
  EXPECT_NE(told({remark, {"08001", 20009, "Net"}}, connect).find("Não se chega"), std::string::npos);
  EXPECT_TRUE(IsConnectionLost(OdbcFailure({remark, {"08S01", 0, ""}})));
  EXPECT_FALSE(IsConnectionLost(OdbcFailure({remark, key})));
  EXPECT_TRUE(IsTimeout(OdbcFailure({remark, {"HYT01", 0, ""}})));
  EXPECT_FALSE(IsTimeout(OdbcFailure({remark, key})));
}

}  // namespace
}  // namespace sqlserver_tests
