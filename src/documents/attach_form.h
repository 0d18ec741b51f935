#pragma once

#include <string>
#include <vector>

#include "documents/attach.h"
#include "documents/attachments_form.h"

namespace zorCrmParvel {

/// The files attached to one record, with a preview of pictures. Whoever opens it sets `mybd`, `Codigo` and
/// `Tipo` and calls `mostra`.
class frm_Attach : public AttachmentsForm {
 public:
  frm_Attach();

  std::string Codigo;  // code of the record

  /// Lists the files and shows the form until the user leaves it.
  void mostra() override;

  platform::MSFlexGrid Grelha;  // row 0 is the heading
  platform::ShowImg Imagem;
  platform::PushButton btView;
  platform::PushButton btAdd;
  platform::PushButton btRemove;
  platform::PushButton btExit;

 protected:
  void Form_Load() override { ids_.clear(); }

 private:
  void Toolbar1_ButtonClick(std::string_view key);
  void PreparaEcra();
  void CarregaInfo();
  void InsereFicheiro();
  void Adicionar_Ficheiro(const std::string& ficheiro);
  void ApagarFicheiros();
  void PreviewFile();
  void Grelha_Click();
  bool TemFicheiroEscolhido();
  /// Error 9 for a row without a file.
  std::int32_t IdDaLinha(int linha) const;

  clAttach attach_;
  std::vector<std::int32_t> ids_;  // by the grid's rows, 0 for the heading
};

}  // namespace zorCrmParvel
