#pragma once

#include <QDateTime>

#include "desktop/ficha/control_view.h"

class QCalendarWidget;
class QCheckBox;
class QDateTimeEdit;

namespace desktop {

/// A date of the module and the same moment for Qt, which is told that it is UTC: no hour is left out.
QDateTime ToQt(platform::Date date);
platform::Date FromQt(const QDateTime& moment);
/// A date mask of the module as Qt spells it: "dd-mm-yyyy hh:mm" is "dd-MM-yyyy HH:mm".
QString ToQtDateMask(const std::string& mask);

/// A date field with its calendar. An optional one has a small box that empties it.
class PickerView : public ControlView {
 public:
  PickerView(platform::DTPicker& picker, UserActs& acts, QWidget* parent);
  QWidget* widget() const override { return whole_; }
  QWidget* focusWidget() const override;
  void SetName(const QString& name) override;

 protected:
  void SyncContent() override;

 private:
  void MakeOptional();
  void Pick(const platform::Variant& value);

  platform::DTPicker& picker_;
  QWidget* whole_;
  QCheckBox* check_ = nullptr;
  QDateTimeEdit* edit_;
};

/// A month to choose a day in. Hidden, it keeps its room.
class CalendarView : public ControlView {
 public:
  CalendarView(platform::MonthView& month, UserActs& acts, QWidget* parent);
  QWidget* widget() const override;
  QWidget* focusWidget() const override;

 protected:
  void SyncContent() override;

 private:
  platform::MonthView& month_;
  QCalendarWidget* shown_;
};

}  // namespace desktop
