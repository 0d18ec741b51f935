#pragma once

#include <string>

#include "host/data_access.h"
#include "platform/date.h"

namespace zorCrmParvel {

/// The last day for paying the yearly road tax of a vehicle registered in a month: the end of that month,
/// this year or, once it is over, next year.
platform::Date FimDoPrazoDoSelo(int mesMatricula, platform::Date hoje);

namespace Tools {

/// The next periodic inspection by category, age and the last inspection done. `Dias` are the days from
/// today, negative when it is past; `MesAno` is work text that comes back as the date's short text. An
/// unknown category leaves both as they came. Where the rule has no month to give, it goes on with the text
/// that came: error 13 when that is empty. Error 13, too, when the anniversary of a 29th of February doesn't
/// exist in the year of the last inspection.
void ProximaInspecao(const std::string& Matricula, std::int16_t AnoMatricula, platform::Date DataMatricula,
                     std::int16_t& Dias, std::string& MesAno, const std::string& Categoria,
                     const DataAccessRef& bd);

}  // namespace Tools
}  // namespace zorCrmParvel
