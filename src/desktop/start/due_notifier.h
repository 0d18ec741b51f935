#pragma once

#include <QObject>

#include "desktop/database/background_reader.h"
#include "notice/due_watch.h"

class QTimer;

namespace desktop {

class Workspace;

/// Looks from time to time, away from the window's thread, whether something has become due in the database
/// that is open.
class DueNotifier : public QObject {
  Q_OBJECT

 public:
  explicit DueNotifier(QObject* parent);

  /// Looks at another database from now on; null for none. It outlives the watch.
  void Watch(Workspace* workspace);
  /// Looks now. What can't be read is looked at again the next time.
  void Look();

 Q_SIGNALS:
  void BecameDue(const QString& title, const QString& text);

 private:
  void Take(const std::vector<notice::DueDate>& dates);

  Workspace* workspace_ = nullptr;
  ReadTicket ticket_;
  notice::DueWatch watch_;
  QTimer* timer_;
};

}  // namespace desktop
