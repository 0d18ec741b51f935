#pragma once

#include <string>
#include <vector>

#include "platform/date.h"

namespace notice {

struct Attachment {
  std::string name;
  std::string type;  // "text/calendar"
  std::string bytes;
};

/// A message to one person, as text and as HTML. Texts are UTF-8.
struct Mail {
  std::string id;    // tells it from every other; a mail system that gets it twice can tell
  std::string from;  // address
  std::string to;    // address
  std::string toName;
  std::string subject;
  std::string text;
  std::string html;
  std::vector<Attachment> attachments;
};

/// The mail server of an office.
struct MailServer {
  std::string url;   // "smtp://correio.exemplo.pt:587", "smtps://…"
  std::string user;  // empty where the server asks for none
  std::string password;
  std::string authority;  // file of the authority that vouches for the server; empty for the system's
};

enum class Delivery {
  kTaken,      // by the server, which answers for it now
  kNotSent,    // nothing has left
  kUncertain,  // the connection was lost after the message and before the server's answer
};

struct DeliveryResult {
  Delivery delivery;
  std::string reason;  // in the user's language; empty when taken
};

/// Hands a message to the server. Encrypted, unless the server is this machine itself.
DeliveryResult Deliver(const Mail& mail, const MailServer& server);

/// A text of a header as it may stand there: what isn't plain ASCII is encoded.
std::string HeaderText(const std::string& text);

}  // namespace notice
