#pragma once

#include <string>
#include <vector>

#include "host/data_access.h"
#include "notice/mail.h"

namespace notice {

/// What vehicles cost in the month before this one, as a spreadsheet. Failures of the database and of the
/// disk go to the caller.
Attachment MonthOfCosts(const zorCrmParvel::DataAccessRef& bd, const std::vector<std::string>& plates);

}  // namespace notice
