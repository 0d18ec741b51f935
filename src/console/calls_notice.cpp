#include <CLI/CLI.hpp>
#include <cstdlib>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "console/calls.h"
#include "console/notice_timer.h"
#include "console/program.h"
#include "notice/round.h"
#include "platform/files.h"
#include "platform/host.h"
#include "store/password.h"
#include "store/paths.h"

namespace console {
namespace {

constexpr std::int32_t kCalendarDays = 365;

struct NoticeOptions {
  bool simulate = false;
  bool install = false;
  bool calendar = false;
  bool remove = false;
  std::string passwordFile;
  notice::MailSettings settings;
  notice::Recipient recipient;
  std::string department;
  std::string responsible;
  bool withoutReport = false;
};

int Refuse(const Calls& calls, const std::string& why) {
  calls.err << why << '\n';
  return kRefused;
}

notice::NoticeBook BookOf(const std::shared_ptr<zorCrmParvel::Store>& store) {
  return notice::NoticeBook(zorCrmParvel::DataAccessRef(std::shared_ptr<zorCrmParvel::DataAccess>(store)));
}

void Print(const notice::Outcome& outcome, bool simulated, std::ostream& out) {
  out << outcome.address << ": ";
  if (outcome.items == 0)
    out << "nada de novo.\n";
  else if (simulated)
    out << outcome.digest.subject << "\n\n" << outcome.digest.text;
  else if (outcome.result.delivery == notice::Delivery::kTaken)
    out << outcome.items << (outcome.items == 1 ? " aviso enviado.\n" : " avisos enviados.\n");
  else
    out << (outcome.result.delivery == notice::Delivery::kNotSent ? "não foi enviado. "
                                                                  : "não se sabe se chegou. ")
        << outcome.result.reason << '\n';
}

/// Where calendar programs find the due dates: beside the usual database. The path.
std::string WriteCalendarFile(const std::shared_ptr<zorCrmParvel::Store>& store) {
  const zorCrmParvel::DataAccessRef bd{std::shared_ptr<zorCrmParvel::DataAccess>(store)};
  const std::string database = store::DefaultDatabasePath();
  const std::string folder = database.substr(0, database.rfind('/'));
  store::CreatePrivateFolders(folder);
  std::string file = folder + "/alertas.ics";
  platform::WritePrivateFile(
      file,
      exchange::WriteCalendar(notice::CalendarOf(notice::DueDatesOf(bd, kCalendarDays)), platform::Now()));
  return file;
}

int TellCalendar(const Calls& calls) {
  const std::string file = WriteCalendarFile(calls.Open());
  calls.out << "Calendário escrito em " << file << "\nOs programas de calendário assinam-no por file://"
            << file << '\n';
  return kDone;
}

/// From a file, else from the environment.
std::optional<std::string> MailPassword(const std::string& file) {
  if (!file.empty()) return store::PasswordFromFile(file);
  const char* given = std::getenv("PARVEL_SENHA_CORREIO");
  return given == nullptr ? std::nullopt : std::optional<std::string>(given);
}

int SendNotices(const Calls& calls, const NoticeOptions& options) {
  const auto store = calls.Open();
  const notice::NoticeBook book = BookOf(store);
  WriteCalendarFile(store);
  const notice::MailSettings settings = book.Settings();
  if (book.Recipients().empty())
    return Refuse(calls, "Ninguém está para ser avisado. Junte alguém com parvel aviso juntar ENDEREÇO.");
  if (!options.simulate && (settings.url.empty() || settings.from.empty()))
    return Refuse(calls, "Falta o servidor de correio. Indique-o com parvel aviso servidor --endereco --de.");
  notice::MailServer server{settings.url, settings.user, "", settings.authority};
  if (!options.simulate && !settings.user.empty()) {
    const std::optional<std::string> password = MailPassword(options.passwordFile);
    if (!password)
      return Refuse(
          calls,
          "Falta a senha do servidor de correio: ponha-a num ficheiro que só você leia e indique-o com "
          "--senha-correio-ficheiro.");
    server.password = *password;
  }
  notice::Round round(store, settings.from);
  notice::Post post;
  if (!options.simulate) post = [&server](const notice::Mail& mail) { return notice::Deliver(mail, server); };
  int code = kDone;
  for (const notice::Outcome& outcome : round.Run(post)) {
    Print(outcome, options.simulate, calls.out);
    if (outcome.result.delivery != notice::Delivery::kTaken) code = kFailed;
  }
  return code;
}

int RunNotices(const Calls& calls, const NoticeOptions& options) {
  if (options.install)
    return InstallTimer({calls.database, options.passwordFile, options.calendar}, calls.out, calls.err);
  if (options.remove) return RemoveTimer(calls.out, calls.err);
  return options.calendar ? TellCalendar(calls) : SendNotices(calls, options);
}

int SetServer(const Calls& calls, const NoticeOptions& options) {
  const auto store = calls.Open();
  const notice::NoticeBook book = BookOf(store);
  notice::MailSettings settings = book.Settings();
  const notice::MailSettings& given = options.settings;
  if (!given.url.empty() && given.url.rfind("smtp://", 0) != 0 && given.url.rfind("smtps://", 0) != 0)
    return Refuse(
        calls,
        "O endereço do servidor começa por smtp:// ou smtps://, por exemplo smtp://correio.exemplo.pt:587.");
  if (!given.from.empty() && !notice::IsAddress(given.from))
    return Refuse(calls, "«" + given.from + "» não é um endereço de correio.");
  bool changed = false;
  for (const auto& [now, then] : {std::pair{&given.url, &settings.url},
                                  {&given.from, &settings.from},
                                  {&given.user, &settings.user},
                                  {&given.authority, &settings.authority}})
    if (!now->empty()) {
      *then = *now;
      changed = true;
    }
  if (changed) book.Put(settings);
  calls.out << "Servidor: " << settings.url << "\nDe: " << settings.from << "\nUtilizador: " << settings.user
            << "\nAutoridade: " << settings.authority << '\n';
  return kDone;
}

int AddRecipient(const Calls& calls, const NoticeOptions& options) {
  notice::Recipient recipient = options.recipient;
  if (!notice::IsAddress(recipient.address))
    return Refuse(calls, "«" + recipient.address + "» não é um endereço de correio.");
  recipient.report = !options.withoutReport;
  if (!options.department.empty()) {
    recipient.scope = notice::Scope::kDepartment;
    recipient.code = options.department;
  } else if (!options.responsible.empty()) {
    recipient.scope = notice::Scope::kResponsible;
    recipient.code = options.responsible;
  }
  const auto store = calls.Open();
  BookOf(store).Put(recipient);
  calls.out << recipient.address << " passa a ser avisado.\n";
  return kDone;
}

int DropRecipient(const Calls& calls, const NoticeOptions& options) {
  const auto store = calls.Open();
  if (!BookOf(store).Remove(options.recipient.address))
    return Refuse(calls, "Não há ninguém com o endereço " + options.recipient.address + ".");
  calls.out << options.recipient.address << " deixa de ser avisado.\n";
  return kDone;
}

int ListRecipients(const Calls& calls) {
  const auto store = calls.Open();
  for (const notice::Recipient& recipient : BookOf(store).Recipients()) {
    calls.out << recipient.address << "  " << recipient.name << "  ";
    if (recipient.scope == notice::Scope::kAll) calls.out << "tudo";
    if (recipient.scope == notice::Scope::kDepartment) calls.out << "departamento " << recipient.code;
    if (recipient.scope == notice::Scope::kResponsible) calls.out << "responsável " << recipient.code;
    calls.out << (recipient.report ? ", com os custos do mês\n" : "\n");
  }
  return kDone;
}

}  // namespace

void AddNoticeCalls(Calls& calls) {
  auto options = std::make_shared<NoticeOptions>();
  CLI::App& aviso = calls.Add("aviso", "Avisa por correio do que está a vencer e do que é estranho.",
                              [&calls, options] { return RunNotices(calls, *options); });
  aviso.add_flag("--simular", options->simulate, "Mostra as mensagens, sem as enviar.");
  aviso.add_flag("--calendario", options->calendar, "Só escreve o calendário dos prazos, e diz onde está.");
  auto* install = aviso.add_flag("--instalar", options->install, "Avisa todos os dias, por si.");
  aviso.add_flag("--retirar", options->remove, "Deixa de avisar por si.")->excludes(install);
  aviso
      .add_option("--senha-correio-ficheiro", options->passwordFile,
                  "Ficheiro, legível só por si, com a senha do servidor de correio.")
      ->type_name("FICHEIRO");

  CLI::App& server = calls.AddBelow(aviso, "servidor", "Mostra ou muda o servidor de correio.",
                                    [&calls, options] { return SetServer(calls, *options); });
  server.add_option("--endereco", options->settings.url, "smtp://servidor:porta ou smtps://servidor.")
      ->type_name("ENDEREÇO");
  server.add_option("--de", options->settings.from, "Endereço de quem envia.")->type_name("ENDEREÇO");
  server.add_option("--utilizador", options->settings.user, "Utilizador, se o servidor o pede.")
      ->type_name("NOME");
  server
      .add_option("--autoridade", options->settings.authority,
                  "Ficheiro da autoridade do certificado do servidor.")
      ->type_name("FICHEIRO");

  CLI::App& add = calls.AddBelow(aviso, "juntar", "Junta um destinatário, ou muda o que há.",
                                 [&calls, options] { return AddRecipient(calls, *options); });
  add.add_option("endereco", options->recipient.address, "Endereço de correio.")->required();
  add.add_option("--nome", options->recipient.name, "Nome.")->type_name("NOME");
  auto* department = add.add_option("--departamento", options->department, "Só do que é deste departamento.")
                         ->type_name("CÓDIGO");
  add.add_option("--responsavel", options->responsible,
                 "Só das viaturas de que este motorista é responsável, e dos documentos dele.")
      ->type_name("CÓDIGO")
      ->excludes(department);
  add.add_flag("--sem-relatorio", options->withoutReport, "Sem os custos do mês anterior.");

  CLI::App& drop = calls.AddBelow(aviso, "tirar", "Tira um destinatário.",
                                  [&calls, options] { return DropRecipient(calls, *options); });
  drop.add_option("endereco", options->recipient.address, "Endereço de correio.")->required();
  calls.AddBelow(aviso, "destinatarios", "Mostra quem é avisado, e de quê.",
                 [&calls] { return ListRecipients(calls); });
}

}  // namespace console
