#pragma once

#include <QObject>
#include <QSet>

namespace desktop {

/// Short messages that the desktop shows over whatever is in front. On a desktop that shows none, nothing
/// happens.
class DesktopNotices : public QObject {
  Q_OBJECT

 public:
  explicit DesktopNotices(QObject* parent);

  void Show(const QString& title, const QString& text);

 Q_SIGNALS:
  /// The user has pressed one of them.
  void Pressed();

 private Q_SLOTS:
  void TakeAction(uint id, const QString& action);

 private:
  QSet<uint> shown_;
};

}  // namespace desktop
