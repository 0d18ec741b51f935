#pragma once

#include <string>
#include <string_view>

namespace exchange {

/// True for the pairs of letters and digits that Portugal has given out, however they are parted: "AA0000",
/// "00-00-AA", "00 AA 00", "AA-00-AA".
bool IsPortuguesePlate(std::string_view plate);
/// A plate as it is stored: a Portuguese one "00-AA-00", or without hyphens where the fleet writes its own
/// so; a foreign one as it stands, without blanks at its ends.
std::string WrittenPlate(std::string_view plate, bool hyphens);

}  // namespace exchange
