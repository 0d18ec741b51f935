#include "exchange/table/archived_document.h"

#include "exchange/table/limits.h"

namespace exchange {

ArchivedDocument::ArchivedDocument(const ZipArchive& archive, const std::string& entry,
                                   MarkupHandler& handler)
    : entry_(archive.Open(entry)), reader_(handler, MarkupReader::Kind::kXml), block_(kReadBlock, '\0') {}

bool ArchivedDocument::Next() {
  if (ended_) return false;
  const std::size_t got = entry_->Read(block_.data(), block_.size());
  ended_ = got == 0;
  if (ended_)
    reader_.Finish();
  else
    reader_.Feed(std::string_view(block_).substr(0, got));
  return !ended_;
}

}  // namespace exchange
