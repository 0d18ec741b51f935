#pragma once

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <vector>

#include "platform/host.h"

class QSettings;
class QWidget;

namespace desktop {

class BackgroundReader;
class FormDialog;
class MainWindow;

/// The outside as a window: boxes, dialogs and fichas over the main window.
class DesktopHost : public platform::Host {
 public:
  /// The settings keep sizes and places of fichas; they outlive the host.
  explicit DesktopHost(QSettings& settings);
  ~DesktopHost() override;

  /// The window that everything opens over, and whose database fichas are on; null while there is none.
  void SetMainWindow(MainWindow* window) { main_window_ = window; }

  /// Asks of each ficha that is opened, by its name, why it can only be looked at; empty when it may be
  /// confirmed.
  void AskRights(std::function<QString(const std::string& ficha)> why_not) { why_not_ = std::move(why_not); }

  int MsgBox(const std::string& text, int style, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  std::optional<std::string> OpenFile(const platform::FileDialog& dialog) override;
  void ShowModal(platform::Form& form, platform::Form* owner) override;
  std::string ShowLookup(platform::ListaPesquisa& list) override;
  void ShowReport(platform::MapaListagem& report) override;
  /// A program or a script is never opened; that, and what the system has no viewer for, may be saved.
  void OpenDocument(const std::string& path) override;
  /// Nobody else can look into it. Error 75 when it can't be made.
  std::string TemporaryFolder() override;
  platform::Date Now() override;

 private:
  QWidget* Front() const;
  BackgroundReader* Reader() const;
  bool HasRows(platform::MapaListagem& report) const;
  void SyncFichas();

  QSettings& settings_;
  MainWindow* main_window_ = nullptr;
  std::function<QString(const std::string& ficha)> why_not_;
  std::vector<FormDialog*> open_;
  std::unique_ptr<QTemporaryDir> temporary_;
};

/// The file filters of a dialog, "description|pattern;pattern|…", as Qt spells them.
QStringList FileFilters(const std::string& filter);

}  // namespace desktop
