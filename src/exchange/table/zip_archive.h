#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct zip;
struct zip_file;

namespace exchange {

/// One file within an archive, read from its beginning on.
class ZipEntry {
 public:
  /// The next bytes, as many as fit; 0 at the end. Throws at a damaged archive and beyond the limit of bytes
  /// unpacked.
  std::size_t Read(char* to, std::size_t size);
  /// How much of it was read, 0 to 1.
  double Progress() const;

 private:
  friend class ZipArchive;
  ZipEntry(zip_file* file, std::uint64_t size) : file_(file), size_(size) {}
  struct Closer {
    void operator()(zip_file* file) const;
  };
  std::unique_ptr<zip_file, Closer> file_;
  std::uint64_t size_;
  std::uint64_t read_ = 0;
};

/// An archive that is read. Throws std::runtime_error at one that is cut short, protected or too large
/// unpacked.
class ZipArchive {
 public:
  explicit ZipArchive(const std::string& file);

  bool Has(const std::string& name) const;
  /// An entry by its name, whatever its case. It must not outlive the archive.
  std::unique_ptr<ZipEntry> Open(const std::string& name) const;
  /// The whole of a small entry, at most 1 MB; empty when there is none.
  std::string Small(const std::string& name) const;

 private:
  struct Closer {
    void operator()(zip* archive) const;
  };
  std::unique_ptr<zip, Closer> archive_;
};

}  // namespace exchange
