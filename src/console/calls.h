#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "store/database_choice.h"

namespace CLI {
class App;
}  // namespace CLI

namespace console {

/// The commands of the program: each announces its words and what runs once they have been read. One call is
/// obeyed; the object outlives it.
class Calls {
 public:
  Calls(std::ostream& result, std::ostream& messages);
  ~Calls();
  Calls(const Calls&) = delete;
  Calls& operator=(const Calls&) = delete;

  /// Announces a command. `run` gives its exit code; what it throws becomes a message. The arguments that are
  /// added to what comes back must be bound to variables that live as long as `run`.
  CLI::App& Add(const char* name, const char* text, std::function<int()> run);
  /// Announces a command below another one.
  CLI::App& AddBelow(CLI::App& command, const char* name, const char* text, std::function<int()> run);

  /// Announces, without showing it in the help, the command that writes down all the others for the system's
  /// manual and shells.
  void AddManual();

  /// Reads a call, runs its command and gives the exit code.
  int Obey(const std::vector<std::string>& arguments);

  /// Opens the database that the call names.
  std::shared_ptr<zorCrmParvel::Store> Open() const { return store::OpenStore(database); }

  store::DatabaseChoice database;  // that the call names
  std::ostream& out;               // results
  std::ostream& err;               // messages

 private:
  void AddCommonOptions();
  bool NamesAreGiven() const;

  bool diagnose_ = false;
  std::unique_ptr<CLI::App> app_;
  std::function<int()> run_;  // of the command that was called
};

// The commands by subject, each group in a file of its own.
void AddListCalls(Calls& calls);
void AddExchangeCalls(Calls& calls);
void AddDatabaseCalls(Calls& calls);
void AddHistoryCalls(Calls& calls);
void AddDriverCalls(Calls& calls);
void AddReportCalls(Calls& calls);
void AddNoticeCalls(Calls& calls);

}  // namespace console
