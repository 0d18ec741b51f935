#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <sstream>

#include "desktop/exchange/import_dialog.h"

#include "desktop/exchange/import_preview_page.h"
#include "desktop/exchange/new_codes_dialog.h"
#include "desktop/exchange/plan_model.h"
#include "desktop/exchange/work_bar.h"
#include "desktop/history/undo_dialog.h"
#include "desktop/list/table_export.h"
#include "desktop/look/text.h"
#include "desktop/shell/file_dialog.h"
#include "desktop/shell/message_box.h"
#include "exchange/assistant/preview_table.h"
#include "exchange/imports/import_log.h"
#include "exchange/imports/row_mark.h"
#include "exchange/imports/take_back.h"
#include "history/outside.h"
#include "platform/files.h"
#include "platform/host.h"

namespace desktop {
namespace {

QString RowsAndSum(const char* what, const exchange::Tally& tally, bool amounts) {
  const QLocale locale;
  QString text = QStringLiteral("%1: %2").arg(QString::fromUtf8(what),
                                              locale.toString(static_cast<qlonglong>(tally.rows)));
  if (amounts) text += QStringLiteral(", %1 €").arg(locale.toString(tally.amount.ToDouble(), 'f', 2));
  return text;
}

}  // namespace

/// Reads and checks the file; the preview shows the plan then.
bool ImportDialog::MakePlan() {
  std::unique_ptr<exchange::ImportPlan> plan;
  const bool read = work_->Run(QStringLiteral("A ler"),
                               [&](const exchange::Progress& progress) { plan = session_->Plan(progress); });
  if (!read) return false;
  preview_page_->Show(nullptr);
  plan_ = std::move(plan);
  if (!AskQuestions()) return false;
  if (!work_->Run(QStringLiteral("A verificar"),
                  [&](const exchange::Progress& progress) { plan_->Check(progress); }))
    return false;
  preview_page_->Show(plan_.get());
  return true;
}

bool ImportDialog::AskQuestions() {
  while (!plan_->questions().empty())
    if (!Ask(plan_->questions().front())) return false;
  return true;
}

/// What can be read in two ways in the whole file.
bool ImportDialog::Ask(const exchange::Question& question) {
  const bool dates = question.about == exchange::Question::About::kDateOrder;
  QMessageBox box(this);
  box.setWindowTitle(windowTitle());
  box.setIcon(QMessageBox::Question);
  box.setTextFormat(Qt::PlainText);
  box.setText((dates ? QStringLiteral("As datas do ficheiro, como «%1», podem ler-se de duas maneiras.")
                     : QStringLiteral("Os números do ficheiro, como «%1», podem ler-se de duas maneiras."))
                  .arg(ToQt(question.example)));
  QPushButton* first = box.addButton(
      dates ? QStringLiteral("&Dia, mês, ano") : QStringLiteral("&Vírgula decimal"), QMessageBox::AcceptRole);
  QPushButton* second = box.addButton(
      dates ? QStringLiteral("&Mês, dia, ano") : QStringLiteral("&Ponto decimal"), QMessageBox::AcceptRole);
  box.setEscapeButton(box.addButton(QStringLiteral("&Cancelar"), QMessageBox::RejectRole));
  Run(box);
  if (box.clickedButton() != first && box.clickedButton() != second) return false;
  const bool is_first = box.clickedButton() == first;
  if (dates)
    plan_->Answer(is_first ? exchange::DateOrder::kDayFirst : exchange::DateOrder::kMonthFirst);
  else
    plan_->Answer(is_first ? ',' : '.');
  return true;
}

void ImportDialog::Check() {
  work_->Run(QStringLiteral("A verificar"),
             [&](const exchange::Progress& progress) { plan_->Check(progress); });
  preview_page_->Refresh();
  ShowButtons();
  if (next_->isEnabled()) next_->setFocus();
}

void ImportDialog::CreateCodes() {
  std::vector<exchange::NewCode> unknown;
  if (!Guarded(this, [&] { unknown = plan_->UnknownCodes(); })) return;
  if (unknown.empty()) {
    ShowMessage(this, QStringLiteral("Não faltam códigos: as linhas são recusadas por outras razões."),
                platform::kOkOnly | platform::kInformation, windowTitle());
    return;
  }
  NewCodesDialog dialog(std::move(unknown), session_->kind(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  const auto accept = [&] {
    for (const exchange::NewCode& meant : dialog.Meant())
      for (const std::string& text : meant.texts) plan_->Learn(meant.column, text, meant.code);
    plan_->Create(dialog.Chosen());
  };
  if (Guarded(this, accept)) Check();
}

void ImportDialog::WriteRefused() {
  FileDialog dialog(this, QStringLiteral("Linhas recusadas"), QStringLiteral("recusadas.csv"),
                    QStringLiteral("CSV (*.csv)"));
  dialog.setAcceptMode(FileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("csv"));
  const QString file = dialog.Ask();
  if (file.isEmpty()) return;
  Guarded(this, [&] {
    std::ostringstream rows;
    plan_->WriteRefused(rows);
    platform::WritePrivateFile(FromQt(file), rows.str());
  });
}

/// The rows that the preview shows.
void ImportDialog::Export() {
  const QString file = AskForTableFile(this, QStringLiteral("Importação"));
  if (file.isEmpty()) return;
  Guarded(this, [&] {
    exchange::WriteTable(exchange::PreviewTable(*plan_, preview_page_->model().shown()), FromQt(file),
                         exchange::FormatOf(FromQt(file)));
  });
}

void ImportDialog::Store() {
  const std::string checksum = exchange::ChecksumOfFile(session_->file());
  const auto before = exchange::ImportedBefore(store_, checksum);
  const QString question =
      QStringLiteral("Este ficheiro já foi importado em %1.\n\nGuardar mesmo assim as linhas que são novas?");
  if (before && ShowMessage(this, question.arg(ToQt(before->when.ToText())),
                            platform::kYesNo | platform::kQuestion | platform::kDefaultButton2,
                            windowTitle()) != platform::kYes)
    return;
  const std::string name = FromQt(QFileInfo(ToQt(session_->file())).fileName());
  const std::string who = FromQt(qEnvironmentVariable("USER"));
  const bool done = work_->Run(QStringLiteral("A guardar"), [&](const exchange::Progress& progress) {
    stored_ = plan_->Store(name, checksum, who, progress, [&](long number, long rows) {
      const std::string words = "Importação " + std::to_string(number) + ": " + name + " (" +
                                std::to_string(rows) + (rows == 1 ? " linha)" : " linhas)");
      history::NoteIn(*store_, words, "parvel_importacoes", std::to_string(number));
    });
  });
  if (!done) return;
  written_ = true;
  ShowEnd();
}

/// Every row of the file is in one of these lines.
void ImportDialog::ShowEnd() {
  const exchange::Reconciliation& rows = stored_.rows;
  const bool amounts = session_->kind().amount != nullptr;
  QStringList lines = {
      RowsAndSum("Guardadas", rows.stored, amounts), RowsAndSum("Já existiam", rows.known, amounts),
      RowsAndSum("Postas de parte", rows.aside, amounts), RowsAndSum("Recusadas", rows.refused, amounts),
      RowsAndSum("Linhas do ficheiro", rows.file, amounts)};
  if (rows.credits.rows > 0)
    lines.insert(3, QStringLiteral("  das quais ") + RowsAndSum("créditos", rows.credits, amounts));
  if (rows.declared) {
    const bool right = *rows.declared == rows.file.amount;
    lines << QStringLiteral("Total que o ficheiro diz: %1 €, %2")
                 .arg(QLocale().toString(rows.declared->ToDouble(), 'f', 2),
                      right ? QStringLiteral("confere") : QStringLiteral("não confere com as linhas"));
  }
  if (!stored_.vehicles.empty()) {
    QStringList plates;
    for (const std::string& plate : stored_.vehicles) plates << ToQt(plate);
    lines << QString() << QStringLiteral("Viaturas: ") + plates.join(QStringLiteral(", "));
  }
  end_->setText(lines.join(QLatin1Char('\n')));
  GoTo(kEnd);
}

void ImportDialog::TakeBack() {
  exchange::TakenBack taken;
  if (!Guarded(this, [&] { taken = TakeBackNoted(store_, std::to_string(stored_.number)); })) return;
  QStringList lines = {
      QStringLiteral("A importação foi anulada: %1 saíram.")
          .arg(Counted(taken.removed, QStringLiteral("registo"), QStringLiteral("registos")))};
  for (const exchange::KeptRow& kept : taken.kept)
    lines << QStringLiteral("Ficou a linha %1: %2").arg(kept.line).arg(ToQt(kept.why));
  end_->setText(lines.join(QLatin1Char('\n')));
  stored_.number = 0;
  ShowButtons();
}

}  // namespace desktop
