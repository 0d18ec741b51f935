#include "desktop/start/month_page.h"

#include <QDate>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/list/item_painter.h"
#include "desktop/look/look.h"
#include "desktop/look/parts.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "host/ficha.h"
#include "host/form_catalog.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kWeeks = 6;
constexpr int kDays = 7;

QLocale Portuguese() { return QLocale(QLocale::Portuguese, QLocale::Portugal); }
QDate Day(platform::Date date) { return {date.year(), date.month(), date.day()}; }
platform::Date FirstOfMonth(platform::Date day) {
  return platform::Date::FromParts(day.year(), day.month(), 1);
}

/// The record first: what doesn't fit a day is cut behind it.
QString LineOf(const due::DueDate& date) { return ToQt(date.record + " · " + date.what); }

}  // namespace

MonthPage::MonthPage(Workspace& workspace, QWidget* parent)
    : Page(parent),
      workspace_(workspace),
      month_(FirstOfMonth(platform::Today())),
      title_(new QLabel(this)),
      day_(new QLabel(this)),
      days_(new QTableWidget(kWeeks, kDays, this)),
      list_(new QListWidget(this)) {
  Build();
  Load();
  GoToDay();
}

void MonthPage::Build() {
  auto* column = new QVBoxLayout(this);
  QHBoxLayout* heading = AddHeading(*column, title_);
  const auto add = [this, heading](const QString& text, const QString& tip, int months) {
    auto* button = new QPushButton(text, this);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, [this, months] {
      if (months == 0)
        ShowMonth(platform::Today());
      else
        Step(months);
    });
    heading->addWidget(button);
  };
  add(QStringLiteral("Ant&erior"), QStringLiteral("Mês anterior (PgUp)"), -1);
  add(QStringLiteral("Ho&je"), QStringLiteral("O mês em que estamos"), 0);
  add(QStringLiteral("&Seguinte"), QStringLiteral("Mês seguinte (PgDn)"), 1);

  days_->setAccessibleName(QStringLiteral("Dias do mês"));
  days_->setFrameShape(QFrame::NoFrame);
  days_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  days_->setSelectionMode(QAbstractItemView::SingleSelection);
  days_->setTabKeyNavigation(false);
  days_->setWordWrap(false);
  days_->verticalHeader()->hide();
  days_->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  days_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  QStringList names;
  for (int day = 1; day <= kDays; ++day) names << Portuguese().dayName(day, QLocale::ShortFormat);
  days_->setHorizontalHeaderLabels(names);
  days_->horizontalHeader()->setHighlightSections(false);
  days_->setItemDelegate(new ItemPainter(days_));
  days_->installEventFilter(this);
  connect(days_->verticalHeader(), &QHeaderView::sectionResized, this, [this](int section) {
    if (section == kWeeks - 1) WriteDays();
  });
  connect(days_, &QTableWidget::currentCellChanged, this, &MonthPage::ShowDay);

  auto* side = new QVBoxLayout;
  side->setContentsMargins(WideGap(this), 0, WideGap(this), WideGap(this));
  SetTitleFont(day_, 1.1);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setItemDelegate(new ItemPainter(list_));
  list_->installEventFilter(this);
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { Open(list_->currentRow()); });
  side->addWidget(day_);
  side->addWidget(list_, 1);
  auto* row = new QHBoxLayout;
  row->addWidget(days_, 3);
  row->addLayout(side, 1);
  column->addLayout(row, 1);
}

QString MonthPage::Title() const { return QStringLiteral("Calendário"); }

QString MonthPage::CountText() const {
  if (is_reading_ && dates_.empty()) return {};
  return Counted(static_cast<long>(dates_.size()), QStringLiteral("prazo"), QStringLiteral("prazos"));
}

void MonthPage::ShowMonth(platform::Date day) {
  month_ = FirstOfMonth(day);
  Load();
  GoToDay();
}

void MonthPage::Step(int months) { ShowMonth(month_.AddMonths(months)); }

/// The days are there at once; what is due comes when it has been read.
void MonthPage::Load() {
  const platform::Date first = month_.AddDays(1 - Day(month_).dayOfWeek());
  if (std::exchange(first_, first) != first) dates_.clear();
  QString title = Portuguese().toString(Day(month_), QStringLiteral("MMMM yyyy"));
  if (!title.isEmpty()) title[0] = title[0].toUpper();
  title_->setText(title);
  is_reading_ = true;
  Fill();
  reading_.GiveUp();
  reading_ = workspace_.reader().Ask(
      this,
      [first](const BackgroundReader::StoreRef& store) {
        return due::DueBetween(zorCrmParvel::DataAccessRef(std::shared_ptr<zorCrmParvel::DataAccess>(store)),
                               first, first.AddDays(kWeeks * kDays - 1));
      },
      [this](std::vector<due::DueDate> dates) {
        is_reading_ = false;
        dates_ = std::move(dates);
        Fill();
        Q_EMIT Changed();
      },
      [this](const ErrorText& failure) {
        is_reading_ = false;
        Fill();
        ShowError(window(), failure);
      });
  Q_EMIT Changed();
}

/// To this day, in another month to its first.
void MonthPage::GoToDay() {
  const platform::Date today = platform::Today();
  const platform::Date shown = FirstOfMonth(today) == month_ ? today : month_;
  const auto place = static_cast<int>(platform::DaysBetween(first_, shown));
  days_->setCurrentCell(place / kDays, place % kDays);
}

platform::Date MonthPage::DayAt(int row, int column) const { return first_.AddDays(row * kDays + column); }

/// The first lines of each day, as many as there is room for, and how many more there are.
void MonthPage::WriteDays() {
  const QSignalBlocker quiet(days_);
  const platform::Date today = platform::Today();
  const int lines_in_day = std::max(days_->rowHeight(0) / days_->fontMetrics().lineSpacing() - 1, 1);
  for (int row = 0; row < kWeeks; ++row)
    for (int column = 0; column < kDays; ++column) {
      const platform::Date day = DayAt(row, column);
      const QString number =
          QString::number(day.day()) + (day == today ? QStringLiteral(" · hoje") : QString());
      QStringList lines = {number};
      for (const due::DueDate& date : dates_)
        if (date.day == day) lines << LineOf(date);
      const QString all = lines.join(QLatin1Char('\n'));
      const auto count = static_cast<int>(lines.size()) - 1;
      if (count > lines_in_day) {
        lines = lines.mid(0, lines_in_day);
        lines << QStringLiteral("e mais %1").arg(count - lines_in_day + 1);
      }
      auto* item = new QTableWidgetItem(lines.join(QLatin1Char('\n')));
      item->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
      item->setToolTip(PlainToolTip(all));
      QFont bold = font();
      bold.setBold(day == today);
      item->setFont(bold);
      if (day.month() != month_.month()) item->setForeground(MutedText(palette()));
      days_->setItem(row, column, item);
    }
}

void MonthPage::Fill() {
  WriteDays();
  ShowDay();
}

void MonthPage::ShowDay() {
  list_->clear();
  of_day_.clear();
  if (days_->currentRow() < 0) return;
  const platform::Date day = DayAt(days_->currentRow(), days_->currentColumn());
  day_->setText(Portuguese().toString(Day(day), QStringLiteral("d 'de' MMMM")));
  for (const due::DueDate& date : dates_)
    if (date.day == day) {
      of_day_.push_back(&date);
      list_->addItem(LineOf(date));
    }
  list_->setAccessibleName(QStringLiteral("Prazos de %1").arg(day_->text()));
  if (of_day_.empty()) {
    auto* none = new QListWidgetItem(
        is_reading_ ? QStringLiteral("A ler os prazos…") : QStringLiteral("Nada vence neste dia."), list_);
    none->setFlags(Qt::ItemIsEnabled);
    none->setForeground(MutedText(palette()));
  } else {
    list_->setCurrentRow(0);
  }
}

void MonthPage::Open(int row) {
  if (row < 0 || row >= static_cast<int>(of_day_.size())) return;
  const due::DueDate date = *of_day_[static_cast<std::size_t>(row)];
  Guarded(window(), [&] {
    const auto ficha = zorCrmParvel::FormCatalog::Shared().Make(date.driver ? "Motoristas" : "Viaturas");
    if (!ficha) return;
    ficha->Load();
    ficha->mybd = workspace_.sistema().ICrmSistema_ZorDataAccess;
    if (date.driver)
      ficha->CarregaFicha(date.code);
    else
      ficha->Chamar("CarregaViatura", date.code);
    ficha->ShowModal();
  });
  Load();
  Q_EMIT Worked();
}

void MonthPage::TakeFocus() { days_->setFocus(); }

bool MonthPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return Page::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool enters = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (watched == days_ && (key == Qt::Key_PageUp || key == Qt::Key_PageDown)) {
    Step(key == Qt::Key_PageDown ? 1 : -1);
    return true;
  }
  if (watched == days_ && enters && !of_day_.empty()) {
    list_->setFocus();
    return true;
  }
  if (watched == list_ && enters) {
    Open(list_->currentRow());
    return true;
  }
  if (watched != list_ || key != Qt::Key_Escape) return false;
  days_->setFocus();
  return true;
}

}  // namespace desktop
