#pragma once

#include <optional>
#include <sstream>
#include <string>

#include "exchange/import.h"
#include "support/database_test.h"

namespace exchange {

using namespace testing_support;

/// Vehicle 12-AB-34 with 10,000 km, driver 1 and two types of expenses, and what the last import told.
class ImportTest : public DatabaseTest {
 protected:
  ImportTest() { AddFleet(bd, 10000); }
  ImportResult Import(const std::string& what, const std::string& csv, bool simulate = false,
                      std::optional<char> decimal = std::nullopt) {
    std::istringstream file(csv);
    report.str("");
    return ImportCsv(*bd, *MakeImportTarget(what, bd), file, simulate, report, decimal);
  }

  std::ostringstream report;
};

}  // namespace exchange
