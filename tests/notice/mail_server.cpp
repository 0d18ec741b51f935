#include "notice/mail_server.h"

#include <arpa/inet.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <functional>

namespace notice_test {
namespace {

/// Lines of a conversation, in the open or encrypted.
class Line {
 public:
  Line(int socket, SSL_CTX* tls) : socket_(socket) {
    if (tls == nullptr) return;
    ssl_ = SSL_new(tls);
    SSL_set_fd(ssl_, socket);
    broken_ = SSL_accept(ssl_) != 1;
  }
  ~Line() {
    if (ssl_ != nullptr) {
      SSL_shutdown(ssl_);
      SSL_free(ssl_);
    }
    close(socket_);
  }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  bool Get(std::string& line) {
    line.clear();
    for (char letter = 0; !broken_ && Read(letter);) {
      if (letter == '\n') return true;
      if (letter != '\r') line += letter;
    }
    return false;
  }
  void Put(const std::string& text) {
    const std::string line = text + "\r\n";
    if (ssl_ != nullptr)
      SSL_write(ssl_, line.data(), static_cast<int>(line.size()));
    else if (write(socket_, line.data(), line.size()) < 0)
      broken_ = true;
  }

 private:
  bool Read(char& letter) {
    return (ssl_ != nullptr ? SSL_read(ssl_, &letter, 1) : read(socket_, &letter, 1)) == 1;
  }

  int socket_;
  SSL* ssl_ = nullptr;
  bool broken_ = false;
};

}  // namespace

MailServer::MailServer(Behaviour behaviour, bool encrypted) : behaviour_(behaviour) {
  if (encrypted) MakeCertificate();
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener_, 4) != 0)
    std::perror("mail server");
  socklen_t size = sizeof address;
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

MailServer::~MailServer() {
  shutdown(listener_, SHUT_RDWR);
  thread_.join();
  close(listener_);
  if (tls_ == nullptr) return;
  SSL_CTX_free(tls_);
  std::remove(authority_.c_str());
}

std::string MailServer::Url() const {
  return (tls_ == nullptr ? "smtp://127.0.0.1:" : "smtps://localhost:") + std::to_string(port_);
}

std::vector<std::string> MailServer::Messages() {
  const std::lock_guard lock(mutex_);
  return messages_;
}

/// One of its own, for this machine's name alone.
void MailServer::MakeCertificate() {
  EVP_PKEY* key = EVP_EC_gen("P-256");
  X509* certificate = X509_new();
  X509_set_version(certificate, 2);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate), -60);
  X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
  X509_set_pubkey(certificate, key);
  X509_NAME* name = X509_get_subject_name(certificate);
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("localhost"),
                             -1, -1, 0);
  X509_set_issuer_name(certificate, name);
  X509_EXTENSION* names = X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "DNS:localhost");
  X509_add_ext(certificate, names, -1);
  X509_EXTENSION_free(names);
  X509_sign(certificate, key, EVP_sha256());
  tls_ = SSL_CTX_new(TLS_server_method());
  SSL_CTX_use_certificate(tls_, certificate);
  SSL_CTX_use_PrivateKey(tls_, key);
  char file[] = "/tmp/parvel-ca-XXXXXX";
  FILE* out = fdopen(mkstemp(file), "w");
  PEM_write_X509(out, certificate);
  std::fclose(out);
  authority_ = file;
  X509_free(certificate);
  EVP_PKEY_free(key);
}

void MailServer::Serve() {
  for (int client; (client = accept(listener_, nullptr, nullptr)) >= 0;) Talk(client);
}

void MailServer::Talk(int socket) {
  Line line(socket, tls_);
  line.Put("220 ola");
  std::string envelope;
  for (std::string words; line.Get(words);) {
    const std::string verb = words.substr(0, 4);
    if (verb == "EHLO") {
      line.Put("250-ola");
      line.Put("250 AUTH PLAIN");
      continue;
    }
    if (verb == "AUTH" || verb == "MAIL" || verb == "RCPT") envelope += words + "\n";
    if (words == "AUTH PLAIN") {
      line.Put("334 ");
      line.Get(words);
      envelope += words + "\n";
    }
    if (verb == "AUTH") {
      line.Put("235 bem-vindo");
      continue;
    }
    if (verb == "QUIT") return line.Put("221 adeus");
    if (verb == "RCPT" && behaviour_ == Behaviour::kRefusesRecipient) {
      line.Put("550 ninguem");
      continue;
    }
    if (verb != "DATA") {
      line.Put("250 ola");
      continue;
    }
    line.Put("354 diga");
    std::string message = envelope;
    while (line.Get(words) && words != ".") message += words + "\n";
    const std::lock_guard lock(mutex_);
    messages_.push_back(message);
    if (behaviour_ == Behaviour::kHangsUpAfterMessage) return;
    line.Put("250 guardada");
  }
}

}  // namespace notice_test
