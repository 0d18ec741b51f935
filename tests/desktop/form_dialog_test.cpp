#include "desktop/ficha/form_dialog.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <algorithm>

#include "sample_form.h"
#include "user.h"

namespace desktop_test {
namespace {

using desktop::FormDialog;

class FormDialogTest : public testing::Test {
 protected:
  FormDialogTest() {
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
  }

  QLineEdit& Line(const platform::zor_input& field) {
    return *qobject_cast<QLineEdit*>(dialog.WidgetOf(field));
  }
  bool HasFocus(const platform::Control& control) { return dialog.focusWidget() == dialog.WidgetOf(control); }
  void FillCode() {
    Type(dialog, "0012");
    Press(dialog, Qt::Key_Tab);
  }

  Desk desk;
  SampleForm form;
  FormDialog dialog{form, desk.settings, nullptr};
};

TEST_F(FormDialogTest, TypingReachesTheFormAndNumbersAreShownByTheirMaskWhenLeft) {
  FillCode();
  EXPECT_EQ(form.code.Text, "0012");
  ASSERT_TRUE(HasFocus(form.name));
  Press(dialog, Qt::Key_Return);
  ASSERT_TRUE(HasFocus(form.cost));
  Type(dialog, "1234,5");
  EXPECT_EQ(Line(form.cost).text(), "1234,5");
  Press(dialog, Qt::Key_Tab);
  EXPECT_EQ(Line(form.cost).text(), "1.234,500");
  EXPECT_EQ(form.cost.Text, "1234,5");
  Press(dialog, Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(Line(form.cost).text(), "1234,5");
}

TEST_F(FormDialogTest, TheKeypadTypesTheDecimalMarkAndAPointThatMultipliesStaysInItsField) {
  FillCode();
  Type(dialog, "v");
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(form.name.Text, "v.") << "a text gets what the key says";
  for (Qt::Key key : {Qt::Key_Period, Qt::Key_Comma}) {
    dialog.WidgetOf(form.cost)->setFocus();
    Click(*dialog.WidgetOf(form.cost));
    Press(dialog, Qt::Key_A, Qt::ControlModifier);
    Type(dialog, "40");
    QTest::keyClick(dialog.focusWidget(), key, Qt::KeypadModifier);
    Type(dialog, "5");
    EXPECT_EQ(form.cost.Text, "40,5");
  }
  Press(dialog, Qt::Key_A, Qt::ControlModifier);
  Type(dialog, "40.5");
  Press(dialog, Qt::Key_Tab);
  EXPECT_TRUE(HasFocus(form.cost));
  EXPECT_EQ(Line(form.cost).text(), "40.5");
  EXPECT_TRUE(dialog.NoticeText().startsWith("«40.5» não é um número")) << dialog.NoticeText().toStdString();
  Press(dialog, Qt::Key_A, Qt::ControlModifier);
  Type(dialog, "40,5");
  EXPECT_EQ(dialog.NoticeText().toStdString(), "um número");  // what the field wants
  Press(dialog, Qt::Key_Tab);
  EXPECT_EQ(Line(form.cost).text(), "40,500");
}

TEST_F(FormDialogTest, ACheckBoxShowsItsFocus) {
  FillCode();
  QWidget* box = dialog.WidgetOf(form.fuel);
  form.fuel.Caption = "Inactiva";
  dialog.Sync();
  const QImage without = box->grab().toImage();
  Press(dialog, Qt::Key_Tab);
  Press(dialog, Qt::Key_Return);
  ASSERT_TRUE(HasFocus(form.fuel));
  EXPECT_NE(box->grab().toImage(), without);
  Press(dialog, Qt::Key_Space);
  EXPECT_EQ(form.fuel.Value, 1);
  Press(dialog, Qt::Key_Return);
  EXPECT_TRUE(HasFocus(form.kind));
  Press(dialog, Qt::Key_Escape);
  EXPECT_TRUE(HasFocus(form.fuel));
}

TEST_F(FormDialogTest, AFieldThatRefusesToBeLeftKeepsTheFocusWhateverTheUserTries) {
  Press(dialog, Qt::Key_Tab);
  EXPECT_TRUE(HasFocus(form.code));
  Click(*dialog.WidgetOf(form.name));
  EXPECT_TRUE(HasFocus(form.code));
  Click(*dialog.WidgetOf(form.fuel));
  EXPECT_TRUE(HasFocus(form.code));
  EXPECT_FALSE(qobject_cast<QCheckBox*>(dialog.WidgetOf(form.fuel))->isChecked());
  ClickButton(dialog, "Confirmar");
  EXPECT_EQ(form.confirmed, 0);
  Type(dialog, "x");
  EXPECT_EQ(form.code.Text, "x");
  Click(*dialog.WidgetOf(form.name));
  EXPECT_TRUE(HasFocus(form.name));
}

TEST_F(FormDialogTest, AButtonThatDoesNotValidateLeavesAnEmptyField) {
  ClickButton(dialog, "Sair");
  EXPECT_TRUE(form.IsClosed());
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FormDialogTest, EscapeIsTheFormsToDecide) {
  FillCode();
  Press(dialog, Qt::Key_Escape);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_TRUE(HasFocus(form.code));
  Press(dialog, Qt::Key_Escape);
  EXPECT_TRUE(form.IsClosed());
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FormDialogTest, TheWindowsOwnButtonUnloadsTheForm) {
  dialog.close();
  EXPECT_TRUE(form.IsClosed());
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FormDialogTest, TheListOfAFieldFillsItAndMovesOn) {
  desk.script.Next([](QWidget& lookup) {
    EXPECT_EQ(lookup.windowTitle(), "Motoristas");
    Type(lookup, "mariajose");
    Press(lookup, Qt::Key_Return);
  });
  Press(dialog, Qt::Key_F3);
  EXPECT_EQ(form.code.Text, "0012");
  EXPECT_EQ(Line(form.code).text(), "0012");
  EXPECT_TRUE(HasFocus(form.name));
}

TEST_F(FormDialogTest, AnErrorIsToldInPortugueseWithItsNumberBehindAButtonAndTheWindowGoesOn) {
  FillCode();
  desk.script.Next([](QWidget& window) {
    auto& box = dynamic_cast<QMessageBox&>(window);
    EXPECT_TRUE(box.text().contains("não tem o número ou a data")) << box.text().toStdString();
    EXPECT_FALSE(box.text().contains("Type mismatch"));
    EXPECT_EQ(box.detailedText(), "Erro 13: Type mismatch\nOrigem: Amostra.Gravar");
    ClickButton(box, "Pormenores");
    EXPECT_TRUE(box.findChild<QTextEdit*>()->isVisible());
    ClickButton(box, "Ocultar pormenores");
    ClickButton(box, "OK");
  });
  ClickButton(dialog, "Falhar");
  EXPECT_TRUE(dialog.isVisible());
  Click(*dialog.WidgetOf(form.name));
  Type(dialog, "Maria");
  EXPECT_EQ(form.name.Text, "Maria");
}

TEST_F(FormDialogTest, ATextTooLongIsRefusedWithANoticeAndALineBreakIsLeftOut) {
  Paste(dialog, "ab\r\n");
  Paste(dialog, QString(10'000, 'x'));
  EXPECT_EQ(form.code.Text, "ab");
  EXPECT_EQ(Line(form.code).text(), "ab");
  EXPECT_TRUE(dialog.NoticeText().startsWith("Máximo de 10 caracteres")) << dialog.NoticeText().toStdString();
  EXPECT_TRUE(dialog.NoticeText().contains("não foi aceite"));
  Type(dialog, "c");
  EXPECT_EQ(form.code.Text, "abc");
  EXPECT_EQ(dialog.NoticeText().toStdString(), "até 10 caracteres · F3 lista");
}

TEST_F(FormDialogTest, AMnemonicPressesThroughTheForm) {
  FillCode();
  Press(dialog, Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return form.confirmed == 1; }));
  EXPECT_TRUE(HasFocus(form.confirm));
  Press(dialog, Qt::Key_Return);
  EXPECT_EQ(form.confirmed, 2);
}

TEST_F(FormDialogTest, ChoicesReachTheFormAndTheFormsAnswerIsShown) {
  FillCode();
  form.fuel.Click = [this] {
    form.description.Caption = "combustível";
    form.name.Enabled = false;
    form.kind.Visible = false;
  };
  auto* kind = qobject_cast<QComboBox*>(dialog.WidgetOf(form.kind));
  for (int i = 0; i < 3; ++i) Press(dialog, Qt::Key_Tab);
  ASSERT_TRUE(HasFocus(form.kind));
  Press(dialog, Qt::Key_End);
  EXPECT_EQ(form.kind.ListIndex, 1);

  auto* date = qobject_cast<QDateTimeEdit*>(dialog.WidgetOf(form.date));
  EXPECT_EQ(date->text(), "15-03-2024");
  Click(*date->findChild<QLineEdit*>());
  Press(dialog, Qt::Key_Home);
  Press(dialog, Qt::Key_Up);
  EXPECT_EQ(form.date.Value, platform::Variant(platform::Date::FromParts(2024, 3, 16)));

  Click(*dialog.WidgetOf(form.fuel));
  EXPECT_EQ(form.fuel.Value, 1);
  EXPECT_FALSE(dialog.WidgetOf(form.name)->isEnabled());
  EXPECT_TRUE(kind->isHidden());
}

TEST_F(FormDialogTest, SizeAndPlaceAreRememberedByTheFormsName) {
  dialog.resize(dialog.width() + 60, dialog.height() + 40);
  const QSize size = dialog.size();
  dialog.close();
  {
    SampleForm once;
    FormDialog(once, desk.settings, nullptr).resize(size);
  }
  SampleForm again;
  EXPECT_EQ(FormDialog(again, desk.settings, nullptr).size(), size);
}

TEST_F(FormDialogTest, AFieldIsCalledByItsCaption) {
  const auto name_of = [this](const platform::Control& control) {
    return QAccessible::queryAccessibleInterface(dialog.WidgetOf(control))->text(QAccessible::Name);
  };
  EXPECT_EQ(name_of(form.code), "Código");
  EXPECT_EQ(name_of(form.date), "Validade");
}

/// A form with more fields than any screen has lines.
class LongForm : public SampleForm {
 public:
  explicit LongForm(int fields) {
    layout.head.rows.clear();
    for (int i = 0; i < fields; ++i) layout.head.rows.push_back({{.field = &campo.Add(*this, "Longo", i)}});
  }
  platform::ControlArray<platform::zor_input> campo;
};

TEST(FormDialogScrollTest, AFichaLargerThanTheScreenScrollsToTheFieldThatHasTheKeyboard) {
  Desk desk;
  LongForm form(60);
  FormDialog dialog(form, desk.settings, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  EXPECT_LT(dialog.height(), dialog.screen()->availableSize().height());
  const auto in_sight = [&](const platform::Control& control) {
    const QWidget* widget = dialog.WidgetOf(control);
    return widget->visibleRegion().boundingRect() == widget->rect();
  };
  EXPECT_TRUE(in_sight(form.confirm));
  EXPECT_FALSE(in_sight(form.campo[59]));
  form.campo[59].SetFocus();
  dialog.Sync();
  EXPECT_TRUE(in_sight(form.campo[59]));
  EXPECT_TRUE(in_sight(form.confirm));
  auto* line = dialog.aids().line();
  line->findChild<QLabel*>()->setText(QStringLiteral("Um aviso.\n").repeated(6));
  line->show();
  const int most = dialog.screen()->availableSize().height();
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return line->height() > 5 * line->fontMetrics().height() && dialog.height() < most;
  })) << "warnings take their room from the fields";

  LongForm small(5);
  small.campo[4].Visible = false;
  FormDialog fits(small, desk.settings, nullptr);
  fits.show();
  fits.resize(1, 1);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&fits));
  small.campo[4].Visible = true;
  fits.Sync();
  QApplication::processEvents();
  const auto bars = fits.findChildren<QScrollBar*>();
  const auto scrolls = [](const QScrollBar* bar) { return bar->maximum() > 0; };
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::none_of(bars.begin(), bars.end(), scrolls); }))
      << "never where it fits, also when more is shown";
}

}  // namespace
}  // namespace desktop_test
