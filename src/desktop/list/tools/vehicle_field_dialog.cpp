#include "desktop/list/tools/vehicle_field_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/history/side_by_side.h"
#include "desktop/list/list_page.h"
#include "desktop/look/look.h"
#include "desktop/look/parts.h"
#include "desktop/look/text.h"
#include "history/act.h"

namespace desktop {
namespace {

constexpr int kWidth = 36;  // in heights of a line
constexpr int kHeight = 26;

const QStringList& FieldNames() {
  static const QStringList names = {QStringLiteral("Departamento"), QStringLiteral("Responsável"),
                                    QStringLiteral("Inactiva")};
  return names;
}

}  // namespace

VehicleFieldDialog::VehicleFieldDialog(zorCrmParvel::DataAccessRef bd, std::vector<std::string> plates,
                                       QWidget* parent)
    : QDialog(parent),
      bd_(std::move(bd)),
      plates_(std::move(plates)),
      field_(new QComboBox(this)),
      value_(new QComboBox(this)),
      rows_(SideBySide({"Matrícula", "Agora", "Fica"}, this)),
      sum_(new QLabel(this)),
      change_(new QPushButton(this)) {
  setObjectName(QStringLiteral("alterar-campo"));
  setWindowTitle(QStringLiteral("Alterar campo de várias viaturas"));
  Build();
  ShowField();
}

void VehicleFieldDialog::Build() {
  auto* column = new QVBoxLayout(this);
  const int margin = WideGap(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(this));
  auto* form = new QFormLayout;
  field_->addItems(FieldNames());
  field_->setAccessibleName(QStringLiteral("Campo"));
  value_->setAccessibleName(QStringLiteral("Valor novo"));
  form->addRow(QStringLiteral("Ca&mpo"), field_);
  form->addRow(QStringLiteral("&Valor novo"), value_);
  column->addLayout(form);
  rows_->setAccessibleName(QStringLiteral("O que muda"));
  column->addWidget(rows_, 1);
  SetMuted(sum_);
  column->addWidget(sum_);
  AddAnswers(*this, *column, change_);
  connect(field_, &QComboBox::currentIndexChanged, this, &VehicleFieldDialog::ShowField);
  value_->setPlaceholderText(QStringLiteral("Escolha…"));
  connect(value_, &QComboBox::currentTextChanged, this, [this] {
    typed_ = true;
    ShowDifferences();
  });
  resize(QSize(Em(this) * kWidth, Em(this) * kHeight).boundedTo(RoomOnScreen(this)));
}

entry::VehicleField VehicleFieldDialog::Field() const {
  return static_cast<entry::VehicleField>(field_->currentIndex());
}

std::string VehicleFieldDialog::Value() const {
  const bool typed = Field() == entry::VehicleField::kResponsible;
  return FromQt(typed ? value_->currentText().trimmed() : value_->currentData().toString());
}

/// The values that there are to choose from: departments, yes and no, or whoever is responsible for one. None
/// of them is chosen: Enter alone changes nothing.
void VehicleFieldDialog::ShowField() {
  vehicles_ = entry::ValuesOf(bd_, plates_, Field());
  const QSignalBlocker quiet(value_);
  value_->clear();
  value_->setEditable(Field() == entry::VehicleField::kResponsible);
  if (Field() == entry::VehicleField::kDepartment) {
    value_->addItem(QStringLiteral("(nenhum)"), QString());
    for (const auto& [code, name] : entry::Departments(bd_))
      value_->addItem(QStringLiteral("%1 – %2").arg(ToQt(code), ToQt(name)), ToQt(code));
  } else if (Field() == entry::VehicleField::kInactive) {
    value_->addItem(QStringLiteral("Sim"), QStringLiteral("1"));
    value_->addItem(QStringLiteral("Não"), QStringLiteral("0"));
  } else {
    QStringList names;
    for (const entry::VehicleValue& vehicle : vehicles_) names << ToQt(vehicle.value);
    names.removeDuplicates();
    value_->addItems(names);
    value_->lineEdit()->setPlaceholderText(QStringLiteral("Escolha…"));
  }
  value_->setCurrentIndex(-1);
  typed_ = false;
  ShowDifferences();
}

QString VehicleFieldDialog::Shown(const std::string& value) const {
  if (Field() != entry::VehicleField::kInactive) return value.empty() ? QStringLiteral("—") : ToQt(value);
  return value == "1" ? QStringLiteral("Sim") : QStringLiteral("Não");
}

bool VehicleFieldDialog::HasValue() const { return typed_ || value_->currentIndex() >= 0; }

void VehicleFieldDialog::ShowDifferences() {
  const std::string value = Value();
  rows_->setRowCount(0);
  long changes = 0;
  for (const entry::VehicleValue& vehicle : vehicles_) {
    const bool changed = HasValue() && vehicle.value != value;
    changes += changed ? 1 : 0;
    AddLine(*rows_, {ToQt(vehicle.plate), Shown(vehicle.value),
                     changed      ? Shown(value)
                     : HasValue() ? QStringLiteral("(igual)")
                                  : QString()});
  }
  rows_->resizeColumnsToContents();
  const long all = static_cast<long>(vehicles_.size());
  sum_->setText(HasValue() ? QStringLiteral("Mudam %1 de %2.").arg(changes).arg(all)
                           : QStringLiteral("Escolha o valor que ficam a ter."));
  change_->setText(HasValue() ? QStringLiteral("&Alterar ") +
                                    Counted(changes, QStringLiteral("viatura"), QStringLiteral("viaturas"))
                              : QStringLiteral("&Alterar"));
  change_->setEnabled(changes > 0);
}

void ChangeVehicles(ListPage& page, const MarkedRows& rows) {
  Workspace& workspace = page.workspace();
  const zorCrmParvel::DataAccessRef bd = workspace.sistema().ICrmSistema_ZorDataAccess;
  VehicleFieldDialog dialog(bd, rows.keys, page.window());
  if (dialog.exec() != QDialog::Accepted) return;
  const QString name = FieldNames()[static_cast<int>(dialog.Field())];
  std::size_t changed = 0;
  history::Act(workspace.kept().get(),
               FromQt(QStringLiteral("Viaturas: %1 de %2").arg(name).arg(dialog.Vehicles().size())),
               [&] { changed = entry::SetField(bd, dialog.Vehicles(), dialog.Field(), dialog.Value()); });
  page.Load();
  Q_EMIT page.Told(QStringLiteral("%1 alterado em %2 (Ctrl+Z anula)")
                       .arg(name, Counted(static_cast<long>(changed), QStringLiteral("viatura"),
                                          QStringLiteral("viaturas"))));
  Q_EMIT page.Worked();
}

}  // namespace desktop
