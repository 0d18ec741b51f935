#include "documents/attach_form.h"

#include <algorithm>
#include <array>
#include <optional>

#include "host/row.h"
#include "platform/host.h"
#include "platform/text.h"

namespace zorCrmParvel {
namespace {

using platform::RuntimeError;

constexpr float kLargura = 9000;  // twips, all that the form leaves to the grid

bool TemImagem(const std::string& ficheiro) {
  const std::string fim = platform::Right(ficheiro, 3);
  constexpr std::array kImagens = {"TIF", "BMP", "JPG"};
  return std::any_of(kImagens.begin(), kImagens.end(),
                     [&](const char* imagem) { return platform::EqualsIgnoringCase(fim, imagem); });
}

std::optional<std::string> EscolheFicheiro() {
  try {
    return platform::Host::Current().OpenFile({.Filter = "Imagens (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg"
                                                         "|Adobe Acrobat (*.pdf)|*.pdf"
                                                         "|Auto CAD (*.dwg)|*.dwg"
                                                         "|Word (*.doc;*.rtf)|*.doc;*.rtf"
                                                         "|Todos os tipos (*.*)|*.*",
                                               .Title = ""});
  } catch (const RuntimeError&) {
    return std::nullopt;  // a dialog that fails chooses nothing
  }
}

}  // namespace

frm_Attach::frm_Attach()
    : AttachmentsForm("Codigo", Codigo),
      Grelha(*this, "Grelha"),
      Imagem(*this, "Imagem"),
      btView(*this, "View"),
      btAdd(*this, "Add"),
      btRemove(*this, "Remove"),
      btExit(*this, "Exit") {
  Name = "frm_Attach";
  Caption = "Gestão Documentos";
  btView.Caption = "&Visualizar";
  btAdd.Caption = "&Adicionar";
  btRemove.Caption = "&Remover";
  btExit.Caption = "&Sair";
  for (platform::PushButton* botao : {&btView, &btAdd, &btRemove, &btExit})
    botao->Click = [this, botao] { Toolbar1_ButtonClick(botao->Name()); };
  Grelha.Click = [this] { Grelha_Click(); };
  Grelha.KeyPress = [this](int& keyCode) {
    if (keyCode != platform::kKeyEscape) return;
    SendKeys("+{TAB}");
    keyCode = platform::kKeyNone;
    Unload();
  };
  layout.head.grid = &Grelha;
  layout.head.picture = &Imagem;
  layout.tools = {&btView, &btAdd};
  layout.destructive = {&btRemove};
  layout.actions = {&btExit};
}

void frm_Attach::mostra() {
  Load();
  PreparaEcra();
  CarregaInfo();
  ShowModal();
}

void frm_Attach::Toolbar1_ButtonClick(std::string_view key) {
  if (key == "View")
    PreviewFile();
  else if (key == "Add")
    InsereFicheiro();
  else if (key == "Remove")
    ApagarFicheiros();
  else
    Unload();
}

void frm_Attach::PreparaEcra() {
  Grelha.FixedRows = 1;
  Grelha.SetRows(1);
  Grelha.SetFormatString("<Ficheiro");
  Grelha.ColWidth[0] = kLargura;
  Grelha.Row = 0;
}

void frm_Attach::CarregaInfo() {
  attach_.mybd = mybd;
  attach_.Codigo = Codigo;
  attach_.Tipo = Tipo;
  const RecordsetRef rs = attach_.LerDocs();
  ids_.assign(1, 0);
  if (!rs->Eof()) {
    Grelha.SetRows(static_cast<int>(rs->RecordCount()) + 1);
    const Row row(*rs);
    for (; !rs->Eof(); rs->MoveNext()) {
      Grelha.SetTextMatrix(static_cast<int>(ids_.size()), 0, row.text("Fx"));
      ids_.push_back(row.number("Id"));
    }
  }
  rs->Close();
}

void frm_Attach::InsereFicheiro() {
  const auto ficheiro = EscolheFicheiro();
  if (ficheiro && !platform::Trim(*ficheiro).empty()) Adicionar_Ficheiro(*ficheiro);
}

void frm_Attach::Adicionar_Ficheiro(const std::string& ficheiro) {
  attach_.mybd = mybd;
  attach_.Id = 0;
  attach_.Codigo = Codigo;
  attach_.Tipo = Tipo;
  attach_.Fx = ficheiro;
  attach_.Escrever();
  CarregaInfo();
}

std::int32_t frm_Attach::IdDaLinha(int linha) const {
  if (linha < 1 || linha >= static_cast<int>(ids_.size())) throw RuntimeError(platform::kSubscriptOutOfRange);
  return ids_[static_cast<std::size_t>(linha)];
}

bool frm_Attach::TemFicheiroEscolhido() {
  if (Grelha.Row != 0) return true;
  platform::MsgBox("Deve escolher um ficheiro!", platform::kInformation);
  return false;
}

void frm_Attach::ApagarFicheiros() {
  if (!TemFicheiroEscolhido()) return;
  attach_.mybd = mybd;
  attach_.Id = IdDaLinha(Grelha.Row);
  attach_.Anular();
  PreparaEcra();
  CarregaInfo();
}

void frm_Attach::PreviewFile() {
  if (TemFicheiroEscolhido()) Grelha_Click();
}

void frm_Attach::Grelha_Click() {
  const std::string& ficheiro = Grelha.TextMatrix(Grelha.Row, 0);
  if (!TemImagem(ficheiro)) return Imagem.Clear();
  Imagem.FileName = ficheiro;
  Imagem.BackColor = 0xFFFFFF;
  Imagem.Load();
}

}  // namespace zorCrmParvel
