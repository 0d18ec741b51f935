#include "store/password.h"

#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace store {
namespace {

using sqlserver::Secret;

constexpr char kVariable[] = "PARVEL_SENHA";

std::optional<Secret> PasswordInEnvironment() {
  const char* password = std::getenv(kVariable);
  return password != nullptr ? std::optional<Secret>(password) : std::nullopt;
}

/// A terminal that does not show what is typed.
class Silence {
 public:
  Silence() {
    tcgetattr(STDIN_FILENO, &before_);
    termios silent = before_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
  }
  ~Silence() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  termios before_{};
};

/// What the terminal handed over stays in the buffer of the program's input until more is read: there is no
/// way to that.
Secret AskAtTerminal(const std::string& place) {
  std::cerr << "Senha para " << place << ": " << std::flush;
  std::string password;
  {
    const Silence silence;
    std::getline(std::cin, password);
  }
  std::cerr << '\n';
  Secret secret(password.c_str());
  sqlserver::Wipe(password);
  return secret;
}

}  // namespace

std::string PasswordFromFile(const std::string& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0)
    throw std::runtime_error("Não é possível ler o ficheiro da senha " + file + ".");
  if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
    throw std::runtime_error("O ficheiro da senha " + file +
                             " pode ser lido por outros. Deixe-o só para si: chmod 600 " + file);
  std::array<char, BUFSIZ> buffer{};
  std::ifstream in;
  in.rdbuf()->pubsetbuf(buffer.data(), buffer.size());
  in.open(file);
  std::string password;
  if (!std::getline(in, password) || password.empty())
    throw std::runtime_error("O ficheiro da senha " + file +
                             " está vazio ou não se lê: a senha é a sua primeira linha.");
  explicit_bzero(buffer.data(), buffer.size());
  if (password.back() == '\r') password.pop_back();
  return password;
}

std::optional<Secret> TakePassword() {
  auto password = PasswordInEnvironment();
  // The place where the system put it stays readable to the user's other programs.
  if (char* text = std::getenv(kVariable)) explicit_bzero(text, std::strlen(text));
  unsetenv(kVariable);
  return password;
}

std::optional<Secret> KnownPassword(const std::string& file) {
  if (auto password = PasswordInEnvironment()) return password;
  if (!file.empty()) return Secret(PasswordFromFile(file));
  return {};
}

Secret PasswordFor(const std::string& place, const std::string& file) {
  if (const auto known = KnownPassword(file)) return *known;
  return isatty(STDIN_FILENO) != 0 ? AskAtTerminal(place) : Secret();
}

}  // namespace store
