#pragma once

#include <functional>
#include <string>
#include <vector>

namespace store {

/// A value of a row that was written, by its column; empty for a column that it lacks.
using WrittenValue = std::function<std::string(const char* column)>;
/// The statements that are likely to be read next in a batch, once a row of a table has these values. An
/// engine that can has their answers brought with that of the write.
using ReadsAfterWrite =
    std::function<std::vector<std::string>(const std::string& table, const WrittenValue& value)>;

}  // namespace store
