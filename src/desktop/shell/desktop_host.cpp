#include "desktop/shell/desktop_host.h"

#include <QApplication>
#include <QEventLoop>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <utility>

#include "desktop/database/late_reading.h"
#include "desktop/ficha/form_dialog.h"
#include "desktop/ficha/lookup_dialog.h"
#include "desktop/list/sources.h"
#include "desktop/look/text.h"
#include "desktop/print/report_dialog.h"
#include "desktop/shell/documents.h"
#include "desktop/shell/file_dialog.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"

namespace desktop {
namespace {

constexpr int kMoment = 500;  // milliseconds in which nothing is said of work under way

/// The patterns of a description, which some filters repeat in brackets at its end.
QString WithoutPatterns(const QString& description) {
  const qsizetype bracket = description.lastIndexOf(QLatin1Char('('));
  return (bracket > 0 ? description.left(bracket) : description).trimmed();
}

}  // namespace

QStringList FileFilters(const std::string& filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString patterns = parts[i + 1].simplified();
    patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
    if (patterns == QLatin1String("*.*")) patterns = QStringLiteral("*");
    filters << QStringLiteral("%1 (%2)").arg(WithoutPatterns(parts[i]), patterns);
  }
  return filters;
}

DesktopHost::DesktopHost(QSettings& settings) : settings_(settings) {}
DesktopHost::~DesktopHost() = default;

QWidget* DesktopHost::Front() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : main_window_;
}

/// Null while no database is open.
BackgroundReader* DesktopHost::Reader() const {
  Workspace* workspace = main_window_ != nullptr ? main_window_->workspace() : nullptr;
  return workspace != nullptr ? &workspace->reader() : nullptr;
}

/// What the module asks may be about what it has just put on the screen.
void DesktopHost::SyncFichas() {
  for (FormDialog* dialog : open_) dialog->Sync();
}

int DesktopHost::MsgBox(const std::string& text, int style, const std::string& title) {
  SyncFichas();
  return ShowMessage(Front(), ToQt(text), style, ToQt(title));
}

std::string DesktopHost::InputBox(const std::string& prompt, const std::string& title,
                                  const std::string& initial) {
  SyncFichas();
  QInputDialog dialog(Front());
  dialog.setWindowTitle(ToQt(title));
  dialog.setLabelText(ToQt(prompt));
  dialog.setTextValue(ToQt(initial));
  dialog.setOkButtonText(QStringLiteral("OK"));
  dialog.setCancelButtonText(QStringLiteral("Cancelar"));
  return dialog.exec() == QDialog::Accepted ? FromQt(dialog.textValue()) : std::string();
}

std::optional<std::string> DesktopHost::OpenFile(const platform::FileDialog& asked) {
  FileDialog dialog(Front(), asked.Title.empty() ? QStringLiteral("Abrir ficheiro") : ToQt(asked.Title));
  dialog.setFileMode(FileDialog::ExistingFile);
  const QStringList filters = FileFilters(asked.Filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(asked.FilterIndex - 1, filters.first()));
  }
  const QString file = dialog.Ask();
  return file.isEmpty() ? std::nullopt : std::optional(FromQt(file));
}

void DesktopHost::ShowModal(platform::Form& form, platform::Form*) {
  if (form.IsClosed()) return;
  Workspace* workspace = main_window_ != nullptr ? main_window_->workspace() : nullptr;
  FormDialog dialog(form, settings_, Front(), Reader());
  if (why_not_) dialog.ShowOnly(why_not_(form.Name));
  open_.push_back(&dialog);
  // What a list knows of its rows is no answer to what a ficha asks.
  store::Foreseen foreseen = workspace != nullptr ? workspace->Foresee({}) : store::Foreseen();
  dialog.exec();
  if (workspace != nullptr) workspace->Foresee(std::move(foreseen));
  open_.pop_back();
}

std::string DesktopHost::ShowLookup(platform::ListaPesquisa& list) {
  LookupDialog dialog(list, Front(), Reader());
  return dialog.exec() == QDialog::Accepted ? dialog.Key() : std::string();
}

/// Waits for the rows of a report that come late; false when the user didn't. What comes in a moment is
/// waited for without a word.
bool DesktopHost::HasRows(platform::MapaListagem& report) const {
  if (Reader() == nullptr) return true;
  QMessageBox box(QMessageBox::NoIcon, ToQt(report.Titulo),
                  QStringLiteral("A ler o mapa «%1»…").arg(ToQt(report.Titulo)), QMessageBox::NoButton,
                  Front());
  box.setObjectName(QStringLiteral("a-ler-o-mapa"));
  box.setEscapeButton(box.addButton(QStringLiteral("&Deixar"), QMessageBox::RejectRole));
  std::optional<ErrorText> failure;
  QEventLoop moment;
  bool came = false;
  const auto end = [&] {
    came = true;
    moment.quit();
    box.done(QDialog::Accepted);
  };
  const bool waits = ReadLate(*Reader(), &box, report.Linhas(), end, [&](const ErrorText& error) {
    failure = error;
    end();
  });
  if (waits) {
    QTimer::singleShot(kMoment, &moment, &QEventLoop::quit);
    moment.exec(QEventLoop::ExcludeUserInputEvents);
    if (!came) Run(box);
  }
  if (failure) ShowError(Front(), *failure);
  return (!waits || came) && !failure;
}

void DesktopHost::ShowReport(platform::MapaListagem& report) {
  if (!HasRows(report)) return;
  DialogSource source(report);
  ReportDialog(source, ToQt(report.Titulo), Front()).exec();
}

void DesktopHost::OpenDocument(const std::string& path) { OpenOrSave(ToQt(path), Front()); }

std::string DesktopHost::TemporaryFolder() {
  if (!temporary_) temporary_ = std::make_unique<QTemporaryDir>();
  if (!temporary_->isValid()) {
    const QString reason = std::exchange(temporary_, nullptr)->errorString();
    throw platform::RuntimeError(
        platform::kPathAccess, FromQt(reason),
        "Não foi possível criar uma pasta só sua para o documento, e nada foi escrito. Verifique o espaço no "
        "disco e as permissões da pasta temporária.");
  }
  return FromQt(temporary_->path()) + "/";
}

platform::Date DesktopHost::Now() { return platform::SystemTime(); }

}  // namespace desktop
