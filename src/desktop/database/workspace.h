#pragma once

#include <memory>
#include <string>

#include "desktop/database/background_reader.h"
#include "desktop/database/rights.h"
#include "embedded/database.h"
#include "history/keeping_store.h"
#include "host/sistema.h"
#include "platform/screen/form.h"
#include "store/foreseen.h"
#include "store/store.h"
#include "store/table_watch.h"

namespace desktop {

/// One open database with the module on top of it.
class Workspace {
 public:
  /// Opens the database of a file, or creates it. Error -2147467259 when it can't be used; it is then as it
  /// was.
  explicit Workspace(const std::string& path);
  /// Works on a database that is open, of whichever engine.
  explicit Workspace(std::shared_ptr<zorCrmParvel::Store> store);

  zorCrmParvel::Sistema& sistema() { return sistema_; }
  /// The open database itself, past the history.
  std::shared_ptr<zorCrmParvel::Store> store() const { return watch_; }
  /// The same database as the module writes to it: what is written is remembered.
  const std::shared_ptr<history::KeepingStore>& kept() const { return kept_; }
  /// The file, or the database and its server.
  std::string Place() const { return store_->Place(); }
  /// Reads it on threads of its own.
  BackgroundReader& reader() { return reader_; }
  /// True when a statement waits for a server.
  bool IsFar() const { return file() == nullptr && store_->Opener(); }
  /// What the module reads is answered by these, as far as they do; with none it reads as ever. Gives back
  /// those before.
  store::Foreseen Foresee(store::Foreseen answers) { return foreseen_->Foresee(std::move(answers)); }
  /// The tables that may have been written here since the last call.
  store::TableNames TakeWritten() { return watch_->TakeWritten(); }
  /// The file's engine; null on a server.
  embedded::Database* file() const { return dynamic_cast<embedded::Database*>(store_.get()); }
  /// What the user may do, which is everything until `FindRights` has found out, away from the window's
  /// thread.
  const Rights& rights() const { return rights_; }
  void FindRights(QObject* whom, const std::function<void()>& found);
  /// Fills an empty database with demonstration data; one with data is left alone.
  void FillDemo();

 private:
  std::shared_ptr<zorCrmParvel::Store> store_;
  std::shared_ptr<store::TableWatch> watch_;
  std::shared_ptr<store::ForeseenStore> foreseen_;
  std::shared_ptr<history::KeepingStore> kept_;
  platform::Form window_;  // the main window, as the module sees it
  zorCrmParvel::Sistema sistema_;
  Rights rights_;
  BackgroundReader reader_;
};

}  // namespace desktop
