#pragma once

#include <string>

#include "desktop/database/background_reader.h"

namespace desktop {

/// All rows of a statement, to be handed to another thread.
platform::RecordsetRef ReadWhole(zorCrmParvel::DataAccess& data, const std::string& statement);

/// Has the rows of a lookup or report read that nobody has waited for yet; `there` is told once they are in
/// the recordset. False when they are in it already: then nobody is told.
bool ReadLate(BackgroundReader& reader, QObject* whom, const platform::RecordsetRef& rows,
              const std::function<void()>& there, const BackgroundReader::Failed& failed);

}  // namespace desktop
