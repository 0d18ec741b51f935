#pragma once

#include <memory>
#include <string>

#include "embedded/database.h"
#include "sqlserver/database.h"
#include "store/store.h"

namespace store {

/// The database that a call names: a file, or a server.
struct DatabaseChoice {
  std::string file;          // empty: the usual one
  std::string connection;    // of a server; empty: a file
  std::string passwordFile;  // empty: none
  long timeLimit = 30;       // seconds that a statement may take; 0: for ever

  /// Counts what goes to the server and comes back; empty: nobody wants to know.
  std::shared_ptr<sqlserver::Traffic> traffic;

  bool IsServer() const { return !connection.empty(); }
};

/// Opens either. Errors as the engines'; the password is found as `PasswordFor` tells.
std::shared_ptr<zorCrmParvel::Store> OpenStore(const DatabaseChoice& choice);
/// The server's database for the module and its hosts: what a loop repeats is asked once (see `NearStore`).
std::shared_ptr<zorCrmParvel::Store> Near(std::shared_ptr<sqlserver::Database> server);
/// Opens the server. Throws std::runtime_error when the choice is a file.
std::shared_ptr<sqlserver::Database> OpenServer(const DatabaseChoice& choice);
/// The file's name. Throws std::runtime_error when the choice is a server.
std::string FileOf(const DatabaseChoice& choice);
/// Opens the file. Throws std::runtime_error when the choice is a server.
std::shared_ptr<embedded::Database> OpenFile(const DatabaseChoice& choice);

}  // namespace store
