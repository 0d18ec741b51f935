#pragma once

#include <optional>
#include <string>

#include "platform/date.h"
#include "platform/screen/dialogs.h"
#include "platform/screen/form.h"

namespace platform {

/// Styles of message boxes: a sum of buttons, icon and default button.
enum MsgBoxStyle : int {
  kOkOnly = 0,
  kOkCancel = 1,
  kYesNoCancel = 3,
  kYesNo = 4,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
  kDefaultButton2 = 256,
  kDefaultButton3 = 512,
};

/// Answers of message boxes.
enum MsgBoxAnswer : int { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

/// What the user is asked when a file is to be read.
struct FileDialog {
  std::string Filter;   // "description|pattern|description|pattern…"
  int FilterIndex = 1;  // the pattern chosen at first, counted from 1
  std::string Title;    // empty leaves it to the host
};

/// All that the module asks of the outside. One is current in a process; without one, `Current` raises
/// error 91. The module calls it on the thread that called the module, and in the middle of its work: what an
/// override throws goes through the module to that caller, and what was under way is not done.
class Host {
 public:
  virtual ~Host() = default;
  static Host& Current();

  /// Closing the box counts as the answer that declines.
  virtual int MsgBox(const std::string& text, int style, const std::string& title) = 0;
  /// Empty when the user gave up.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& initial) = 0;
  /// The file chosen to be read, or nothing.
  virtual std::optional<std::string> OpenFile(const FileDialog& dialog) = 0;
  /// Shows a loaded form and returns when it has closed.
  virtual void ShowModal(Form& form, Form* owner) = 0;
  // Both are handed over loaded, and return when the user has done with them.
  /// The first column of the row chosen, empty when none was.
  virtual std::string ShowLookup(ListaPesquisa& list) = 0;
  virtual void ShowReport(MapaListagem& report) = 0;
  /// Opens a document with the viewer that the system has for it.
  virtual void OpenDocument(const std::string& path) = 0;
  /// A folder of the user's own for temporary copies, with a separator at its end.
  virtual std::string TemporaryFolder() = 0;
  /// Day and time of the workstation, on its own calendar.
  virtual Date Now() = 0;

 private:
  friend class HostInstallation;
};

/// Makes a host the current one for as long as it lives, then the one before it again. The host has to
/// outlive it.
class HostInstallation {
 public:
  explicit HostInstallation(Host& host);
  ~HostInstallation();
  HostInstallation(const HostInstallation&) = delete;
  HostInstallation& operator=(const HostInstallation&) = delete;

 private:
  Host* previous_;
};

// The current host's, in short.
inline Date Now() { return Host::Current().Now(); }
inline Date Today() { return Now().DayOnly(); }
inline int MsgBox(const std::string& text, int style = kOkOnly, const std::string& title = {}) {
  return Host::Current().MsgBox(text, style, title);
}

}  // namespace platform
