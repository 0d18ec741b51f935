#include "store/kept_copies.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "embedded/database.h"
#include "platform/runtime_error.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using platform::Date;
using store::KeptCopies;

std::string Text(const std::set<Date>& days) {
  std::string text;
  for (const Date& day : days) text += (text.empty() ? "" : " ") + day.ToText();
  return text;
}

/// A copy on every day of two years, and what is left of them when each day has done its clearing: 25-11-2026
/// is a Wednesday.
TEST(KeptCopies, SevenDaysFourWeeksAndTwelveMonthsStay) {
  std::vector<Date> days;
  const Date today = Date::FromParts(2026, 11, 25);
  for (Date day = today.AddMonths(-24); day <= today; day = day.AddDays(1)) {
    days.push_back(day);
    const std::set<Date> stay = store::DaysThatStay(days, day);
    days.assign(stay.begin(), stay.end());
  }
  EXPECT_EQ(Text({days.begin(), days.end()}),
            "31-12-2025 31-01-2026 28-02-2026 31-03-2026 30-04-2026 31-05-2026 30-06-2026 31-07-2026 "
            "31-08-2026 30-09-2026 31-10-2026 08-11-2026 15-11-2026 19-11-2026 20-11-2026 21-11-2026 "
            "22-11-2026 23-11-2026 24-11-2026 25-11-2026");
  EXPECT_EQ(Text(store::DaysThatStay({Date::FromParts(2026, 2, 3), Date::FromParts(2025, 2, 3)}, today)),
            "03-02-2026");
}

class KeptCopiesTest : public testing::Test {
 protected:
  KeptCopiesTest() {
    embedded::Database::Open(database)->ExecutarSql(
        "", "INSERT INTO zor_PV_Viaturas (Matricula) VALUES (N'10-GJ-10')");
  }
  testing_support::TemporaryFolder folder;
  const std::string database = folder.File("frota.db");
  const Date today = Date::FromParts(2026, 11, 25, 9, 12);
};

TEST_F(KeptCopiesTest, OneADayThatHoldsWhatTheDatabaseHeld) {
  const KeptCopies copies(database, "");
  EXPECT_TRUE(copies.Keep(today.AddMonths(-18)));
  EXPECT_TRUE(copies.Keep(today.AddDays(-1)));
  const auto open = embedded::Database::Open(database);  // as the window has it
  EXPECT_TRUE(copies.Keep(today));
  EXPECT_FALSE(copies.Keep(today.AddDays(0)));
  fs::copy_file(database, copies.folder() + "/outra-2026-11-20.db");
  ASSERT_EQ(copies.All().size(), 2U);
  EXPECT_EQ(copies.All()[0].day, today.DayOnly());
  EXPECT_EQ(fs::path(copies.All()[1].file).filename(), "frota-2026-11-24.db");
  EXPECT_EQ(store::Holdings(copies.All()[0].file), "1 viatura, 0 motoristas, 0 eventos");
  EXPECT_EQ(fs::status(copies.folder()).permissions(), fs::perms::owner_all);
}

TEST_F(KeptCopiesTest, AFolderOfChoiceKeepsDatabasesOfOneNameApart) {
  const std::string other = folder.File("outra/frota.db");
  fs::create_directory(folder.File("outra"));
  const KeptCopies first(database, folder.File("copias"));
  const KeptCopies second(other, folder.File("copias"));
  EXPECT_TRUE(first.Keep(today));
  EXPECT_TRUE(second.All().empty());
  EXPECT_EQ(KeptCopies("/srv/frota.db", "/copias").folder(), "/copias/frota-074fa83e") << "in every run";
}

TEST_F(KeptCopiesTest, VehiclesDriversAndEventsOfEveryKindAreCounted) {
  const auto bd = embedded::Database::Open(database);
  bd->ExecutarSql("", "INSERT INTO zor_PV_Viaturas (Matricula) VALUES (N'20-GJ-20')");
  bd->ExecutarSql("", "INSERT INTO zor_Funcionarios (Codigo) VALUES (N'1')");
  std::string told;
  for (const char* table :
       {"Gastos", "Seguros", "Revisoes", "Inspecoes", "Multas", "Sinistros", "Acessorios"}) {
    bd->ExecutarSql("",
                    {"INSERT INTO zor_PV_", zorCrmParvel::fixed(table), " (Matricula) VALUES (N'10-GJ-10')"});
    told += store::Holdings(database).substr(25) + ";";
  }
  EXPECT_EQ(store::Holdings(database), "2 viaturas, 1 motorista, 7 eventos");
  EXPECT_EQ(told, "1 evento;2 eventos;3 eventos;4 eventos;5 eventos;6 eventos;7 eventos;");
}

TEST_F(KeptCopiesTest, WhatCantBeWrittenIsToldAndRemovesNothing) {
  const KeptCopies copies(database, "");
  EXPECT_TRUE(copies.Keep(today.AddMonths(-18)));
  std::ofstream(database) << "não é uma base de dados";
  EXPECT_THROW(copies.Keep(today), platform::RuntimeError);
  EXPECT_EQ(copies.All().size(), 1U);
  std::ofstream(folder.File("ocupada")) << "";
  EXPECT_THROW(KeptCopies(database, folder.File("ocupada")).Keep(today), std::runtime_error);
}

}  // namespace
