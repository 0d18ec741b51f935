#pragma once

#include <string>

#include "documents/arquivo_digital.h"
#include "documents/attachments_form.h"
#include "platform/screen/popup_menu.h"

namespace zorCrmParvel {

/// The digital archive of one record: its documents, which can be added, opened, renamed and removed. Whoever
/// opens it sets `mybd`, `Numero` and `Tipo`, loads it and calls `mostra`.
class frmArquivo : public AttachmentsForm {
 public:
  frmArquivo();

  std::string Numero;  // code of the record

  /// Sets the context menu up and lists the documents.
  void mostra() override;

  platform::ControlArray<platform::Label> Titulo;
  platform::ControlArray<platform::zor_input> Campo;
  platform::PushButton btLista;
  platform::PushButton btConf;
  platform::PushButton btSair;
  platform::SGGrid Grelha;
  platform::PopUpMenu CommandBarsArquivo;  // shown over the grid's rows

 protected:
  void Form_Load() override { Campo[0].SetFocus(); }

 private:
  void NovoCampo(int indice, const char* titulo, int maxlength);
  void PreencheGrelha();
  void btLista_Click();
  void btConf_Click();
  void CommandBarsArquivo_Execute(long comando);

  Cl_ArquivoDigital arquivo_;
};

}  // namespace zorCrmParvel
