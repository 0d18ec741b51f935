#include "masterdata/photo_form.h"

#include "platform/host.h"

namespace zorCrmParvel {

PhotoForm::PhotoForm(std::span<const Referencia> referencias)
    : RecordForm(referencias), ShowImg1(*this, "ShowImg1"), PicAdd(*this, "PicAdd"), PicDel(*this, "PicDel") {
  PicAdd.Caption = "&Foto…";
  PicAdd.ToolTipText = "Adicionar a fotografia.";
  PicDel.Caption = "Remover foto";
  PicDel.ToolTipText = "Remover a fotografia.";
  PicAdd.TabStop = PicDel.TabStop = false;
  PicAdd.Click = [this] { AdicionarFoto(); };
  PicDel.Click = [this] {
    if (RegistoDoEcra().Foto_Del()) ShowImg1.Clear();
  };
  layout.head.picture = &ShowImg1;
  layout.head.buttons = {&PicAdd, &PicDel};
}

void PhotoForm::ColocarFoto(platform::Control& seguinte) {
  TabBefore(ShowImg1, seguinte);
  TabBefore(PicAdd, seguinte);
  TabBefore(PicDel, seguinte);
}

void PhotoForm::AdicionarFoto() {
  const auto ficheiro =
      platform::Host::Current().OpenFile({.Filter = "Ficheiros Jpg (*.jpg; )|*.jpg", .Title = ""});
  if (!ficheiro || ficheiro->empty()) return;
  RegistoDoEcra().Foto_Add(*ficheiro);
  CarregaFoto();
}

void PhotoForm::CarregaFoto() {
  ShowImg1.Clear();
  const std::string foto = RegistoDoEcra().Foto_Get();
  if (foto.empty()) return;
  ShowImg1.FileName = foto;
  ShowImg1.Load();
}

}  // namespace zorCrmParvel
