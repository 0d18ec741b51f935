#include "exchange/profile/profile_store.h"

#include <algorithm>
#include <stdexcept>

#include "exchange/profile/import_kinds.h"
#include "exchange/shape/profile_guess.h"
#include "host/row.h"
#include "platform/text.h"

namespace exchange {

using zorCrmParvel::DataAccessRef;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Row;
using zorCrmParvel::value;

namespace {

RecordsetRef Read(const DataAccessRef& bd, const zorCrmParvel::Statement& statement) {
  RecordsetRef rows;
  bd->AbrirLeitura("", statement, rows);
  return rows;
}

zorCrmParvel::Statement Named(const char* what, const std::string& name) {
  return {what, " FROM parvel_perfis WHERE Nome=N'", value(name), "'"};
}

/// How many of a file's columns a profile has seen.
std::size_t Shared(const Profile& profile, const std::vector<std::string>& header) {
  return static_cast<std::size_t>(std::count_if(header.begin(), header.end(), [&](const std::string& column) {
    return std::find(profile.header.begin(), profile.header.end(), column) != profile.header.end();
  }));
}

}  // namespace

std::vector<Profile> ListProfiles(const DataAccessRef& bd) {
  const RecordsetRef rows = Read(bd, "SELECT Perfil FROM parvel_perfis ORDER BY Nome");
  std::vector<Profile> profiles;
  for (; !rows->Eof(); rows->MoveNext())
    profiles.push_back(ProfileFromJson(Row(*rows).textOrEmpty("Perfil")));
  rows->Close();
  return profiles;
}

std::optional<Profile> FindProfile(const DataAccessRef& bd, const std::string& name) {
  if (name.find('\'') != std::string::npos) return std::nullopt;
  const RecordsetRef rows = Read(bd, Named("SELECT Perfil", name));
  std::optional<Profile> profile;
  if (!rows->Eof()) profile = ProfileFromJson(Row(*rows).textOrEmpty("Perfil"));
  rows->Close();
  return profile;
}

void SaveProfile(const DataAccessRef& bd, const Profile& profile) {
  constexpr std::size_t kLongestName = 60;
  if (platform::Trim(profile.name).empty() || platform::Length(profile.name) > kLongestName ||
      profile.name.find('\'') != std::string::npos)
    throw std::runtime_error("O nome de um perfil tem de 1 a 60 caracteres, sem apóstrofos.");
  if (KindOf(profile.kind) == nullptr)
    throw std::runtime_error("O perfil «" + profile.name + "» é de um tipo que não se conhece: «" +
                             profile.kind + "».");
  RecordsetRef rows;
  bd->AbrirEdicao(Named("SELECT *", profile.name), rows);
  Row row(*rows);
  if (rows->Eof()) {
    rows->AddNew();
    row.put("Nome", profile.name);
  }
  row.put("Tipo", profile.kind);
  row.put("Perfil", ToJson(profile));
  rows->Update();
  rows->Close();
}

bool RemoveProfile(const DataAccessRef& bd, const std::string& name) {
  if (!FindProfile(bd, name)) return false;
  return bd->ExecutarSql("", Named("DELETE", name));
}

std::vector<Profile> ProfilesFor(const DataAccessRef& bd, const std::vector<std::string>& header) {
  std::vector<Profile> fitting = ListProfiles(bd);
  std::erase_if(fitting, [&](const Profile& profile) { return !Recognises(profile, header); });
  std::stable_sort(fitting.begin(), fitting.end(),
                   [&](const Profile& a, const Profile& b) { return Shared(a, header) > Shared(b, header); });
  return fitting;
}

}  // namespace exchange
