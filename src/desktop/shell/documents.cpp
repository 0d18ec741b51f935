#include "desktop/shell/documents.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QPushButton>
#include <QSaveFile>
#include <QUrl>
#include <algorithm>

#include "desktop/look/text.h"
#include "desktop/shell/file_dialog.h"
#include "desktop/shell/message_box.h"
#include "platform/files.h"
#include "platform/host.h"

namespace desktop {
namespace {

/// Names that some system runs, whatever the files hold.
constexpr const char* kRun[] = {
    "action", "apk",  "app",        "appimage", "application", "appref-ms", "bash",    "bat",  "bin",
    "cmd",    "com",  "command",    "cpl",      "csh",         "deb",       "desktop", "dll",  "elf",
    "exe",    "fish", "flatpakref", "gadget",   "hta",         "inf",       "jar",     "jnlp", "js",
    "jse",    "ksh",  "library-ms", "lnk",      "lua",         "mjs",       "msc",     "msi",  "msix",
    "msp",    "out",  "php",        "pif",      "pl",          "ps1",       "psm1",    "py",   "pyc",
    "pyw",    "rb",   "reg",        "rpm",      "run",         "scf",       "scr",     "sct",  "service",
    "sh",     "snap", "so",         "tcl",      "url",         "vb",        "vbe",     "vbs",  "workflow",
    "ws",     "wsf",  "wsh",        "xpi",      "zsh",
};

/// How programs and scripts begin.
constexpr const char* kBeginnings[] = {"#!", "\177ELF", "\xCA\xFE\xBA\xBE", "\xCF\xFA\xED\xFE",
                                       "\xCE\xFA\xED\xFE"};
constexpr qint64 kLookedAt = 512;

bool RunsByName(const QString& path) {
  // Blanks and points at the end of a name are dropped by systems that run it.
  QString name = QFileInfo(path).fileName();
  while (name.endsWith(QLatin1Char(' ')) || name.endsWith(QLatin1Char('.'))) name.chop(1);
  const QByteArray suffix = QFileInfo(name).suffix().toLower().toUtf8();
  return std::any_of(std::begin(kRun), std::end(kRun), [&](const char* run) { return suffix == run; });
}

bool RunsByContent(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  QByteArray begin = file.read(kLookedAt);
  if (begin.startsWith("\xEF\xBB\xBF")) begin.remove(0, 3);
  if (begin.startsWith("MZ") && begin.contains('\0')) return true;
  return begin.contains("[Desktop Entry]") ||
         std::any_of(std::begin(kBeginnings), std::end(kBeginnings),
                     [&](const char* each) { return begin.startsWith(each); });
}

/// Asks where to, and writes a copy that only its owner reads and nobody runs.
void SaveCopy(const QString& path, QWidget* parent) {
  FileDialog dialog(parent, QStringLiteral("Guardar documento"), QFileInfo(path).fileName());
  dialog.setAcceptMode(FileDialog::AcceptSave);
  dialog.setFileMode(FileDialog::AnyFile);
  const QString target = dialog.Ask();
  if (target.isEmpty()) return;
  QFile source(path);
  QSaveFile copy(target);
  if (source.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly) &&
      copy.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
      copy.write(source.readAll()) == source.size() && copy.commit())
    return;
  ShowMessage(parent,
              QStringLiteral("Não foi possível escrever o ficheiro\n%1\nVerifique a pasta, as permissões e o "
                             "espaço no disco.")
                  .arg(target),
              platform::kOkOnly | platform::kExclamation, QStringLiteral("Guardar documento"));
}

void OfferToSave(const QString& path, const QString& reason, QWidget* parent) {
  QMessageBox box(parent);
  box.setWindowTitle(QStringLiteral("Abrir documento"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Warning);
  box.setText(reason.arg(QFileInfo(path).fileName()));
  const QPushButton* save = box.addButton(QStringLiteral("&Guardar como…"), QMessageBox::AcceptRole);
  QPushButton* leave = box.addButton(QStringLiteral("Cancelar"), QMessageBox::RejectRole);
  box.setDefaultButton(leave);
  box.setEscapeButton(leave);
  Run(box);
  if (box.clickedButton() == save) SaveCopy(path, parent);
}

}  // namespace

bool RunsWhenOpened(const QString& path) {
  return RunsByName(path) || RunsByContent(path) ||
         QMimeDatabase().mimeTypeForFile(path).inherits(QStringLiteral("application/x-executable"));
}

void OpenOrSave(const QString& path, QWidget* parent) {
  if (platform::FileInUse::Covers(FromQt(path))) {
    ShowMessage(parent, QStringLiteral("«%1» é a base de dados que está aberta.").arg(path),
                platform::kOkOnly | platform::kExclamation, QStringLiteral("Abrir documento"));
    return;
  }
  if (RunsWhenOpened(path))
    return OfferToSave(
        path,
        QStringLiteral("«%1» é um programa, e daqui não se abrem programas.\nSe confia em quem o "
                       "fez, guarde-o e abra-o a partir da pasta."),
        parent);
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
    OfferToSave(path,
                QStringLiteral("Não há programa que abra «%1».\nPode guardá-lo e abri-lo noutro computador."),
                parent);
}

}  // namespace desktop
