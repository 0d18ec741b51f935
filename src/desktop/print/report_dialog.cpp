#include "desktop/print/report_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>

#include "desktop/look/house_style.h"
#include "desktop/look/icons.h"
#include "desktop/look/look.h"
#include "desktop/shell/desktop_host.h"
#include "desktop/shell/file_dialog.h"
#include "desktop/shell/message_box.h"
#include "desktop/shell/save_file.h"
#include "platform/runtime_error.h"

namespace desktop {
namespace {

constexpr int kPdfResolution = 1200;

QDate Today() {
  const platform::Date today = platform::Today();
  return {today.year(), today.month(), today.day()};
}

}  // namespace

ReportDialog::ReportDialog(const TableSource& source, QString title, QWidget* parent, PaperTable paper)
    : QDialog(parent),
      title_(std::move(title)),
      table_(source, std::move(paper), title_, Today()),
      printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      preview_(new QPrintPreviewWidget(printer_.get(), this)),
      page_(new QLabel(this)),
      previous_(new QPushButton(this)),
      next_(new QPushButton(this)) {
  setObjectName(QStringLiteral("imprimir"));
  setWindowTitle(title_);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  printer_->setPageLayout(table_.PageLayout());
  Build();
  connect(preview_, &QPrintPreviewWidget::paintRequested, this,
          [this](QPrinter* printer) { Guarded(this, [&] { table_.Print(*printer); }); });
  connect(preview_, &QPrintPreviewWidget::previewChanged, this, &ReportDialog::ShowPage);
  resize(QSize(Em(this) * 60, Em(this) * 48).boundedTo(RoomOnScreen(this)));
  preview_->fitToWidth();
}

ReportDialog::~ReportDialog() = default;

void ReportDialog::Build() {
  auto* column = new QVBoxLayout(this);
  const int margin = WideGap(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(this));
  column->addLayout(Buttons());
  column->addWidget(preview_, 1);
}

QLayout* ReportDialog::Buttons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(Gap(this));
  const auto add = [&](const QString& text, auto&& act) {
    auto* button = new QPushButton(text, this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    row->addWidget(button);
    return button;
  };
  HouseStyle::SetAccent(add(QStringLiteral("&Imprimir…"), [this] { PrintOut(); }));
  add(QStringLiteral("&Guardar PDF…"), [this] { AskAndWritePdf(); });
  row->addSpacing(WideGap(this));
  add(QStringLiteral("&Largura"), [this] { preview_->fitToWidth(); });
  add(QStringLiteral("&Página inteira"), [this] { preview_->fitInView(); });
  row->addStretch(1);
  previous_->setIcon(SignIcon(Sign::kPrevious));
  previous_->setToolTip(QStringLiteral("Página anterior"));
  next_->setIcon(SignIcon(Sign::kNext));
  next_->setToolTip(QStringLiteral("Página seguinte"));
  for (QPushButton* button : {previous_, next_}) button->setAutoDefault(false);
  connect(previous_, &QPushButton::clicked, this, [this] { Turn(-1); });
  connect(next_, &QPushButton::clicked, this, [this] { Turn(1); });
  row->addWidget(previous_);
  row->addWidget(page_);
  row->addWidget(next_);
  row->addSpacing(WideGap(this));
  add(QStringLiteral("&Fechar"), [this] { reject(); });
  return row;
}

void ReportDialog::Turn(int pages) { preview_->setCurrentPage(preview_->currentPage() + pages); }

void ReportDialog::ShowPage() {
  const int page = preview_->currentPage();
  page_->setText(QStringLiteral("Página %1 de %2").arg(page).arg(preview_->pageCount()));
  previous_->setEnabled(page > 1);
  next_->setEnabled(page < preview_->pageCount());
}

void ReportDialog::PrintOut() {
  QPrintDialog dialog(printer_.get(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  const bool printed = Guarded(this, [this] {
    if (!table_.Print(*printer_))
      throw platform::RuntimeError(
          platform::kEngineFailure, "Imprimir",
          "Não foi possível imprimir. Veja se a impressora está ligada, ou se o disco está cheio.");
  });
  if (printed) accept();
}

bool ReportDialog::WritePdf(const QString& file) {
  QSaveFile target(file);  // the file is as it was until all is written
  if (!target.open(QIODevice::WriteOnly)) return false;
  QPdfWriter writer(&target);
  writer.setResolution(kPdfResolution);
  writer.setPageLayout(table_.PageLayout());
  writer.setTitle(title_);
  return table_.Print(writer) && Keep(target);
}

void ReportDialog::AskAndWritePdf() {
  FileDialog dialog(this, QStringLiteral("Guardar PDF"), title_ + QStringLiteral(".pdf"),
                    QStringLiteral("Documentos PDF (*.pdf)"));
  dialog.setAcceptMode(FileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  const QString file = dialog.Ask();
  if (file.isEmpty()) return;
  bool written = false;
  if (!Guarded(this, [&] { written = WritePdf(file); }) || written) return;
  ShowMessage(this, QStringLiteral("Não foi possível escrever o ficheiro\n%1").arg(file),
              platform::kOkOnly | platform::kExclamation, QStringLiteral("Guardar PDF"));
}

}  // namespace desktop
