#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "sqlserver/secret.h"

namespace desktop {

/// What the program was called with.
struct Options {
  QString database;                           // empty: the usual one
  QString connection;                         // of a server; empty: a file, or the server chosen last time
  QString password_file;                      // with the server's password; empty: none
  std::optional<sqlserver::Secret> password;  // of the server, when the environment gave one
  bool demo = false;
  QString picture;  // a file: the window is painted into it, and the program ends
  QString list;
  QString ficha;
  QString tab;                 // the picture shows this tab of the ficha, counted from 1
  bool first_record = false;   // the picture shows the ficha of the first row
  bool dark = false;           // in the dark colours, whatever the desktop's
  bool until_painted = false;  // the program ends when the window has been painted once
};

/// A text for the terminal instead of a window: help, version, or what is wrong with the call.
struct Reply {
  QString text;
  int exit_code = 0;
};

/// Reads the call's words (without the program's name). A reply means that no window is wanted.
std::optional<Reply> ReadOptions(const QStringList& words, Options& options);

}  // namespace desktop
