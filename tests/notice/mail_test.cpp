#include "notice/mail.h"

#include <gtest/gtest.h>

#include <regex>

#include "notice/mail_server.h"

namespace notice_test {
namespace {

using notice::Delivery;

notice::Mail Sample() {
  return {"1@parvel",         "frota@x.pt", "ana@x.pt",   "Ana",
          "Frota: inspecção", "ola",        "<p>ola</p>", {{"a.txt", "text/plain", "abc"}}};
}

/// What the server gets, but for the moment and the marks between the parts.
constexpr const char* kMessage =
    R"(MAIL FROM:<frota@x.pt>
RCPT TO:<ana@x.pt>
Content-Type: multipart/mixed; boundary=--PARTE
Mime-Version: 1.0
From: Frota <frota@x.pt>
To: Ana <ana@x.pt>
Subject: =?utf-8?B?RnJvdGE6IGluc3BlY8Onw6Nv?=
Message-ID: <1@parvel>
Auto-Submitted: auto-generated

--PARTE
Content-Type: multipart/alternative; boundary=--PARTE

--PARTE
Content-Type: text/plain; charset=utf-8
Content-Transfer-Encoding: base64

b2xh
--PARTE
Content-Type: text/html; charset=utf-8
Content-Transfer-Encoding: base64

PHA+b2xhPC9wPg==
--PARTE--

--PARTE
Content-Disposition: attachment; filename="a.txt"
Content-Type: text/plain
Content-Transfer-Encoding: base64

YWJj
--PARTE--
)";

TEST(MailTest, AMessageReachesTheServerInOneReadablePiece) {
  for (const bool encrypted : {false, true}) {
    SCOPED_TRACE(encrypted);
    MailServer server(Behaviour::kTakes, encrypted);
    const auto result =
        Deliver(Sample(), {server.Url(), encrypted ? "frota" : "", "senha", server.Authority()});
    EXPECT_EQ(result.delivery, Delivery::kTaken) << result.reason;
    const auto messages = server.Messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(std::regex_search(
        messages[0],
        std::regex(
            "\nDate: (Sun|Mon|Tue|Wed|Thu|Fri|Sat), \\d+ "
            "(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) 20\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000\n")));
    const std::string message = std::regex_replace(messages[0], std::regex("\nDate: .*"), "");
    EXPECT_EQ(std::regex_replace(message, std::regex("-{10,}[0-9A-Za-z]+"), "--PARTE"),
              (encrypted ? "AUTH PLAIN\nAGZyb3RhAHNlbmhh\n" : "") + std::string(kMessage));
  }
}

TEST(MailTest, WhatWentWrongIsToldApart) {
  {
    MailServer server(Behaviour::kRefusesRecipient);
    const auto result = Deliver(Sample(), {server.Url(), "", "", ""});
    EXPECT_EQ(result.delivery, Delivery::kNotSent);
    EXPECT_EQ(result.reason, "O servidor de correio recusou a mensagem (550): RCPT failed: 550.");
    EXPECT_TRUE(server.Messages().empty());
  }
  {
    MailServer server(Behaviour::kHangsUpAfterMessage);
    EXPECT_EQ(Deliver(Sample(), {server.Url(), "", "", ""}).delivery, Delivery::kUncertain);
  }
  {
    // Nobody vouches for the server.
    MailServer server(Behaviour::kTakes, true);
    const auto result = Deliver(Sample(), {server.Url(), "", "", ""});
    EXPECT_EQ(result.delivery, Delivery::kNotSent);
    EXPECT_NE(result.reason.find("certificado"), std::string::npos) << result.reason;
  }
  std::string closed;
  { closed = MailServer(Behaviour::kTakes).Url(); }
  EXPECT_NE(Deliver(Sample(), {closed, "", "", ""}).reason.find("não responde"), std::string::npos);
}

TEST(MailTest, WhatIsPlainStandsInHeadersAsItIs) {
  const std::pair<const char*, const char*> cases[] = {
      {"Frota ~", "Frota ~"},     {"\x7f", "=?utf-8?B?fw==?="},     {"é", "=?utf-8?B?w6k=?="},
      {"éa", "=?utf-8?B?w6lh?="}, {"éa>?", "=?utf-8?B?w6lhPj8=?="}, {"a\n", "=?utf-8?B?YQo=?="}};
  for (const auto& [text, header] : cases) EXPECT_EQ(notice::HeaderText(text), header);
}

TEST(MailTest, LongHeadersAreBrokenBetweenLetters) {
  const std::string text = notice::HeaderText(std::string(30, 'a') + "çãoéíóúâêôàçãoéíóúâêôàçãoéíóúâêôà");
  EXPECT_NE(text.find("?=\r\n =?utf-8?B?"), std::string::npos);
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find("\r\n", begin), text.size());
    EXPECT_LE(end - begin, 76U);
    begin = end + 2;
  }
}

}  // namespace
}  // namespace notice_test
