#include "desktop/reports/settings_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/list/table_view.h"
#include "desktop/look/house_style.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/reports/report_source.h"
#include "desktop/shell/message_box.h"
#include "reports/pages/definicoes_pagina.h"

namespace desktop {
namespace {

constexpr char kActive[] = "Activa";  // shown as a tick

}  // namespace

SettingsDialog::SettingsDialog(zorCrmParvel::DataAccessRef database, QWidget* parent)
    : QDialog(parent),
      database_(std::move(database)),
      which_(new QComboBox(this)),
      source_(new ReportSource),
      table_(new TableView(std::unique_ptr<TableSource>(source_), true, this)),
      remove_(new QPushButton(QStringLiteral("&Tirar"), this)) {
  setObjectName(QStringLiteral("definicoes-dos-relatorios"));
  setWindowTitle(QStringLiteral("Definições dos relatórios"));
  Build();
  Load();
}

void SettingsDialog::Build() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(WideGap(this), WideGap(this), WideGap(this), WideGap(this));
  column->setSpacing(Gap(this));
  which_->setAccessibleName(QStringLiteral("Definição"));
  for (const reports::Definicao& each : reports::Definicoes())
    which_->addItem(QString::fromUtf8(each.titulo), QString::fromUtf8(each.chave));
  connect(which_, &QComboBox::currentIndexChanged, this, &SettingsDialog::Load);
  column->addWidget(which_);
  connect(table_, &TableView::RowChosen, this, &SettingsDialog::ShowRow);
  column->addWidget(table_, 1);
  auto* row = new QHBoxLayout;
  auto* save = new QPushButton(QStringLiteral("&Gravar"), this);
  HouseStyle::SetAccent(save);
  auto* close = new QPushButton(QStringLiteral("&Fechar"), this);
  remove_->setToolTip(QStringLiteral("Tira o que está definido para esta linha"));
  connect(save, &QPushButton::clicked, this, &SettingsDialog::Save);
  connect(remove_, &QPushButton::clicked, this, &SettingsDialog::Remove);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  save->setDefault(true);
  for (QPushButton* button : {remove_, close}) button->setAutoDefault(false);
  row->addWidget(remove_);
  row->addStretch(1);
  row->addWidget(save);
  row->addWidget(close);
  column->addLayout(row);
  resize(QSize(Em(this) * 46, Em(this) * 34).boundedTo(RoomOnScreen(this)));
}

void SettingsDialog::Choose(const std::string& key) { which_->setCurrentIndex(which_->findData(ToQt(key))); }

const reports::Definicao& SettingsDialog::definition() const {
  return *reports::DefinicaoDe(FromQt(which_->currentData().toString()));
}

/// Reads the table shown, with its fields below it.
void SettingsDialog::Load() {
  const long row = table_->CurrentRow();
  const bool same = !inputs_.empty() && inputs_.front().first == definition().chaves.front().coluna &&
                    fields_->objectName() == which_->currentData().toString();
  Guarded(this, [this] {
    auto shown = std::make_shared<reports::Resultado>();
    shown->relatorio.tabelas.push_back(reports::VerParaEditar(database_, definition()));
    source_->Show(shown, 0);
  });
  table_->Refresh();
  if (!same) MakeFields();
  if (source_->Rows() > 0) table_->SetCurrentRow(same && row >= 0 && row < source_->Rows() ? row : 0);
  ShowRow();
}

void SettingsDialog::MakeFields() {
  delete fields_;
  inputs_.clear();
  fields_ = new QWidget(this);
  fields_->setObjectName(which_->currentData().toString());
  auto* form = new QFormLayout(fields_);
  form->setContentsMargins(0, 0, 0, 0);
  for (const auto* fields : {&definition().chaves, &definition().valores})
    for (const reports::Definicao::Campo& field : *fields) {
      const bool tick = std::string(field.coluna) == kActive;
      QWidget* input = tick ? static_cast<QWidget*>(new QCheckBox(fields_)) : new QLineEdit(fields_);
      form->addRow(ToQt(reports::TituloDe(field)), input);
      inputs_.emplace_back(field.coluna, input);
    }
  auto* column = qobject_cast<QVBoxLayout*>(layout());
  column->insertWidget(column->count() - 1, fields_);
}

QWidget* SettingsDialog::Field(const std::string& column) const {
  for (const auto& [name, input] : inputs_)
    if (name == column) return input;
  return nullptr;
}

void SettingsDialog::ShowRow() {
  const long row = table_->CurrentRow();
  remove_->setEnabled(row >= 0);
  if (row < 0 || row >= source_->Rows()) return;
  const auto texts = reports::Textos(source_->result()->relatorio.tabelas.front(), source_->RowAt(row));
  for (const auto& [column, input] : inputs_) {
    const auto found = texts.find(column);
    const std::string text = found == texts.end() ? std::string() : found->second;
    if (auto* line = qobject_cast<QLineEdit*>(input)) line->setText(ToQt(text));
    if (auto* tick = qobject_cast<QCheckBox*>(input)) tick->setChecked(text == "1");
  }
}

std::string SettingsDialog::TextOf(const std::string& column) const {
  QWidget* const input = Field(column);
  if (auto* tick = qobject_cast<QCheckBox*>(input)) return tick->isChecked() ? "1" : "0";
  return FromQt(qobject_cast<QLineEdit*>(input)->text().trimmed());
}

std::vector<std::string> SettingsDialog::Keys() const {
  std::vector<std::string> keys;
  for (const reports::Definicao::Campo& key : definition().chaves) keys.push_back(TextOf(key.coluna));
  return keys;
}

void SettingsDialog::Save() {
  std::map<std::string, std::string> values;
  for (const reports::Definicao::Campo& field : definition().valores)
    values[field.coluna] = TextOf(field.coluna);
  if (Guarded(this, [&] { reports::Gravar(database_, definition(), Keys(), values); })) Load();
}

void SettingsDialog::Remove() {
  if (Guarded(this, [&] { reports::Remover(database_, definition(), Keys()); })) Load();
}

}  // namespace desktop
