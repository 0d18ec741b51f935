#include "desktop/look/parts.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "desktop/look/house_style.h"
#include "desktop/look/look.h"

namespace desktop {

QHBoxLayout* AddHeading(QBoxLayout& column, QLabel* title) {
  column.setContentsMargins(0, 0, 0, 0);
  column.setSpacing(0);
  auto* heading = new QHBoxLayout;
  heading->setContentsMargins(Gap(title), WideGap(title), WideGap(title), Gap(title));
  SetTitleFont(title, 1.5);
  heading->addWidget(title);
  heading->addStretch(1);
  column.addLayout(heading);
  return heading;
}

void AddAnswers(QDialog& dialog, QBoxLayout& column, QPushButton* accept) {
  auto* cancel = new QPushButton(QStringLiteral("&Cancelar"), &dialog);
  cancel->setAutoDefault(false);
  accept->setDefault(true);
  HouseStyle::SetAccent(accept);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  QObject::connect(accept, &QPushButton::clicked, &dialog, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cancel);
  buttons->addWidget(accept);
  column.addLayout(buttons);
  QWidget::setTabOrder(cancel, accept);
}

}  // namespace desktop
