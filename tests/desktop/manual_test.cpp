#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include "desktop/help/manual_browser.h"
#include "desktop/help/manual_reader.h"
#include "desktop/list/list_catalog.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/message_box.h"
#include "manual/pages.h"
#include "open_window.h"

namespace desktop_test {
namespace {

using desktop::ManualReader;

class ManualTest : public OpenWindow {
 protected:
  static QString ShownBeside(QWidget& front) {
    const auto* reader = front.findChild<ManualReader*>();
    return reader != nullptr && reader->isVisible() ? reader->browser().PageName() : QString();
  }
  ManualReader& ReaderAt(const char* list) {
    window.ShowList(list);
    window.actions().manual->trigger();
    return *window.findChild<ManualReader*>();
  }
};

TEST_F(ManualTest, TheKeyOpensThePageOfWhatIsInFront) {
  ReaderAt("Selo");
  EXPECT_EQ(ShownBeside(window), "trabalhos");
  ReaderAt(desktop::kStartPage);
  EXPECT_EQ(ShownBeside(window), "inicio");
  EXPECT_EQ(window.findChildren<ManualReader*>().size(), 1);

  desk.script.Next([](QWidget& ficha) {
    Press(ficha, Qt::Key_F1);
    EXPECT_EQ(ShownBeside(ficha), "abastecimento");
    ficha.close();
  });
  window.workspace()->sistema().MostraFicha("Gastos");

  desk.script.Next([](QWidget& box) {
    Press(box, Qt::Key_F1);
    EXPECT_EQ(ShownBeside(box), "mensagens");
    box.close();
  });
  desktop::ShowError(
      &window, desktop::ErrorText{"O registo já não existe. Abra de novo a lista e repita a operação.", {}});
}

TEST_F(ManualTest, EveryEntryAtTheSideHasItsPage) {
  for (const desktop::ListEntry& entry : desktop::AllLists())
    EXPECT_NE(manual::PageAbout(entry.key).name, manual::kIndex) << entry.key;
}

TEST_F(ManualTest, SearchLeadsToThePlaceFoundAndBack) {
  ManualReader& reader = ReaderAt("Gastos");
  auto* search = reader.findChild<QLineEdit*>();
  auto* pages = reader.findChild<QListWidget*>();
  const int all = pages->count();
  search->setFocus();
  Type(reader, "renovar apolice");
  EXPECT_LT(pages->count(), all);
  Press(reader, Qt::Key_Return);
  EXPECT_EQ(reader.browser().PageName(), "eventos");
  EXPECT_FALSE(reader.browser().extraSelections().isEmpty());
  EXPECT_EQ(reader.focusWidget(), pages);

  ClickButton(reader, "< Voltar");
  EXPECT_EQ(reader.browser().PageName(), "abastecimento");
  search->setFocus();
  Press(reader, Qt::Key_Escape);
  EXPECT_EQ(pages->count(), all);
  EXPECT_EQ(pages->currentItem()->data(Qt::UserRole).toString(), "abastecimento");
}

TEST_F(ManualTest, PicturesAreShownNoWiderThanTheText) {
  const desktop::ManualBrowser& browser = ReaderAt("Viaturas").browser();
  EXPECT_EQ(browser.horizontalScrollBar()->maximum(), 0);
  int pictures = 0;
  for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part)
      if (part.fragment().charFormat().isImageFormat()) ++pictures;
  EXPECT_EQ(pictures, 1);
}

}  // namespace
}  // namespace desktop_test
