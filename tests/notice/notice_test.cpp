#include "due/handled.h"
#include "notice/due_watch.h"
#include "notice/round.h"
#include "platform/format.h"
#include "support/database_test.h"
#include "support/temporary_folder.h"
#include "vehicles/viaturas.h"

namespace notice_test {
namespace {

using namespace testing_support;
using notice::Delivery;
using notice::NewsItem;
using notice::Stage;
using platform::Date;

TEST(DigestTest, EachThingIsToldWhenItComesNearWhenItIsPastAndThenWeekly) {
  const NewsItem soon{"a", "Selo", "", Stage::kSoon, false};
  const NewsItem overdue{"a", "Selo", "", Stage::kOverdue, false};
  const NewsItem odd{"a", "Estranho", "", Stage::kSoon, true};
  const Date now = Date::FromParts(2024, 3, 15, 10, 30, 0);
  struct Case {
    const char* what;
    NewsItem item;
    notice::Told told;
    bool news;
  };
  const Case cases[] = {
      {"near, told never", soon, {Stage::kUntold, {}}, true},
      {"near, told so", soon, {Stage::kSoon, now.AddDays(-20)}, false},
      {"past, told near", overdue, {Stage::kSoon, now.AddDays(-1)}, true},
      {"past, told six days ago", overdue, {Stage::kOverdue, now.AddDays(-6)}, false},
      {"past, told a week ago", overdue, {Stage::kOverdue, now.AddDays(-7)}, true},
      {"odd, told a month ago", odd, {Stage::kSoon, now.AddDays(-30)}, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::map<std::string, notice::Told> told;
    if (c.told.stage != Stage::kUntold) told["a"] = c.told;
    EXPECT_EQ(NotYetTold({c.item}, told, now).size(), c.news ? 1U : 0U);
  }
}

TEST(DigestTest, WordsOfOthersStayWordsInHtml) {
  const auto digest = notice::WriteDigest({{"a", "<b>Selo & cia", "uma\nduas", Stage::kOverdue, false}},
                                          {"ana@x.pt", "Ana", notice::Scope::kAll, "", true}, "frota.db");
  EXPECT_EQ(digest.subject, "Frota: 1 aviso, 1 vencido");
  EXPECT_NE(digest.html.find("&lt;b&gt;Selo &amp; cia<br><small>uma<br>duas"), std::string::npos)
      << digest.html;
  EXPECT_NE(digest.text.find("Vencido (1)\n- <b>Selo & cia\n  uma\n  duas\n"), std::string::npos)
      << digest.text;
  EXPECT_EQ(digest.text.find("(0)"), std::string::npos) << "what has nothing isn't spoken of";
}

TEST(DigestTest, OneAndSeveralHaveTheirWords) {
  const std::pair<std::pair<int, int>, const char*> cases[] = {{{0, 1}, "Frota: 1 aviso"},
                                                               {{0, 2}, "Frota: 2 avisos"},
                                                               {{1, 1}, "Frota: 2 avisos, 1 vencido"},
                                                               {{2, 0}, "Frota: 2 avisos, 2 vencidos"}};
  for (const auto& [count, subject] : cases) {
    std::vector<NewsItem> items(static_cast<std::size_t>(count.first),
                                {"a", "Selo", "", Stage::kOverdue, false});
    items.resize(items.size() + static_cast<std::size_t>(count.second),
                 {"b", "Selo", "", Stage::kSoon, false});
    EXPECT_EQ(notice::WriteDigest(items, {"", "", notice::Scope::kAll, "", true}, "x").subject, subject);
  }
}

TEST(DueWatchTest, WhatComesNearerIsNewsAndTheFirstLookIsNot) {
  const auto due = [](int days, bool handled = false) {
    notice::DueDate date;
    date.thing = "AlertasAp-Dias-10-GJ-10";
    date.days = days;
    date.handled = handled;
    return std::vector{date};
  };
  struct Case {
    const char* what;
    std::vector<notice::DueDate> before;
    std::vector<notice::DueDate> now;
    bool news;
  };
  const Case cases[] = {
      {"comes near", {}, due(30), true},
      {"nearer, not there yet", due(30), due(1), false},
      {"its day", due(1), due(0), true},
      {"the same day", due(0), due(0), false},
      {"past", due(0), due(-1), true},
      {"long past", due(-1), due(-9), false},
      {"renewed", due(-1), due(20), false},
      {"dealt with", {}, due(-1, true), false},
      {"no longer put off", due(-1, true), due(-1), true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    notice::DueWatch watch;
    EXPECT_TRUE(watch.Look(c.before).empty());
    EXPECT_EQ(watch.Look(c.now).size(), c.news ? 1U : 0U);
  }
}

class RoundTest : public DatabaseTest {
 protected:
  RoundTest() {
    host.temporaryFolder = folder.File("");
    AddFleet(bd, 1000);
    Vehicle("12-AB-34", "VENDAS", -3);
    Vehicle("56-CD-78", "OBRAS", 10);
  }

  void Vehicle(const std::string& plate, const char* department, int days) {
    AddVehicle(bd, plate);
    Sql("UPDATE zor_PV_Viaturas SET Departamento='" + std::string(department) + "', Responsavel='" +
        (days < 0 ? "1" : "2") + "', DataSelo='" +
        platform::FormatDate(host.clock.AddDays(days), "yyyy-mm-dd") + "', SeloPago=0 WHERE Matricula='" +
        plate + "'");
  }
  void Tell(const char* address, notice::Scope scope = notice::Scope::kAll, const char* code = "",
            bool report = false) {
    notice::NoticeBook(bd).Put({address, "", scope, code, report});
  }
  std::vector<notice::Outcome> Run(Delivery delivery = Delivery::kTaken) {
    notice::Round round(store(), "frota@x.pt");
    return round.Run([&](const notice::Mail& mail) {
      mails.push_back(mail);
      return notice::DeliveryResult{delivery, ""};
    });
  }
  std::shared_ptr<zorCrmParvel::Store> store() {
    return std::shared_ptr<zorCrmParvel::Store>(bd.get(), [](auto*) {});
  }

  TemporaryFolder folder;
  std::vector<notice::Mail> mails;
};

TEST_F(RoundTest, EveryoneHearsOfHisOwnAndNothingTwice) {
  Tell("todos@x.pt");
  Tell("obras@x.pt", notice::Scope::kDepartment, "OBRAS");
  Tell("ana@x.pt", notice::Scope::kResponsible, "1");
  Tell("ninguem@x.pt", notice::Scope::kDepartment, "1");
  Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', 2, '" +
      platform::FormatDate(host.clock.AddDays(9), "yyyy-mm-dd") + "')");
  Run();
  ASSERT_EQ(mails.size(), 3U);  // by address: ana, obras, todos
  EXPECT_EQ(mails[0].to, "ana@x.pt");
  EXPECT_NE(mails[0].text.find("12-AB-34"), std::string::npos);
  EXPECT_EQ(mails[0].text.find("56-CD-78"), std::string::npos);
  EXPECT_NE(mails[0].text.find("Carta"), std::string::npos) << "her own licence\n" << mails[0].text;
  EXPECT_EQ(mails[1].text.find("Carta"), std::string::npos);
  EXPECT_EQ(mails[1].text.find("12-AB-34"), std::string::npos);
  EXPECT_NE(mails[1].text.find("56-CD-78"), std::string::npos);
  EXPECT_NE(mails[2].text.find("Vencido"), std::string::npos) << mails[2].text;
  EXPECT_NE(mails[2].text.find("A vencer"), std::string::npos) << mails[2].text;

  Run();
  EXPECT_EQ(mails.size(), 3U);
  host.clock = host.clock.AddDays(7);
  Run();
  ASSERT_EQ(mails.size(), 5U);  // the one that is past, to whom it concerns
  EXPECT_EQ(mails[4].text.find("56-CD-78"), std::string::npos) << mails[4].text;
}

TEST_F(RoundTest, WhatIsPutOffWaits) {
  Tell("todos@x.pt");
  const std::string day = platform::FormatDate(host.clock.AddDays(-3), "dd-mm-yyyy");
  due::Handle(bd, "AlertasViat", due::AlertOf({"12-AB-34", "Data de Pagamento do Selo ultrapassada!", day}),
              {host.clock.AddDays(2).DayOnly(), "na oficina", "ANA", host.clock});
  Run();
  ASSERT_EQ(mails.size(), 1U);
  EXPECT_EQ(mails[0].text.find("Selo: 12-AB-34"), std::string::npos) << mails[0].text;
  host.clock = host.clock.AddDays(2);
  Run();
  ASSERT_EQ(mails.size(), 2U);
  EXPECT_NE(mails[1].text.find("Selo: 12-AB-34"), std::string::npos) << mails[1].text;
}

TEST_F(RoundTest, WhatWasRenewedIsNewsAgain) {
  Tell("todos@x.pt");
  Run();
  Sql("UPDATE zor_PV_Viaturas SET DataSelo='2025-03-20'");
  Run();
  EXPECT_EQ(mails.size(), 1U);
  host.clock = Date::FromParts(2025, 3, 15);
  Run();
  ASSERT_EQ(mails.size(), 2U);
  EXPECT_NE(mails[1].text.find("Selo: 12-AB-34 Renault, 20-03-2025 (faltam 5 dias)"), std::string::npos)
      << mails[1].text;
}

TEST_F(RoundTest, WhatDidNotLeaveIsToldTheNextTimeAndWhatMayHaveIsNot) {
  Tell("todos@x.pt");
  Run(Delivery::kNotSent);
  Run(Delivery::kUncertain);
  Run();
  EXPECT_EQ(mails.size(), 2U);
  // What was told as coming is past now: until that has left, it counts as told before.
  host.clock = host.clock.AddDays(11);
  Run(Delivery::kNotSent);
  Run();
  Run();
  ASSERT_EQ(mails.size(), 4U);
  EXPECT_EQ(mails[2].text, mails[3].text);
}

TEST_F(RoundTest, TheCostsOfTheMonthBeforeGoAlong) {
  AddExpense(bd, "12-AB-34", Date::FromParts(2024, 2, 10), "PORTAGEM", "1", "7,5", 0);
  Tell("todos@x.pt", notice::Scope::kAll, "", true);
  Run();
  ASSERT_EQ(mails.size(), 1U);
  ASSERT_EQ(mails[0].attachments.size(), 1U);
  EXPECT_EQ(mails[0].attachments[0].name, "custos-2024-02.xlsx");
  EXPECT_EQ(mails[0].attachments[0].bytes.substr(0, 2), "PK");
}

}  // namespace
}  // namespace notice_test
