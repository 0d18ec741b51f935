#include "desktop/start/start_page.h"

#include <QDate>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <set>

#include "desktop/look/look.h"
#include "desktop/look/parts.h"
#include "desktop/reports/month_panel.h"
#include "desktop/start/alert_card.h"
#include "desktop/start/first_steps_page.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kMostColumns = 3;
constexpr auto kSteps = static_cast<std::size_t>(setup::Step::kDueDates) + 1;

QString Today() {
  const platform::Date today = platform::Today();
  QString day = QLocale().toString(QDate(today.year(), today.month(), today.day()), QLocale::LongFormat);
  if (!day.isEmpty()) day[0] = day[0].toUpper();
  return day;
}

}  // namespace

StartPage::StartPage(const AlertBoard& board, QWidget* parent)
    : QWidget(parent),
      board_(board),
      day_(new QLabel(this)),
      notice_(new QLabel(this)),
      stack_(new QStackedWidget(this)),
      scroll_(new QScrollArea(this)),
      grid_(new QGridLayout),
      steps_(new FirstStepsPage(this)),
      month_place_(new QWidget(this)),
      month_(new MonthPanel(month_place_)) {
  for (const AlertFamily& family : board_.families()) {
    auto* card = new AlertCard(*family.entry, this);
    connect(card, &QAbstractButton::clicked, this, [this, card] { Q_EMIT ListWanted(&card->entry()); });
    cards_.push_back(card);
  }
  Build();
  connect(&board_, &AlertBoard::Changed, this, &StartPage::ShowBoard);
  ShowBoard();
}

void StartPage::Build() {
  auto* column = new QVBoxLayout(this);
  SetMuted(day_);
  AddHeading(*column, new QLabel(QStringLiteral("Início"), this))->addWidget(day_, 0, Qt::AlignBottom);

  notice_->setTextFormat(Qt::PlainText);
  notice_->setWordWrap(true);
  notice_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  notice_->setContentsMargins(Gap(this), 0, WideGap(this), Gap(this));
  column->addWidget(notice_);
  auto* place = new QVBoxLayout(month_place_);
  place->setContentsMargins(0, 0, 0, 0);
  place->addWidget(month_);

  auto* cards = new QWidget(this);
  auto* month_and_cards = new QVBoxLayout(cards);
  month_and_cards->setContentsMargins(0, 0, 0, 0);
  month_and_cards->addWidget(month_place_);
  month_and_cards->addLayout(grid_, 1);
  grid_->setContentsMargins(Gap(this), Gap(this), WideGap(this), WideGap(this));
  grid_->setSpacing(WideGap(this));
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->viewport()->setBackgroundRole(QPalette::Base);
  cards->setBackgroundRole(QPalette::Base);
  scroll_->setWidget(cards);
  Arrange();
  stack_->addWidget(scroll_);
  stack_->addWidget(steps_);
  connect(steps_, &FirstStepsPage::FichaWanted, this, &StartPage::FichaWanted);
  connect(steps_, &FirstStepsPage::CodesWanted, this, &StartPage::CodesWanted);
  connect(steps_, &FirstStepsPage::ImportWanted, this, &StartPage::ImportWanted);
  connect(steps_, &FirstStepsPage::DemoWanted, this, &StartPage::DemoWanted);
  connect(steps_, &FirstStepsPage::AlertsWanted, this, [this] {
    steps_left_ = true;
    ShowBoard();
  });
  column->addWidget(stack_, 1);
}

void StartPage::ShowBoard() {
  day_->setText(Today());
  const auto& failure = board_.feed_failure();
  notice_->setText(failure ? QStringLiteral("Não foi possível ler todos os avisos. ") + WithDetails(*failure)
                           : QString());
  notice_->setVisible(failure.has_value());
  for (std::size_t i = 0; i < cards_.size(); ++i) cards_[i]->Show(board_.families()[i]);
  const bool had_focus = stack_->isAncestorOf(window()->focusWidget());  // also before the window is active
  steps_->Show(board_.steps());
  stack_->setCurrentWidget(ShowsSteps() ? static_cast<QWidget*>(steps_) : scroll_);
  if (had_focus) TakeFocus();
}

/// Once begun, the steps stay until the last is ticked or they are left.
bool StartPage::ShowsSteps() {
  const auto& done = board_.steps();
  if (done == std::set{setup::Step::kFill}) steps_begun_ = steps_left_ = false;  // another database
  if (done.count(setup::Step::kFill) + done.count(setup::Step::kDueDates) == 0) steps_begun_ = true;
  return steps_begun_ && !steps_left_ && done.size() < kSteps;
}

QString StartPage::NoticeText() const { return notice_->text(); }

void StartPage::TakeFocus() {
  if (stack_->currentWidget() == steps_) return steps_->NextButton()->setFocus(Qt::OtherFocusReason);
  for (const AlertCard* card : cards_)
    if (card->hasFocus()) return;
  cards_.front()->setFocus(Qt::OtherFocusReason);
}

void StartPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void StartPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowBoard();
}

/// As many cards side by side as there is room for.
void StartPage::Arrange() {
  const int card = cards_.front()->sizeHint().width() + grid_->horizontalSpacing();
  const int columns = std::clamp((width() - WideGap(this)) / card, 1, kMostColumns);
  if (columns == columns_) return;
  columns_ = columns;
  for (int i = 0; i < static_cast<int>(cards_.size()); ++i) {
    grid_->removeWidget(cards_[static_cast<std::size_t>(i)]);
    grid_->addWidget(cards_[static_cast<std::size_t>(i)], i / columns, i % columns);
  }
  grid_->setRowStretch(static_cast<int>(cards_.size()), 1);  // below the last row of cards
  for (int i = 0; i < kMostColumns; ++i) grid_->setColumnStretch(i, i < columns ? 1 : 0);
}

}  // namespace desktop
