#include "desktop/shell/message_page.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/house_style.h"
#include "desktop/look/look.h"

namespace desktop {

MessagePage::MessagePage(QWidget* parent)
    : QWidget(parent),
      headline_(new QLabel(this)),
      details_(new QLabel(this)),
      button_(new QPushButton(this)) {
  SetTitleFont(headline_, 1.15);
  SetMuted(details_);
  for (QLabel* label : {headline_, details_}) {
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
  }
  details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  HouseStyle::SetAccent(button_);
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this));
  column->addStretch(2);
  column->addWidget(headline_);
  column->addWidget(details_);
  column->addSpacing(Gap(this));
  column->addWidget(button_, 0, Qt::AlignHCenter);
  column->addStretch(3);
  connect(button_, &QPushButton::clicked, this, [this] {
    if (act_) act_();
  });
}

void MessagePage::Show(const QString& headline, const QString& details, const QString& button,
                       std::function<void()> act) {
  headline_->setText(headline);
  details_->setText(details);
  details_->setVisible(!details.isEmpty());
  button_->setText(button);
  button_->setVisible(!button.isEmpty());
  act_ = std::move(act);
}

QString MessagePage::Headline() const { return headline_->text(); }
QString MessagePage::Details() const { return details_->text(); }

}  // namespace desktop
