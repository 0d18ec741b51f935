#include "vehicles/computed_dates.h"

#include <sstream>
#include <tuple>

#include "events/upkeep.h"
#include "support/database_test.h"
#include "support/whole_text.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

using platform::Date;

Date D(const std::string& text) { return Date::Parse(text); }

TEST(RoadTax, EndsWithTheMonthOfRegistration) {
  const std::tuple<int, const char*, const char*> cases[] = {
      {12, "01-01-2024", "31-12-2024"}, {12, "31-12-2024", "31-12-2024"}, {3, "31-03-2024", "31-03-2024"},
      {3, "01-04-2024", "31-03-2025"},  {2, "15-01-2024", "29-02-2024"},  {2, "15-03-2024", "28-02-2025"},
      {4, "10-04-2024", "30-04-2024"}};
  for (const auto& [month, today, due] : cases) EXPECT_EQ(FimDoPrazoDoSelo(month, D(today)), D(due)) << today;
}

class InspectionTest : public RecordedTest {
 protected:
  /// The next inspection, "dd-mm-yyyy in n"; "error n" when the rule fails.
  std::string Next(const std::string& category, const std::string& registered, const std::string& today,
                   const std::string& last, std::string text, std::int16_t days) {
    host.clock = D(today);
    Sql("Delete zor_PV_Inspecoes");
    if (!last.empty()) {
      EventOf<clInspecoes> inspecao(bd, "A");
      for (const std::string& date : {last, std::string("01-01-2001")}) {
        inspecao.Id = 0;
        inspecao.Data = D(date);
        inspecao.Escrever();
      }
    }
    const int error = NumberOf([&] {
      Tools::ProximaInspecao("A", static_cast<std::int16_t>(D(registered).year()), D(registered), days, text,
                             category, bd);
    });
    return error != 0 ? "error " + std::to_string(error) : text + " in " + std::to_string(days);
  }
};

TEST_F(InspectionTest, FollowsTheRuleAsWrittenDown) {
  ExpectCases(PARVEL_SOURCE_DIR "/tests/vehicles/inspections.txt", [&](const std::string& input) {
    std::istringstream words(input);
    std::string category, registered, today, last, text;
    std::int16_t days = 0;
    words >> category >> registered >> today >> last >> text >> days;
    return Next(category, registered, today, last == "-" ? "" : last, text, days);
  });
  EXPECT_EQ(bd->statements.back(),
            "SELECT MAX([Data]) AS Ultima FROM [zor_PV_Inspecoes] WHERE Matricula='A '");
}

}  // namespace
}  // namespace zorCrmParvel
