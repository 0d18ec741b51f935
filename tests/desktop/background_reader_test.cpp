#include "desktop/database/background_reader.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include "desktop/database/workspace.h"
#include "support/temporary_folder.h"

namespace desktop_test {
namespace {

using desktop::ErrorText;
using Reader = desktop::BackgroundReader;

/// On a file reads run on threads of their own, in memory on the window's.
class BackgroundReaderTest : public testing::TestWithParam<bool> {
 protected:
  void Ask(const std::string& statement) {
    ticket = reader.Ask(
        &whom,
        [this, statement](const Reader::StoreRef& store) {
          ++reads;
          zorCrmParvel::RecordsetRef rows;
          store->AbrirLeitura("", statement.c_str(), rows);
          return rows->Eof() ? 0 : 1;
        },
        [this](int rows) { answers << QString::number(rows); },
        [this](const ErrorText& failure) { answers << failure.headline; });
  }

  const testing_support::TemporaryFolder folder;
  desktop::Workspace workspace{GetParam() ? folder.File("a.db") : std::string(":memory:")};
  Reader& reader = workspace.reader();
  QObject whom;
  std::atomic<int> reads = 0;
  QStringList answers;
  desktop::ReadTicket ticket;
};

TEST_P(BackgroundReaderTest, ReadsWaitUntilTheyMayBegin) {
  reader.Hold();
  Ask("SELECT * FROM zor_PV_Marcas");
  Ask("SELECT COUNT(*) FROM zor_PV_Marcas");
  QTest::qWait(30);
  EXPECT_EQ(reads, 0);
  reader.Begin();
  EXPECT_TRUE(QTest::qWaitFor([this] { return answers.size() == 2; }));
  answers.sort();
  EXPECT_EQ(answers, QStringList({"0", "1"}));
  reader.Hold();
  Ask("SELECT COUNT(*) FROM zor_PV_Marcas");
  reader.Finish();
  EXPECT_EQ(answers.size(), 3);
  Ask("SELECT COUNT(*) FROM zor_PV_Marcas");
  EXPECT_TRUE(QTest::qWaitFor([this] { return answers.size() == 4; }))
      << "who waited for them holds nothing back";
}

TEST_P(BackgroundReaderTest, WhatIsGivenUpIsNotAnsweredAndNothingIsWritten) {
  reader.Hold();
  Ask("SELECT * FROM zor_PV_Marcas");
  ticket.GiveUp();
  Ask("SELECT * FROM NaoExiste");
  reader.Finish();
  ASSERT_EQ(answers.size(), 1);
  EXPECT_TRUE(answers[0].contains("NaoExiste")) << answers[0].toStdString();
  const auto write = [](const Reader::StoreRef& store) {
    store->ExecutarSql("", "INSERT INTO zor_PV_Marcas (Codigo) VALUES ('1')");
    return 0;
  };
  answers.clear();
  reader.Ask(
      &whom, write, [](int) {}, [this](const ErrorText& failure) { answers << failure.headline; });
  reader.Finish();
  EXPECT_EQ(answers, QStringList("Esta ligação é só para leitura."));
}

INSTANTIATE_TEST_SUITE_P(Databases, BackgroundReaderTest, testing::Bool());

}  // namespace
}  // namespace desktop_test
