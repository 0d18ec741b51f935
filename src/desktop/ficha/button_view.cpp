#include "desktop/ficha/button_view.h"

#include <QPushButton>
#include <algorithm>

#include "desktop/look/house_style.h"
#include "desktop/look/icons.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr Sign kArrows[] = {Sign::kFirst, Sign::kPrevious, Sign::kNext, Sign::kLast};
constexpr const char* kArrowNames[] = {"Primeiro registo", "Registo anterior", "Próximo registo",
                                       "Último registo"};

/// As high as a button with a text, and hardly wider.
void MakeSquare(QPushButton& button) {
  button.setText(QStringLiteral("X"));
  const int height = button.sizeHint().height();
  button.setText({});
  button.setFixedSize(height * 6 / 5, height);
}

}  // namespace

ButtonView::ButtonView(platform::PushButton& button, UserActs& acts, QWidget* parent)
    : ControlView(button, acts), button_(button), shown_(new QPushButton(parent)) {
  shown_->setFocusPolicy(Qt::NoFocus);
  shown_->setAutoDefault(false);
  shown_->setMinimumWidth(Em(shown_) * 5);
  connect(shown_, &QPushButton::clicked, this, [this] { this->acts().Press(button_); });
}

QWidget* ButtonView::widget() const { return shown_; }

void ButtonView::MakeListButton() {
  drawn_ = true;
  shown_->setText(QStringLiteral("…"));
  shown_->setAccessibleName(QStringLiteral("Lista"));
  shown_->setMinimumWidth(0);
  shown_->setFixedWidth(Em(shown_) * 2);
}

void ButtonView::MakeArrow(std::size_t place) {
  drawn_ = true;
  const std::size_t arrow = std::min(place, std::size(kArrows) - 1);
  shown_->setIcon(SignIcon(kArrows[arrow]));
  shown_->setAccessibleName(QString::fromUtf8(kArrowNames[arrow]));
  shown_->setMinimumWidth(0);
  MakeSquare(*shown_);
}

void ButtonView::MakeAccent() { HouseStyle::SetAccent(shown_); }

void ButtonView::SyncContent() {
  const QString caption = ToQt(button_.Caption);
  if (!drawn_ && shown_->text() != caption) shown_->setText(caption);
  if (shown_->isEnabled() != button_.Enabled) shown_->setEnabled(button_.Enabled);
}

}  // namespace desktop
