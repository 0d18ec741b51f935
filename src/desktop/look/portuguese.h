#pragma once

#include <QTranslator>

namespace desktop {

/// The texts of Qt's own menus and dialogs that the program shows, in Portuguese.
class PortugueseTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int n) const override;
};

/// Gives the application's toolkit its texts in Portuguese: the program's own, then what the system has of
/// the toolkit's, from Portugal before Brazil.
void SpeakPortuguese();

}  // namespace desktop
