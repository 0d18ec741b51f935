#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/profile/profile.h"
#include "host/data_access.h"

namespace exchange {

/// All profiles that the database keeps, by name.
std::vector<Profile> ListProfiles(const zorCrmParvel::DataAccessRef& bd);
/// None when there is none of the name.
std::optional<Profile> FindProfile(const zorCrmParvel::DataAccessRef& bd, const std::string& name);
/// Under its name, in place of one of the same name. Throws std::runtime_error on a name that can't be kept.
void SaveProfile(const zorCrmParvel::DataAccessRef& bd, const Profile& profile);
/// False when there is none of the name.
bool RemoveProfile(const zorCrmParvel::DataAccessRef& bd, const std::string& name);
/// The profiles that a file with this header may be of, the one that knows most of the header first.
std::vector<Profile> ProfilesFor(const zorCrmParvel::DataAccessRef& bd,
                                 const std::vector<std::string>& header);

}  // namespace exchange
