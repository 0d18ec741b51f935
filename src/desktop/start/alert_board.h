#pragma once

#include <QObject>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "desktop/database/background_reader.h"
#include "desktop/list/list_catalog.h"
#include "desktop/start/alert_reading.h"
#include "platform/date.h"

namespace desktop {

class Workspace;

/// One family of alerts: what the module's feed says of it, and how many rows its list has.
struct AlertFamily {
  const ListEntry* entry;
  QString feed;  // the feed's text; empty when it says nothing
  std::optional<zorCrmParvel::ContagemDeAlertas> counts;
  bool has_very_soon = true;         // rows of the list can be in that band
  long handled = 0;                  // rows that were dealt with, or put off
  std::optional<ErrorText> failure;  // of the last count
};

/// What is due in the database that is open. It is found anew on request, away from the window's thread;
/// until then the last numbers stand.
class AlertBoard : public QObject {
  Q_OBJECT

 public:
  explicit AlertBoard(QObject* parent);

  /// Looks at another database from now on; null for none. It outlives the watch.
  void Watch(Workspace* workspace);
  /// Starts to find everything anew, and returns at once. The feed, which may have to look at every record,
  /// is only asked on request.
  void Refresh(bool with_feed);
  /// The same for what is not known, what may have changed by what was written here, and on another day.
  void RefreshChanged(bool with_feed);
  /// Finds what is left of the last request before it returns.
  void Finish();
  bool IsBusy() const { return busy_; }

  const std::vector<AlertFamily>& families() const { return families_; }
  /// Why the feed couldn't be read to its end.
  const std::optional<ErrorText>& feed_failure() const { return feed_failure_; }
  /// What the office has done of its first steps.
  const std::set<setup::Step>& steps() const { return steps_; }
  /// The rows of all lists; nothing while one of them isn't known.
  std::optional<long> Total() const;

 Q_SIGNALS:
  void Changed();

 private:
  void Ask();
  void Take(const std::map<std::string, AlertPart>& found);
  void TakeFailure(const ErrorText& failure);
  void TakeFeed(const AlertPart& part);

  Workspace* workspace_ = nullptr;
  ReadTicket ticket_;
  bool busy_ = false;
  bool with_feed_ = false;
  platform::Date day_;                               // of the last request
  std::set<std::string> stale_;                      // parts to be found anew
  std::map<std::string, store::TableNames> tables_;  // behind each part that was found
  std::vector<AlertFamily> families_;
  std::optional<ErrorText> feed_failure_;
  std::set<setup::Step> steps_ = {setup::Step::kFill};  // until they are read
};

/// "1 alerta", "1.250 alertas".
QString AlertsCounted(long rows);

}  // namespace desktop
