#include "sqlserver/errors.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/runtime_error.h"

namespace sqlserver {
namespace {

using platform::RuntimeError;

constexpr int kServer = -1;

/// True for what the server itself said: neither a remark nor one of the driver's own numbers (FreeTDS has
/// its from 20000).
bool IsOfServer(const Diagnostic& diagnostic) {
  return diagnostic.native > 0 && (diagnostic.native < 20000 || diagnostic.native >= 21000) &&
         !diagnostic.state.starts_with("01");
}

/// What a diagnostic means: found by the server's number, which `kServer` leaves open, or, when that is 0
/// here, by the beginning of the SQLSTATE.
struct Meaning {
  int native;
  std::string_view state;
  int number;
  const char* advice;

  bool Fits(const Diagnostic& diagnostic) const {
    if (native == kServer) return IsOfServer(diagnostic);
    return native != 0 ? diagnostic.native == native : diagnostic.state.starts_with(state);
  }
};

constexpr int kFailure = platform::kEngineFailure;
constexpr int kRefused = platform::kStatementRefused;

constexpr const char* kWrongLogin =
    "O servidor recusou o utilizador ou a senha. Confirme o utilizador (UID) na ligação, e a senha.";
constexpr const char* kNoAccess =
    "A base de dados pedida não existe no servidor, ou o utilizador não tem acesso a ela. Confirme Database "
    "na ligação, ou peça o acesso ao administrador do servidor.";
constexpr const char* kExpired =
    "A conta está bloqueada, ou a senha expirou. Peça ao administrador do servidor que a reponha.";
constexpr const char* kRefusedByServer =
    "O servidor recusou a ligação, e diz porquê. Se não depende de si, peça ao seu administrador que veja.";
constexpr const char* kUnreachable =
    "Não se chega ao servidor. Confirme Server e Port na ligação, que o servidor está a trabalhar e que a "
    "rede deixa passar.";
constexpr const char* kNoDriver =
    "O controlador ODBC ou o DSN da ligação não está instalado nesta máquina. Instale-o (em Debian, o pacote "
    "tdsodbc) e confirme Driver ou DSN na ligação; «odbcinst -q -d» mostra os que há.";

// In the order of their weight: the first one that fits any diagnostic decides. A database that can't be
// opened comes together with a login that failed for it.
constexpr std::array kOfConnecting{Meaning{4060, "", kFailure, kNoAccess},
                                   Meaning{911, "", kFailure, kNoAccess},
                                   Meaning{916, "", kFailure, kNoAccess},
                                   Meaning{18470, "", kFailure, kExpired},
                                   Meaning{18486, "", kFailure, kExpired},
                                   Meaning{18487, "", kFailure, kExpired},
                                   Meaning{18488, "", kFailure, kExpired},
                                   Meaning{18452, "", kFailure, kWrongLogin},
                                   Meaning{18456, "", kFailure, kWrongLogin},
                                   Meaning{kServer, "", kFailure, kRefusedByServer},
                                   Meaning{0, "28000", kFailure, kWrongLogin},
                                   Meaning{0, "IM00", kFailure, kNoDriver},
                                   Meaning{0, "08", kFailure, kUnreachable},
                                   Meaning{0, "HYT", kFailure, kUnreachable},
                                   Meaning{0, "01000", kFailure, kNoDriver},
                                   Meaning{0, "", kFailure, "A ligação ao servidor não se fez."}};

constexpr const char* kNoTable =
    "Falta a tabela na base de dados. Confirme Database na ligação, ou crie as tabelas que faltam com "
    "«parvel "
    "esquema --aplicar».";
constexpr const char* kNoColumn =
    "Se é uma coluna do programa, «parvel verificar» diz o que falta na base de dados.";
constexpr const char* kForbidden =
    "O utilizador da ligação não tem permissão para isto. Peça ao administrador da base de dados que lhe "
    "deixe ler e gravar nas tabelas (db_datareader e db_datawriter).";
constexpr const char* kReadOnly =
    "A base de dados só permite leitura, e nada foi gravado. Peça ao administrador que permita gravar.";
constexpr const char* kNoRoom = "O servidor ficou sem espaço, e nada foi gravado. Avise o administrador.";
constexpr const char* kBusy =
    "Outro utilizador estava a gravar os mesmos registos, e nada foi gravado. Tente de novo.";
constexpr const char* kTooSlow =
    "O servidor não respondeu dentro do tempo limite, e a operação foi interrompida. Veja o registo antes de "
    "repetir; se acontecer muitas vezes, dê mais tempo ao servidor com --tempo-limite.";

constexpr std::array kOfStatements{Meaning{208, "", platform::kInvalidObject, kNoTable},
                                   Meaning{207, "", platform::kInvalidColumn, kNoColumn},
                                   Meaning{229, "", kRefused, kForbidden},
                                   Meaning{230, "", kRefused, kForbidden},
                                   Meaning{262, "", kRefused, kForbidden},
                                   Meaning{297, "", kRefused, kForbidden},
                                   Meaning{300, "", kRefused, kForbidden},
                                   Meaning{916, "", kRefused, kForbidden},
                                   Meaning{1088, "", kRefused, kForbidden},
                                   Meaning{2760, "", kRefused, kForbidden},
                                   Meaning{3906, "", kRefused, kReadOnly},
                                   Meaning{1101, "", kFailure, kNoRoom},
                                   Meaning{1105, "", kFailure, kNoRoom},
                                   Meaning{9002, "", kFailure, kNoRoom},
                                   Meaning{1205, "", kFailure, kBusy},
                                   Meaning{1222, "", kFailure, kBusy},
                                   Meaning{515, "", platform::kConstraint, ""},
                                   Meaning{547, "", platform::kConstraint, ""},
                                   Meaning{2601, "", platform::kConstraint, ""},
                                   Meaning{2627, "", platform::kConstraint, ""},
                                   Meaning{0, "42S02", platform::kInvalidObject, kNoTable},
                                   Meaning{0, "42S22", platform::kInvalidColumn, kNoColumn},
                                   Meaning{0, "23", platform::kConstraint, ""},
                                   Meaning{0, "40", kFailure, kBusy},
                                   Meaning{0, "HYT", kFailure, kTooSlow},
                                   Meaning{0, "42", kRefused, ""},
                                   Meaning{0, "22", kRefused, ""},
                                   Meaning{0, "", kFailure, ""}};

constexpr int kTerminated = 3621;  // "The statement has been terminated.": only follows the reason

/// The diagnostic that says why: neither a remark nor the mere end of the statement.
const Diagnostic& ReasonIn(const std::vector<Diagnostic>& diagnostics) {
  const auto found = std::find_if(diagnostics.begin(), diagnostics.end(), [](const Diagnostic& each) {
    return !each.state.starts_with("01") && each.native != kTerminated;
  });
  return found == diagnostics.end() ? diagnostics.front() : *found;
}

std::string Sentence(const std::string& words) { return words.ends_with('.') ? words : words + "."; }

std::string OriginOf(const Diagnostic& diagnostic) {
  return "ODBC " + diagnostic.state + "/" + std::to_string(diagnostic.native);
}

}  // namespace

bool IsConnectionLost(const OdbcFailure& failure) {
  constexpr std::array<std::string_view, 4> kLost{"08S01", "08003", "08007", "08001"};
  constexpr std::array kLostNatively{20004, 20006, 20017, 20047};  // FreeTDS: read, write, end, dead
  const auto& all = failure.diagnostics();
  return std::any_of(all.begin(), all.end(), [&](const Diagnostic& each) {
    return std::find(kLost.begin(), kLost.end(), each.state) != kLost.end() ||
           std::find(kLostNatively.begin(), kLostNatively.end(), each.native) != kLostNatively.end();
  });
}

bool IsTimeout(const OdbcFailure& failure) {
  const auto& all = failure.diagnostics();
  return std::any_of(all.begin(), all.end(),
                     [](const Diagnostic& each) { return each.state.starts_with("HYT"); });
}

void RaiseNotConnected(const OdbcFailure& failure, const std::string& place) {
  const auto& all = failure.diagnostics();
  for (const Meaning& meaning : kOfConnecting) {
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Diagnostic& each) { return meaning.Fits(each); });
    if (found == all.end()) continue;
    throw RuntimeError(
        meaning.number, OriginOf(*found),
        "Não foi possível ligar a " + place + ". " + meaning.advice + " (" + found->words + ")");
  }
  throw RuntimeError(kFailure, "ODBC", "Não foi possível ligar a " + place + ".");
}

void RaiseRefused(const OdbcFailure& failure) {
  const Diagnostic& reason = ReasonIn(failure.diagnostics());
  const auto* meaning = std::find_if(kOfStatements.begin(), kOfStatements.end(),
                                     [&](const Meaning& each) { return each.Fits(reason); });
  const std::string advice = meaning->advice;
  throw RuntimeError(meaning->number, OriginOf(reason),
                     advice.empty() ? reason.words : Sentence(reason.words) + " " + advice);
}

void RaiseTooSlow(const OdbcFailure& failure) {
  const Diagnostic& reason = ReasonIn(failure.diagnostics());
  throw RuntimeError(kFailure, OriginOf(reason), Sentence(reason.words) + " " + kTooSlow);
}

void RaiseLost(const OdbcFailure& failure, const std::string& place, bool written) {
  const Diagnostic& reason = ReasonIn(failure.diagnostics());
  throw RuntimeError(
      kFailure, OriginOf(reason),
      "A ligação a " + place + " perdeu-se. " +
          (written ? "A última gravação ou ficou feita por inteiro ou não ficou: veja o registo antes de "
                     "repetir."
                   : "Nada ficou gravado a meio.") +
          " O programa liga-se de novo na próxima operação. (" + reason.words + ")");
}

}  // namespace sqlserver
