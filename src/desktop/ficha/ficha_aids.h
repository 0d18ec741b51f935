#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desktop/database/background_reader.h"
#include "entry/codes.h"
#include "entry/dates.h"
#include "entry/like_last.h"
#include "entry/warnings.h"

class QLabel;
class QPushButton;
class QWidget;

namespace desktop {

/// What the window does for the user beside a ficha's model: codes in their own spelling, the code that was
/// just made, a new expense like the last, what is odd before it is confirmed, and what was saved, with the
/// way back. All of it works on the form as a user would.
class FichaAids : public QObject {
  Q_OBJECT

 public:
  /// `act` runs an act of the user on the form. What takes long is read by the reader, so that no key waits
  /// for it; without one nothing odd is told.
  FichaAids(platform::Form& form, QWidget* parent, std::function<void(const std::function<void()>&)> act,
            BackgroundReader* reader);

  /// The lines that stand below the fields.
  QWidget* line() const { return line_; }
  /// The line's text; empty when it isn't shown.
  QString Text() const;

  /// The keyboard is about to leave a field: a code gets the spelling that it has.
  void Spell();
  /// A key that leaves the field was pressed, and it has the keyboard still: what to do is said until it is
  /// left or typed in.
  void Kept(const platform::Control& field);
  /// Before and after the ficha of a code was opened from its field.
  void BeforeCodeForm();
  void AfterCodeForm();
  /// Before and after a button was pressed: after it, what was saved is said.
  void BeforeButton();
  void AfterButton(const std::string& record);
  /// "Como o último" on a new expense: what is to be said of it; empty on other fichas.
  QString LikeLast();
  /// Looks at what stands on the ficha now.
  void Show();

 private:
  /// What a draft was found to be, with the past that it was judged by.
  struct Judgement {
    std::shared_ptr<const entry::ExpensePast> past;
    std::vector<std::string> warnings;
  };
  /// Reads away from the window's thread; without a reader here and now.
  template <typename Read, typename Done>
  ReadTicket Ask(Read read, Done done);
  void Judge();
  void ReadDates();
  void ReadCodes();
  const std::vector<entry::KnownCode>& CodesOf(const entry::CodeField& field);
  void TakeMade(const entry::CodeField& field, std::vector<entry::KnownCode> codes);
  void ForgetPast();
  zorCrmParvel::DataAccessRef Database() const;
  void TakeBack();
  void LeaveDates();

  platform::Form& form_;
  std::function<void(const std::function<void()>&)> act_;
  QWidget* line_;
  QLabel* text_;
  QPushButton* undo_;
  QPushButton* dates_;
  BackgroundReader* reader_;
  ReadTicket judging_;
  std::optional<entry::ExpenseDraft> draft_;  // that was judged last, or is being judged
  Judgement judged_;
  std::optional<entry::DatedRecord> dated_;  // whose dates were read last, or are being read
  entry::StoredDates stored_;                // of it
  ReadTicket reading_dates_;
  std::map<const entry::CodeField*, std::vector<entry::KnownCode>> codes_;  // as they were read last
  const entry::CodeField* entered_ = nullptr;  // the code field that has the keyboard
  ReadTicket reading_codes_;
  const platform::zor_input* kept_ = nullptr;  // the field of a code that did not let go
  std::string kept_text_;
  entry::TakenTypes taken_;
  const entry::CodeField* opened_ = nullptr;  // from which the ficha of a code was opened
  std::vector<entry::KnownCode> before_form_;
  long before_ = 0;  // the newest operation before a button was pressed
  long saved_ = 0;   // the operation that was just confirmed
  QString saved_words_;
};

}  // namespace desktop
