#include "desktop/database/connection_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QVBoxLayout>
#include <cstring>

#include "desktop/database/database_dialogs.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "entry/reads_after.h"
#include "sqlserver/connection_text.h"
#include "sqlserver/database.h"
#include "sqlserver/utf16.h"
#include "store/database_choice.h"
#include "store/paths.h"

namespace desktop {
namespace {

constexpr int kFieldCharacters = 40;
constexpr char kUsualDriver[] = "FreeTDS";
constexpr char kUsualPort[] = "1433";

/// The mouse pointer of a wait, while it lives.
class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

QLineEdit* Field(QWidget* parent, const QString& text = {}) {
  auto* field = new QLineEdit(text, parent);
  field->setMinimumWidth(parent->fontMetrics().averageCharWidth() * kFieldCharacters);
  return field;
}

/// The text's letters without a copy of them that nobody wipes.
sqlserver::Secret SecretOf(const QLineEdit& field) {
  const QString text = field.text();
  return {sqlserver::ToUtf8(
      {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())})};
}

/// Overwrites the text where the field itself keeps it: what it gives out shares that place. Out of reach are
/// the single letters that it remembers for undoing, texts that it was shorter in, and what the keyboard's
/// events and an input method have kept.
void WipeField(QLineEdit& field) {
  const QString text = field.text();
  explicit_bzero(const_cast<QChar*>(text.constData()), static_cast<std::size_t>(text.size()) * sizeof(QChar));
  field.clear();
}

std::shared_ptr<zorCrmParvel::Store> OpenServer(const QString& connection,
                                                const sqlserver::Secret& password) {
  sqlserver::OpenOptions options;
  options.connection = FromQt(connection);
  options.password = password;
  options.expected = &entry::ReadsAfterEvent;
  return store::Near(sqlserver::Database::Open(options));
}

}  // namespace

ConnectionDialog::ConnectionDialog(QSettings& settings, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      on_file_(new QRadioButton(QStringLiteral("Num &ficheiro deste computador"), this)),
      on_server_(new QRadioButton(QStringLiteral("Num &servidor Microsoft SQL Server"), this)),
      file_part_(new QWidget(this)),
      server_part_(new QWidget(this)),
      choose_(new QPushButton(QStringLiteral("&Procurar…"), this)),
      file_(Field(this, settings.value(kDatabaseSetting).toString())),
      driver_(Field(this, QString::fromLatin1(kUsualDriver))),
      server_(Field(this)),
      port_(Field(this, QString::fromLatin1(kUsualPort))),
      database_(Field(this)),
      user_(Field(this)),
      password_(Field(this)),
      reason_(new QLabel(this)) {
  setObjectName(QStringLiteral("servidor"));
  setWindowTitle(QStringLiteral("Base de dados"));
  password_->setEchoMode(QLineEdit::Password);
  if (file_->text().isEmpty()) file_->setText(ToQt(store::DefaultDatabasePath()));
  Build();
  const QString kept = settings.value(kServerSetting).toString();
  on_file_->setChecked(true);
  SwitchPart();
  if (!kept.isEmpty()) ShowServer(kept);
}

ConnectionDialog::~ConnectionDialog() { WipeField(*password_); }

void ConnectionDialog::Build() {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this));
  column->addWidget(reason_);
  column->addWidget(on_file_);
  column->addWidget(FilePart());
  column->addWidget(on_server_);
  column->addWidget(ServerPart());
  reason_->setWordWrap(true);
  reason_->setTextFormat(Qt::PlainText);
  reason_->hide();
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* open = buttons->addButton(QStringLiteral("&Testar e abrir"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
  open->setDefault(true);
  column->addWidget(buttons);
  QWidget* before = on_file_;
  for (QWidget* next : std::initializer_list<QWidget*>{file_, choose_, on_server_, server_, port_, database_,
                                                       user_, password_, driver_}) {
    setTabOrder(before, next);
    before = next;
  }
  connect(buttons, &QDialogButtonBox::accepted, this, &ConnectionDialog::TryAndClose);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(on_file_, &QRadioButton::toggled, this, &ConnectionDialog::SwitchPart);
}

QWidget* ConnectionDialog::FilePart() {
  auto* row = new QHBoxLayout(file_part_);
  row->setContentsMargins(WideGap(this), 0, 0, Gap(this));
  row->addWidget(file_);
  row->addWidget(choose_);
  connect(choose_, &QPushButton::clicked, this, &ConnectionDialog::ChooseFile);
  return file_part_;
}

QWidget* ConnectionDialog::ServerPart() {
  auto* form = new QFormLayout(server_part_);
  form->setContentsMargins(WideGap(this), 0, 0, Gap(this));
  form->addRow(QStringLiteral("S&ervidor"), server_);
  form->addRow(QStringLiteral("P&orta"), port_);
  form->addRow(QStringLiteral("&Base de dados"), database_);
  form->addRow(QStringLiteral("&Utilizador"), user_);
  form->addRow(QStringLiteral("Sen&ha"), password_);
  form->addRow(QStringLiteral("Controlador ODB&C"), driver_);
  auto* note = new QLabel(QStringLiteral("A senha não fica guardada: é pedida de cada vez."), server_part_);
  SetMuted(note);
  form->addRow(QString(), note);
  return server_part_;
}

void ConnectionDialog::SwitchPart() {
  file_part_->setEnabled(on_file_->isChecked());
  server_part_->setEnabled(on_server_->isChecked());
}

void ConnectionDialog::ShowServer(const QString& connection) {
  on_server_->setChecked(true);
  kept_ = connection;
  const sqlserver::ConnectionText text(FromQt(connection));
  driver_->setText(ToQt(text.Get("Driver")));
  server_->setText(ToQt(text.Get("Server")));
  port_->setText(ToQt(text.Get("Port")));
  database_->setText(ToQt(text.Get("Database")));
  user_->setText(ToQt(text.Get("UID")));
  password_->setFocus();
}

void ConnectionDialog::ShowReason(const QString& text) {
  reason_->setText(text);
  reason_->setVisible(!text.isEmpty());
}

void ConnectionDialog::ChooseFile() {
  const QString file = AskForDatabase(this);
  if (!file.isEmpty()) file_->setText(file);
}

QString ConnectionDialog::Connection() const {
  sqlserver::ConnectionText text(kept_.isEmpty() ? "Driver=" : FromQt(kept_));
  const std::pair<const char*, const QLineEdit*> fields[] = {
      {"Driver", driver_}, {"Server", server_}, {"Port", port_}, {"Database", database_}, {"UID", user_}};
  for (const auto& [key, field] : fields) text.Set(key, FromQt(field->text().trimmed()));
  return ToQt(text.ToText());
}

void ConnectionDialog::TryAndClose() {
  ShowReason({});
  const bool server = on_server_->isChecked();
  try {
    const WaitCursor wait;
    workspace_ = server ? std::make_unique<Workspace>(OpenServer(Connection(), SecretOf(*password_)))
                        : std::make_unique<Workspace>(FromQt(file_->text()));
  } catch (const std::exception& error) {
    ShowReason(WithDetails(Describe(error)));
    return;
  }
  if (server) {
    settings_.setValue(kServerSetting, Connection());
  } else {
    settings_.remove(kServerSetting);
    settings_.setValue(kDatabaseSetting, file_->text());
  }
  accept();
}

}  // namespace desktop
