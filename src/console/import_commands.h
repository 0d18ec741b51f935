#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/calls.h"

namespace console {

/// What a call of an import says.
struct ProfileImport {
  std::string kind;  // must be the profile's
  std::string file;
  std::string profile;  // empty: the file has the program's own columns
  bool simulate = false;
  std::optional<char> decimal;   // of a file with the program's own columns; without it, found out
  bool createCodes = false;      // those that the file names and the database lacks
  bool acceptProposals = false;  // of kilometres
  std::string refused;           // where the refused rows go; empty: nowhere
  std::string rows;              // where all rows go, with their states; empty: nowhere
};

/// Tells each row that isn't simply stored, the sums, and what was stored.
int ImportWithProfile(const Calls& calls, const ProfileImport& import);

/// The same of a file whose first row names the program's own columns.
int ImportOwnColumns(const Calls& calls, const ProfileImport& import);

/// "listar", "exportar NOME", "importar FICHEIRO", "remover NOME" or "propor TIPO FICHEIRO".
int RunProfiles(const Calls& calls, const std::vector<std::string>& words);
/// Nothing: lists the imports; "anular N" takes one back.
int RunImports(const Calls& calls, const std::vector<std::string>& words);

}  // namespace console
