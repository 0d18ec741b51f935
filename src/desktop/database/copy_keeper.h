#pragma once

#include <QObject>
#include <QSettings>
#include <QString>
#include <memory>
#include <optional>

#include "platform/date.h"
#include "store/kept_copies.h"

class QThread;

namespace desktop {

/// The copies of the open database that the window makes by itself, once a day, without holding anything up.
class CopyKeeper : public QObject {
  Q_OBJECT

 public:
  /// The settings keep the folder of choice; they outlive the keeper.
  CopyKeeper(QSettings& settings, QObject* parent);
  /// Waits for a copy under way.
  ~CopyKeeper() override;

  /// Looks after a database file from now on; empty for none. A copy is made soon, when today's lacks.
  void Watch(const std::string& database);
  bool IsWatching() const { return !database_.empty(); }
  /// Makes today's copy in the background when it lacks.
  void Start();
  /// Waits for a copy under way.
  void Finish();

  store::KeptCopies copies() const;
  /// Where the copies go, as the user chose it; empty: beside the database.
  QString ChosenFolder() const;
  void ChooseFolder(const QString& folder);
  /// "Cópia de hoje", "Cópia de 24-11-2026", "Sem cópia"; empty while there is nothing to copy.
  QString StateText() const;

 Q_SIGNALS:
  /// There may be another last copy.
  void Changed();
  /// A copy could not be made, in the user's words.
  void Failed(const QString& reason);

 private:
  void Made(const QString& failure);

  QSettings& settings_;
  std::string database_;
  std::optional<platform::Date> last_;
  std::unique_ptr<QThread> thread_;
};

}  // namespace desktop
