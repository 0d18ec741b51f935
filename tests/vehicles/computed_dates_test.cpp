#include "vehicles/computed_dates.h"

#include <tuple>

#include "events/upkeep.h"
#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

using platform::Date;

Date D(const char* text) { return Date::Parse(text); }

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
  std::string Next(const char* category, const char* registered, const char* today,
                   const char* last = nullptr, std::string text = "", std::int16_t days = 0) {
    host.clock = D(today);
    Sql("Delete zor_PV_Inspecoes");
    if (last != nullptr) {
      EventOf<clInspecoes> inspecao(bd, "A");
      for (const char* date : {last, "01-01-2001"}) {
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

TEST_F(InspectionTest, FollowsTheTableOfCategories) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"LIGM", "15-03-2020", "10-03-2021", "15-03-2022 in 370"},
      {"RLIG", "15-03-2020", "15-03-2022", "15-03-2022 in 0"},
      {"LIGM", "15-03-2020", "16-03-2023", "15-03-2024 in 365"},
      {"LIGP", "15-03-2020", "16-03-2024", "15-03-2024 in -1"},
      {"LIGP", "15-03-2015", "15-03-2024", "15-03-2024 in 0"},
      {"LIGP", "15-03-2015", "16-03-2024", "15-03-2025 in 364"},
      {"PREB", "15-03-2023", "01-01-2024", "15-03-2024 in 74"},
      {"PREB", "15-03-2022", "15-03-2024", "15-03-2024 in 0"},
      {"PREB", "15-03-2022", "16-03-2024", "15-03-2025 in 364"},
      {"PESP", "10-08-2020", "09-08-2024", "10-08-2027 in 1096"},
      {"PESM", "10-08-2020", "11-08-2024", "10-08-2028 in 1460"},
      {"PESP", "10-08-2016", "10-08-2024", "10-08-2024 in 0"},
      {"RSRB", "10-08-2016", "11-08-2024", "10-02-2025 in 183"},
      {"TESC", "10-03-2016", "11-09-2024", "10-03-2025 in 180"},
      {"LIGTP", "10-03-2016", "10-09-2024", "10-09-2024 in 0"},
      {"PESP", "10-03-2016", "01-10-2024", "10-03-2025 in 160"},
      {"PESP", "10-08-2018", "09-08-2024", "10-08-2025 in 366"},
      {"PESP", "10-08-2017", "09-08-2024", "10-08-2024 in 1"},
      {"PESP", "10-06-2016", "10-12-2024", "10-12-2024 in 0"},
      {"PESP", "10-06-2016", "11-12-2024", "10-06-2025 in 181"},
      {"PESP", "10-07-2016", "11-07-2024", "10-01-2025 in 183"},
      {"PESP", "10-12-2016", "11-12-2024", "10-06-2025 in 181"},
      {"PESP", "31-10-2016", "01-11-2024", "30-04-2025 in 180"},
      {"PESP", "31-05-2016", "01-11-2024", "30-11-2024 in 29"},
      {"PESP", "31-08-2019", "01-09-2027", "29-02-2028 in 181"},
      {"LIGP", "15-03-2019", "16-03-2024", "15-03-2025 in 364"},
      {"PESP", "31-08-2016", "01-09-2024", "28-02-2025 in 180"},
      {"PESP", "31-03-2016", "30-09-2024", "30-09-2024 in 0"},
      {"LIGM", "29-02-2020", "01-01-2022", "28-02-2022 in 58"},
      {"LIGP", "29-02-2020", "01-01-2024", "29-02-2024 in 59"},
  };
  for (const auto& [category, registered, today, next] : cases)
    EXPECT_EQ(Next(category, registered, today), next) << category << ' ' << registered << ' ' << today;
}

TEST_F(InspectionTest, TheLastInspectionMovesTheBase) {
  EXPECT_EQ(Next("LIGM", "15-03-2020", "10-06-2024", "20-11-2023"), "15-03-2025 in 278");
  EXPECT_EQ(bd->statements.back(),
            "SELECT MAX([Data]) AS Ultima FROM [zor_PV_Inspecoes] WHERE Matricula='A '");
  EXPECT_EQ(Next("LIGM", "29-02-2020", "10-06-2024", "20-11-2023"), "error 13")
      << "no 29th of February in 2023";
  EXPECT_EQ(Next("LIGM", "29-02-2020", "10-03-2025", "20-11-2024"), "28-02-2026 in 355");
}

TEST_F(InspectionTest, WithoutARowTheRuleGoesOnWithTheTextThatCame) {
  EXPECT_EQ(Next("ligm", "15-03-2020", "10-03-2021", nullptr, "antes", 77), "antes in 77")
      << "no such category";
  EXPECT_EQ(Next("PESP", "10-03-2016", "11-06-2024"), "error 13");
  EXPECT_EQ(Next("PESP", "10-06-2016", "11-06-2024"), "error 13");
  EXPECT_EQ(Next("PESP", "31-03-2016", "11-06-2024", nullptr, "06-11-2025"), "30-06-2025 in 384");
  EXPECT_EQ(Next("PESP", "10-03-2016", "11-06-2024", nullptr, "05-11-2025"), "10-05-2025 in 333")
      << "the day of the other vehicle's date is taken for the month";
  EXPECT_EQ(Next("PESP", "10-03-2016", "11-06-2024", nullptr, "15-11-2025"), "error 13");
}

}  // namespace
}  // namespace zorCrmParvel
