#pragma once

#include "masterdata/photo_record.h"
#include "masterdata/record_form.h"

namespace zorCrmParvel {

/// A ficha whose record has a photo: the picture in its head and two buttons, one to choose a file for it and
/// one to remove it. Both act at once; a cancel of the ficha doesn't undo them.
class PhotoForm : public RecordForm {
 public:
  /// Asks for a file and makes it the photo; without one, nothing changes.
  void AdicionarFoto();
  /// Shows the photo, or none.
  void CarregaFoto();

  platform::ShowImg ShowImg1;
  platform::PushButton PicAdd;
  platform::PushButton PicDel;

 protected:
  explicit PhotoForm(std::span<const Referencia> referencias);

  /// Puts the picture and its buttons before a control.
  void ColocarFoto(platform::Control& seguinte);
  /// The record of the key on the screen, set on the ficha's database.
  virtual RegistoComFoto& RegistoDoEcra() = 0;
};

}  // namespace zorCrmParvel
