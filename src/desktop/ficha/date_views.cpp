#include "desktop/ficha/date_views.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QLocale>

#include "desktop/look/look.h"
#include "platform/host.h"

namespace desktop {
namespace {

/// The moment that stands for no date: Qt shows it as blank.
QDateTime NoDate() { return {QDate(1753, 1, 1), QTime(0, 0), Qt::UTC}; }

}  // namespace

QDateTime ToQt(platform::Date date) {
  return {QDate(date.year(), date.month(), date.day()), QTime(date.hour(), date.minute(), date.second()),
          Qt::UTC};
}

platform::Date FromQt(const QDateTime& moment) {
  const QDate day = moment.date();
  const QTime time = moment.time();
  return platform::Date::FromParts(day.year(), day.month(), day.day(), time.hour(), time.minute(),
                                   time.second());
}

QString ToQtDateMask(const std::string& mask) {
  QString result;
  bool after_hour = false;
  for (char c : mask) {
    if (c == 'm' && !after_hour)
      result += QLatin1Char('M');
    else if (c == 'h')
      result += QLatin1Char('H');
    else if (c == 'n')
      result += QLatin1Char('m');
    else
      result += QLatin1Char(c);
    if (c == 'h')
      after_hour = true;
    else if (c != ':' && c != 'm')
      after_hour = false;
  }
  return result;
}

PickerView::PickerView(platform::DTPicker& picker, UserActs& acts, QWidget* parent)
    : ControlView(picker, acts),
      picker_(picker),
      whole_(new QWidget(parent)),
      edit_(new QDateTimeEdit(whole_)) {
  auto* row = new QHBoxLayout(whole_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(Gap(whole_) / 2);
  if (picker.Optional) MakeOptional();
  row->addWidget(edit_);
  edit_->setLocale(QLocale(QLocale::Portuguese, QLocale::Portugal));
  edit_->setTimeSpec(Qt::UTC);
  edit_->setDisplayFormat(ToQtDateMask(picker.CustomFormat));
  edit_->setMinimumDateTime(NoDate());
  edit_->setSpecialValueText(QStringLiteral(" "));
  edit_->setCalendarPopup(true);
  edit_->setKeyboardTracking(true);
  connect(edit_, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& moment) {
    if (!this->acts().IsSyncing()) Pick(FromQt(moment));
  });
}

QWidget* PickerView::focusWidget() const {
  return check_ != nullptr && !edit_->isEnabled() ? static_cast<QWidget*>(check_)
                                                  : static_cast<QWidget*>(edit_);
}

void PickerView::SetName(const QString& name) {
  edit_->setAccessibleName(name);
  if (check_ != nullptr) check_->setAccessibleName(name + QStringLiteral(": com data"));
}

void PickerView::MakeOptional() {
  check_ = new QCheckBox(whole_);
  check_->setFocusPolicy(Qt::NoFocus);
  check_->setToolTip(QStringLiteral("Com data"));
  whole_->layout()->addWidget(check_);
  connect(check_, &QCheckBox::clicked, this, [this](bool checked) {
    Pick(checked ? platform::Variant(platform::Today()) : platform::Variant(platform::Variant::Null()));
  });
}

void PickerView::Pick(const platform::Variant& value) {
  acts().Act([&] { acts().form().UserPicksDate(picker_, value); });
}

void PickerView::SyncContent() {
  const platform::Date* date = picker_.Value.As<platform::Date>();
  const QDateTime moment = date != nullptr ? ToQt(*date) : NoDate();
  const QString mask = ToQtDateMask(picker_.CustomFormat);
  if (edit_->displayFormat() != mask) edit_->setDisplayFormat(mask);
  if (edit_->dateTime() != moment) edit_->setDateTime(moment);
  const bool editable = picker_.Enabled && (date != nullptr || check_ == nullptr);
  if (edit_->isEnabled() != editable) {
    edit_->setEnabled(editable);
    SetLocked(edit_, !editable);
  }
  if (check_ == nullptr) return;
  check_->setChecked(date != nullptr);
  check_->setEnabled(picker_.Enabled);
}

CalendarView::CalendarView(platform::MonthView& month, UserActs& acts, QWidget* parent)
    : ControlView(month, acts), month_(month), shown_(new QCalendarWidget(parent)) {
  shown_->setLocale(QLocale(QLocale::Portuguese, QLocale::Portugal));
  shown_->setAccessibleName(QStringLiteral("Calendário"));
  shown_->setDateEditEnabled(false);
  QSizePolicy policy = shown_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  shown_->setSizePolicy(policy);
  using Chosen = void (platform::Form::*)(platform::MonthView&, platform::Date);
  const auto tell = [this](Chosen chosen) {
    return [this, chosen](QDate day) {
      const platform::Date date = FromQt(QDateTime(day, QTime(0, 0), Qt::UTC));
      this->acts().Act([&] { (this->acts().form().*chosen)(month_, date); });
    };
  };
  connect(shown_, &QCalendarWidget::clicked, this, tell(&platform::Form::UserClicksDate));
  connect(shown_, &QCalendarWidget::selectionChanged, this,
          [this, moved = tell(&platform::Form::UserMovesToDate)] { moved(shown_->selectedDate()); });
}

QWidget* CalendarView::widget() const { return shown_; }
QWidget* CalendarView::focusWidget() const {
  return shown_->focusProxy() != nullptr ? shown_->focusProxy() : shown_;
}

void CalendarView::SyncContent() {
  const QDate day = ToQt(month_.Value).date();
  if (shown_->selectedDate() != day) shown_->setSelectedDate(day);
  shown_->setEnabled(month_.Enabled);
}

}  // namespace desktop
