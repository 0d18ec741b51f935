#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// The attributes of an element, valid while it begins.
struct MarkupAttribute {
  std::string_view name;   // without its prefix
  std::string_view space;  // its namespace, where it has one
  std::string_view value;
};
class MarkupAttributes {
 public:
  /// The value of the attribute of that name; of several the first whose namespace holds `space`. Empty when
  /// none is.
  std::string_view Get(std::string_view name, std::string_view space = "") const;

  std::vector<MarkupAttribute> all;
};

/// Hears what a document says; names come without prefixes, texts in any number of pieces.
class MarkupHandler {
 public:
  virtual ~MarkupHandler() = default;
  virtual void Begin(std::string_view name, const MarkupAttributes& attributes) = 0;
  virtual void End(std::string_view name) = 0;
  virtual void Text(std::string_view text) = 0;
};

/// Reads a document of XML, or of HTML as people write it (in UTF-8), piece by piece. Entities of its own are
/// not expanded, and nothing outside is opened. What the handler throws comes out of Feed and Finish.
class MarkupReader {
 public:
  enum class Kind { kXml, kHtml };
  MarkupReader(MarkupHandler& handler, Kind kind);
  ~MarkupReader();
  MarkupReader(const MarkupReader&) = delete;
  MarkupReader& operator=(const MarkupReader&) = delete;

  /// Throws std::runtime_error where XML is not well formed.
  void Feed(std::string_view piece);
  /// Tells that the document ends here. Throws where XML does not.
  void Finish();

 private:
  struct Library;
  void Parse(const char* piece, int size, bool last);

  std::unique_ptr<Library> library_;
};

}  // namespace exchange
