#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

#include "console/alerts_command.h"
#include "store/database_choice.h"

namespace console {

/// What a call asks for, beside the command itself.
struct CallOptions {
  store::DatabaseChoice database;
  std::string key;
  bool csv = false;
  bool json = false;
  std::string file;
  std::string what;
  bool simulate = false;
  std::string decimal;  // empty: found out
  bool apply = false;
  AlertsOptions alerts;
  std::int16_t kind = 0;
};

/// The commands of the program, each on what the call's options say when it runs. Each gives its exit code;
/// failures are thrown.
class Commands {
 public:
  Commands(const CallOptions& options, std::ostream& out, std::ostream& err)
      : options_(options), out_(out), err_(err) {}

  int PrintOneList();
  int Demo();
  int Import();
  int Alerts();
  int Attachments();
  int Vehicle();
  int Driver();
  int Copy();
  int Restore();
  int Schema();
  int Check();
  int Transfer();

 private:
  std::shared_ptr<zorCrmParvel::Store> Open() { return store::OpenStore(options_.database); }
  int PrintKeys();

  const CallOptions& options_;
  std::ostream& out_;
  std::ostream& err_;
};

}  // namespace console
