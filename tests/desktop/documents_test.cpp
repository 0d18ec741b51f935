#include "desktop/shell/documents.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QTextBrowser>
#include <QUrl>

#include "support/files.h"
#include "user.h"

namespace desktop_test {
namespace {

/// The system's viewer, which takes note of what it is given.
class Viewer {
 public:
  Viewer() {
    QDesktopServices::setUrlHandler("file", &browser_, "setSource");
    QObject::connect(&browser_, &QTextBrowser::sourceChanged,
                     [this](const QUrl& url) { opened << url.toLocalFile(); });
  }
  ~Viewer() { QDesktopServices::unsetUrlHandler("file"); }
  QStringList opened;

 private:
  QTextBrowser browser_;
};

class DocumentsTest : public testing::Test {
 protected:
  QString Write(const char* name, const QByteArray& content) {
    QString path = desk.folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return path;
  }

  Desk desk;
  Viewer viewer;
};

TEST_F(DocumentsTest, ProgramsAndScriptsAreKnownByNameOrByWhatTheyHold) {
  const QByteArray elf = QByteArray("\177ELF\2\1\1", 7) + QByteArray(60, '\0');
  for (const char* name :
       {"a.desktop", "A.JAR", "a.pdf.sh", "a.exe .", "a.ps1", "a.AppImage", "a.vbs", "a.msi"})
    EXPECT_TRUE(desktop::RunsWhenOpened(Write(name, "x"))) << name;
  const std::pair<const char*, QByteArray> run[] = {
      {"factura", elf},
      {"a.pdf", "#!/bin/sh"},
      {"b.pdf", QByteArray("MZ\x90\0", 4)},
      {"c.txt", "# a\n[Desktop Entry]\nExec=x"},
  };
  for (const auto& [name, content] : run) EXPECT_TRUE(desktop::RunsWhenOpened(Write(name, content))) << name;
  const std::pair<const char*, QByteArray> shown[] = {
      {"a.pdf", "%PDF-1.4"}, {"a.txt", "MZ-12-34"}, {"a.odt", "PK\3\4"}, {"sem nome", ""}, {"b.txt", ""}};
  for (const auto& [name, content] : shown)
    EXPECT_FALSE(desktop::RunsWhenOpened(Write(name, content))) << name;
}

TEST_F(DocumentsTest, ADocumentIsOpenedAndAProgramOnlySavedWhereNobodyRunsIt) {
  const QString document = Write("carta.pdf", "%PDF-1.4");
  desk.host.OpenDocument(document.toStdString());
  EXPECT_EQ(viewer.opened, QStringList{document});

  const QString program = Write("instalar.sh", "#!/bin/sh\nrm -rf /\n");
  QFile::setPermissions(program, QFile::permissions(program) | QFile::ExeOwner);
  desk.script.Answer("Cancelar");
  desk.host.OpenDocument(program.toStdString());
  EXPECT_TRUE(desk.script.boxes.last().contains("«instalar.sh» é um programa"));

  const QString copy = desk.folder.filePath("guardado");
  desk.script.Answer("Guardar como…");
  desk.script.Next([&](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(), "instalar.sh");
    window.findChild<QLineEdit*>()->setText(copy);
    Press(window, Qt::Key_Return);
  });
  desk.host.OpenDocument(program.toStdString());
  EXPECT_EQ(testing_support::Contents(copy.toStdString()), "#!/bin/sh\nrm -rf /\n");
  EXPECT_EQ(QFile::permissions(copy) & ~(QFile::ReadUser | QFile::WriteUser),
            QFile::ReadOwner | QFile::WriteOwner);
  EXPECT_EQ(viewer.opened.size(), 1);
}

TEST_F(DocumentsTest, WithoutAFolderOfItsOwnNothingIsWritten) {
  const QByteArray before = qgetenv("TMPDIR");
  qputenv("TMPDIR", "/proc");
  EXPECT_THROW(desktop::DesktopHost(desk.settings).TemporaryFolder(), platform::RuntimeError);
  before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

}  // namespace
}  // namespace desktop_test
