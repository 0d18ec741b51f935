#pragma once

#include <QSaveFile>

namespace desktop {

/// Puts what was written in the file's place. False, and the file is as it was, when the disk didn't take all
/// of it; a QSaveFile alone doesn't notice that the last of its buffer was lost.
inline bool Keep(QSaveFile& file) {
  if (!file.flush()) file.cancelWriting();
  return file.commit();
}

}  // namespace desktop
