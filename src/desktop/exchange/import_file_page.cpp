#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/exchange/import_pages.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

ImportFilePage::ImportFilePage(QWidget* parent)
    : QWidget(parent),
      file_(new QLineEdit(this)),
      facts_(new QLabel(this)),
      sheet_(new QComboBox(this)),
      profile_(new QComboBox(this)),
      kind_(new QComboBox(this)) {
  auto* form = new QFormLayout(this);
  form->setVerticalSpacing(Gap(this) * 2);
  auto* row = new QHBoxLayout;
  auto* choose = new QPushButton(QStringLiteral("&Procurar…"), this);
  file_->setObjectName(QStringLiteral("ficheiro"));
  file_->setAcceptDrops(false);  // they are the dialog's
  file_->setPlaceholderText(QStringLiteral("Escreva o nome, procure, ou largue aqui um ficheiro"));
  file_->setAccessibleName(QStringLiteral("Ficheiro"));
  connect(file_, &QLineEdit::textEdited, this, &ImportFilePage::NameTyped);
  row->addWidget(file_, 1);
  row->addWidget(choose);
  SetMuted(facts_);
  facts_->setTextFormat(Qt::PlainText);
  form->addRow(QStringLiteral("Ficheiro"), row);
  form->addRow(QString(), facts_);
  form->addRow(QStringLiteral("&Folha"), sheet_);
  form->addRow(QStringLiteral("&Lido como"), profile_);
  form->addRow(QStringLiteral("&O que são as linhas"), kind_);
  for (const exchange::ImportKind& kind : exchange::ImportKinds())
    kind_->addItem(QString::fromUtf8(kind.title), QString::fromUtf8(kind.name));
  connect(choose, &QPushButton::clicked, this, &ImportFilePage::FileWanted);
  connect(sheet_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (showing_ || session_ == nullptr || index < 0) return;
    session_->OpenSheet(static_cast<std::size_t>(index));
    ShowChoices();
  });
  connect(profile_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (showing_ || session_ == nullptr || index < 0) return;
    const auto known = static_cast<std::size_t>(index);
    if (known < session_->known().size())
      session_->Use(session_->known()[known]);
    else
      session_->Choose(session_->kind());
    ShowChoices();
  });
  connect(kind_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (showing_ || session_ == nullptr || index < 0) return;
    session_->Choose(exchange::ImportKinds()[static_cast<std::size_t>(index)]);
    ShowChoices();
  });
  Show(nullptr);
}

QString ImportFilePage::Named() const {
  const QString name = file_->text().trimmed();
  return session_ != nullptr && name == ToQt(session_->file()) ? QString() : name;
}

void ImportFilePage::Show(exchange::ImportSession* session) {
  session_ = session;
  ShowChoices();
}

void ImportFilePage::ShowChoices() {
  showing_ = true;
  for (QComboBox* box : {sheet_, profile_}) box->clear();
  for (QWidget* choice : {sheet_, profile_, kind_}) choice->setEnabled(session_ != nullptr);
  file_->setText(session_ != nullptr ? ToQt(session_->file()) : QString());
  facts_->setText(session_ != nullptr
                      ? ToQt(session_->Facts())
                      : QStringLiteral("CSV, texto, XLSX, ODS, XLS, ou uma página com uma tabela"));
  if (session_ != nullptr) {
    for (const exchange::SheetInfo& sheet : session_->sheets()) sheet_->addItem(ToQt(sheet.name));
    sheet_->setCurrentIndex(static_cast<int>(session_->sheet()));
    sheet_->setEnabled(session_->sheets().size() > 1);
    const std::string& name = session_->profile().name;
    for (const exchange::Profile& known : session_->known())
      profile_->addItem(QStringLiteral("Perfil «%1»").arg(ToQt(known.name)));
    profile_->addItem(QStringLiteral("Ficheiro novo"));
    profile_->setCurrentIndex(name.empty()
                                  ? profile_->count() - 1
                                  : profile_->findText(QStringLiteral("Perfil «%1»").arg(ToQt(name))));
    profile_->setEnabled(profile_->count() > 1);
    kind_->setCurrentIndex(kind_->findData(QString::fromUtf8(session_->kind().name)));
  }
  showing_ = false;
}

}  // namespace desktop
