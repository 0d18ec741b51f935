#include "desktop/list/tools/view_dialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/parts.h"

namespace desktop {
namespace {

constexpr int kNameLimit = 60;
constexpr int kNameWidth = 24;  // in heights of a line

}  // namespace

ViewDialog::ViewDialog(QWidget* parent)
    : QDialog(parent),
      name_(new QLineEdit(this)),
      all_(new QCheckBox(QStringLiteral("Para &todo o escritório"), this)) {
  setObjectName(QStringLiteral("guardar-vista"));
  setWindowTitle(QStringLiteral("Guardar vista"));
  auto* column = new QVBoxLayout(this);
  const int margin = WideGap(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(this));
  auto* label = new QLabel(QStringLiteral("&Nome da vista"), this);
  label->setBuddy(name_);
  name_->setMaxLength(kNameLimit);
  name_->setMinimumWidth(Em(this) * kNameWidth);
  name_->setAccessibleName(QStringLiteral("Nome da vista"));
  all_->setChecked(true);
  auto* note = new QLabel(
      QStringLiteral("Guarda colunas, filtros, ordem e grupos. Uma vista com o mesmo nome é substituída."),
      this);
  note->setWordWrap(true);
  SetMuted(note);
  column->addWidget(label);
  column->addWidget(name_);
  column->addWidget(all_);
  column->addWidget(note);
  auto* keep = new QPushButton(QStringLiteral("&Guardar"), this);
  keep->setEnabled(false);
  connect(name_, &QLineEdit::textChanged, keep,
          [keep](const QString& text) { keep->setEnabled(!text.trimmed().isEmpty()); });
  AddAnswers(*this, *column, keep);
  name_->setFocus();
}

QString ViewDialog::Name() const { return name_->text().trimmed(); }
bool ViewDialog::ForAll() const { return all_->isChecked(); }

}  // namespace desktop
