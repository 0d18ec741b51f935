#pragma once

#include <QObject>
#include <QTimer>
#include <optional>
#include <set>
#include <vector>

#include "alerts/alert_counts.h"
#include "desktop/list/list_catalog.h"
#include "desktop/shell/message_box.h"
#include "host/sistema.h"
#include "setup/first_steps.h"

namespace desktop {

/// One family of alerts: what the module's feed says of it, and how many rows its list has.
struct AlertFamily {
  const ListEntry* entry;
  QString feed;  // the feed's text; empty when it says nothing
  std::optional<zorCrmParvel::ContagemDeAlertas> counts;
  bool has_very_soon = true;         // rows of the list can be in that band
  std::optional<ErrorText> failure;  // of the last count
};

/// What is due in the database that is open. It is found anew on request, one family at a time while the
/// window has nothing else to do; until a family's turn comes, its last numbers stand.
class AlertBoard : public QObject {
  Q_OBJECT

 public:
  explicit AlertBoard(QObject* parent);

  /// Looks at another database from now on; null for none. The module outlives the watch.
  void Watch(zorCrmParvel::Sistema* sistema);
  /// Starts to find everything anew, and returns at once. The feed, which may have to look at every record,
  /// is only asked on request.
  void Refresh(bool with_feed);
  /// Finds what is left of the last request before it returns.
  void Finish();
  bool IsBusy() const { return timer_.isActive(); }

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
  void Step();
  void Count(AlertFamily& family);
  void ReadFeed();
  void ReadSteps();

  zorCrmParvel::Sistema* sistema_ = nullptr;
  QTimer timer_;
  std::size_t next_ = 0;  // the step to come: the families, the first steps, the feed
  bool with_feed_ = false;
  std::vector<AlertFamily> families_;
  std::optional<ErrorText> feed_failure_;
  std::set<setup::Step> steps_ = {setup::Step::kFill};  // until they are read
};

/// "1 alerta", "1.250 alertas".
QString AlertsCounted(long rows);

}  // namespace desktop
