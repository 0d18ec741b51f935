#pragma once

#include <QTextBrowser>

namespace manual {
struct Page;
}  // namespace manual

namespace desktop {

/// Shows pages of the manual, which it takes from the program itself, and goes where their links lead.
class ManualBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit ManualBrowser(QWidget* parent);

  void ShowPage(const manual::Page& page);
  /// Marks these words wherever they stand on the page, without regard to case and accents, and goes to the
  /// first place that has all of them, or else to the first that has one.
  void MarkWords(const QStringList& words);
  /// The name of the page shown; empty for none.
  QString PageName() const { return NameOf(source()); }
  static QString NameOf(const QUrl& page);

  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QVariant Picture(const QString& file) const;
  void DrawTablesFlat();
};

}  // namespace desktop
