#include "desktop/history/driver_dialogs.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/database/database_dialogs.h"
#include "desktop/history/side_by_side.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "history/drivers/driver_erasure.h"
#include "history/drivers/driver_export.h"
#include "history/settings.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kWidth = 34;  // in lines of text
constexpr int kHeight = 22;
constexpr int kMostYears = 100;

QString NameOf(Workspace& workspace, const std::string& code) {
  const auto name = history::NameOfDriver(*workspace.kept(), code);
  return ToQt(code) + QStringLiteral(" ") + ToQt(name.value_or(""));
}

void TellErased(const history::Erased& erased, bool file, QWidget* parent) {
  QString text = QStringLiteral(
                     "Os dados pessoais foram apagados. Os gastos, multas e sinistros ficam sob o código "
                     "%1, com os mesmos valores.")
                     .arg(ToQt(erased.code));
  if (file && !erased.fromFile)
    text += QStringLiteral(
        "\n\nOutro programa tem a base de dados aberta: do ficheiro ainda não saiu tudo. Feche-o e "
        "abra e feche de novo este programa.");
  if (!file)
    text += QStringLiteral(
        "\n\nNos ficheiros do servidor e nas suas cópias os dados podem ainda estar: peça a quem o "
        "administra que os renove.");
  text += QStringLiteral(
      "\n\nAs cópias de segurança que já estavam feitas ainda os têm: apague as que não precisa.");
  ShowMessage(parent, text, platform::kOkOnly | platform::kInformation,
              QStringLiteral("Apagar dados pessoais"));
}

}  // namespace

void ExportDriverData(Workspace& workspace, const std::string& code, QWidget* parent) {
  Guarded(parent, [&] {
    const QString folder = AskForFolder(parent, QStringLiteral("Pasta vazia para os dados do motorista"));
    if (folder.isEmpty()) return;
    const long files = history::ExportDriver(*workspace.kept(), code, FromQt(folder));
    ShowMessage(parent,
                QStringLiteral("Tudo o que há sobre %1 está em\n%2\n\n%3. Para ler: motorista.html.")
                    .arg(NameOf(workspace, code), folder,
                         Counted(files, QStringLiteral("ficheiro"), QStringLiteral("ficheiros"))),
                platform::kOkOnly | platform::kInformation, QStringLiteral("Exportar dados pessoais"));
  });
}

bool EraseDriverData(Workspace& workspace, const std::string& code, QWidget* parent) {
  bool erased = false;
  Guarded(parent, [&] {
    const QString title = QStringLiteral("Apagar dados pessoais");
    const int style = platform::kYesNo | platform::kExclamation | platform::kDefaultButton2;
    const QString name = NameOf(workspace, code);
    const QString first = QStringLiteral(
                              "Apagar os dados pessoais de %1?\n\nVão a ficha, as cartas, a fotografia, os "
                              "documentos e o histórico. Os gastos, multas e sinistros ficam, sob um código "
                              "sem nome.")
                              .arg(name);
    if (ShowMessage(parent, first, style, title) != platform::kYes) return;
    const QString second =
        QStringLiteral("Isto não se pode anular.\n\nApagar mesmo, para sempre, os dados de %1?").arg(name);
    if (ShowMessage(parent, second, style, title) != platform::kYes) return;
    const history::Erased done = history::EraseDriver(workspace.kept(), code);
    erased = true;
    TellErased(done, workspace.file() != nullptr, parent);
  });
  return erased;
}

QuietDriversDialog::QuietDriversDialog(Workspace& workspace, QWidget* parent)
    : QDialog(parent),
      workspace_(workspace),
      years_(new QSpinBox(this)),
      table_(SideBySide({"Código", "Nome", "Último gasto, multa ou sinistro"}, this)),
      export_(new QPushButton(QStringLiteral("&Exportar dados pessoais…"), this)),
      erase_(new QPushButton(QStringLiteral("&Apagar dados pessoais…"), this)) {
  setObjectName(QStringLiteral("motoristas-inactivos"));
  setWindowTitle(QStringLiteral("Motoristas inactivos"));
  Build();
  years_->setValue(history::ReadSettings(zorCrmParvel::DataAccessRef(workspace_.store())).driverYears);
  connect(years_, &QSpinBox::valueChanged, this, &QuietDriversDialog::KeepYears);
  Fill();
  resize(Em(this) * kWidth, Em(this) * kHeight);
}

void QuietDriversDialog::Build() {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this));
  auto* what =
      new QLabel(QStringLiteral("Dados de pessoas guardam-se só enquanto são precisos. Destes motoristas não "
                                "há gastos, multas nem sinistros desde há mais tempo do que o prazo."),
                 this);
  what->setWordWrap(true);
  column->addWidget(what);
  auto* row = new QHBoxLayout;
  auto* label = new QLabel(QStringLiteral("&Prazo"), this);
  label->setBuddy(years_);
  years_->setRange(1, kMostYears);
  years_->setSuffix(QStringLiteral(" anos"));
  row->addWidget(label);
  row->addWidget(years_);
  row->addStretch(1);
  column->addLayout(row);
  table_->setAccessibleName(windowTitle());
  column->addWidget(table_, 1);
  auto* buttons = new QDialogButtonBox(this);
  for (QPushButton* button : {export_, erase_}) {
    button->setAutoDefault(false);
    buttons->addButton(button, QDialogButtonBox::ActionRole);
  }
  buttons->addButton(QStringLiteral("&Fechar"), QDialogButtonBox::RejectRole)->setDefault(true);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { done(erased_ ? Accepted : Rejected); });
  connect(export_, &QPushButton::clicked, this, [this] { ExportDriverData(workspace_, Chosen(), this); });
  connect(erase_, &QPushButton::clicked, this, [this] {
    erased_ = EraseDriverData(workspace_, Chosen(), this) || erased_;
    Fill();
  });
}

void QuietDriversDialog::KeepYears() {
  Guarded(this, [this] {
    const zorCrmParvel::DataAccessRef bd(workspace_.store());
    history::Settings settings = history::ReadSettings(bd);
    settings.driverYears = years_->value();
    history::WriteSettings(bd, settings);
  });
  Fill();
}

void QuietDriversDialog::Fill() {
  table_->setRowCount(0);
  Guarded(this, [this] {
    drivers_ =
        history::DriversQuietSince(*workspace_.kept(), platform::Today().AddMonths(-12 * years_->value()));
    for (const history::QuietDriver& each : drivers_)
      AddLine(*table_, {ToQt(each.code), ToQt(each.name),
                        each.last ? ToQt(each.last->DayOnly().ToText()) : QStringLiteral("nunca")});
  });
  table_->resizeColumnsToContents();
  if (!drivers_.empty()) table_->setCurrentCell(0, 0);
  export_->setEnabled(!drivers_.empty());
  erase_->setEnabled(!drivers_.empty());
}

std::string QuietDriversDialog::Chosen() const {
  const int row = table_->currentRow();
  return row >= 0 && static_cast<std::size_t>(row) < drivers_.size()
             ? drivers_[static_cast<std::size_t>(row)].code
             : std::string();
}

}  // namespace desktop
