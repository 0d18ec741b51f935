#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "notice/digest.h"
#include "notice/mail.h"
#include "store/store.h"

namespace notice {

/// What came of one recipient.
struct Outcome {
  std::string address;
  std::size_t items = 0;  // 0: there was nothing new, and nothing was sent
  Digest digest;
  DeliveryResult result{Delivery::kTaken, ""};
};

/// Hands a message on; the mail server in earnest.
using Post = std::function<DeliveryResult(const Mail& mail)>;

/// Tells every recipient what is new to him of what is due and of what is odd. What is told is remembered
/// before it leaves, so that no repetition sends it twice, and forgotten again when it surely did not leave.
class Round {
 public:
  /// The store outlives it.
  Round(std::shared_ptr<zorCrmParvel::Store> store, std::string sender);

  /// Without a post nothing is sent nor remembered: only what would be. Failures of the database go to the
  /// caller.
  std::vector<Outcome> Run(const Post& post);

 private:
  struct Vehicle {
    std::string department;
    std::string responsible;
  };
  struct Piece {
    NewsItem item;
    std::string plate;
    std::string driver;
  };

  void Gather();
  void GatherOddities();
  bool Concerns(const Piece& piece, const Recipient& recipient) const;
  std::vector<NewsItem> ItemsFor(const Recipient& recipient) const;
  void ForgetSettled(const Recipient& recipient, const std::vector<NewsItem>& all,
                     const std::map<std::string, Told>& told);
  Outcome Tell(const Recipient& recipient, const Post& post);
  Mail MailFor(const Recipient& recipient, const Outcome& outcome, const std::vector<NewsItem>& items) const;

  std::shared_ptr<zorCrmParvel::Store> store_;
  zorCrmParvel::DataAccessRef bd_;
  NoticeBook book_;
  std::string sender_;
  std::map<std::string, Vehicle> vehicles_;
  std::vector<Piece> pieces_;
};

}  // namespace notice
