#pragma once

#include <iosfwd>
#include <string>

#include "store/database_choice.h"

namespace console {

/// Prints the statements that create the tables: all of them, or, on a server, those that it lacks. `apply`
/// runs them there. Exit code `kDone`; failures are thrown.
int RunSchemaCommand(const store::DatabaseChoice& choice, bool apply, std::ostream& out);

/// Of a server: connects and tells what differs from the tables that the program knows. Of a file: reads it
/// from end to end and tells what is wrong with it. `kRefused` when something does or is.
int RunCheckCommand(const store::DatabaseChoice& choice, std::ostream& out);

/// Copies an embedded database to the server, table by table.
int RunTransferCommand(const store::DatabaseChoice& choice, const std::string& file, std::ostream& out);
/// Tells what went to a server and came back.
void PrintTraffic(const sqlserver::Traffic& traffic, std::ostream& out);

}  // namespace console
