#pragma once

#include <string>
#include <vector>

#include "exchange/profile/import_kinds.h"
#include "exchange/profile/profile.h"
#include "exchange/shape/table_shape.h"

namespace exchange {

/// The kind whose columns the header names best; null when nothing in it is known.
const ImportKind* GuessKind(const std::vector<std::string>& header);
/// A profile without a name for rows of a kind, from the first rows of a file: where the header is and which
/// columns are ours. What isn't sure is left out; the operator corrects.
Profile GuessProfile(const ImportKind& kind, const std::vector<TableRow>& rows);

/// True when a file with this header is one of the profile's: it has every column that the profile reads.
bool Recognises(const Profile& profile, const std::vector<std::string>& header);
/// The place of a piece's column in a file: by its heading, else by its position where the file has no
/// header; -1 when the file lacks it.
int PlaceOf(const Piece& piece, const std::vector<std::string>& header);

}  // namespace exchange
