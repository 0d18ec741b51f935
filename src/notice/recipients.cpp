#include "notice/recipients.h"

#include <array>

#include "host/one_row.h"

namespace notice {
namespace {

using platform::Variant;
using zorCrmParvel::Row;
using zorCrmParvel::Statement;
using zorCrmParvel::value;

constexpr std::array<const char*, 3> kScopes{"todos", "departamento", "responsavel"};

Scope ScopeOf(const std::string& word) {
  for (std::size_t i = 0; i < kScopes.size(); ++i)
    if (word == kScopes[i]) return static_cast<Scope>(i);
  return Scope::kAll;
}

Statement OneTold(const std::string& address, const std::string& uid) {
  return {"SELECT * FROM parvel_avisados WHERE Email = N'", value(address), "' AND Chave = N'", value(uid),
          "'"};
}

template <typename F>
void EachRow(const zorCrmParvel::DataAccessRef& bd, const Statement& statement, F&& use) {
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("", statement, rows);
  for (const Row row(*rows); !rows->Eof(); rows->MoveNext()) use(row);
  rows->Close();
}

}  // namespace

bool IsAddress(const std::string& text) {
  const std::size_t at = text.find('@');
  return at != std::string::npos && at > 0 && at + 1 < text.size() &&
         text.find('@', at + 1) == std::string::npos && text.find_first_of(" \t\r\n<>") == std::string::npos;
}

std::vector<Recipient> NoticeBook::Recipients() const {
  std::vector<Recipient> all;
  EachRow(bd_, "SELECT * FROM parvel_destinatarios ORDER BY Email", [&](const Row& row) {
    all.push_back({row.text("Email"), row.textOrEmpty("Nome"), ScopeOf(row.textOrEmpty("Ambito")),
                   row.textOrEmpty("Codigo"), row.integerOrZero("Relatorio") != 0});
  });
  return all;
}

void NoticeBook::Put(const Recipient& recipient) const {
  zorCrmParvel::EscreverLinha(
      bd_, {"SELECT * FROM parvel_destinatarios WHERE Email = N'", value(recipient.address), "'"}, "Email",
      recipient.address, [&](Row& row) {
        row.cut("Nome", recipient.name);
        row.put("Ambito", Variant(kScopes[static_cast<std::size_t>(recipient.scope)]));
        row.cut("Codigo", recipient.code);
        row.put("Relatorio", Variant(static_cast<std::int16_t>(recipient.report ? 1 : 0)));
      });
}

bool NoticeBook::Remove(const std::string& address) const {
  const Statement rows{"SELECT Email FROM parvel_destinatarios WHERE Email = N'", value(address), "'"};
  if (!zorCrmParvel::LerLinha(bd_, rows, [](const Row&) {})) return false;
  for (const char* table : {"parvel_destinatarios", "parvel_avisados"})
    bd_->ExecutarSql("",
                     {"DELETE FROM ", zorCrmParvel::fixed(table), " WHERE Email = N'", value(address), "'"});
  return true;
}

MailSettings NoticeBook::Settings() const {
  MailSettings settings;
  zorCrmParvel::LerLinha(bd_, "SELECT * FROM parvel_correio WHERE Nome = N'correio'", [&](const Row& row) {
    settings = {row.textOrEmpty("Servidor"), row.textOrEmpty("Remetente"), row.textOrEmpty("Utilizador"),
                row.textOrEmpty("Autoridade")};
  });
  return settings;
}

void NoticeBook::Put(const MailSettings& settings) const {
  zorCrmParvel::EscreverLinha(bd_, "SELECT * FROM parvel_correio WHERE Nome = N'correio'", "Nome", "correio",
                              [&](Row& row) {
                                row.cut("Servidor", settings.url);
                                row.cut("Remetente", settings.from);
                                row.cut("Utilizador", settings.user);
                                row.cut("Autoridade", settings.authority);
                              });
}

std::map<std::string, Told> NoticeBook::ToldTo(const std::string& address) const {
  std::map<std::string, Told> told;
  EachRow(bd_, {"SELECT * FROM parvel_avisados WHERE Email = N'", value(address), "'"}, [&](const Row& row) {
    told[row.text("Chave")] = {static_cast<Stage>(row.integerOrZero("Fase")), row.dateOrZero("Momento")};
  });
  return told;
}

void NoticeBook::Remember(const std::string& address, const std::string& uid, const Told& told) const {
  zorCrmParvel::RecordsetRef rows;
  bd_->AbrirEdicao(OneTold(address, uid), rows);
  Row row(*rows);
  if (rows->Eof()) {
    rows->AddNew();
    row.put("Email", Variant(address));
    row.put("Chave", Variant(uid));
  }
  row.put("Fase", Variant(static_cast<std::int16_t>(told.stage)));
  row.put("Momento", Variant(told.when));
  rows->Update();
  rows->Close();
}

void NoticeBook::Forget(const std::string& address, const std::string& uid) const {
  bd_->ExecutarSql("", {"DELETE FROM parvel_avisados WHERE Email = N'", value(address), "' AND Chave = N'",
                        value(uid), "'"});
}

}  // namespace notice
