#include "desktop/shell/file_dialog.h"

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QStyle>

#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "platform/files.h"
#include "platform/host.h"

namespace desktop {
namespace {

class NamesAlone : public QAbstractFileIconProvider {
 public:
  QIcon icon(IconType) const override { return QApplication::style()->standardIcon(QStyle::SP_DirIcon); }
  QIcon icon(const QFileInfo& file) const override {
    return QApplication::style()->standardIcon(file.isDir() ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
  }
  QString type(const QFileInfo& file) const override {
    return file.isDir() ? QStringLiteral("Pasta") : QStringLiteral("Ficheiro");
  }
};

}  // namespace

FileDialog::FileDialog(QWidget* parent, const QString& title, const QString& name, const QString& filter)
    : QFileDialog(parent, title, name, filter) {
  static NamesAlone names;
  setOption(DontUseNativeDialog);
  setIconProvider(&names);
}

QString FileDialog::Ask() {
  while (exec() == Accepted) {
    QString file = selectedFiles().value(0);
    if (!platform::FileInUse::Covers(FromQt(file))) return file;
    ShowMessage(parentWidget(),
                QStringLiteral("O ficheiro %1 é da base de dados que está aberta.\nEscolha outro ficheiro.")
                    .arg(file),
                platform::kOkOnly | platform::kExclamation, windowTitle());
  }
  return {};
}

}  // namespace desktop
