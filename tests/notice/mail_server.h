#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace notice_test {

/// What a server does with a message.
enum class Behaviour { kTakes, kRefusesRecipient, kHangsUpAfterMessage };

/// A mail server on this machine that keeps what it is sent, below the commands that told from and to whom.
/// With a certificate it speaks TLS from the first byte.
class MailServer {
 public:
  explicit MailServer(Behaviour behaviour, bool encrypted = false);
  ~MailServer();
  MailServer(const MailServer&) = delete;
  MailServer& operator=(const MailServer&) = delete;

  /// "smtp://127.0.0.1:…", or "smtps://localhost:…".
  std::string Url() const;
  /// The certificate, for whoever is to trust it.
  std::string Authority() const { return authority_; }
  std::vector<std::string> Messages();

 private:
  void MakeCertificate();
  void Serve();
  void Talk(int socket);

  Behaviour behaviour_;
  SSL_CTX* tls_ = nullptr;
  std::string authority_;
  int listener_ = -1;
  int port_ = 0;
  std::mutex mutex_;
  std::vector<std::string> messages_;
  std::thread thread_;
};

}  // namespace notice_test
