#include "documents/attach_form.h"

#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class AttachTest : public DatabaseTest {
 protected:
  void Attach(const std::string& code, std::int16_t kind, const std::string& file) {
    clAttach attach;
    attach.mybd = bd;
    attach.Codigo = code;
    attach.Tipo = kind;
    attach.Fx = file;
    attach.Escrever();
  }
  /// Shows the attachments of record A of kind 5 to a user.
  void Show(const std::function<void(frm_Attach&)>& user) {
    frm_Attach form;
    form.mybd = bd;
    form.Definir("Codigo", "A");
    form.Definir("Tipo", 5);
    host.NextForm([&](platform::Form&) { user(form); });
    form.Chamar("mostra", {});
  }
  static std::vector<std::string> Files(const frm_Attach& form) {
    std::vector<std::string> files;
    for (int row = 1; row < form.Grelha.Rows(); ++row) files.push_back(form.Grelha.TextMatrix(row, 0));
    return files;
  }
  static void Click(frm_Attach& form, int row) {
    form.Grelha.Row = row;
    form.Grelha.Click();
  }
};

TEST_F(AttachTest, TheOwnersCodeIsWrittenOnceAndTheRestAgain) {
  Attach("A", 5, std::string(1200, 'x'));
  clAttach attach;
  attach.mybd = bd;
  attach.Id = 1;
  ASSERT_TRUE(attach.Ler());
  EXPECT_EQ(attach.Fx, std::string(1000, 'x'));
  attach.Codigo = "B";
  attach.Tipo = 6;
  attach.Fx = "y";
  attach.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Codigo, Fx, Tipo FROM zor_PV_Attach"), (Table{{"A", "y", "6"}}));
  EXPECT_TRUE(attach.Anular());
  EXPECT_TRUE(attach.Anular()) << "no row is no refusal";
  EXPECT_FALSE(attach.Ler());
}

TEST_F(AttachTest, AddsShowsAndRemovesFilesOfItsRecordAlone) {
  Attach("A", 6, "de outro tipo");
  Attach("B", 5, "de outro registo");
  using Names = std::vector<std::string>;
  Show([&](frm_Attach& form) {
    EXPECT_EQ(form.Grelha.TextMatrix(0, 0), "Ficheiro");
    EXPECT_EQ(Files(form), Names());
    const auto add = [&](const std::optional<std::string>& file) {
      host.AnswerFile(file);
      Press(form.btAdd);
    };
    const auto remove = [&](int row) {
      form.Grelha.Row = row;
      Press(form.btRemove);
    };
    add("/x/a.jpg");
    EXPECT_EQ(
        host.dialogs.back().text,
        "Imagens (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg|Adobe Acrobat (*.pdf)|*.pdf|Auto CAD (*.dwg)|*.dwg"
        "|Word (*.doc;*.rtf)|*.doc;*.rtf|Todos os tipos (*.*)|*.*");
    for (const std::optional<std::string>& file : {std::optional<std::string>("/x/não há.tiff"), {"   "}, {}})
      add(file);
    EXPECT_EQ(Files(form), (Names{"/x/a.jpg", "/x/não há.tiff"}));
    remove(1);
    EXPECT_EQ(Files(form), (Names{"/x/não há.tiff"}));
    add("/x/b.pdf");
    EXPECT_EQ(Files(form), (Names{"/x/não há.tiff", "/x/b.pdf"})) << "a new row after a removal";
    remove(2);
    remove(1);
    EXPECT_EQ(Files(form), Names());
    Press(form.btExit);
    EXPECT_TRUE(form.IsClosed());
  });
  EXPECT_EQ(Rows(bd, "SELECT Id FROM zor_PV_Attach").size(), 2U);
}

TEST_F(AttachTest, TheHeadingIsNoFile) {
  Attach("A", 5, "/x/a.jpg");
  Show([&](frm_Attach& form) {
    for (platform::PushButton* button : {&form.btRemove, &form.btView}) {
      host.ExpectBox("Deve escolher um ficheiro!");
      Press(*button);
      EXPECT_EQ(host.boxes.back().style, 64);
    }
    for (int row : {-1, 2}) {
      form.Grelha.Row = row;
      for (platform::PushButton* button : {&form.btRemove, &form.btView})
        EXPECT_EQ(NumberOf([&] { Press(*button); }), platform::kSubscriptOutOfRange) << row;
      EXPECT_EQ(NumberOf([&] { form.UserSelectsRow(form.Grelha, row); }), platform::kSubscriptOutOfRange);
    }
    form.UserSelectsRow(form.Grelha, 1);
    Press(form.btRemove);
    form.Grelha.Row = 1;
    EXPECT_EQ(NumberOf([&] { Press(form.btRemove); }), platform::kSubscriptOutOfRange) << "it has gone";
  });
}

TEST_F(AttachTest, PreviewsPicturesOfThreeEndingsAlone) {
  const std::pair<const char*, bool> files[] = {{"/x/a.JPG", true},   {"/x/b.tif", true},  {"/x/c.Bmp", true},
                                                {"/x/d.jpeg", false}, {"/x/e.gif", false}, {"/x/f", false}};
  for (const auto& [file, shown] : files) Attach("A", 5, file);
  Show([&](frm_Attach& form) {
    int row = 0;
    for (const auto& [file, shown] : files) {
      Click(form, 1);
      Click(form, ++row);
      EXPECT_EQ(form.Imagem.Shown(), shown ? file : "") << file;
      EXPECT_EQ(form.Imagem.BackColor, 0xFFFFFFU);
      Click(form, 0);
      EXPECT_EQ(form.Imagem.Shown(), "");
      form.Grelha.Row = row;
      Press(form.btView);
      EXPECT_EQ(form.Imagem.Shown(), shown ? file : "") << file;
    }
    form.UserGoesTo(form.Grelha);
    form.UserKey(platform::kKeyEscape);
    EXPECT_TRUE(form.IsClosed());
  });
}

}  // namespace
}  // namespace zorCrmParvel
