#pragma once

#include <memory>
#include <string>

#include "exchange/table/markup_reader.h"
#include "exchange/table/zip_archive.h"

namespace exchange {

/// A document of XML that is an entry of an archive, read piece by piece; archive and handler must outlive
/// it. Throws as `ZipArchive`, `MarkupReader` and the handler do.
class ArchivedDocument {
 public:
  ArchivedDocument(const ZipArchive& archive, const std::string& entry, MarkupHandler& handler);

  /// Lets the handler hear one more piece; false when there is none.
  bool Next();
  /// How much of it was read, 0 to 1.
  double Progress() const { return entry_->Progress(); }

 private:
  std::unique_ptr<ZipEntry> entry_;
  MarkupReader reader_;
  std::string block_;
  bool ended_ = false;
};

}  // namespace exchange
