#include "documents/arquivo_form.h"

#include <filesystem>
#include <new>

#include "platform/files.h"
#include "support/database_test.h"
#include "support/files.h"
#include "support/state_text.h"
#include "support/temporary_folder.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class ArquivoTest : public DatabaseTest {
 protected:
  ArquivoTest() {
    host.temporaryFolder = folder.File("vista-");
    form.mybd = bd;
    form.Numero = "12-AB-34";
    form.Tipo = 303;
    form.Load();
    form.mostra();
  }
  std::string File(const std::string& name, const std::string& content) {
    std::string path = folder.File(name);
    platform::WriteFile(path, content);
    return path;
  }
  void Attach(const std::string& path, const std::string& title) {
    form.Campo[0].Text = path;
    form.Campo[1].Text = title;
    Press(form.btConf);
  }
  /// The entry of the context menu with this caption, on the first row.
  void Choose(const std::string& caption) {
    for (const platform::MenuItem& item : form.CommandBarsArquivo.Items())
      if (item.caption == caption) return form.UserCommands(form.Grelha, 0, item.id);
    ADD_FAILURE() << caption;
  }
  Table Documents() {
    return Rows(bd,
                "SELECT zor_ArquivoDigital_Titulo, zor_ArquivoDigital_NomeFicheiro FROM zor_ArquivoDigital");
  }

  TemporaryFolder folder;
  frmArquivo form;
};

TEST_F(ArquivoTest, KeepsOpensRenamesAndRemovesADocument) {
  const std::string content("%PDF\0\xFF binary", 13);
  host.AnswerFile(File("factura.pdf", content));
  Press(form.btLista);
  EXPECT_EQ(host.dialogs.back().text, "Ficheiros  (*.*)|*.*");
  form.Campo[1].Text = "Factura de Março";
  Press(form.btConf);
  EXPECT_EQ(form.Campo[0].Text, "");
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  ASSERT_EQ(form.Grelha.RowCount(), 1);
  EXPECT_EQ(Documents(), (Table{{"Factura de Março", "factura.pdf"}}));
  EXPECT_EQ(SetUpOf(form.Grelha) + RowsOf(form.Grelha),
            "    coluna Numero «Numero» 1500 8 0 0  oculta  0\n"
            "    coluna Titulo «Título Documento» 6000 8 0 0   0\n"
            "    0 1@-1 /|1|Factura de Março");

  form.UserKey(platform::kKeyTab, true);  // back from the file, to the list of documents
  form.UserKey(platform::kKeyEnter);
  Choose("&Visualizar");
  ASSERT_EQ(host.opened.size(), 2U);
  EXPECT_EQ(Contents(host.opened[0]), content);
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(host.opened[0]).permissions(), perms::owner_read | perms::owner_write);

  host.AnswerInput("");
  Choose("&Renomear");
  EXPECT_EQ(host.dialogs.back().text, "Introduza o novo título do documento");
  EXPECT_EQ(host.dialogs.back().title, "Renomear Documentos");
  EXPECT_EQ(Documents()[0][0], "Factura de Março");
  host.AnswerInput("Paga");
  form.UserKey(platform::kKeyF2);
  EXPECT_EQ(Documents()[0][0], "Paga ") << "a title given this way ends in a blank";
  host.AnswerInput("D'Arcy");
  EXPECT_THROW(Choose("&Renomear"), platform::RuntimeError);

  host.ExpectBox("Confirma a remoção do ficheiro arquivado ?", platform::kNo);
  Choose("&Apagar");
  EXPECT_EQ(host.boxes.back().style, 292);
  EXPECT_EQ(Documents().size(), 1U);
  host.ExpectBox("Confirma a remoção do ficheiro arquivado ?", platform::kYes);
  form.UserKey(platform::kKeyDelete);
  EXPECT_TRUE(Documents().empty());
  EXPECT_EQ(form.Grelha.RowCount(), 0);
}

TEST_F(ArquivoTest, EscapeStepsBackAndLeavesFromTheFile) {
  form.UserGoesTo(form.Campo[1]);
  form.UserKey(platform::kKeyEscape);
  EXPECT_EQ(form.ActiveControl(), &form.Campo[0]);
  EXPECT_FALSE(form.IsClosed());
  form.UserKey(platform::kKeyEscape);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(ArquivoTest, NamesComeFromTheFileAndKeepTheirEnd) {
  Attach(File("a.txt", "x"), "");
  const std::string longName = std::string(250, 'n') + ".jpeg";
  Cl_ArquivoDigital arquivo;
  arquivo.bd = bd;
  EXPECT_TRUE(arquivo.Add(File(longName, "x"), "12-AB-34", 303, 0, std::string(150, 't')));
  const Table documents = Documents();
  EXPECT_EQ(documents[0], (std::vector<std::string>{"a.txt", "a.txt"}));
  EXPECT_EQ(documents[1][0], std::string(100, 't'));
  EXPECT_EQ(documents[1][1].substr(documents[1][1].size() - 5), ".jpeg");
  EXPECT_EQ(arquivo.ListaDeDocumentos("12-AB-34", 304)->RecordCount(), 0)
      << "each kind has its own documents";
}

TEST_F(ArquivoTest, AMissingFileIsSaidAndNothingIsStored) {
  Attach("   ", "t");
  host.ExpectBox("O ficheiro não existe !");
  Attach(folder.File("nada.pdf"), "t");
  EXPECT_EQ(form.Campo[1].Text, "t");
  Cl_ArquivoDigital arquivo;
  arquivo.bd = bd;
  EXPECT_FALSE(arquivo.Add(folder.File("nada.pdf"), "12-AB-34", 303, 0, "t"));
  EXPECT_TRUE(Documents().empty());
}

TEST_F(ArquivoTest, EveryFailureToStoreIsAFalse) {
  class Exhausted : public RecordingDataAccess {
   public:
    using RecordingDataAccess::RecordingDataAccess;

   protected:
    RecordsetRef OpenForEditing(const std::string&) override { throw std::bad_alloc(); }
  };
  Cl_ArquivoDigital arquivo;
  arquivo.bd = platform::MakeRef<Exhausted>(bd);
  EXPECT_FALSE(arquivo.Add(File("a.txt", "x"), "12-AB-34", 303, 0, "t")) << "too little memory";
  arquivo.bd = {};
  EXPECT_FALSE(arquivo.Add(File("a.txt", "x"), "12-AB-34", 303, 0, "t")) << "no database";
}

TEST_F(ArquivoTest, ATitleWithoutADocumentIsSaidSoAndOpensNothing) {
  Attach(File("a.txt", "x"), "Contrato");
  Sql("UPDATE zor_ArquivoDigital SET zor_ArquivoDigital_Documento=NULL");
  const platform::RuntimeError error = FailureOf([&] { form.UserDoubleClicks(form.Grelha, 0); });
  EXPECT_EQ(error.number(), platform::kInvalidUseOfNull);
  EXPECT_NE(error.description().find("não tem conteúdo"), std::string::npos);
  EXPECT_TRUE(host.opened.empty());
}

}  // namespace
}  // namespace zorCrmParvel
