#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/ficha.h"
#include "host/list_view.h"
#include "support/recording_data_access.h"
#include "support/writing_host.h"

namespace testing_support {

/// Lets a user do each thing that there is, each on a sample fleet of its own, and writes down what it does:
/// statements sent, what the host was asked, what changes on the screen and in the database, where the focus
/// goes.
class Transcript {
 public:
  Transcript();

  std::string text;
  /// The fleet of the act at hand.
  const platform::Ref<RecordingDataAccess>& bd() const { return bd_; }

  using Open = std::function<std::unique_ptr<zorCrmParvel::Ficha>()>;
  /// How a new ficha is set up: its controls with all that they are.
  void Describe(const platform::Form& form);
  /// Presses of the buttons alone; also keys and choices; also what is typed.
  enum class Acts { kButtons, kKeys, kAll };
  /// Everything that a user can do on a ficha, on each of its tabs.
  void DoEverything(const Open& open, Acts acts);
  /// Rows and verbs of a list.
  void DoList(zorCrmParvel::ICrmVwList& list);
  /// Writes down what `act` does beside a ficha.
  void Act(const std::string& name, const std::function<void()>& act);

 private:
  void Do(const Open& open, int tab, std::size_t place, const std::string& name,
          const std::function<void(platform::Form&, platform::Control&)>& act);
  void DoControl(const Open& open, int tab, std::size_t place, bool types);
  /// What was sent, asked and written since the last call; the fleet is then the sample fleet again.
  std::string Happened();
  /// Writes an act down; what happened in the same way before is named by the first.
  void Write(const std::string& label, const std::string& happened);
  void NewFleet();

  WritingHost host_;
  platform::Ref<RecordingDataAccess> bd_;
  std::vector<std::string> sample_;           // the rows of the sample fleet
  std::map<std::string, std::string> known_;  // what happened, by whom first
  std::map<std::string, std::string> shown_;  // by the ficha that was written down last
  std::string line_;                          // acts with no other effect than the focus
};

}  // namespace testing_support
