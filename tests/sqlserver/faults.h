#pragma once

#include <string>
#include <vector>

/// A server whose answers the test sets: the driver manager's functions stand in this program before the real
/// ones, which they call unless a fault is due.
namespace sqlserver_tests {

struct Fault {
  std::string state;
  int native;
  std::string words;
  /// The statements that it hits contain this text; empty: any.
  std::string in;
  /// What is said besides, after it.
  std::vector<Fault> more = {};
};

/// The next matching statement fails so, before it reaches the driver.
void FailNextStatement(const Fault& fault);
/// The next attempt to connect fails so.
void FailNextConnection(const Fault& fault);
/// The next time that each write is to be kept by itself again, which is after a batch, fails so.
void FailAfterBatch(const Fault& fault);
/// Connections made from here on are to a server that never answers a statement with this text.
void GoSilentOn(const std::string& text);
/// From here on statements with this text are answered by another one.
void AnswerInstead(const std::string& in, const std::string& sql);
/// No fault is due any more.
void ClearFaults();

/// Connections made from now on name themselves the server's product; what is SET on them is kept and not
/// sent on, with the login's time limit before it.
void PretendServer();
std::string Settings();

/// The parameters bound since the last call: "value type/column type/size/decimals/length".
std::string Bindings();
/// What went to the driver since the last call: statements executed, and connections made.
int StatementsSent();
int ConnectionsMade();

}  // namespace sqlserver_tests
