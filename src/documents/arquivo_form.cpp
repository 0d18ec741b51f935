#include "documents/arquivo_form.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/host.h"
#include "platform/text.h"

namespace zorCrmParvel {
namespace {

enum Comando : long { kVisualizar = 700, kRenomear = 701, kApagar = 702 };

}  // namespace

frmArquivo::frmArquivo()
    : AttachmentsForm("Numero", Numero),
      btLista(*this, "btLista"),
      btConf(*this, "btConf"),
      btSair(*this, "btSair"),
      Grelha(*this, "Grelha") {
  Name = "frmArquivo";
  Caption = "Arquivo Digital";
  NovoCampo(0, "Ficheiro", 0);
  NovoCampo(1, "Título", 100);
  layout.head.rows[0][0].list = &btLista;
  btLista.Caption = "...";
  btLista.ToolTipText = "Escolher o ficheiro.";
  btLista.TabStop = false;
  btLista.Click = [this] { btLista_Click(); };
  btConf.Caption = "&Anexar";
  btConf.ToolTipText = "Anexa o ficheiro.";
  btConf.Click = [this] { btConf_Click(); };
  btSair.Caption = "&Sair";
  btSair.CausesValidation = false;
  btSair.Click = [this] { Unload(); };
  layout.head.grid = &Grelha;
  TabBefore(Grelha, Campo[0]);
  layout.actions = {&btConf, &btSair};
  layout.accent = &btConf;
}

void frmArquivo::NovoCampo(int indice, const char* titulo, int maxlength) {
  Titulo.Add(*this, "Titulo", indice).Caption = titulo;
  platform::zor_input& campo = Campo.Add(*this, "Campo", indice);
  TabBefore(campo, btLista);
  campo.maxlength = maxlength;
  campo.KeyPress = [this, indice](int& keyCode) {
    if (keyCode != platform::kKeyEscape) return;
    SendKeys("+{TAB}");
    keyCode = platform::kKeyNone;
    if (indice == 0) Unload();
  };
  layout.head.rows.push_back({{.caption = &Titulo[indice], .field = &campo}});
}

void frmArquivo::mostra() {
  CommandBarsArquivo = {};
  CommandBarsArquivo.Add(kVisualizar, "&Visualizar").toolTip = "Visualiar o ficheiro";
  CommandBarsArquivo.Add(kRenomear, "&Renomear").key = platform::kKeyF2;
  platform::MenuItem& apagar = CommandBarsArquivo.Add(kApagar, "&Apagar");
  apagar.toolTip = "Apagar o ficheiro";
  apagar.key = platform::kKeyDelete;
  Grelha.PopUp = &CommandBarsArquivo;
  Grelha.PopUpCommand = [this](long comando) { CommandBarsArquivo_Execute(comando); };
  Grelha.GotFocus = [this] {
    if (Grelha.Row() < 0 && Grelha.RowCount() > 0) Grelha.SetRow(0);
  };
  Grelha.DoubleClick = [this](long) { CommandBarsArquivo_Execute(kVisualizar); };
  arquivo_.bd = mybd;
  PreencheGrelha();
}

void frmArquivo::PreencheGrelha() {
  Grelha.SetDataSource(arquivo_.ListaDeDocumentos(Numero, Tipo));
  Grelha.Column("Titulo").caption = "Título Documento";
  Grelha.Column("Titulo").width = 6000;
  Grelha.Column("Numero").hidden = true;
}

void frmArquivo::btLista_Click() {
  const auto ficheiro = platform::Host::Current().OpenFile({.Filter = "Ficheiros  (*.*)|*.*", .Title = ""});
  if (ficheiro) Campo[0].Text = *ficheiro;
}

void frmArquivo::btConf_Click() {
  const std::string& ficheiro = Campo[0].Text;
  if (platform::Trim(ficheiro).empty()) return;
  if (!platform::FileExists(ficheiro)) {
    platform::MsgBox("O ficheiro não existe !");
    return;
  }
  if (!arquivo_.Add(ficheiro, Numero, Tipo, 0, Campo[1].Text)) return;
  PreencheGrelha();
  Campo[0].Text.clear();
  Campo[1].Text.clear();
  Campo[0].SetFocus();
}

void frmArquivo::CommandBarsArquivo_Execute(long comando) {
  const long linha = Grelha.Row();
  if (linha < 0) return;
  const std::int32_t numero = Grelha.CellValue(linha, Grelha.ColumnIndex("Numero")).ToLong();
  if (comando == kVisualizar) {
    arquivo_.VisalizarDocumento(numero, 0, platform::Host::Current().TemporaryFolder());
    return;
  }
  if (comando == kRenomear) {
    arquivo_.MudaNomeDocumento(numero);
  } else if (comando == kApagar) {
    const int style = platform::kYesNo + platform::kQuestion + platform::kDefaultButton2;
    if (platform::MsgBox("Confirma a remoção do ficheiro arquivado ?", style) != platform::kYes) return;
    arquivo_.RemoverDocumento(numero);
  }
  PreencheGrelha();
  Grelha.SetRow(std::min(linha, Grelha.RowCount() - 1));
}

}  // namespace zorCrmParvel
