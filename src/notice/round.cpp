#include "notice/round.h"

#include <functional>
#include <optional>
#include <set>

#include "host/one_row.h"
#include "notice/month_of_costs.h"
#include "platform/format.h"
#include "platform/host.h"
#include "reports/relatorio.h"

namespace notice {
namespace {

using zorCrmParvel::Row;

constexpr std::int32_t kDaysAhead = 30;

std::string MessageId(const std::string& address, const std::vector<NewsItem>& items, platform::Date now) {
  std::string all = address;
  for (const NewsItem& item : items) all += "\n" + item.uid;
  return platform::FormatDate(now, "yyyymmdd") + "." + std::to_string(std::hash<std::string>()(all)) +
         "@parvel";
}

}  // namespace

Round::Round(std::shared_ptr<zorCrmParvel::Store> store, std::string sender)
    : store_(std::move(store)),
      bd_(std::shared_ptr<zorCrmParvel::DataAccess>(store_)),
      book_(bd_),
      sender_(std::move(sender)) {}

void Round::Gather() {
  zorCrmParvel::RecordsetRef rows;
  bd_->AbrirLeitura("", "SELECT Matricula, Departamento, Responsavel FROM zor_PV_Viaturas", rows);
  for (const Row row(*rows); !rows->Eof(); rows->MoveNext())
    vehicles_[row.text("Matricula")] = {row.textOrEmpty("Departamento"), row.textOrEmpty("Responsavel")};
  rows->Close();
  for (const DueDate& due : DueDatesOf(bd_, kDaysAhead))
    if (!due.handled) pieces_.push_back({NewsOf(due), due.plate, due.driver});
  GatherOddities();
}

void Round::GatherOddities() {
  reports::Pedido request;
  const platform::Date today = platform::Today();
  request.periodo = {today.days() - kDaysAhead, today.days()};
  const reports::Relatorio report = reports::Fazer(bd_, reports::TipoDeRelatorio::kExcepcoes, request);
  const reports::Tabela& table = report.tabelas.front();
  for (std::size_t i = 0; i < table.Quantas(); ++i) {
    const reports::LinhaDaTabela row = table.Linha(i);
    NewsItem item;
    item.uid = "excepcao-" + reports::TextoDaChave(table, row, "regra") + "-" +
               reports::TextoDaChave(table, row, "tabela") + "-" + reports::TextoDaChave(table, row, "id") +
               "@parvel";
    item.text = reports::TextoDaChave(table, row, "viatura") + ", " +
                reports::TextoDaChave(table, row, "data") + ": " + reports::TextoDaChave(table, row, "texto");
    item.odd = true;
    pieces_.push_back({item, reports::TextoDaChave(table, row, "viatura"), ""});
  }
}

bool Round::Concerns(const Piece& piece, const Recipient& recipient) const {
  if (recipient.scope == Scope::kAll) return true;
  if (recipient.scope == Scope::kResponsible && !piece.driver.empty()) return piece.driver == recipient.code;
  const auto vehicle = vehicles_.find(piece.plate);
  if (vehicle == vehicles_.end()) return false;
  return recipient.code ==
         (recipient.scope == Scope::kDepartment ? vehicle->second.department : vehicle->second.responsible);
}

std::vector<NewsItem> Round::ItemsFor(const Recipient& recipient) const {
  std::vector<NewsItem> all;
  for (const Piece& piece : pieces_)
    if (Concerns(piece, recipient)) all.push_back(piece.item);
  return all;
}

Mail Round::MailFor(const Recipient& recipient, const Outcome& outcome,
                    const std::vector<NewsItem>& items) const {
  Mail mail;
  mail.id = MessageId(recipient.address, items, platform::Today());
  mail.from = sender_;
  mail.to = recipient.address;
  mail.toName = recipient.name;
  mail.subject = outcome.digest.subject;
  mail.text = outcome.digest.text;
  mail.html = outcome.digest.html;
  if (!recipient.report) return mail;
  std::vector<std::string> plates;
  for (const auto& [plate, vehicle] : vehicles_)
    if (Concerns({{}, plate, ""}, recipient)) plates.push_back(plate);
  if (!plates.empty()) mail.attachments.push_back(MonthOfCosts(bd_, plates));
  return mail;
}

/// What is due no longer, once renewed, is news again when it comes near the next time.
void Round::ForgetSettled(const Recipient& recipient, const std::vector<NewsItem>& all,
                          const std::map<std::string, Told>& told) {
  std::set<std::string> due;
  for (const NewsItem& item : all) due.insert(item.uid);
  for (const auto& [uid, how] : told)
    if (due.count(uid) == 0) book_.Forget(recipient.address, uid);
}

Outcome Round::Tell(const Recipient& recipient, const Post& post) {
  Outcome outcome;
  outcome.address = recipient.address;
  std::vector<NewsItem> items;
  std::map<std::string, Told> before;
  {
    // Held while it is decided what is new: two rounds at once don't tell the same.
    std::optional<zorCrmParvel::Batch> batch;
    if (post) batch.emplace(*store_);
    before = book_.ToldTo(recipient.address);
    const std::vector<NewsItem> all = ItemsFor(recipient);
    items = NotYetTold(all, before, platform::Now());
    if (post) ForgetSettled(recipient, all, before);
    outcome.items = items.size();
    if (items.empty()) {
      if (batch) batch->Commit();
      return outcome;
    }
    outcome.digest = WriteDigest(items, recipient, store_->Place());
    if (!post) return outcome;
    for (const NewsItem& item : items)
      book_.Remember(recipient.address, item.uid, {item.stage, platform::Now()});
    batch->Commit();
  }
  outcome.result = post(MailFor(recipient, outcome, items));
  if (outcome.result.delivery != Delivery::kNotSent) return outcome;
  zorCrmParvel::Batch batch(*store_);
  for (const NewsItem& item : items) {
    const auto told = before.find(item.uid);
    if (told == before.end())
      book_.Forget(recipient.address, item.uid);
    else
      book_.Remember(recipient.address, item.uid, told->second);
  }
  batch.Commit();
  return outcome;
}

std::vector<Outcome> Round::Run(const Post& post) {
  Gather();
  std::vector<Outcome> outcomes;
  for (const Recipient& recipient : book_.Recipients()) outcomes.push_back(Tell(recipient, post));
  return outcomes;
}

}  // namespace notice
