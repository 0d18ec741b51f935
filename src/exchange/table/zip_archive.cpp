#include "exchange/table/zip_archive.h"

#include <algorithm>

#include "exchange/table/limits.h"
#include "exchange/zip_library.h"

namespace exchange {
namespace {

constexpr std::size_t kSmall = 1048576;  // bytes

}  // namespace

void ZipEntry::Closer::operator()(zip_file* file) const { Zip().fclose(file); }
void ZipArchive::Closer::operator()(zip* archive) const { Zip().discard(archive); }

std::size_t ZipEntry::Read(char* to, std::size_t size) {
  const zip_int64_t got = Zip().fread(file_.get(), to, size);
  if (got < 0) throw BrokenFile("o seu conteúdo não se consegue descomprimir");
  read_ += static_cast<std::uint64_t>(got);
  if (read_ > kUnpackedLimit) throw TooLarge("tem mais de 300 MB depois de descomprimido");
  return static_cast<std::size_t>(got);
}

double ZipEntry::Progress() const {
  return size_ == 0 ? 1.0 : std::min(1.0, static_cast<double>(read_) / static_cast<double>(size_));
}

ZipArchive::ZipArchive(const std::string& file) {
  int error = 0;
  archive_.reset(Zip().open(file.c_str(), ZIP_RDONLY, &error));
  if (!archive_) throw BrokenFile("falta o fim do arquivo");
  std::uint64_t total = 0;
  const zip_int64_t entries = Zip().get_num_entries(archive_.get(), 0);
  for (zip_int64_t i = 0; i < entries; ++i) {
    zip_stat_t stat;
    if (Zip().stat_index(archive_.get(), static_cast<zip_uint64_t>(i), 0, &stat) != 0)
      throw BrokenFile("o índice do arquivo não se consegue ler");
    if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && stat.encryption_method != ZIP_EM_NONE)
      throw ProtectedFile();
    if ((stat.valid & ZIP_STAT_SIZE) != 0) total += std::min<std::uint64_t>(stat.size, kUnpackedLimit + 1);
    if (total > kUnpackedLimit) throw TooLarge("tem mais de 300 MB depois de descomprimido");
  }
}

bool ZipArchive::Has(const std::string& name) const {
  return Zip().name_locate(archive_.get(), name.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::unique_ptr<ZipEntry> ZipArchive::Open(const std::string& name) const {
  const zip_int64_t index = Zip().name_locate(archive_.get(), name.c_str(), ZIP_FL_NOCASE);
  if (index < 0) throw BrokenFile("falta-lhe a parte \"" + name + "\"");
  zip_stat_t stat;
  Zip().stat_init(&stat);
  Zip().stat_index(archive_.get(), static_cast<zip_uint64_t>(index), 0, &stat);
  zip_file* opened = Zip().fopen_index(archive_.get(), static_cast<zip_uint64_t>(index), 0);
  if (opened == nullptr) throw BrokenFile("a parte \"" + name + "\" não se consegue abrir");
  return std::unique_ptr<ZipEntry>(new ZipEntry(opened, stat.size));
}

std::string ZipArchive::Small(const std::string& name) const {
  if (!Has(name)) return "";
  const auto entry = Open(name);
  std::string text(kSmall, '\0');
  std::size_t size = 0;
  for (std::size_t got = 1; got > 0 && size < text.size(); size += got)
    got = entry->Read(text.data() + size, text.size() - size);
  text.resize(size);
  return text;
}

}  // namespace exchange
