#include "desktop/history/history_settings_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "desktop/look/day_edit.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "history/retention.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kMostYears = 100;
constexpr int kWidth = 30;  // in lines of text

QSpinBox* Years(QWidget* parent) {
  auto* years = new QSpinBox(parent);
  years->setRange(0, kMostYears);
  years->setSuffix(QStringLiteral(" anos"));
  years->setSpecialValueText(QStringLiteral("para sempre"));
  return years;
}

}  // namespace

HistorySettingsDialog::HistorySettingsDialog(Workspace& workspace, QWidget* parent)
    : QDialog(parent),
      workspace_(workspace),
      records_(new QCheckBox(QStringLiteral("&Guardar o que se faz, para se poder ver e anular"), this)),
      years_(Years(this)),
      document_years_(Years(this)),
      size_(new QLabel(this)),
      before_(new DayEdit(this)) {
  setObjectName(QStringLiteral("guardar-historico"));
  setWindowTitle(QStringLiteral("Guardar o histórico"));
  Build();
  const history::Settings settings = history::ReadSettings(zorCrmParvel::DataAccessRef(workspace_.store()));
  records_->setChecked(settings.records);
  years_->setValue(settings.years);
  document_years_->setValue(settings.documentYears);
  before_->setDate(QDate::currentDate().addYears(-std::max(1, settings.years)));
  ShowSize();
}

void HistorySettingsDialog::Build() {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this));
  auto* what = new QLabel(
      QStringLiteral("O que aqui se escolhe vale para todos os que trabalham nesta base de dados."), this);
  what->setWordWrap(true);
  column->addWidget(what);
  column->addWidget(records_);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("&Operações, durante"), years_);
  form->addRow(QStringLiteral("&Documentos e fotografias removidos, durante"), document_years_);
  column->addLayout(form);
  auto* room = new QGroupBox(QStringLiteral("O que está guardado"), this);
  auto* rows = new QVBoxLayout(room);
  size_->setWordWrap(true);
  rows->addWidget(size_);
  auto* clearing = new QHBoxLayout;
  auto* label = new QLabel(QStringLiteral("&Esquecer o que se fez antes de"), room);
  label->setBuddy(before_);
  auto* clear = new QPushButton(QStringLiteral("&Limpar…"), room);
  clear->setAutoDefault(false);
  clearing->addWidget(label);
  clearing->addWidget(before_);
  clearing->addWidget(clear);
  clearing->addStretch(1);
  rows->addLayout(clearing);
  column->addWidget(room);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QStringLiteral("&Confirmar"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("Ca&ncelar"), QDialogButtonBox::RejectRole);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &HistorySettingsDialog::Keep);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(clear, &QPushButton::clicked, this, &HistorySettingsDialog::Clear);
  setMinimumWidth(Em(this) * kWidth);
}

void HistorySettingsDialog::ShowSize() {
  Guarded(this, [this] {
    QString text = ToQt(history::ShownSize(history::SizeOf(*workspace_.kept())));
    if (workspace_.file() != nullptr)
      text += QStringLiteral(" Ocupa %1 do ficheiro.")
                  .arg(QLocale().formattedDataSize(workspace_.file()->BytesOf(history::OwnTables()), 1,
                                                   QLocale::DataSizeTraditionalFormat));
    size_->setText(text);
  });
}

void HistorySettingsDialog::Keep() {
  const bool done = Guarded(this, [this] {
    const zorCrmParvel::DataAccessRef bd(workspace_.store());
    history::Settings settings = history::ReadSettings(bd);
    settings.records = records_->isChecked();
    settings.years = years_->value();
    settings.documentYears = document_years_->value();
    history::WriteSettings(bd, settings);
    history::KeepWithin(*workspace_.kept(), settings, platform::Now());
  });
  if (done) accept();
}

void HistorySettingsDialog::Clear() {
  const QDate day = before_->date();
  const QString question =
      QStringLiteral(
          "Esquecer para sempre o que se fez antes de %1?\n\nO que então se fez deixa de se ver e de se "
          "poder anular. Os registos ficam como estão.")
          .arg(day.toString(QStringLiteral("dd-MM-yyyy")));
  const int style = platform::kYesNo | platform::kQuestion | platform::kDefaultButton2;
  if (ShowMessage(this, question, style, windowTitle()) != platform::kYes) return;
  Guarded(this, [&] {
    history::ClearBefore(*workspace_.kept(), platform::Date::FromParts(day.year(), day.month(), day.day()));
  });
  ShowSize();
}

}  // namespace desktop
