#pragma once

#include <string>
#include <vector>

#include "store/store_reads.h"

namespace entry {

/// What a ficha reads when an event of a vehicle was written, to find the vehicle's figures anew: for an
/// engine that can have it brought with the write's own answer. Nothing for a table without such figures.
std::vector<std::string> ReadsAfterEvent(const std::string& table, const store::WrittenValue& value);

}  // namespace entry
